#include "hosts/ipc2581/check/PictureLosses.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "hosts/ipc2581/check/Causes.h"
#include "hosts/ipc2581/check/LineTags.h"
#include "hosts/ipc2581/check/ListingLosses.h"
#include "hosts/ipc2581/check/LossTable.h"

namespace ipc2581::host {
namespace {

// The same things, counted in the file or in the model.
struct Drawn {
    std::size_t pads = 0;
    std::size_t holes = 0;
    std::size_t arcs = 0;
    std::size_t components = 0;
    std::size_t layers = 0;
    // Never in the model.
    std::size_t userPrimitives = 0;
    std::size_t slots = 0;
    // Tracks that cannot be drawn as wide as they are.
    std::size_t thinTracks = 0;
    std::size_t mirroredPads = 0;
    // Those whose mirror is not read.
    std::size_t mirroredComponents = 0;
};

// Counts the tags of a file one after another.
class FileCounter {
public:
    void Visit(const Tag & tag)
    {
        const std::string_view name = tag.LocalName();
        const bool isPad = name == "Pad" || name == "LayerPad";
        m_isInFeatures = name == "Features" ? tag.StaysOpen() : m_isInFeatures;
        m_isInPad = isPad ? tag.StaysOpen() : m_isInPad;
        m_isInComponent = name == "Component" ? tag.StaysOpen() : m_isInComponent;
        if (tag.isClosing) {
            return;
        }
        m_count.pads += isPad ? 1 : 0;
        m_count.holes += name == "Hole" || name == "LayerHole" ? 1 : 0;
        m_count.arcs += m_isInFeatures && name == "Arc" ? 1 : 0;
        m_count.userPrimitives += m_isInFeatures && name == "UserPrimitiveRef" ? 1 : 0;
        m_count.slots += name == "SlotCavity" ? 1 : 0;
        m_count.components += name == "Component" ? 1 : 0;
        m_count.layers += name == "Layer" ? 1 : 0;
        if (name == "Xform") {
            m_count.mirroredPads += m_isInPad && MeansSet(tag.Value("mirror")) ? 1 : 0;
            m_count.mirroredComponents += m_isInComponent && IsSetUnread(tag.Value("mirror")) ? 1 : 0;
        }
    }

    [[nodiscard]] const Drawn & Count() const { return m_count; }

private:
    Drawn m_count;
    bool m_isInFeatures = false;
    bool m_isInPad = false;
    bool m_isInComponent = false;
};

Drawn CountInFile(const std::string & path)
{
    FileCounter counter;
    ForEachTag(path, [&](const Tag & tag) { counter.Visit(tag); });
    return counter.Count();
}

bool HasNoWidth(const CIPC2581_DrawObj & shape)
{
    if (const auto * const line = dynamic_cast<const CIPC2581_Line *>(&shape)) {
        // One without a place is not drawn.
        const CPointD nowhere;
        const bool hasPlace = *line->StartPoint->Point != nowhere || *line->EndPoint->Point != nowhere;
        return hasPlace && line->LineDesc->LineWidth <= 0;
    }
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
        count.pads += CountDrawn(Each(package->LandPattern.PadArray), shapes);
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
    Causes causes;
    causes.AddMissing("layers", file.layers, model.layers);
    causes.AddMissing("pads", file.pads, model.pads);
    causes.AddMissing("holes", file.holes, model.holes);
    causes.AddMissing("slots", file.slots, model.slots);
    causes.AddMissing("arcs", file.arcs, model.arcs);
    causes.AddMissing("user primitives", file.userPrimitives, model.userPrimitives);
    causes.AddMissing("components", file.components, model.components);
    causes.AddOtherwise(model.thinTracks, "track", "drawn one hairline wide", "no width was read");
    if (model.pads != 0) {
        causes.AddOtherwise(file.mirroredPads, "pad", "drawn as not mirrored", "mirror of pads is not read");
    }
    causes.AddOtherwise(std::min(file.mirroredComponents, CountWithoutSide(board)), "component", "drawn on the top",
                        "mirror is not \"TRUE\" in upper case, and the layer was not read");
    return causes.Text();
}

}  // namespace ipc2581::host
