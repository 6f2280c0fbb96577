#ifndef IPC2581_HOSTS_IPC2581_BOARD_REPORTEDFACTS_H
#define IPC2581_HOSTS_IPC2581_BOARD_REPORTEDFACTS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "hosts/ipc2581/board/Board.h"

// What the file of an imported board says and the model has no member for, as far as listings show it. All of it is
// empty for a board that the reader of the core has read.
namespace ipc2581::host {

// The value of each item of the bill of materials, by the place of the item: "100nF".
std::map<std::size_t, std::string> ValuesOfItems(const Board & board);

// What the file says of how an item behaves: "resistance", "1", "kOhm".
struct Characteristic {
    std::size_t item = 0;  // its place
    std::string kind;      // the name of the element: "Measured"
    std::string name;
    std::string value;  // of a range both ends
    std::string unit;
};
// By their kinds, of a kind in the order of the file.
std::vector<Characteristic> CharacteristicsOfItems(const Board & board);

// A part that may be bought for a part number.
struct MakersPart {
    std::string partNumber;
    std::string maker;
    std::string part;
    std::string availability;
};
std::vector<MakersPart> PartsOfMakers(const Board & board);

// The same by the part number, as "MAKER PART".
std::map<std::string, std::vector<std::string>> MakersParts(const Board & board);

// The class of each logical net, by the place of the net: "POWER".
std::map<std::size_t, std::string> ClassesOfNets(const Board & board);

struct PackageFacts {
    std::string height;
    std::string pinOne;  // the number of the pin that counts as the first
};
// By the place of the package.
std::map<std::size_t, PackageFacts> FactsOfPackages(const Board & board);

struct SpecProperty {
    std::string spec;
    std::string property;
    std::string value;
};
// What the header says of materials and layers, in the order of the file.
std::vector<SpecProperty> SpecProperties(const Board & board);

}  // namespace ipc2581::host

#endif
