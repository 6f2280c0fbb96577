#ifndef IPC2581_TESTS_IMPORT_SUPPORT_DOCUMENTS_H
#define IPC2581_TESTS_IMPORT_SUPPORT_DOCUMENTS_H

#include <cstddef>
#include <string>
#include <string_view>

#include "import/Import.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

// A small document that loses nothing by itself, and what a test puts into it.
struct Document {
    // In Content.
    std::string content = {};
    // Between Content and Ecad.
    std::string logistics = {};
    std::string header = R"(<CadHeader units="MILLIMETER"/>)";
    // In CadData, in front of the step: layers and stackups.
    std::string data = R"(<Layer name="TOP"/>)";
    // In the step.
    std::string step = {};
    // Behind the step.
    std::string behind = {};

    [[nodiscard]] std::string Text() const;
};

// Sets on the layer TOP, as what stands in a step.
std::string OnTop(std::string_view sets);

// Features on the layer TOP, in a set of their own.
std::string FeaturesOnTop(std::string_view inFeatures);

std::span<const std::byte> BytesOf(std::string_view text);

Imported ImportText(std::string_view text, const ImportOptions & options = {});
Imported ImportDocument(const Document & document, const ImportOptions & options = {});

// What the import says of a text that it refuses; a failure if it does not.
ImportError ErrorOf(std::string_view text, const ImportOptions & options = {});

// A lost fact as "Ecad/CadData/Layer name=TOP", the text of an element as "=text".
std::string LossText(const LostFact & fact);
// The lost facts in the order of the file.
Texts Losses(const ImportReport & report);
// The notes by kind and text: "StepRepeat: the board repeats ...".
Texts Notes(const ImportReport & report);
// All that a report says, without any line.
std::string ReportText(const ImportReport & report);
// The same without the counts of elements.
std::string FactsText(const ImportReport & report);

using Step = CIPC2581_Ecad_CadData_Step;
using LayerSet = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
using Entry = CIPC2581_Content_DictionaryStandard_EntryStandard;

const Step & StepOf(const Imported & imported);
std::size_t SetCount(const Imported & imported, std::size_t layer = 0);
const LayerSet & SetOf(const Imported & imported, std::size_t index, std::size_t layer = 0);
// The shapes of all sets of a layer, as ShapeText has them.
Texts Drawn(const Imported & imported, std::size_t layer = 0);
Texts ShapeTexts(const CIPC2581_DrawObjArray & shapes);
// The shapes of an entry of the standard dictionary; a failure if there is no such entry.
Texts EntryShapes(const Imported & imported, std::string_view id);
// The ids of the standard dictionary.
Texts EntryIds(const Imported & imported);

}  // namespace ipc2581::tests

#endif
