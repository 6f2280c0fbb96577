#include "hosts/ipc2581/check/FeatureCounts.h"

#include <set>
#include <string_view>

#include "hosts/ipc2581/board/BoardFeatures.h"
#include "hosts/ipc2581/board/Copper.h"
#include "hosts/ipc2581/check/LineTags.h"
#include "hosts/ipc2581/check/LossTable.h"

namespace ipc2581::host {
namespace {

// Counts the tags of a file one after another.
class FileCounter {
public:
    void Visit(const Tag & tag)
    {
        const std::string_view name = tag.LocalName();
        m_isInPackage = name == "Package" ? tag.StaysOpen() : m_isInPackage;
        m_isInPolyline = name == "Polyline" ? tag.StaysOpen() : m_isInPolyline;
        if (name == "LayerFeature") {
            m_isInLayerFeature = tag.StaysOpen();
            m_isOnCopper = m_isInLayerFeature && m_copper.contains(std::string(tag.Value("layerRef")));
        }
        if (!tag.isClosing) {
            AddPart(name, tag);
            AddFeature(name, tag);
        }
    }

    [[nodiscard]] const FeatureCounts & Count() const { return m_count; }

private:
    void AddPart(std::string_view name, const Tag & tag)
    {
        if (name == "Layer") {
            ++m_count.layers;
            if (IsCopper(tag.Value("layerFunction"))) {
                m_copper.emplace(tag.Value("name"));
            }
        }
        else if (name == "StackupLayer") {
            ++m_count.stackupLayers;
        }
        else if (name == "Package") {
            ++m_count.packages;
            m_count.heights += tag.Value("height").empty() ? 0 : 1;
            m_count.firstPins += tag.Value("pinOne").empty() ? 0 : 1;
        }
        else if (name == "Pin") {
            m_count.pins += m_isInPackage ? 1 : 0;
        }
    }

    void AddFeature(std::string_view name, const Tag & tag)
    {
        m_count.pads += name == "LayerPad" ? 1 : 0;
        m_count.holes += name == "LayerHole" ? 1 : 0;
        if (!m_isInLayerFeature) {
            return;
        }
        if (name == "Set") {
            ++m_count.sets;
            m_isPlated = IsSetUnread(tag.Value("plate"));
            m_isTestPoint = IsSetUnread(tag.Value("testPoint"));
        }
        else if (name == "Pad") {
            ++m_count.pads;
            m_count.plated += m_isPlated ? 1 : 0;
            m_count.testPoints += m_isTestPoint ? 1 : 0;
            m_isPlated = false;
            m_isTestPoint = false;
        }
        const bool isStep = m_isInPolyline && (name == "PolyStepSegment" || name == "PolyStepCurve");
        m_count.holes += name == "Hole" ? 1 : 0;
        m_count.tracks += m_isOnCopper && (isStep || name == "Line" || name == "Arc") ? 1 : 0;
    }

    FeatureCounts m_count;
    std::set<std::string> m_copper;
    bool m_isInPackage = false;
    bool m_isInPolyline = false;
    bool m_isInLayerFeature = false;
    bool m_isOnCopper = false;
    // What the set says of its pads, in words that the reader takes otherwise. Of these it takes one.
    bool m_isPlated = false;
    bool m_isTestPoint = false;
};

}  // namespace

FeatureCounts CountFeaturesInFile(const std::string & path)
{
    FileCounter counter;
    ForEachTag(path, [&](const Tag & tag) { counter.Visit(tag); });
    return counter.Count();
}

FeatureCounts CountFeaturesInModel(Board & board)
{
    FeatureCounts count;
    count.layers = Count(board.CadData().m_arrLayer);
    for (const auto * const group : Each(board.CadData().m_Stackup.StackupGroupArray)) {
        count.stackupLayers += Count(group->StackupLayerArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(board.Step().PackageArray)) {
        ++count.packages;
        count.pins += Count(package->PinArray);
    }
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(board.Step().LayerFeatureArray)) {
        count.sets += Count(feature->SetArray);
    }
    count.pads = PadsOf(board).size();
    count.holes = CountAllHoles(board);
    count.tracks = TracksOf(board).size();
    return count;
}

}  // namespace ipc2581::host
