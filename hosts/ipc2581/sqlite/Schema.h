#ifndef IPC2581_HOSTS_IPC2581_SQLITE_SCHEMA_H
#define IPC2581_HOSTS_IPC2581_SQLITE_SCHEMA_H

#include <array>

namespace ipc2581::host {

// What tells a database of boards from others, and its schema from those of other versions.
inline constexpr int SchemaId = 0x2581;
inline constexpr int SchemaVersion = 1;

// The tables whose rows belong to a board, each behind those that it refers to.
inline constexpr std::array<const char *, 19> TablesOfABoard = {
    "steps",    "layers", "stackup", "packages", "package_pins", "items",       "components",      "nets",
    "net_pins", "pads",   "holes",   "tracks",   "points",       "designators", "characteristics", "makers_parts",
    "specs",    "facts",  "notes"};

// The statements that make the tables and views of a new database, and say what their columns hold.
const char * Schema();

}  // namespace ipc2581::host

#endif
