#include "hosts/ipc2581/diff/BoardDifferences.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <future>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/diff/MemberText.h"
#include "hosts/ipc2581/diff/NetRenames.h"
#include "hosts/ipc2581/diff/SetText.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using FeatureSet = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

// Of each layer and each board, so that a layer that was moved as a whole fills no screen.
constexpr std::size_t MostFeatures = 10;

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
    record.AddHidden("profile", MemberText(board.Step().Profile, {}, lengths.Of(1.0)));
    return {record};
}

// The sets of a layer, by their hashes, since what they hold would take as much room again as the model.
struct HashedSet {
    std::size_t hash;
    std::size_t place;  // among the sets of the layer
    const FeatureSet * set;
};

// What lies on each layer, whether it is a layer of the list or not.
std::map<std::string, std::vector<HashedSet>> SetsOfLayers(const Compared & compared, const NetRenames & renames)
{
    std::map<std::string, std::vector<HashedSet>> setsOfLayers;
    const double scale = compared.lengths.Of(1.0);
    for (const auto * const feature : Each(compared.board.Step().LayerFeatureArray)) {
        std::vector<HashedSet> & sets = setsOfLayers[Shown(feature->LayerRef)];
        for (const FeatureSet * const set : Each(feature->SetArray)) {
            sets.push_back({std::hash<std::string>()(MemberText(*set, renames, scale)), sets.size(), set});
        }
    }
    for (auto & [layer, sets] : setsOfLayers) {
        std::sort(sets.begin(), sets.end(), [](const HashedSet & one, const HashedSet & other) {
            return std::tie(one.hash, one.place) < std::tie(other.hash, other.place);
        });
    }
    return setsOfLayers;
}

// The sets that the other ones lack, in the order of the model.
std::vector<const FeatureSet *> Lacking(const std::vector<HashedSet> & sets, const std::vector<HashedSet> & others)
{
    std::vector<HashedSet> lacking;
    std::set_difference(sets.begin(), sets.end(), others.begin(), others.end(), std::back_inserter(lacking),
                        [](const HashedSet & one, const HashedSet & other) { return one.hash < other.hash; });
    std::sort(lacking.begin(), lacking.end(),
              [](const HashedSet & one, const HashedSet & other) { return one.place < other.place; });
    std::vector<const FeatureSet *> all;
    all.reserve(lacking.size());
    for (const HashedSet & own : lacking) {
        all.push_back(own.set);
    }
    return all;
}

std::vector<Record> Layers(Board & board)
{
    std::vector<Record> records;
    std::set<std::string> names;
    const auto add = [&](const std::string & name, const CIPC2581_Ecad_CadData_Layer & layer) {
        names.insert(name);
        Record & record = records.emplace_back(name);
        record.Add("function", Shown(layer.layerFunction));
        record.Add("side", Shown(layer.side));
        record.Add("polarity", Shown(layer.polarity));
    };
    for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
        add(Shown(layer->name), *layer);
    }
    for (const auto * const feature : Each(board.Step().LayerFeatureArray)) {
        if (!names.contains(Shown(feature->LayerRef))) {
            add(Shown(feature->LayerRef), CIPC2581_Ecad_CadData_Layer());
        }
    }
    return records;
}

// The first of what only one of the boards has on a layer, and how many there are besides.
void AddFeatures(const std::string & layer, const std::vector<const FeatureSet *> & sets, const Lengths & lengths,
                 Whose whose, const DiffOptions & options, Differences & differences)
{
    const std::size_t shown = options.isAll ? sets.size() : std::min(sets.size(), MostFeatures);
    for (std::size_t i = 0; i < shown; ++i) {
        const SetDescription description = DescribeSet(*sets[i], lengths);
        differences.AddOf("feature", layer, whose, description.kind, description.text);
    }
    if (shown < sets.size()) {
        differences.AddOf("feature", layer, whose, "more, see --all", sets.size() - shown);
    }
}

