#include "hosts/ipc2581/board/BomFacts.h"

#include <cstddef>

#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {

BomFacts::BomFacts(Board & board)
{
    const auto values = ValuesOfItems(board);
    std::size_t place = 0;
    for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
        const auto value = values.find(place++);
        for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
            const Facts facts{refDes->populate, value == values.end() ? "" : value->second};
            m_facts.try_emplace(Shown(refDes->name), facts);
        }
    }
}

std::optional<bool> BomFacts::IsFitted(const std::string & designator) const
{
    const auto found = m_facts.find(designator);
    if (found == m_facts.end()) {
        return std::nullopt;
    }
    return found->second.isFitted;
}

std::string BomFacts::Value(const std::string & designator) const
{
    const auto found = m_facts.find(designator);
    return found == m_facts.end() ? "" : found->second.value;
}

}  // namespace ipc2581::host
