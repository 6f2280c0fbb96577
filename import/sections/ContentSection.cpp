#include "import/sections/ContentSection.h"

#include <memory>
#include <string>
#include <string_view>

#include "import/shapes/Units.h"

namespace ipc2581::detail {
namespace {

void AddName(const XmlElement & element, CStringArray & names, ObjectBlocks & blocks)
{
    element.Take();
    // The name is an attribute; files that the library reads line by line have it as a text.
    const bool isAttribute = element.Has(W("name"));
    CString name;
    TakeText(isAttribute ? std::string(element.TakeValue(W("name"))) : element.TakeContent(), name, blocks);
    names.Add(name);
}

}  // namespace

void ContentSection::Read(const XmlElement & element)
{
    CIPC2581_Content & content = m_context.board.m_Content;
    switch (element.Name()) {
    case W("FunctionMode"):
        if (!content.FunctionMode.IsEmpty()) {
            break;
        }
        TakeFields<Fields<CIPC2581_Content>::FunctionMode>(element, content, m_context.blocks);
        TakeTextOf(element, W("comment"), content.FunctionModeComment, m_context.blocks);
        break;
    case W("StepRef"):
        AddName(element, content.StepRef, m_context.blocks);
        break;
    case W("LayerRef"):
        AddName(element, content.LayerRef, m_context.blocks);
        break;
    case W("BomRef"):
        AddName(element, content.BomRef, m_context.blocks);
        break;
    default:
        break;
    }
}

void ContentSection::BeginStandard(const XmlElement & dictionary)
{
    CString & unit = m_context.board.m_Content.DictionaryStandard->Unit;
    dictionary.Take();
    TakeTextOf(dictionary, W("units"), unit, m_context.blocks);
    CheckUnits(dictionary);
}

void ContentSection::CheckUnits(const XmlElement & dictionary)
{
    const std::string_view units = dictionary.Value(W("units"));
    if (!units.empty() && MillimetresOf(units) == 0.0) {
        m_context.Note(NoteKind::UnknownUnit, dictionary.Line(),
                       "the unit \"" + std::string(units) + "\" of a dictionary is not known");
    }
}

void ContentSection::Keep(std::vector<KeptEntry> & entries, Tree & entry, LossRecorder::Path path)
{
    entries.push_back({std::move(entry), path});
    entry = Tree();
}

void ContentSection::ReadStandard(Tree & entry, LossRecorder::Path path)
{
    if (m_figures.KnowsReferencesIn(entry.Root())) {
        m_shapes.SetUnits(m_context.board.m_Content.DictionaryStandard->Unit);
        ReadStandardEntry(entry.Root());
    }
    else {
        Keep(m_standards, entry, path);
    }
}

void ContentSection::ReadStandardEntry(const XmlElement & element)
{
    using Entry = CIPC2581_Content_DictionaryStandard_EntryStandard;
    auto & entry = AddTo(m_context.board.m_Content.DictionaryStandard->EntryArray, m_context.Make<Entry>());
    TakeFields<Fields<Entry>::EntryStandard>(element, entry, m_context.blocks);
    Shapes shapes;
    for (const XmlElement child : element) {
        m_shapes.Read(child, {}, ShapeReader::Hollow::Areas, shapes);
        const auto hollow = m_shapes.HollowLineOf(child);
        if (hollow.has_value()) {
            m_figures.AddHollow(element.Value(W("id")), *hollow);
        }
    }
    for (auto & shape : shapes) {
        AddTo(entry.DrawArray, std::move(shape));
    }
    m_figures.AddStandard(element.Value(W("id")), entry);
}

void ContentSection::BeginUser(const XmlElement & dictionary)
{
    dictionary.Take();
    TakeTextOf(dictionary, W("units"), m_context.board.m_Content.DictionaryUser->Unit, m_context.blocks);
    CheckUnits(dictionary);
}

void ContentSection::KeepUser(Tree & entry, LossRecorder::Path path)
{
    Keep(m_users, entry, path);
}

void ContentSection::ReadUserEntry(const XmlElement & element)
{
    using Entry = CIPC2581_Content_DictionaryUser_EntryUser;
    element.Take();
    auto & entry = AddTo(m_context.board.m_Content.DictionaryUser->EntryArray, m_context.Make<Entry>());
    TakeTextOf(element, W("id"), entry.ID, m_context.blocks);
    Shapes shapes;
    for (const XmlElement child : element) {
        m_shapes.Read(child, {}, ShapeReader::Hollow::Strokes, shapes);
    }
    for (auto & shape : shapes) {
        AddTo(entry.DrawObjArray, std::move(shape));
    }
    m_figures.AddUser(element.Value(W("id")), entry);
}

void ContentSection::BeginLineDescs(const XmlElement & dictionary)
{
    dictionary.Take();
    m_figures.SetLineDescUnits(dictionary.TakeValue(W("units")));
    CheckUnits(dictionary);
}

void ContentSection::ReadColor(const XmlElement & element)
{
    using Entry = CIPC2581_Content_DictionaryColor_EntryColor;
    auto & entry = AddTo(m_context.board.m_Content.m_DictionaryColor->Entry, m_context.Make<Entry>());
    TakeFields<Fields<Entry>::EntryColor>(element, entry, m_context.blocks);
    for (const XmlElement child : element) {
        if (child.Name() == W("Color")) {
            TakeFields<Fields<Entry>::Color>(child, entry, m_context.blocks);
        }
        else if (child.Name() == W("ColorRef")) {
            child.Take();
            TakeTextOf(child, W("id"), entry.ColorRefID, m_context.blocks);
        }
    }
}

void ContentSection::End()
{
    m_shapes.SetUnits(m_context.board.m_Content.DictionaryStandard->Unit);
    for (KeptEntry & entry : m_standards) {
        ReadStandardEntry(entry.tree.Root());
        entry.tree.ReportLost(m_context.losses, entry.path, 0);
    }
    m_shapes.SetUnits(m_context.board.m_Content.DictionaryUser->Unit);
    for (KeptEntry & entry : m_users) {
        ReadUserEntry(entry.tree.Root());
        entry.tree.ReportLost(m_context.losses, entry.path, 0);
    }
    m_standards.clear();
    m_users.clear();
}

}  // namespace ipc2581::detail
