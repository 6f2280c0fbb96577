#include "import/sections/LogisticsSection.h"

#include <optional>
#include <string_view>
#include <utility>

namespace ipc2581::detail {
namespace {

// Takes the value of an attribute where the model has its place free, and the value is not that of another one.
void TakeIfEmpty(const XmlElement & element, Word name, CString & text, ObjectBlocks & blocks)
{
    if (text.IsEmpty()) {
        TakeTextOf(element, name, text, blocks);
    }
}

// The package that all placements of an item name; empty if they differ.
std::string_view PackageOfAll(const XmlElement & item)
{
    std::string_view package;
    for (const XmlElement child : item) {
        if (child.Name() != W("RefDes")) {
            continue;
        }
        const std::string_view own = child.Value(W("packageRef"));
        if (own.empty() || (!package.empty() && own != package)) {
            return {};
        }
        package = own;
    }
    return package;
}

}  // namespace

void LogisticsSection::ReadLogisticHeader(const XmlElement & header)
{
    if (std::exchange(m_hasHeader, true)) {
        return;
    }
    CIPC2581_LogisticHeader & own = m_context.board.m_LogisticHeader;
    header.Take();
    // Of several the last one counts, as in all that the model knows once.
    std::optional<XmlElement> role;
    std::optional<XmlElement> person;
    for (const XmlElement child : header) {
        if (child.Name() == W("Role")) {
            role = child;
        }
        else if (child.Name() == W("Person")) {
            person = child;
        }
    }
    if (role.has_value()) {
        role->Take();
        // A role is known by its id, by which persons refer to it.
        TakeTextOf(*role, role->Has(W("name")) ? W("name") : W("id"), own.m_strRoleName, m_context.blocks);
    }
    if (person.has_value()) {
        person->Take();
        TakeTextOf(*person, W("name"), own.m_strPersonName, m_context.blocks);
    }
}

void LogisticsSection::ReadHistoryRecord(const XmlElement & record)
{
    if (std::exchange(m_hasHistory, true)) {
        return;
    }
    TakeFields<Fields<CIPC2581_HistoryRecord>::HistoryRecord>(record, m_context.board.m_HistoryRecord,
                                                              m_context.blocks);
}

void LogisticsSection::BeginBom(const XmlElement & bom)
{
    bom.Take();
    m_context.references.Declare(NameKind::Bom, bom.Value(W("name")));
    if (!m_hasBom) {
        TakeFields<Fields<CIPC2581_Bom>::Bom>(bom, m_context.board.m_Bom, m_context.blocks);
    }
    m_hasBom = true;
}

void LogisticsSection::ReadInBom(const XmlElement & element)
{
    if (element.Name() == W("BomItem")) {
        ReadBomItem(element);
    }
    else if (!std::exchange(m_hasBomHeader, true)) {
        TakeFields<Fields<CIPC2581_Bom>::BomHeader>(element, m_context.board.m_Bom, m_context.blocks);
    }
}

void LogisticsSection::ReadBomItem(const XmlElement & element)
{
    using RefDes = CIPC2581_Bom_BomItem_RefDes;
    auto & item = AddTo(m_context.board.m_Bom.m_arrBomItem, m_context.Make<CIPC2581_Bom_BomItem>());
    TakeFields<Fields<CIPC2581_Bom_BomItem>::BomItem>(element, item, m_context.blocks);
    TakeIfEmpty(element, W("OEMDesignNumberRef"), item.internalPartNumber, m_context.blocks);
    TakeIfEmpty(element, W("pinCount"), item.numberIO, m_context.blocks);
    m_context.references.Await(NameKind::Package, element.Value(W("packageRef")), element.Line());

    const std::string_view package = PackageOfAll(element);
    const bool isPackageOfItem =
        !package.empty() && (item.packageRef.IsEmpty() || package == element.Value(W("packageRef")));
    if (item.packageRef.IsEmpty()) {
        TakeText(package, item.packageRef, m_context.blocks);
    }
    for (const XmlElement child : element) {
        if (child.Name() == W("RefDes")) {
            TakeFields<Fields<RefDes>::RefDes>(child, AddTo(item.m_arrRefDes, m_context.Make<RefDes>()),
                                               m_context.blocks);
            if (child.Value(W("packageRef")) != element.Value(W("packageRef"))) {
                m_context.references.Await(NameKind::Package, child.Value(W("packageRef")), child.Line());
            }
            m_context.references.Await(NameKind::Layer, child.Value(W("layerRef")), child.Line());
            if (isPackageOfItem) {
                static_cast<void>(child.TakeValue(W("packageRef")));
            }
        }
    }
}

}  // namespace ipc2581::detail
