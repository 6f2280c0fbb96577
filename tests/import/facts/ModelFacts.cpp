#include "tests/import/facts/ModelFacts.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/import/facts/Drawing.h"
#include "tests/import/facts/ModelShapes.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

using Package = CIPC2581_Ecad_CadData_Step_Package;
using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
using StackupGroup = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
using TargetArray = CIPC2581_Ecad_CadData_Step_TargetArray;

double NumberIn(const CString & text)
{
    return NumberOf(std::string_view(text));
}

std::string PinOf(const Pad & pad)
{
    return PinWord(pad.UsePinPrefix == 0 ? "" : TextOf(pad.PinPrefix), TextOf(pad.Pin));
}

class Collector {
public:
    explicit Collector(const CIPC2581_Parser & board)
        : m_board(board), m_step(board.m_Ecad.m_CadData.m_Step), m_shapes(board)
    {
    }

    Facts Collect()
    {
        AddContent();
        AddDictionary();
        AddLogistics();
        AddBom();
        AddLayers();
        AddStackup();
        AddStep();
        AddPadStacks();
        AddPackages();
        AddComponents();
        AddNets();
        AddPhyNets();
        AddLayerFeatures();
        return std::move(m_facts);
    }

private:
    void AddContent()
    {
        const CIPC2581_Content & content = m_board.m_Content;
        AddFact(m_facts, "function-mode",
                {{"mode", TextOf(content.FunctionMode)},
                 {"level", TextOf(content.FunctionModeLevel)},
                 {"comment", TextOf(content.FunctionModeComment)}});
        AddReferences("step-ref", content.StepRef);
        AddReferences("layer-ref", content.LayerRef);
        AddReferences("bom-ref", content.BomRef);
        for (const auto * const entry : Each(content.m_DictionaryColor->Entry)) {
            AddFact(m_facts, "color", {{"id", TextOf(entry->EntryColorId)}},
                    {{"r", double(entry->Red)}, {"g", double(entry->Green)}, {"b", double(entry->Blue)}});
        }
    }

    void AddReferences(std::string_view kind, const CStringArray & names)
    {
        double place = 0;
        for (const CString & name : Each(names)) {
            AddFact(m_facts, kind, {{"name", TextOf(name)}}, {{"place", place++}});
        }
    }

    void AddDictionary()
    {
        const CIPC2581_Content_DictionaryStandard & dictionary = *m_board.m_Content.DictionaryStandard;
        if (!dictionary.Unit.IsEmpty()) {
            AddFact(m_facts, DictionaryKind, {{"units", TextOf(dictionary.Unit)}});
        }
        for (const auto * const entry : Each(dictionary.EntryArray)) {
            AddShape(DictionaryEntryKind, {{"id", TextOf(entry->EntryStandardId)}}, ShapeOf(entry->DrawArray), m_facts);
        }
    }

    void AddLogistics()
    {
        const CIPC2581_LogisticHeader & header = m_board.m_LogisticHeader;
        AddFact(m_facts, "logistic",
                {{"role", TextOf(header.m_strRoleName)}, {"person", TextOf(header.m_strPersonName)}});
        const CIPC2581_HistoryRecord & history = m_board.m_HistoryRecord;
        AddFact(m_facts, "history",
                {{"origination", TextOf(history.origination)}, {"lastChange", TextOf(history.lastChange)}},
                {{"number", double(history.number)}});
    }

