#include "tests/import/support/Documents.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <gtest/gtest.h>

#include "ipc2581/each.h"
#include "tests/import/support/ShapeText.h"

namespace ipc2581::tests {
namespace {

std::string KindName(NoteKind kind)
{
    switch (kind) {
    case NoteKind::NetsFromSets:
        return "NetsFromSets";
    case NoteKind::StepLeftOut:
        return "StepLeftOut";
    case NoteKind::StepRepeat:
        return "StepRepeat";
    case NoteKind::DanglingReference:
        return "DanglingReference";
    case NoteKind::UnknownUnit:
        return "UnknownUnit";
    case NoteKind::Merged:
        return "Merged";
    }
    return "?";
}

const CIPC2581_Ecad_CadData_Step_LayerFeature & LayerOf(const Imported & imported, std::size_t layer)
{
    return *Each(StepOf(imported).LayerFeatureArray)[layer];
}

}  // namespace

std::string Document::Text() const
{
    std::string text = "<IPC-2581>\n<Content>\n";
    text.append(content).append("\n</Content>\n").append(logistics);
    text.append("\n<Ecad>\n").append(header).append("\n<CadData>\n").append(data);
    text.append("\n<Step name=\"board\">\n").append(step).append("\n</Step>\n").append(behind);
    return text.append("\n</CadData>\n</Ecad>\n</IPC-2581>\n");
}

std::string OnTop(std::string_view sets)
{
    return "<LayerFeature layerRef=\"TOP\">" + std::string(sets) + "</LayerFeature>";
}

std::string FeaturesOnTop(std::string_view inFeatures)
{
    return OnTop("<Set><Features>" + std::string(inFeatures) + "</Features></Set>");
}

std::span<const std::byte> BytesOf(std::string_view text)
{
    return std::as_bytes(std::span(text.data(), text.size()));
}

Imported ImportText(std::string_view text, const ImportOptions & options)
{
    return ipc2581::Import(BytesOf(text), options);
}

Imported ImportDocument(const Document & document, const ImportOptions & options)
{
    return ImportText(document.Text(), options);
}

ImportError ErrorOf(std::string_view text, const ImportOptions & options)
{
    try {
        ImportText(text, options);
    }
    catch (const ImportError & error) {
        return error;
    }
    ADD_FAILURE() << "imported all the same: " << text.substr(0, 1000);
    return {"", 0, 0, ""};
}

std::string LossText(const LostFact & fact)
{
    std::string text = fact.path;
    for (const auto & [name, value] : fact.attributes) {
        text.append(" ").append(name).append("=").append(value);
    }
    return text;
}

Texts Losses(const ImportReport & report)
{
    Texts losses;
    for (std::size_t i = 0; i < report.LostCount(); ++i) {
        losses.push_back(LossText(report.Lost(i)));
    }
    return losses;
}

Texts Notes(const ImportReport & report)
{
    Texts notes;
    std::transform(report.Notes().begin(), report.Notes().end(), std::back_inserter(notes),
                   [](const Note & note) { return KindName(note.kind) + ": " + note.text; });
    return notes;
}

std::string FactsText(const ImportReport & report)
{
    std::string text;
    for (std::size_t i = 0; i < report.LostCount(); ++i) {
        const LostFact fact = report.Lost(i);
        text.append(LossText(fact)).append(" of ").append(std::to_string(fact.owner)).append("\n");
    }
    return text + Joined(Notes(report)) + std::to_string(report.RemarkCount()) + " remarks\n";
}

std::string ReportText(const ImportReport & report)
{
    std::string text = FactsText(report);
    for (const auto & [name, count] : report.Elements()) {
        text.append(name + " " + std::to_string(count.stated) + " " + std::to_string(count.lost) + "\n");
    }
    return text;
}

const Step & StepOf(const Imported & imported)
{
    return imported.board->m_Ecad.m_CadData.m_Step;
}

std::size_t SetCount(const Imported & imported, std::size_t layer)
{
    return Count(LayerOf(imported, layer).SetArray);
}

const LayerSet & SetOf(const Imported & imported, std::size_t index, std::size_t layer)
{
    return *Each(LayerOf(imported, layer).SetArray)[index];
}

Texts ShapeTexts(const CIPC2581_DrawObjArray & shapes)
{
    Texts texts;
    std::transform(Each(shapes).begin(), Each(shapes).end(), std::back_inserter(texts),
                   [](const CIPC2581_DrawObj * shape) { return ShapeText(*shape); });
    return texts;
}

Texts Drawn(const Imported & imported, std::size_t layer)
{
    Texts drawn;
    for (std::size_t i = 0; i < SetCount(imported, layer); ++i) {
        const Texts own = ShapeTexts(SetOf(imported, i, layer).Features.DrawObjArray);
        drawn.insert(drawn.end(), own.begin(), own.end());
    }
    return drawn;
}

Texts EntryShapes(const Imported & imported, std::string_view id)
{
    for (const Entry * const entry : Each(imported.board->m_Content.DictionaryStandard->EntryArray)) {
        if (entry->EntryStandardId == id) {
            return ShapeTexts(*entry->DrawArray);
        }
    }
    ADD_FAILURE() << "no entry " << id;
    return {};
}

Texts EntryIds(const Imported & imported)
{
    Texts ids;
    for (const Entry * const entry : Each(imported.board->m_Content.DictionaryStandard->EntryArray)) {
        ids.push_back(ipc2581::Str(entry->EntryStandardId));
    }
    return ids;
}

}  // namespace ipc2581::tests
