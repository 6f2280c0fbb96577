#include "tests/import/facts/SmallestBoard.h"

namespace ipc2581::facts {
namespace {

using Step = CIPC2581_Ecad_CadData_Step;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;
using Pad = CIPC2581_Ecad_CadData_Step_Pad;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

// The arrays of the model own what is added to them.
template <typename Element, typename Array>
Element & AddTo(Array & array)
{
    auto * const element = new Element();
    array.Add(element);
    return *element;
}

void SetLine(CIPC2581_LineDesc & line, const char * end, double width)
{
    line.LineEnd = end;
    line.LineWidth = width;
}

void AddSegment(CIPC2581_PolyStepArray & steps, double x, double y)
{
    AddTo<CIPC2581_PolyStep>(steps).EndPoint->Point->SetData(x, y);
}

void AddCurve(CIPC2581_PolyStepArray & steps, const CPointD & end, const CPointD & center, bool isClockwise)
{
    auto & step = AddTo<CIPC2581_PolyStep>(steps);
    step.Type = StepTypes::Curve;
    *step.EndPoint->Point = end;
    *step.CenterPoint->Point = center;
    step.ClockWise = isClockwise ? 0 : 1;
}

void FillContent(CIPC2581_Content & content)
{
    content.FunctionMode = "ASSEMBLY";
    content.FunctionModeLevel = "2";
    content.FunctionModeComment = "one of each &amp; no more";
    content.StepRef.Add("board");
    content.LayerRef.Add("TOP");
    content.BomRef.Add("parts");
    auto & color = AddTo<CIPC2581_Content_DictionaryColor_EntryColor>(*content.m_DictionaryColor->Entry);
    color.EntryColorId = "COPPER";
    color.Red = 200;
    color.Green = 120;
    color.Blue = 40;
    content.DictionaryStandard->Unit = "MILLIMETER";
    auto & entries = *content.DictionaryStandard->EntryArray;
    auto & rectangle = AddTo<CIPC2581_Content_DictionaryStandard_EntryStandard>(entries);
    rectangle.EntryStandardId = "RECT_1X2";
    auto & shape = AddTo<CIPC2581_DicDraw_RectCenter>(*rectangle.DrawArray);
    shape.Width = 1;
    shape.Height = 2;
    auto & unused = AddTo<CIPC2581_Content_DictionaryStandard_EntryStandard>(entries);
    unused.EntryStandardId = "UNUSED";
    AddTo<CIPC2581_DicDraw_Circle>(*unused.DrawArray).Diameter = 0.8;
}

void FillLogistics(CIPC2581_Parser & board)
{
    board.m_LogisticHeader.m_strRoleName = "Keeper";
    board.m_LogisticHeader.m_strPersonName = "Ada";
    board.m_HistoryRecord.number = 3;
    board.m_HistoryRecord.origination = "2020-02-02T02:02:02";
    board.m_HistoryRecord.lastChange = "2021-03-03T03:03:03";
    board.m_Bom.name = "parts";
    board.m_Bom.assembly = "blinker";
    auto & item = AddTo<CIPC2581_Bom_BomItem>(board.m_Bom.m_arrBomItem);
    item.internalPartNumber = "RES-1K";
    item.quantity = "1";
    item.numberIO = "2";
    item.category = "ELECTRICAL";
    item.description = "1 kOhm";
    item.packageRef = "CHIP";
    AddTo<CIPC2581_Bom_BomItem_RefDes>(item.m_arrRefDes).name = "R1";
}

void FillLayers(CIPC2581_Ecad & ecad)
{
    ecad.name = "blinker";
    ecad.m_CadHeader.units = "MILLIMETER";
    auto & layer = AddTo<CIPC2581_Ecad_CadData_Layer>(ecad.m_CadData.m_arrLayer);
    layer.name = "TOP";
    layer.layerFunction = "CONDUCTOR";
    layer.side = "TOP";
    auto & stackup = ecad.m_CadData.m_Stackup;
    stackup.overallThickness = "1.6";
    stackup.tolPlus = "0.2";
    stackup.tolMinus = "0.1";
    stackup.whereMeasured = "METAL";
    auto & group = AddTo<CIPC2581_Ecad_CadData_Stackup_StackupGroup>(stackup.StackupGroupArray);
    group.name = "ALL";
    group.thickness = 1.6;
    group.tolPlus = 0.02;
    group.tolMinus = 0.01;
    auto & stacked = AddTo<CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer>(group.StackupLayerArray);
    stacked.layerOrGroupRef = "TOP";
    stacked.materialType = "COPPER";
    stacked.thickness = 0.035;
}

void FillHole(Hole & hole, const char * name, const char * diameter, const char * status)
{
    hole.Name = name;
    hole.Diameter = diameter;
    hole.PlatingStatus = status;
    hole.FromLayer = "TOP";
    hole.ToLayer = "TOP";
}

void FillPadStack(Step & step)
{
    auto & stack = AddTo<CIPC2581_Ecad_CadData_Step_PadStack>(step.PadStackArray);
    stack.NetName = "GND";
    FillHole(*stack.LayerHole, "H1", "0.4", "VIA");
    stack.LayerHole->PlusTol = "0.05";
    stack.LayerHole->MinusTol = "0.02";
    stack.LayerHole->Location.SetData(4, 5);
    auto & pad = AddTo<Pad>(*stack.LayerPadArray);
    pad.LayerRef = "TOP";
    pad.Location.SetData(4, 5);
    pad.StandardPrimitiveRefId = "RECT_1X2";
}

void FillProfile(Step & step)
{
    step.Name = "board";
    step.Datum.SetData(1, 2);
    auto & steps = *step.Profile.Polygon->PolyStepArray;
    AddSegment(steps, 30, 0);
    AddSegment(steps, 30, 10);
    AddCurve(steps, CPointD(20, 20), CPointD(20, 10), false);
    AddSegment(steps, 0, 20);
    AddSegment(steps, 0, 0);
    auto & cutout = AddTo<CIPC2581_Cutout>(*step.Profile.Cutouts);
    cutout.PolyBegin->Point->SetData(12, 10);
    AddCurve(*cutout.PolyStepArray, CPointD(12, 10), CPointD(10, 10), true);
}

void FillPackage(Step & step)
{
    auto & package = AddTo<Package>(step.PackageArray);
    package.name = "CHIP";
    package.type = "CHIP";
    package.Outline->Polygon->PolyBegin->Point->SetData(-2, -1);
    auto & steps = *package.Outline->Polygon->PolyStepArray;
    AddSegment(steps, 2, -1);
    AddSegment(steps, 2, 1);
    AddSegment(steps, -2, -1);
    package.Outline->LineDesc->LineWidth = 0.1;
    auto & pad = AddTo<Pad>(package.LandPattern.PadArray);
    pad.Pin = "1";
    pad.Location.SetData(-1.5, 0);
    pad.StandardPrimitiveRefId = "RECT_1X2";
    auto & marking = AddTo<CIPC2581_Ecad_CadData_Step_Target>(package.SilkScreen.TargetArray);
    marking.Location.SetData(0, 3);
    auto & line = AddTo<CIPC2581_PolyLine>(*marking.DrawObjArray);
    line.PolyBegin->Point->SetData(-1, 0);
    AddSegment(*line.PolyStepArray, 1, 0);
    SetLine(*line.LineDesc, "SQUARE", 0.15);
    auto & pin = AddTo<CIPC2581_Ecad_CadData_Step_Package_Pin>(package.PinArray);
    pin.number = "1";
    pin.name = "A";
    pin.type = "SURFACE";
    pin.electricalType = "ELECTRICAL";
    pin.Xform->Rotation = 90;
    pin.Location.SetData(-1.5, 0);
    pin.StandardPrimitiveRef = "RECT_1X2";
}

void FillComponent(Step & step)
{
    auto & component = AddTo<CIPC2581_Ecad_CadData_Step_Component>(step.ComponentArray);
    component.RefDes = "R1";
    component.PackageRef = "CHIP";
    component.Part = "RES-1K";
    component.LayerRef = "TOP";
    component.MountType = "SMT";
    component.Standoff = "0.1";
    component.Height = 0.6;
    component.Xform->Rotation = 90;
    component.Location.SetData(10, 15);
}

void FillNets(Step & step)
{
    auto & net = AddTo<CIPC2581_Ecad_CadData_Step_LogicalNet>(step.LogicalNetArray);
    net.Name = "GND";
    auto & pin = AddTo<CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin>(*net.LogicalNetPinArray);
    pin.ComponentRef = "R1";
    pin.Pin = "1";
    auto & drawn = AddTo<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet>(step.PhyNetGroup.PhyNetArray);
    drawn.Name = "GND";
    auto & point = AddTo<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint>(drawn.PhyNetPointArray);
    point.Location.SetData(10, 13.5);
    point.LayerRef = "TOP";
    point.NetNode = "END";
    point.Exposure = "EXPOSED";
    point.Test = 1;
    point.StandardPrimitiveRefId = "RECT_1X2";
}

// One set for each pad, hole and place.
Set & AddSet(CIPC2581_Ecad_CadData_Step_LayerFeature & feature, int kind)
{
    Set & set = AddTo<Set>(feature.SetArray);
    set.Kind = kind;
    set.Net = "GND";
    return set;
}

void FillPad(Set & set)
{
    set.TestPoint = true;
    set.PadUsage = "TERMINATION";
    set.ColorRef = "COPPER";
    set.Pad.Pin = "R1.1";
    set.Pad.Rotation = 90;
    set.Pad.Location.SetData(10, 13.5);
    set.Pad.StandardPrimitiveRefId = "RECT_1X2";
}

void FillTrack(Set & set)
{
    set.Features.Location.SetData(1, 0);
    auto & line = AddTo<CIPC2581_PolyLine>(set.Features.DrawObjArray);
    line.PolyBegin->Point->SetData(9, 13.5);
    AddSegment(*line.PolyStepArray, 5, 13.5);
    AddCurve(*line.PolyStepArray, CPointD(3, 11.5), CPointD(5, 11.5), false);
    SetLine(*line.LineDesc, "ROUND", 0.25);
}

void FillArea(Set & set)
{
    set.Features.Location.SetData(20, 5);
    auto & area = AddTo<CIPC2581_DicDraw_RectCenter>(set.Features.DrawObjArray);
    area.Width = 4;
    area.Height = 3;
}

void FillText(Set & set)
{
    set.Features.Location.SetData(2, 2);
    auto & text = AddTo<CIPC2581_Text>(set.Features.DrawObjArray);
    text.TextString = "TOP";
    text.FontSize = 10;
    text.BoundingBox_UppRightX = 3;
    text.BoundingBox_UppRightY = 1;
}

void FillLayerFeature(Step & step)
{
    auto & feature = AddTo<CIPC2581_Ecad_CadData_Step_LayerFeature>(step.LayerFeatureArray);
    feature.LayerRef = "TOP";
    FillPad(AddSet(feature, SetKinds::Pad));
    FillTrack(AddSet(feature, SetKinds::Features));
    FillArea(AddSet(feature, SetKinds::Features));
    FillText(AddSet(feature, SetKinds::Features));
    Hole & hole = AddSet(feature, SetKinds::Hole).Hole;
    FillHole(hole, "H2", "3.2", "NONPLATED");
    hole.PlusTol = "0.1";
    hole.Location.SetData(25, 15);
}

}  // namespace

void FillWithSmallestBoard(CIPC2581_Parser & board)
{
    FillContent(board.m_Content);
    FillLogistics(board);
    FillLayers(board.m_Ecad);
    Step & step = board.m_Ecad.m_CadData.m_Step;
    FillPadStack(step);
    FillProfile(step);
    FillPackage(step);
    FillComponent(step);
    FillNets(step);
    FillLayerFeature(step);
}

}  // namespace ipc2581::facts
