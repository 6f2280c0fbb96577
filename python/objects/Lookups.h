#ifndef IPC2581_PYTHON_OBJECTS_LOOKUPS_H
#define IPC2581_PYTHON_OBJECTS_LOOKUPS_H

#include <span>
#include <string_view>
#include <vector>

#include "python/model/ClassTable.h"

// Attributes that people expect of objects, beside the members of the model.
namespace ipc2581::python {

// Another name for a member, or for a member of a part.
struct AliasRow {
    std::string_view className;
    const char * name;
    std::string_view path;
    const char * doc;
};
std::span<const AliasRow> Aliases();

// What an object refers to by a name.
struct ReferenceRow {
    std::string_view className;
    const char * name;
    std::string_view text;  // the member that holds the name
    std::string_view list;  // where it stands, from the root of a board
    std::string_view key;   // the member of its elements that is compared
    const char * doc;
};
std::span<const ReferenceRow> References();

// Where the lists stand that Python's boards have by their plain names.
inline constexpr std::string_view Step = "m_Ecad.m_CadData.m_Step";
inline constexpr std::string_view Components = "m_Ecad.m_CadData.m_Step.ComponentArray";
inline constexpr std::string_view Nets = "m_Ecad.m_CadData.m_Step.LogicalNetArray";
inline constexpr std::string_view Packages = "m_Ecad.m_CadData.m_Step.PackageArray";
inline constexpr std::string_view LayerFeatures = "m_Ecad.m_CadData.m_Step.LayerFeatureArray";
inline constexpr std::string_view Layers = "m_Ecad.m_CadData.m_arrLayer";
inline constexpr std::string_view BomItems = "m_Bom.m_arrBomItem";

// A member of an object, or of a part in it: "Location.X".
struct Place {
    const MemberRow * member = nullptr;
    void * address = nullptr;  // null where a part on the way is not there
};
Place PlaceAt(const Found & object, std::string_view path);
// The member alone.
const MemberRow * MemberAt(const ClassRow & type, std::string_view path);

// The first element of a list whose text is the same; nothing if there is none. The text is as the model has it.
Found FindElement(const Place & list, std::string_view key, std::string_view text);

}  // namespace ipc2581::python

#endif
