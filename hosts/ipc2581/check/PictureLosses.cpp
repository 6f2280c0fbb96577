#include "hosts/ipc2581/check/PictureLosses.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "hosts/ipc2581/check/LineTags.h"

namespace ipc2581::host {
namespace {

// The same things, counted in the file or in the model.
struct Drawn {
    std::size_t pads = 0;
    std::size_t holes = 0;
    std::size_t arcs = 0;
    std::size_t components = 0;
    std::size_t layers = 0;
    // Tracks that cannot be drawn as wide as they are.
    std::size_t thinTracks = 0;
    std::size_t mirroredPads = 0;
};

Drawn CountInFile(const std::string & path)
{
    Drawn count;
    bool isInFeatures = false;
    bool isInPad = false;
    ForEachTag(path, [&](const Tag & tag) {
        const std::string_view name = tag.LocalName();
        const bool isPad = name == "Pad" || name == "LayerPad";
        isInFeatures = name == "Features" ? !tag.isClosing : isInFeatures;
        isInPad = isPad ? !tag.isClosing : isInPad;
        if (tag.isClosing) {
            return;
        }
        const std::string_view mirror = isInPad && name == "Xform" ? tag.Value("mirror") : "";
        count.mirroredPads += mirror == "true" || mirror == "TRUE" || mirror == "1" ? 1 : 0;
        count.pads += isPad ? 1 : 0;
        count.holes += name == "Hole" || name == "LayerHole" ? 1 : 0;
        count.arcs += isInFeatures && name == "Arc" ? 1 : 0;
        count.components += name == "Component" ? 1 : 0;
        count.layers += name == "Layer" ? 1 : 0;
    });
    return count;
}

bool HasNoWidth(const CIPC2581_DrawObj & shape)
{
    const auto * const polyLine = dynamic_cast<const CIPC2581_PolyLine *>(&shape);
    return polyLine != nullptr && polyLine->LineDesc->LineWidth <= 0;
}

// The names that others refer to.
using Names = std::unordered_set<std::string_view>;

Names ShapeNames(const CIPC2581_Content & content)
{
    Names names;
    for (const auto * const entry : Each(content.DictionaryStandard->EntryArray)) {
        names.insert(entry->EntryStandardId);
    }
    return names;
}

std::size_t CountDrawn(std::span<CIPC2581_Ecad_CadData_Step_Pad * const> pads, const Names & shapes)
{
    return static_cast<std::size_t>(std::count_if(
        pads.begin(), pads.end(), [&](const auto * pad) { return shapes.contains(pad->StandardPrimitiveRefId); }));
}

void CountSet(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set, const Names & shapes, Drawn & count)
{
    count.pads += shapes.contains(set.Pad.StandardPrimitiveRefId) ? 1 : 0;
    count.holes += set.Hole.Diameter.IsEmpty() ? 0 : 1;
    for (const CIPC2581_DrawObj * const shape : Each(set.Features.DrawObjArray)) {
        count.thinTracks += HasNoWidth(*shape) ? 1 : 0;
    }
}

Drawn CountInModel(Board & board)
{
    Drawn count;
    const CIPC2581_Ecad_CadData_Step & step = board.Step();
    const Names shapes = ShapeNames(board.Content());
    Names packages;
    count.layers = Count(board.CadData().m_arrLayer);
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(step.LayerFeatureArray)) {
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature_Set * const set : Each(feature->SetArray)) {
            CountSet(*set, shapes, count);
        }
    }
    for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(step.PadStackArray)) {
        count.pads += CountDrawn(Each(stack->LayerPadArray), shapes);
        count.holes += stack->LayerHole->Diameter.IsEmpty() ? 0 : 1;
    }
    for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(step.PackageArray)) {
        packages.insert(package->name);
        count.pads += Count(package->LandPattern.PadArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_Component * const part : Each(step.ComponentArray)) {
        count.components += packages.contains(part->PackageRef) ? 1 : 0;
    }
    return count;
}

}  // namespace

std::string PictureLosses(Board & board)
{
    const Drawn file = CountInFile(board.File().PlainPath());
    const Drawn model = CountInModel(board);
    std::string causes;
    const auto add = [&](const std::string & cause) { causes.append(causes.empty() ? "" : "; ").append(cause); };
    const auto addMissing = [&](const std::string & what, std::size_t inFile, std::size_t inModel) {
        if (inModel < inFile) {
            add(std::to_string(inFile - inModel) + " of " + std::to_string(inFile) + " " + what +
                " of the file are missing");
        }
    };
    addMissing("layers", file.layers, model.layers);
    addMissing("pads", file.pads, model.pads);
    addMissing("holes", file.holes, model.holes);
    addMissing("arcs", file.arcs, model.arcs);
    addMissing("components", file.components, model.components);
    if (model.thinTracks != 0) {
        add(std::to_string(model.thinTracks) + " tracks are drawn as hairlines, because no width stands in them");
    }
    if (file.mirroredPads != 0) {
        add(std::to_string(file.mirroredPads) + " pads are not mirrored, because their mirror is not read");
    }
    return causes;
}

}  // namespace ipc2581::host
