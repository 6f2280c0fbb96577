#include "hosts/ipc2581/listings/BomTable.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/listings/NaturalOrder.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;

struct ItemRow {
    const CIPC2581_Bom_BomItem * item = nullptr;
    std::string value;
    std::vector<std::string> parts;
    std::vector<std::string> packages;
    std::vector<std::string> fitted;
    std::vector<std::string> notFitted;
    std::string firstDesignator;
};

// The components of a board by their designators.
class Placements {
public:
    explicit Placements(Board & board)
    {
        for (const Component * const component : Each(board.Step().ComponentArray)) {
            m_components.emplace(Shown(component->RefDes), component);
        }
    }

    // Adds the text of the designated component, if it has one that is not there yet.
    void AddText(const std::string & designator, CString Component::*text, std::vector<std::string> & texts) const
    {
        const auto found = m_components.find(designator);
        if (found == m_components.end() || (found->second->*text).IsEmpty()) {
            return;
        }
        const std::string added = Shown(found->second->*text);
        if (std::find(texts.begin(), texts.end(), added) == texts.end()) {
            texts.push_back(added);
        }
    }

private:
    std::unordered_map<std::string, const Component *> m_components;
};

ItemRow MakeRow(const CIPC2581_Bom_BomItem & item, const Placements & placements)
{
    ItemRow row;
    row.item = &item;
    if (!item.packageRef.IsEmpty()) {
        row.packages = {Shown(item.packageRef)};
    }
    for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item.m_arrRefDes)) {
        const std::string name = Shown(refDes->name);
        (refDes->populate ? row.fitted : row.notFitted).push_back(name);
        placements.AddText(name, &Component::Part, row.parts);
        // Many files tell the package with the component alone.
        if (item.packageRef.IsEmpty()) {
            placements.AddText(name, &Component::PackageRef, row.packages);
        }
        if (row.firstDesignator.empty() || NaturalLess(name, row.firstDesignator)) {
            row.firstDesignator = name;
        }
    }
    return row;
}

void Sort(std::vector<ItemRow> & rows)
{
    for (ItemRow & row : rows) {
        std::stable_sort(row.fitted.begin(), row.fitted.end(), NaturalLess);
        std::stable_sort(row.notFitted.begin(), row.notFitted.end(), NaturalLess);
    }
    std::stable_sort(rows.begin(), rows.end(), [](const ItemRow & left, const ItemRow & right) {
        return NaturalLess(left.firstDesignator, right.firstDesignator);
    });
}

std::vector<ItemRow> MakeRows(Board & board, bool isSorted)
{
    const Placements placements(board);
    std::vector<ItemRow> rows;
    auto values = ValuesOfItems(board);
    for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
        const std::size_t place = rows.size();
        rows.push_back(MakeRow(*item, placements));
        rows.back().value = values[place];
    }
    if (isSorted) {
        Sort(rows);
    }
    return rows;
}

const char * TitleOf(BomGroup group)
{
    return group == BomGroup::Value ? "value" : group == BomGroup::Part ? "part" : "package";
}

std::string NameIn(BomGroup group, const ItemRow & row)
{
    if (group == BomGroup::Package) {
        return Cell(row.packages).Text();
    }
    if (group == BomGroup::Value && !row.value.empty()) {
        return row.value;
    }
    return row.parts.empty() ? Shown(row.item->internalPartNumber) : Cell(row.parts).Text();
}

// An item that does not tell its quantity has as many as it has designators.
double QuantityOf(const ItemRow & row)
{
    const auto designators = static_cast<double>(row.fitted.size() + row.notFitted.size());
    return NumberOf(Shown(row.item->quantity)).value_or(designators);
}

struct Group {
    std::string name;
    double quantity = 0.0;
    std::size_t items = 0;
    std::vector<std::string> partNumbers;
    std::vector<std::string> fitted;
    std::vector<std::string> notFitted;
};

void AddTo(Group & group, const ItemRow & row)
{
    group.quantity += QuantityOf(row);
    ++group.items;
    const std::string number = Shown(row.item->internalPartNumber);
    const auto end = group.partNumbers.end();
    if (!number.empty() && std::find(group.partNumbers.begin(), end, number) == end) {
        group.partNumbers.push_back(number);
    }
    group.fitted.insert(group.fitted.end(), row.fitted.begin(), row.fitted.end());
    group.notFitted.insert(group.notFitted.end(), row.notFitted.begin(), row.notFitted.end());
}

}  // namespace

Table BomTable(Board & board, bool isSorted)
{
    std::vector<ItemRow> rows = MakeRows(board, isSorted);
    auto makersParts = MakersParts(board);
    Table table("items", {"quantity", "part number", "part", "pins", "category", "description", "package", "fitted",
                          "not fitted", "value", "makers' parts"});
    for (ItemRow & row : rows) {
        table.Add({CountOf(Shown(row.item->quantity)), Shown(row.item->internalPartNumber), std::move(row.parts),
                   CountOf(Shown(row.item->numberIO)), Shown(row.item->category), Shown(row.item->description),
                   std::move(row.packages), std::move(row.fitted), std::move(row.notFitted), std::move(row.value),
                   makersParts[Shown(row.item->internalPartNumber)]});
    }
    return table;
}

Table BomGroupTable(Board & board, bool isSorted, BomGroup group)
{
    std::vector<Group> groups;
    std::unordered_map<std::string, std::size_t> places;
    for (const ItemRow & row : MakeRows(board, isSorted)) {
        const auto [place, isNew] = places.try_emplace(NameIn(group, row), groups.size());
        if (isNew) {
            groups.emplace_back().name = place->first;
        }
        AddTo(groups[place->second], row);
    }
    Table table("groups", {TitleOf(group), "quantity", "items", "part numbers", "fitted", "not fitted"});
    for (Group & own : groups) {
        if (isSorted) {
            std::stable_sort(own.fitted.begin(), own.fitted.end(), NaturalLess);
            std::stable_sort(own.notFitted.begin(), own.notFitted.end(), NaturalLess);
        }
        table.Add({own.name, own.quantity, own.items, std::move(own.partNumbers), std::move(own.fitted),
                   std::move(own.notFitted)});
    }
    return table;
}

}  // namespace ipc2581::host