    void AddBom()
    {
        const CIPC2581_Bom & bom = m_board.m_Bom;
        AddFact(m_facts, "bom", {{"name", TextOf(bom.name)}, {"assembly", TextOf(bom.assembly)}});
        for (const CIPC2581_Bom_BomItem * const item : Each(bom.m_arrBomItem)) {
            const Word name{"item", TextOf(item->internalPartNumber)};
            AddFact(m_facts, "bom-item",
                    {name,
                     {"quantity", TextOf(item->quantity)},
                     {"category", TextOf(item->category)},
                     {"description", TextOf(item->description)},
                     {"pins", TextOf(item->numberIO)},
                     {"packageRef", TextOf(item->packageRef)}});
            for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
                AddFact(m_facts, "bom-refdes",
                        {name, {"name", TextOf(refDes->name)}, {"populate", FlagWord(refDes->populate)}});
            }
        }
    }

    void AddLayers()
    {
        AddFact(m_facts, "board",
                {{"name", TextOf(m_board.m_Ecad.name)}, {"units", TextOf(m_board.m_Ecad.m_CadHeader.units)}});
        for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(m_board.m_Ecad.m_CadData.m_arrLayer)) {
            AddFact(m_facts, "layer",
                    {{"name", TextOf(layer->name)},
                     {"layerFunction", TextOf(layer->layerFunction)},
                     {"side", TextOf(layer->side)},
                     {"polarity", TextOf(layer->polarity)}});
        }
    }

    void AddStackup()
    {
        const CIPC2581_Ecad_CadData_Stackup & stackup = m_board.m_Ecad.m_CadData.m_Stackup;
        AddFact(m_facts, "stackup", {{"whereMeasured", TextOf(stackup.whereMeasured)}},
                {{"overallThickness", NumberIn(stackup.overallThickness)},
                 {"tolPlus", NumberIn(stackup.tolPlus)},
                 {"tolMinus", NumberIn(stackup.tolMinus)}});
        for (const StackupGroup * const group : Each(stackup.StackupGroupArray)) {
            AddStackupGroup(*group);
        }
    }

    void AddStackupGroup(const StackupGroup & group)
    {
        const Word name{"group", TextOf(group.name)};
        AddFact(m_facts, "stackup-group", {name},
                {{"thickness", group.thickness}, {"tolPlus", group.tolPlus}, {"tolMinus", group.tolMinus}});
        for (const auto * const layer : Each(group.StackupLayerArray)) {
            const Word ref{"layerOrGroupRef", TextOf(layer->layerOrGroupRef)};
            AddFact(m_facts, "stackup-layer", {name, ref}, {{"thickness", layer->thickness}});
            AddFact(m_facts, "material", {name, ref, {"material", TextOf(layer->materialType)}});
        }
    }

    void AddStep()
    {
        AddFact(m_facts, "step", {{"name", TextOf(m_step.Name)}},
                {{"datumX", m_step.Datum.X}, {"datumY", m_step.Datum.Y}});
        const CIPC2581_Polygon & polygon = *m_step.Profile.Polygon;
        if (!polygon.PolyStepArray->IsEmpty()) {
            AddShape("profile", {}, {.outlines = {PathOf(*polygon.PolyBegin, *polygon.PolyStepArray)}}, m_facts);
        }
        for (const CIPC2581_DrawObj * const shape : Each(m_step.Profile.Cutouts)) {
            if (const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(shape)) {
                AddShape("profile-cutout", {}, {.outlines = {PathOf(*cutout->PolyBegin, *cutout->PolyStepArray)}},
                         m_facts);
            }
        }
    }

    void AddPadStacks()
    {
        for (const CIPC2581_Ecad_CadData_Step_PadStack * const stack : Each(m_step.PadStackArray)) {
            const Word net{"net", TextOf(stack->NetName)};
            AddFact(m_facts, "padstack", {net});
            for (const Pad * const pad : Each(stack->LayerPadArray)) {
                AddPlacedPad("padstack-pad", {net, {"layerRef", TextOf(pad->LayerRef)}, {"pin", PinOf(*pad)}}, *pad);
            }
            if (!stack->LayerHole->Diameter.IsEmpty()) {
                AddHole("padstack-hole", {net}, *stack->LayerHole);
            }
        }
    }

    void AddPlacedPad(std::string_view kind, const std::vector<Word> & words, const Pad & pad)
    {
        const Transform place = PlaceOf(pad.Location).Of(TransformOf({.rotation = pad.Rotation}));
        AddPad(kind, words, Placed(m_shapes.Named(pad.StandardPrimitiveRefId), place), PointOf(pad.Location), m_facts);
    }

    void AddHole(std::string_view kind, std::vector<Word> words, const Hole & hole)
    {
        words.insert(words.end(), {{"name", TextOf(hole.Name)},
                                   {"platingStatus", TextOf(hole.PlatingStatus)},
                                   {"fromLayer", TextOf(hole.FromLayer)},
                                   {"toLayer", TextOf(hole.ToLayer)}});
        AddFact(m_facts, kind, words,
                {{"x", hole.Location.X},
                 {"y", hole.Location.Y},
                 {"diameter", NumberIn(hole.Diameter)},
                 {"plusTol", NumberIn(hole.PlusTol)},
                 {"minusTol", NumberIn(hole.MinusTol)}});
    }

    void AddPackages()
    {
        for (const Package * const package : Each(m_step.PackageArray)) {
            const Word name{"package", TextOf(package->name)};
            AddFact(m_facts, "package", {name, {"type", TextOf(package->type)}});
            AddStroke("package-outline", {name, {"of", "package"}}, StrokeOf(*package->Outline), m_facts);
            for (const Pin * const pin : Each(package->PinArray)) {
                AddPackagePin(name, *pin);
            }
            AddMarkings({name, {"of", "silk"}}, package->SilkScreen);
            AddMarkings({name, {"of", "assembly"}}, package->AssemblyDrawing);
            AddLandPattern(name, package->LandPattern);
        }
    }

    void AddPackagePin(const Word & package, const Pin & pin)
    {
        const Xform xform = XformOf(*pin.Xform);
        const CIPC2581_Polygon & outline = *pin.Outline.Polygon;
        Shape shape = m_shapes.Named(pin.StandardPrimitiveRef);
        if (shape.outlines.empty() && !outline.PolyStepArray->IsEmpty()) {
            shape.outlines = {PathOf(*outline.PolyBegin, *outline.PolyStepArray)};
        }
        AddPin({package,
                {"number", TextOf(pin.number)},
                {"name", TextOf(pin.name)},
                {"type", TextOf(pin.type)},
                {"electricalType", TextOf(pin.electricalType)},
                {"mirror", FlagWord(xform.mirror)}},
               {pin.Location.X + xform.xOffset, pin.Location.Y + xform.yOffset}, xform.rotation, shape, m_facts);
    }

    // A silk screen or an assembly drawing.
    template <typename Markings>
    void AddMarkings(const std::vector<Word> & words, const Markings & markings)
    {
        AddStroke("package-outline", words, StrokeOf(*markings.Outline), m_facts);
        AddTargets(words, markings.TargetArray);
        if (!markings.Text.TextString.IsEmpty()) {
            CIPC2581_DrawObjArray texts;
            texts.Add(new CIPC2581_Text(markings.Text));
            AddMarked(words, DrawingOf(&texts, {}));
        }
    }

    void AddTargets(const std::vector<Word> & words, const TargetArray & targets)
    {
        for (const CIPC2581_Ecad_CadData_Step_Target * const target : Each(targets)) {
            AddMarked(words, DrawingOf(target->DrawObjArray, PlaceOf(target->Location, target->Xform)));
        }
    }

    void AddMarked(const std::vector<Word> & words, const Drawing & drawing)
    {
        AddDrawing({"package-marking", "package-marking", "text"}, words, drawing, m_facts);
    }

    void AddLandPattern(const Word & package, const CIPC2581_Ecad_CadData_Step_Package_LandPattern & pattern)
    {
        for (const Pad * const pad : Each(pattern.PadArray)) {
            AddPlacedPad("land-pattern-pad", {package, {"pin", PinOf(*pad)}}, *pad);
        }
        AddTargets({package, {"of", "land pattern"}}, pattern.TargetArray);
    }

    void AddComponents()
    {
        for (const CIPC2581_Ecad_CadData_Step_Component * const component : Each(m_step.ComponentArray)) {
            const Word refDes{"refDes", TextOf(component->RefDes)};
            AddFact(m_facts, "component",
                    {refDes,
                     {"packageRef", TextOf(component->PackageRef)},
                     {"layerRef", TextOf(component->LayerRef)},
                     {"part", TextOf(component->Part)},
                     {"mountType", TextOf(component->MountType)}},
                    {{"x", component->Location.X},
                     {"y", component->Location.Y},
                     {"standoff", NumberIn(component->Standoff)},
                     {"height", component->Height}});
            const Xform xform = XformOf(*component->Xform);
            AddFact(m_facts, "component-xform", {refDes, {"mirror", FlagWord(xform.mirror)}},
                    {{"rotation", Turn(xform.rotation)},
                     {"xOffset", xform.xOffset},
                     {"yOffset", xform.yOffset},
                     {"scale", xform.scale}});
        }
    }

    void AddNets()
    {
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(m_step.LogicalNetArray)) {
            AddFact(m_facts, "net", {{"name", TextOf(net->Name)}});
            for (const auto * const pin : Each(net->LogicalNetPinArray)) {
                AddFact(m_facts, "net-pin",
                        {{"net", TextOf(net->Name)},
                         {"componentRef", TextOf(pin->ComponentRef)},
                         {"pin", TextOf(pin->Pin)}});
            }
        }
    }

    void AddPhyNets()
    {
        for (const auto * const net : Each(m_step.PhyNetGroup.PhyNetArray)) {
            AddFact(m_facts, "phynet", {{"name", TextOf(net->Name)}});
            for (const auto * const point : Each(net->PhyNetPointArray)) {
                AddFact(m_facts, "phynet-point",
                        {{"net", TextOf(net->Name)},
                         {"layerRef", TextOf(point->LayerRef)},
                         {"netNode", TextOf(point->NetNode)},
                         {"exposure", TextOf(point->Exposure)},
                         {"via", FlagWord(point->Via != 0)},
                         {"test", FlagWord(point->Test != 0)},
                         {"shape", TextOf(point->StandardPrimitiveRefId)}},
                        {{"x", point->Location.X}, {"y", point->Location.Y}});
            }
        }
    }

    void AddLayerFeatures()
    {
        std::set<std::pair<std::string, std::string>> colors;
        for (const auto * const feature : Each(m_step.LayerFeatureArray)) {
            const std::string layer = TextOf(feature->LayerRef);
            colors.insert({layer, TextOf(feature->ColorRefId)});
            for (const Set * const set : Each(feature->SetArray)) {
                colors.insert({layer, TextOf(set->ColorRef)});
                AddSet(layer, *set);
            }
        }
        for (const auto & [layer, color] : colors) {
            if (!color.empty()) {
                AddFact(m_facts, "set-color", {{"layerRef", layer}, {"id", color}});
            }
        }
    }

    // All that a set holds, whatever of it its kind names: hosts draw all of it.
    void AddSet(const std::string & layer, const Set & set)
    {
        std::vector<Word> words{{"layerRef", layer}, {"net", TextOf(set.Net)}};
        const Transform place = PlaceOf(set.Features.Location);
        AddDrawing({"track", "area", "text"}, words, DrawingOf(&set.Features.DrawObjArray, place), m_facts);
        if (set.Kind == SetKinds::Hole || !set.Hole.Diameter.IsEmpty()) {
            AddHole("hole", words, set.Hole);
        }
        if (set.Kind == SetKinds::Pad || !set.Pad.StandardPrimitiveRefId.IsEmpty()) {
            words.insert(words.end(), {{"pin", PinOf(set.Pad)},
                                       {"testPoint", FlagWord(set.TestPoint)},
                                       {"plate", FlagWord(set.Plate)},
                                       {"padUsage", TextOf(set.PadUsage)}});
            AddPlacedPad("pad", words, set.Pad);
        }
    }

    const CIPC2581_Parser & m_board;
    const CIPC2581_Ecad_CadData_Step & m_step;
    ModelShapes m_shapes;
    Facts m_facts;
};

}  // namespace

Facts FactsOfModel(const CIPC2581_Parser & board)
{
    return Collector(board).Collect();
}

}  // namespace ipc2581::facts
