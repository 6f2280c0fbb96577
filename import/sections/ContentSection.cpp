#include "import/sections/ContentSection.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "import/shapes/Units.h"

namespace ipc2581::detail {
namespace {

void AddName(const XmlElement & element, NameKind kind, CStringArray & names, Context & context)
{
    element.Take();
    // The name is an attribute; files that the library reads line by line have it as a text.
    const bool isAttribute = element.Has(W("name"));
    const std::string name = isAttribute ? std::string(element.TakeValue(W("name"))) : element.TakeContent();
    CString taken;
    TakeText(name, taken, context.blocks);
    names.Add(taken);
    context.references.Await(kind, name, element.Line());
}

// The entries of the list that an entry draws, each by its place, with those of its own kind alone.
void AddUses(const XmlElement & element, ByName<std::size_t> & places, std::vector<std::size_t> & uses)
{
    for (const XmlElement child : element) {
        const std::size_t * const place =
            child.Name() == W("UserPrimitiveRef") ? FindIn(places, child.Value(W("id"))) : nullptr;
        if (place != nullptr) {
            uses.push_back(*place);
        }
        AddUses(child, places, uses);
    }
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
        AddName(element, NameKind::Step, content.StepRef, m_context);
        break;
    case W("LayerRef"):
        AddName(element, NameKind::Layer, content.LayerRef, m_context);
        break;
    case W("BomRef"):
        AddName(element, NameKind::Bom, content.BomRef, m_context);
        break;
    default:
        break;
    }
}

void ContentSection::BeginStandard(const XmlElement & dictionary)
{
    TakeUnits(dictionary, m_context.board.m_Content.DictionaryStandard->Unit);
}

void ContentSection::BeginUser(const XmlElement & dictionary)
{
    TakeUnits(dictionary, m_context.board.m_Content.DictionaryUser->Unit);
}

void ContentSection::TakeUnits(const XmlElement & dictionary, CString & unit)
{
    dictionary.Take();
    m_units = dictionary.TakeValue(W("units"));
    if (unit.IsEmpty()) {
        TakeText(m_units, unit, m_context.blocks);
    }
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

void ContentSection::Keep(Tree & entry, LossRecorder::Path path, std::size_t owner, StandardEntry * standard,
                          UserEntry * user)
{
    m_kept.push_back({std::move(entry), path, owner, m_context.losses.PlaceHere(), m_units, standard, user});
    entry = Tree();
}

void ContentSection::ReadStandard(Tree & tree, LossRecorder::Path path, std::size_t owner)
{
    const XmlElement element = tree.Root();
    auto & entry = AddTo(m_context.board.m_Content.DictionaryStandard->EntryArray, m_context.Make<StandardEntry>());
    TakeFields<Fields<StandardEntry>::EntryStandard>(element, entry, m_context.blocks);
    if (m_figures.KnowsReferencesIn(element)) {
        FillStandard(element, m_units, entry);
    }
    else {
        Keep(tree, path, owner, &entry, nullptr);
    }
}

void ContentSection::FillStandard(const XmlElement & element, const std::string & units, StandardEntry & entry)
{
    const double scale = UnitScale(units, m_context.board.m_Content.DictionaryStandard->Unit);
    m_shapes.SetUnits(units);
    Shapes shapes;
    for (const XmlElement child : element) {
        m_shapes.Read(child, {.scale = scale}, ShapeReader::Hollow::Areas, shapes);
        auto hollow = m_shapes.HollowLineOf(child);
        if (hollow.has_value()) {
            hollow->LineWidth *= scale;
            m_figures.AddHollow(element.Value(W("id")), *hollow);
        }
    }
    for (auto & shape : shapes) {
        AddTo(entry.DrawArray, std::move(shape));
    }
    m_figures.AddStandard(element.Value(W("id")), entry);
}

void ContentSection::KeepUser(Tree & tree, LossRecorder::Path path, std::size_t owner)
{
    const XmlElement element = tree.Root();
    auto & entry = AddTo(m_context.board.m_Content.DictionaryUser->EntryArray, m_context.Make<UserEntry>());
    element.Take();
    TakeTextOf(element, W("id"), entry.ID, m_context.blocks);
    m_context.references.Declare(NameKind::Figure, element.Value(W("id")));
    Keep(tree, path, owner, nullptr, &entry);
}

void ContentSection::FillUser(const XmlElement & element, const std::string & units, UserEntry & entry)
{
    const double scale = UnitScale(units, m_context.board.m_Content.DictionaryUser->Unit);
    m_shapes.SetUnits(units);
    Shapes shapes;
    for (const XmlElement child : element) {
        m_shapes.Read(child, {.scale = scale}, ShapeReader::Hollow::Strokes, shapes);
    }
    for (auto & shape : shapes) {
        AddTo(entry.DrawObjArray, std::move(shape));
    }
    m_figures.AddUser(element.Value(W("id")), entry);
}

// Each figure comes behind those that it draws, wherever they stand. One that draws itself comes nevertheless.
void ContentSection::FillUsers()
{
    ByName<std::size_t> places;
    for (std::size_t i = 0; i < m_kept.size(); ++i) {
        if (m_kept[i].user != nullptr) {
            places.try_emplace(std::string(m_kept[i].tree.Root().Value(W("id"))), i);
        }
    }
    struct Visit {
        std::size_t entry;
        std::vector<std::size_t> uses;
        std::size_t next = 0;
    };
    std::vector<bool> isBegun(m_kept.size(), false);
    std::vector<Visit> open;
    const auto begin = [&](std::size_t entry) {
        isBegun[entry] = true;
        open.push_back({entry, {}});
        AddUses(m_kept[entry].tree.Root(), places, open.back().uses);
    };
    const auto finish = [&] {
        KeptEntry & kept = m_kept[open.back().entry];
        FillUser(kept.tree.Root(), kept.units, *kept.user);
        open.pop_back();
    };
    for (std::size_t i = 0; i < m_kept.size(); ++i) {
        if (m_kept[i].user == nullptr || isBegun[i]) {
            continue;
        }
        for (begin(i); !open.empty();) {
            Visit & top = open.back();
            const auto next = std::find_if(top.uses.begin() + static_cast<std::ptrdiff_t>(top.next), top.uses.end(),
                                           [&](std::size_t use) { return !isBegun[use]; });
            top.next = static_cast<std::size_t>(next - top.uses.begin());
            next == top.uses.end() ? finish() : begin(*next);
        }
    }
}

void ContentSection::BeginLineDescs(const XmlElement & dictionary)
{
    dictionary.Take();
    m_figures.BeginLineDescs(dictionary.TakeValue(W("units")));
    CheckUnits(dictionary);
}

void ContentSection::ReadColor(const XmlElement & element)
{
    using Entry = CIPC2581_Content_DictionaryColor_EntryColor;
    auto & entry = AddTo(m_context.board.m_Content.m_DictionaryColor->Entry, m_context.Make<Entry>());
    TakeFields<Fields<Entry>::EntryColor>(element, entry, m_context.blocks);
    m_context.references.Declare(NameKind::Color, element.Value(W("id")));
    ForFirsts(element, [&](const XmlElement & child) {
        if (child.Name() == W("Color")) {
            TakeFields<Fields<Entry>::Color>(child, entry, m_context.blocks);
        }
        else if (child.Name() == W("ColorRef")) {
            child.Take();
            TakeTextOf(child, W("id"), entry.ColorRefID, m_context.blocks);
            m_context.references.Await(NameKind::Color, child.Value(W("id")), child.Line());
        }
    });
}

void ContentSection::End()
{
    for (KeptEntry & entry : m_kept) {
        if (entry.standard != nullptr) {
            FillStandard(entry.tree.Root(), entry.units, *entry.standard);
        }
    }
    FillUsers();
    for (const KeptEntry & entry : m_kept) {
        m_context.losses.BeginLate(entry.place);
        entry.tree.ReportLost(m_context.losses, entry.path, entry.owner);
        m_context.losses.EndLate();
    }
    m_kept.clear();
    // What comes now and has no unit of its own has that of the board.
    m_shapes.SetUnits("");
}

}  // namespace ipc2581::detail
