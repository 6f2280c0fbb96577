#include "hosts/ipc2581/diff/BoardDifferences.h"

#include <cstddef>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/ipc2581/board/LibraryMessages.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// What the library writes of each of several objects.
class Writings {
public:
    Writings() { m_file.Open(m_scratch.Path().c_str(), CStdioFile::modeWrite | CStdioFile::modeCreate, nullptr); }

    template <typename Object>
    void Add(Object & object)
    {
        object.Export(m_file, 0);
        m_file.WriteString(Separator);
    }

    // In the order of the objects; called once, behind the last one.
    std::vector<std::string> Texts()
    {
        m_file.Close();
        std::vector<std::string> texts;
        std::ifstream in(m_scratch.Path(), std::ios::binary);
        std::string line;
        std::string text;
        while (std::getline(in, line)) {
            if (line == "\f") {
                texts.push_back(std::move(text));
                text.clear();
            }
            else {
                text.append(line).append("\n");
            }
        }
        return texts;
    }

private:
    // No name in a file is a line of its own.
    static constexpr const char * Separator = "\n\f\n";

    ScratchFile m_scratch;
    CStdioFile m_file;
};

std::string Position(const CPointD & point, const Lengths & lengths)
{
    return Cell(lengths.Of(point.X)).Text() + "," + Cell(lengths.Of(point.Y)).Text();
}

std::vector<Record> Boards(Board & board, const Lengths & lengths)
{
    const CIPC2581_Parser & root = board.Root();
    Record record("");
    record.Add("name", Shown(root.m_Ecad.name));
    record.Add("units", Shown(root.m_Ecad.m_CadHeader.units));
    record.Add("dictionary units", Shown(root.m_Content.DictionaryStandard->Unit));
    record.Add("function mode", Shown(root.m_Content.FunctionMode));
    record.Add("step", Shown(board.Step().Name));
    record.Add("datum", Position(board.Step().Datum, lengths));
    Writings profile;
    profile.Add(board.Step().Profile);
    record.AddHidden("profile", profile.Texts().front());
    return {record};
}

// What lies on each layer, whether it is a layer of the list or not. The sets of a big board would take as much room
// again as its model, so of each stands its hash.
std::unordered_map<std::string, std::vector<std::string>> SetsOfLayers(Board & board)
{
    std::unordered_map<std::string, std::vector<std::string>> setsOfLayers;
    for (const auto * const feature : Each(board.Step().LayerFeatureArray)) {
        Writings writings;
        for (auto * const set : Each(feature->SetArray)) {
            writings.Add(*set);
        }
        std::vector<std::string> & sets = setsOfLayers[Shown(feature->LayerRef)];
        for (const std::string & text : writings.Texts()) {
            sets.push_back(std::to_string(std::hash<std::string>()(text)));
        }
    }
    return setsOfLayers;
}

std::vector<Record> Layers(Board & board)
{
    auto setsOfLayers = SetsOfLayers(board);
    std::vector<Record> records;
    const auto add = [&](const std::string & name, const CIPC2581_Ecad_CadData_Layer & layer) {
        Record & record = records.emplace_back(name);
        record.Add("function", Shown(layer.layerFunction));
        record.Add("side", Shown(layer.side));
        record.Add("polarity", Shown(layer.polarity));
        record.AddHiddenMembers("sets", std::move(setsOfLayers[name]));
        setsOfLayers.erase(name);
    };
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        add(Shown(layer->name), *layer);
    }
    for (const auto * const feature : Each(board.Step().LayerFeatureArray)) {
        if (setsOfLayers.contains(Shown(feature->LayerRef))) {
            add(Shown(feature->LayerRef), CIPC2581_Ecad_CadData_Layer());
        }
    }
    return records;
}

std::vector<Record> StackupLayers(Board & board, const Lengths & lengths)
{
    std::vector<Record> records;
    for (const auto * const group : Each(board.CadData().m_Stackup.StackupGroupArray)) {
        for (const auto * const layer : Each(group->StackupLayerArray)) {
            Record & record = records.emplace_back(Shown(layer->layerOrGroupRef));
            record.Add("group", Shown(group->name));
            record.Add("material", Shown(layer->materialType));
            record.Add("thickness", lengths.Of(layer->thickness));
        }
    }
    return records;
}