void CompareFeatures(const Compared & before, const Compared & after, const NetRenames & renames,
                     const DiffOptions & options, Differences & differences)
{
    // Nearly all of the work of a comparison, each board by itself.
    auto ofBefore = std::async(WorkingAtOnce(), [&] { return SetsOfLayers(before, renames); });
    const auto now = SetsOfLayers(after, {});
    const auto old = ofBefore.get();
    std::set<std::string> layers;
    for (const auto * const side : {&old, &now}) {
        for (const auto & [layer, sets] : *side) {
            layers.insert(layer);
        }
    }
    const std::vector<HashedSet> none;
    const auto setsOf = [&](const auto & all, const std::string & layer) -> const std::vector<HashedSet> & {
        const auto found = all.find(layer);
        return found == all.end() ? none : found->second;
    };
    for (const std::string & layer : layers) {
        const auto gone = Lacking(setsOf(old, layer), setsOf(now, layer));
        const auto come = Lacking(setsOf(now, layer), setsOf(old, layer));
        if (gone.empty() && come.empty()) {
            continue;
        }
        differences.AddChanged("layer", layer, "sets", gone.size(), come.size());
        AddFeatures(layer, gone, before.lengths, Whose::Before, options, differences);
        AddFeatures(layer, come, after.lengths, Whose::After, options, differences);
    }
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

std::vector<Record> Shapes(Board & board, const Lengths & lengths)
{
    std::vector<Record> records;
    for (const auto * const entry : Each(board.Content().DictionaryStandard->EntryArray)) {
        records.emplace_back(Shown(entry->EntryStandardId))
            .AddHidden("drawing", MemberText(*entry, {}, lengths.Of(1.0)));
    }
    return records;
}

std::vector<Record> Figures(Board & board, const Lengths & lengths)
{
    std::vector<Record> records;
    for (const auto * const entry : Each(board.Content().DictionaryUser->EntryArray)) {
        records.emplace_back(Shown(entry->ID)).AddHidden("drawing", MemberText(*entry, {}, lengths.Of(1.0)));
    }
    return records;
}

std::vector<Record> Colors(Board & board)
{
    std::vector<Record> records;
    for (const auto * const entry : Each(board.Content().m_DictionaryColor->Entry)) {
        records.emplace_back(Shown(entry->EntryColorId)).AddHidden("color", MemberText(*entry));
    }
    return records;
}

std::vector<Record> Specs(Board & board)
{
    std::map<std::string, std::vector<std::string>> specs;
    for (const SpecProperty & own : SpecProperties(board)) {
        specs[own.spec].push_back(own.property + "=" + own.value);
    }
    std::vector<Record> records;
    for (auto & [name, properties] : specs) {
        records.emplace_back(name).AddMembers("properties", std::move(properties));
    }
    return records;
}

// Pad stacks have no name.
std::vector<Record> PadStacks(Board & board, const Lengths & lengths, const NetRenames & renames)
{
    std::vector<std::string> texts;
    for (const auto * const stack : Each(board.Step().PadStackArray)) {
        texts.push_back(MemberText(*stack, renames, lengths.Of(1.0)));
    }
    Record record("");
    record.AddHiddenMembers("pads and holes", std::move(texts));
    return {record};
}

// A word behind others, where there is one.
std::string Suffix(const CString & word)
{
    return word.IsEmpty() ? std::string() : std::string(",").append(Shown(word));
}

std::vector<Record> Packages(Board & board, const Lengths & lengths)
{
    const auto packages = Each(board.Step().PackageArray);
    const double scale = lengths.Of(1.0);
    std::vector<Record> records;
    for (std::size_t i = 0; i < packages.size(); ++i) {
        std::vector<std::string> pins;
        for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(packages[i]->PinArray)) {
            pins.push_back(Shown(pin->number) + "(" + Position(pin->Location, lengths) + "," +
                           Cell(pin->Xform->Rotation).Text() + "," + Shown(pin->StandardPrimitiveRef) +
                           Suffix(pin->name) + Suffix(pin->type) + Suffix(pin->electricalType) + ")");
        }
        Record & record = records.emplace_back(Shown(packages[i]->name));
        record.Add("type", Shown(packages[i]->type));
        record.AddMembers("pins", std::move(pins));
        record.AddHidden("outline", MemberText(*packages[i]->Outline, {}, scale));
        record.AddHidden("silk screen", MemberText(packages[i]->SilkScreen, {}, scale));
        record.AddHidden("assembly drawing", MemberText(packages[i]->AssemblyDrawing, {}, scale));
        record.AddHidden("land pattern", MemberText(packages[i]->LandPattern, {}, scale));
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

std::vector<NetPins> NetsOf(Board & board)
{
    std::vector<NetPins> nets;
    for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(board.Step().LogicalNetArray)) {
        NetPins & own = nets.emplace_back();
        own.name = Shown(net->Name);
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin * const pin : Each(net->LogicalNetPinArray)) {
            own.pins.push_back(Shown(pin->ComponentRef) + "." + Shown(pin->Pin));
        }
    }
    return nets;
}

// The nets by the names that they have now.
std::vector<Record> Nets(Board & board, std::vector<NetPins> nets, const NetRenames & renames)
{
    auto classes = ClassesOfNets(board);
    std::vector<Record> records;
    for (std::size_t i = 0; i < nets.size(); ++i) {
        Record & record = records.emplace_back(std::string(renames.NewName(nets[i].name)));
        record.AddMembers("pins", std::move(nets[i].pins));
        record.Add("class", classes[i]);
    }
    return records;
}

