#include "hosts/ipc2581/board/ReportedFacts.h"

#include <string_view>
#include <utility>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// The facts at a path, none for a board without a report.
std::vector<LostFact> FactsAt(const Board & board, std::string_view path)
{
    return board.Report() == nullptr ? std::vector<LostFact>() : board.Report()->LostAt(path);
}

std::string Joined(std::string_view first, std::string_view second)
{
    std::string joined(first);
    return joined.append(first.empty() || second.empty() ? "" : " ").append(second);
}

}  // namespace

std::map<std::size_t, std::string> ValuesOfItems(const Board & board)
{
    std::map<std::size_t, std::string> values;
    for (const LostFact & fact : FactsAt(board, "Bom/BomItem/Characteristics/Textual")) {
        if (LowerCase(std::string(fact.Value("textualCharacteristicName"))) == "value") {
            values.emplace(fact.owner, fact.Value("textualCharacteristicValue"));
        }
    }
    return values;
}

std::vector<Characteristic> CharacteristicsOfItems(const Board & board)
{
    std::vector<Characteristic> characteristics;
    for (const std::string kind : {"Textual", "Measured", "Ranged", "Enumerated"}) {
        for (const LostFact & fact : FactsAt(board, "Bom/BomItem/Characteristics/" + kind)) {
            Characteristic own{fact.owner, kind, "", "", std::string(fact.Value("engineeringUnitOfMeasure"))};
            for (const auto & [name, value] : fact.attributes) {
                if (name.ends_with("CharacteristicName")) {
                    own.name = value;
                }
                else if (name.ends_with("Value")) {
                    own.value = Joined(own.value, value);
                }
            }
            characteristics.push_back(std::move(own));
        }
    }
    return characteristics;
}

std::vector<MakersPart> PartsOfMakers(const Board & board)
{
    std::map<std::size_t, std::string> numbers;
    for (const LostFact & item : FactsAt(board, "Avl/AvlItem")) {
        numbers[item.owner] = item.Value("OEMDesignNumber");
    }
    // A maker stands behind each part of an item, in the order of the parts.
    std::map<std::size_t, std::vector<std::string>> makers;
    for (const LostFact & maker : FactsAt(board, "Avl/AvlItem/AvlVmpn/AvlVendor")) {
        makers[maker.owner].emplace_back(maker.Value("enterpriseRef"));
    }
    std::vector<MakersPart> parts;
    std::map<std::size_t, std::size_t> next;
    for (const LostFact & part : FactsAt(board, "Avl/AvlItem/AvlVmpn/AvlMpn")) {
        const std::vector<std::string> & own = makers[part.owner];
        const std::size_t place = next[part.owner]++;
        parts.push_back({numbers[part.owner], place < own.size() ? own[place] : "", std::string(part.Value("name")),
                         std::string(part.Value("availability"))});
    }
    return parts;
}

std::map<std::string, std::vector<std::string>> MakersParts(const Board & board)
{
    std::map<std::string, std::vector<std::string>> parts;
    for (const MakersPart & own : PartsOfMakers(board)) {
        parts[own.partNumber].push_back(Joined(own.maker, own.part));
    }
    return parts;
}

std::map<std::size_t, std::string> ClassesOfNets(const Board & board)
{
    std::map<std::size_t, std::string> classes;
    for (const LostFact & fact : FactsAt(board, "Ecad/CadData/Step/LogicalNet")) {
        classes.emplace(fact.owner, fact.Value("netClass"));
    }
    return classes;
}

std::map<std::size_t, PackageFacts> FactsOfPackages(const Board & board)
{
    std::map<std::size_t, PackageFacts> facts;
    for (const LostFact & fact : FactsAt(board, "Ecad/CadData/Step/Package")) {
        facts.emplace(fact.owner, PackageFacts{std::string(fact.Value("height")), std::string(fact.Value("pinOne"))});
    }
    return facts;
}

std::vector<SpecProperty> SpecProperties(const Board & board)
{
    if (board.Report() == nullptr) {
        return {};
    }
    constexpr std::string_view top = "Ecad/CadHeader/Spec";
    constexpr std::string_view below = "Ecad/CadHeader/Spec/";
    std::vector<SpecProperty> properties;
    std::string spec;
    std::string kind;
    board.Report()->ForEachLost([&](const LostFact & fact) {
        if (fact.path == top) {
            spec = fact.Value("name");
        }
        else if (fact.path.starts_with(below) && fact.Element() != "Property") {
            kind = Joined(fact.Element(), fact.Value("type"));
        }
        else if (fact.path.starts_with(below)) {
            const std::string_view text = fact.Value("text");
            properties.push_back(
                {spec, kind, text.empty() ? Joined(fact.Value("value"), fact.Value("unit")) : std::string(text)});
        }
    });
    return properties;
}

}  // namespace ipc2581::host