std::vector<Record> Shapes(Board & board)
{
    std::vector<Record> records;
    Writings writings;
    const auto entries = Each(board.Content().DictionaryStandard->EntryArray);
    for (auto * const entry : entries) {
        writings.Add(*entry);
    }
    const std::vector<std::string> texts = writings.Texts();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        records.emplace_back(Shown(entries[i]->EntryStandardId)).AddHidden("drawing", texts[i]);
    }
    return records;
}

std::string Joined(const std::vector<std::string> & words)
{
    std::string joined = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        joined.append(1, ' ').append(words[i]);
    }
    return joined;
}

// Pad stacks have no name, and are never written by the library.
std::vector<std::string> PadStacks(Board & board, const Lengths & lengths)
{
    std::vector<std::string> texts;
    for (const auto * const stack : Each(board.Step().PadStackArray)) {
        const CIPC2581_Ecad_CadData_Step_Hole & hole = *stack->LayerHole;
        std::string text =
            Joined({Shown(stack->NetName), Shown(hole.Name), lengths.Of(hole.Diameter).Text(),
                    Shown(hole.PlatingStatus), lengths.Of(hole.PlusTol).Text(), lengths.Of(hole.MinusTol).Text(),
                    Position(hole.Location, lengths), Shown(hole.FromLayer), Shown(hole.ToLayer)});
        for (const CIPC2581_Ecad_CadData_Step_Pad * const pad : Each(stack->LayerPadArray)) {
            text.append(1, '\n').append(Joined({Shown(pad->LayerRef), Shown(pad->Pin), Cell(pad->Rotation).Text(),
                                                Position(pad->Location, lengths), Shown(pad->StandardPrimitiveRefId)}));
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

std::vector<Record> Packages(Board & board, const Lengths & lengths)
{
    constexpr std::size_t drawings = 4;
    Writings writings;
    const auto packages = Each(board.Step().PackageArray);
    for (auto * const package : packages) {
        writings.Add(*package->Outline);
        writings.Add(package->SilkScreen);
        writings.Add(package->AssemblyDrawing);
        writings.Add(package->LandPattern);
    }
    const std::vector<std::string> texts = writings.Texts();
    std::vector<Record> records;
    for (std::size_t i = 0; i < packages.size(); ++i) {
        std::vector<std::string> pins;
        for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(packages[i]->PinArray)) {
            pins.push_back(Shown(pin->number) + "(" + Position(pin->Location, lengths) + "," +
                           Cell(pin->Xform->Rotation).Text() + "," + Shown(pin->StandardPrimitiveRef) + ")");
        }
        Record & record = records.emplace_back(Shown(packages[i]->name));
        record.Add("type", Shown(packages[i]->type));
        record.AddMembers("pins", std::move(pins));
        record.AddHidden("outline", texts[i * drawings]);
        record.AddHidden("silk screen", texts[i * drawings + 1]);
        record.AddHidden("assembly drawing", texts[i * drawings + 2]);
        record.AddHidden("land pattern", texts[i * drawings + 3]);
    }
    return records;
}

std::vector<Record> Components(Board & board, const Lengths & lengths)
{
    std::vector<Record> records;
    for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(board.Step().ComponentArray)) {
        Record & record = records.emplace_back(Shown(component->RefDes));
        record.Add("package", Shown(component->PackageRef));
        record.Add("part", Shown(component->Part));
        record.Add("layer", Shown(component->LayerRef));
        record.Add("mount", Shown(component->MountType));
        record.Add("x", lengths.Of(component->Location.X));
        record.Add("y", lengths.Of(component->Location.Y));
        record.Add("rotation", component->Xform->Rotation);
        record.Add("mirror", component->Xform->Mirror != 0);
        record.Add("height", lengths.Of(component->Height));
        record.Add("standoff", lengths.Of(component->Standoff));
    }
    return records;
}

std::vector<Record> Nets(Board & board)
{
    std::vector<Record> records;
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(board.Step().LogicalNetArray)) {
        std::vector<std::string> pins;
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin * const pin : Each(net->LogicalNetPinArray)) {
            pins.push_back(Shown(pin->ComponentRef) + "." + Shown(pin->Pin));
        }
        records.emplace_back(Shown(net->Name)).AddMembers("pins", std::move(pins));
    }
    return records;
}