std::vector<Record> PhysicalNets(Board & board, const Lengths & lengths, const NetRenames & renames)
{
    std::vector<Record> records;
    for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(board.Step().PhyNetGroup.PhyNetArray)) {
        std::vector<std::string> points;
        for (const auto * const point : Each(net->PhyNetPointArray)) {
            points.push_back(Shown(point->LayerRef) + "(" + Position(point->Location, lengths) + "," +
                             Shown(point->Exposure) + "," + Shown(point->NetNode) + (point->Via != 0 ? ",via," : ",") +
                             Shown(point->StandardPrimitiveRefId) + ")");
        }
        records.emplace_back(std::string(renames.NewName(Shown(net->Name)))).AddMembers("points", std::move(points));
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
    auto values = ValuesOfItems(board);
    auto makersParts = MakersParts(board);
    std::vector<Record> records;
    for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
        std::vector<std::string> fitted;
        std::vector<std::string> notFitted;
        for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
            (refDes->populate ? fitted : notFitted).push_back(Shown(refDes->name));
        }
        const std::size_t place = records.size();
        Record & record = records.emplace_back(ItemName(*item));
        record.Add("quantity", CountOf(Shown(item->quantity)));
        record.Add("pins", CountOf(Shown(item->numberIO)));
        record.Add("category", Shown(item->category));
        record.Add("description", Shown(item->description));
        record.Add("package", Shown(item->packageRef));
        record.Add("value", values[place]);
        record.AddMembers("makers' parts", makersParts[Shown(item->internalPartNumber)]);
        record.AddMembers("fitted", std::move(fitted));
        record.AddMembers("not fitted", std::move(notFitted));
    }
    return records;
}

// What is compared with more of its meaning, or is of the file alone, such as when it was made.
bool IsComparedElsewhere(std::string_view path)
{
    constexpr std::array<std::string_view, 6> elsewhere = {
        "IPC-2581", "Avl", "LogisticHeader", "HistoryRecord", "Ecad/CadHeader/Spec", "Ecad/CadData/Step/LogicalNet"};
    return std::any_of(elsewhere.begin(), elsewhere.end(), [&](std::string_view own) {
        return path == own || (path.starts_with(own) && path.substr(own.size()).starts_with('/'));
    });
}

// What the model has no place for, counted by the path of its element.
std::vector<Record> Facts(Board & board)
{
    std::map<std::string, std::vector<std::string>> facts;
    const ImportReport * const report = board.Report();
    for (std::size_t i = 0; report != nullptr && i < report->LostCount(); ++i) {
        const LostFact fact = report->Lost(i);
        if (IsComparedElsewhere(fact.path)) {
            continue;
        }
        std::string text;
        for (const auto & [name, value] : fact.attributes) {
            text.append(name).append(1, '=').append(value).append(1, '\n');
        }
        facts[fact.path].push_back(std::to_string(std::hash<std::string>()(text)));
    }
    std::vector<Record> records;
    for (auto & [path, texts] : facts) {
        records.emplace_back(path).AddHiddenMembers("facts", std::move(texts));
    }
    return records;
}

}  // namespace

Differences DifferencesOf(const Compared & before, const Compared & after, const DiffOptions & options)
{
    const std::vector<NetPins> oldNets = NetsOf(before.board);
    const std::vector<NetPins> newNets = NetsOf(after.board);
    const NetRenames renames(oldNets, newNets);
    const NetRenames none;
    Differences differences(before.lengths.Named("before"), after.lengths.Named("after"));
    differences.Compare("board", Boards(before.board, before.lengths), Boards(after.board, after.lengths));
    differences.Compare("spec", Specs(before.board), Specs(after.board));
    differences.Compare("layer", Layers(before.board), Layers(after.board));
    CompareFeatures(before, after, renames, options, differences);
    differences.Compare("stackup layer", StackupLayers(before.board, before.lengths),
                        StackupLayers(after.board, after.lengths));
    differences.Compare("shape", Shapes(before.board, before.lengths), Shapes(after.board, after.lengths));
    differences.Compare("figure", Figures(before.board, before.lengths), Figures(after.board, after.lengths));
    differences.Compare("color", Colors(before.board), Colors(after.board));
    differences.Compare("pad stacks", PadStacks(before.board, before.lengths, renames),
                        PadStacks(after.board, after.lengths, none));
    differences.Compare("package", Packages(before.board, before.lengths), Packages(after.board, after.lengths));
    differences.Compare("component", Components(before.board, before.lengths), Components(after.board, after.lengths));
    for (const auto & [name, newName] : renames.All()) {
        differences.AddRenamed("net", name, newName);
    }
    differences.Compare("net", Nets(before.board, oldNets, renames), Nets(after.board, newNets, none));
    differences.Compare("physical net", PhysicalNets(before.board, before.lengths, renames),
                        PhysicalNets(after.board, after.lengths, none));
    differences.Compare("BOM item", Items(before.board), Items(after.board));
    auto oldFacts = std::async(WorkingAtOnce(), [&] { return Facts(before.board); });
    const std::vector<Record> newFacts = Facts(after.board);
    differences.Compare("without a place", oldFacts.get(), newFacts);
    return differences;
}

}  // namespace ipc2581::host