std::vector<Record> PhysicalNets(Board & board, const Lengths & lengths)
{
    std::vector<Record> records;
    for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(board.Step().PhyNetGroup.PhyNetArray)) {
        std::vector<std::string> points;
        for (const auto * const point : Each(net->PhyNetPointArray)) {
            points.push_back(Shown(point->LayerRef) + "(" + Position(point->Location, lengths) + "," +
                             Shown(point->Exposure) + "," + Shown(point->NetNode) + (point->Via != 0 ? ",via," : ",") +
                             Shown(point->StandardPrimitiveRefId) + ")");
        }
        records.emplace_back(Shown(net->Name)).AddMembers("points", std::move(points));
    }
    return records;
}

// An item has no name of its own where the file keeps its number in an attribute that the reader passes over: it goes
// by its first designator then.
std::string ItemName(const CIPC2581_Bom_BomItem & item)
{
    if (item.internalPartNumber.IsEmpty() && !item.m_arrRefDes.IsEmpty()) {
        return Shown(item.m_arrRefDes.GetAt(0)->name);
    }
    return Shown(item.internalPartNumber);
}

std::vector<Record> Items(Board & board)
{
    std::vector<Record> records;
    for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
        std::vector<std::string> fitted;
        std::vector<std::string> notFitted;
        for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
            (refDes->populate ? fitted : notFitted).push_back(Shown(refDes->name));
        }
        Record & record = records.emplace_back(ItemName(*item));
        record.Add("quantity", CountOf(Shown(item->quantity)));
        record.Add("pins", CountOf(Shown(item->numberIO)));
        record.Add("category", Shown(item->category));
        record.Add("description", Shown(item->description));
        record.Add("package", Shown(item->packageRef));
        record.AddMembers("fitted", std::move(fitted));
        record.AddMembers("not fitted", std::move(notFitted));
    }
    return records;
}

std::vector<Record> AllPadStacks(Board & board, const Lengths & lengths)
{
    Record record("");
    record.AddHiddenMembers("pads and holes", PadStacks(board, lengths));
    return {record};
}

Differences AllDifferences(const Compared & before, const Compared & after)
{
    Differences differences(before.lengths.Named("before"), after.lengths.Named("after"));
    differences.Compare("board", Boards(before.board, before.lengths), Boards(after.board, after.lengths));
    differences.Compare("layer", Layers(before.board), Layers(after.board));
    differences.Compare("stackup layer", StackupLayers(before.board, before.lengths),
                        StackupLayers(after.board, after.lengths));
    differences.Compare("shape", Shapes(before.board), Shapes(after.board));
    differences.Compare("pad stacks", AllPadStacks(before.board, before.lengths),
                        AllPadStacks(after.board, after.lengths));
    differences.Compare("package", Packages(before.board, before.lengths), Packages(after.board, after.lengths));
    differences.Compare("component", Components(before.board, before.lengths), Components(after.board, after.lengths));
    differences.Compare("net", Nets(before.board), Nets(after.board));
    differences.Compare("physical net", PhysicalNets(before.board, before.lengths),
                        PhysicalNets(after.board, after.lengths));
    differences.Compare("BOM item", Items(before.board), Items(after.board));
    return differences;
}

}  // namespace

Differences DifferencesOf(const Compared & before, const Compared & after)
{
    try {
        return AllDifferences(before, after);
    }
    catch (const CFileException & failure) {
        throw Error("temporary file", "cannot be written: " + CauseOf(failure));
    }
}

}  // namespace ipc2581::host
