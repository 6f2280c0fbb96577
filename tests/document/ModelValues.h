#ifndef IPC2581_TESTS_DOCUMENT_MODELVALUES_H
#define IPC2581_TESTS_DOCUMENT_MODELVALUES_H

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ipc2581/ipc2581.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

// What a model holds beside what a new one does, a line a value: "Layer[0].name = TOP". An element of a list that holds
// nothing of its own stands there by its name alone, and a shape by the first line that it writes.
class ModelValues {
public:
    explicit ModelValues(CIPC2581_Parser & root)
    {
        AddContent(root.m_Content);
        AddLogistics(root);
        AddEcad(root.m_Ecad);
    }

    [[nodiscard]] const std::vector<std::string> & Lines() const { return m_lines; }

private:
    using Path = std::string;

    void Line(const Path & path, const std::string & value)
    {
        m_lines.push_back(path + (value.empty() ? " =" : " = ") + value);
    }

    void Text(const Path & path, const CString & value, std::string_view unset = "")
    {
        if (static_cast<std::string_view>(value) != unset) {
            Line(path, Str(value));
        }
    }

    void Number(const Path & path, double value, double unset = 0.0)
    {
        if (value == unset) {
            return;
        }
        std::array<char, 32> digits = {};
        const std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
        Line(path, std::string(digits.data(), end.ptr));
    }

    void Point(const Path & path, const CPointD & point)
    {
        Number(path + ".X", point.X);
        Number(path + ".Y", point.Y);
    }

    void Names(const Path & path, const CStringArray & names)
    {
        for (std::int64_t i = 0; i < names.GetSize(); ++i) {
            Line(path + "[" + std::to_string(i) + "]", Str(names[i]));
        }
    }

    template <typename Array, typename Add>
    void Elements(const Path & path, Array & elements, Add add)
    {
        for (std::int64_t i = 0; i < elements.GetSize(); ++i) {
            const Path element = path + "[" + std::to_string(i) + "]";
            const std::size_t before = m_lines.size();
            add(element, *elements.GetAt(i));
            if (m_lines.size() == before) {
                m_lines.push_back(element);
            }
        }
    }

    void Shapes(const Path & path, CIPC2581_DrawObjArray & shapes)
    {
        Elements(path, shapes, [this](const Path & at, CIPC2581_DrawObj & shape) {
            const std::string written = Written(shape, -1);
            Line(at, written.substr(0, written.find('\n')));
        });
    }

    void Steps(const Path & path, CIPC2581_Polygon & polygon)
    {
        Point(path + ".PolyBegin", *polygon.PolyBegin->Point);
        Elements(path + ".PolyStep", *polygon.PolyStepArray, [this](const Path & at, CIPC2581_PolyStep & step) {
            Number(at + ".Type", step.Type);
            Point(at + ".EndPoint", *step.EndPoint->Point);
            Point(at + ".CenterPoint", *step.CenterPoint->Point);
            Number(at + ".ClockWise", step.ClockWise, 1);
        });
    }

    void AddContent(CIPC2581_Content & content)
    {
        Text("FunctionMode", content.FunctionMode);
        Text("FunctionModeLevel", content.FunctionModeLevel);
        Names("StepRef", content.StepRef);
        Names("LayerRef", content.LayerRef);
        Names("BomRef", content.BomRef);
        Text("DictionaryStandard.Unit", content.DictionaryStandard->Unit);
        Elements("EntryStandard", *content.DictionaryStandard->EntryArray,
                 [this](const Path & at, CIPC2581_Content_DictionaryStandard_EntryStandard & entry) {
                     Text(at + ".EntryStandardId", entry.EntryStandardId);
                     Shapes(at + ".Draw", *entry.DrawArray);
                 });
        Text("DictionaryUser.Unit", content.DictionaryUser->Unit);
        Elements("EntryColor", *content.m_DictionaryColor->Entry,
                 [this](const Path & at, CIPC2581_Content_DictionaryColor_EntryColor & entry) {
                     Text(at + ".EntryColorId", entry.EntryColorId);
                     Number(at + ".Red", entry.Red);
                     Number(at + ".Green", entry.Green);
                     Number(at + ".Blue", entry.Blue);
                     Text(at + ".ColorRefID", entry.ColorRefID);
                 });
    }

    void AddLogistics(CIPC2581_Parser & root)
    {
        Text("LogisticHeader.m_strRoleName", root.m_LogisticHeader.m_strRoleName);
        Text("LogisticHeader.m_strPersonName", root.m_LogisticHeader.m_strPersonName);
        Number("HistoryRecord.number", root.m_HistoryRecord.number);
        Text("HistoryRecord.origination", root.m_HistoryRecord.origination);
        Text("HistoryRecord.toolRef", root.m_HistoryRecord.toolRef);
        Text("HistoryRecord.lastChange", root.m_HistoryRecord.lastChange);
        Text("Bom.name", root.m_Bom.name);
        Text("Bom.assembly", root.m_Bom.assembly);
        Elements("BomItem", root.m_Bom.m_arrBomItem, [this](const Path & at, CIPC2581_Bom_BomItem & item) {
            Text(at + ".quantity", item.quantity);
            Text(at + ".numberIO", item.numberIO);
            Text(at + ".category", item.category);
            Text(at + ".internalPartNumber", item.internalPartNumber);
            Text(at + ".description", item.description);
            Text(at + ".packageRef", item.packageRef);
            Elements(at + ".RefDes", item.m_arrRefDes, [this](const Path & in, CIPC2581_Bom_BomItem_RefDes & refDes) {
                Text(in + ".name", refDes.name);
                Number(in + ".populate", refDes.populate ? 1 : 0, 1);
            });
        });
    }

    void AddEcad(CIPC2581_Ecad & ecad)
    {
        Text("Ecad.name", ecad.name);
        Text("CadHeader.units", ecad.m_CadHeader.units);
        Elements("Layer", ecad.m_CadData.m_arrLayer, [this](const Path & at, CIPC2581_Ecad_CadData_Layer & layer) {
            Text(at + ".name", layer.name);
            Text(at + ".layerFunction", layer.layerFunction);
            Text(at + ".side", layer.side);
            Text(at + ".polarity", layer.polarity, "POSITIVE");
        });
        AddStackup(ecad.m_CadData.m_Stackup);
        AddStep(ecad.m_CadData.m_Step);
    }

    void AddStackup(CIPC2581_Ecad_CadData_Stackup & stackup)
    {
        Text("Stackup.overallThickness", stackup.overallThickness);
        Text("Stackup.tolPlus", stackup.tolPlus);
        Text("Stackup.tolMinus", stackup.tolMinus);
        Text("Stackup.whereMeasured", stackup.whereMeasured);
        Elements("StackupGroup", stackup.StackupGroupArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Stackup_StackupGroup & group) {
                     Text(at + ".name", group.name);
                     Number(at + ".thickness", group.thickness);
                     Number(at + ".tolPlus", group.tolPlus);
                     Number(at + ".tolMinus", group.tolMinus);
                     Elements(at + ".StackupLayer", group.StackupLayerArray,
                              [this](const Path & in, CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer & layer) {
                                  Text(in + ".layerOrGroupRef", layer.layerOrGroupRef);
                                  Text(in + ".materialType", layer.materialType);
                                  Number(in + ".thickness", layer.thickness);
                              });
                 });
    }

    void AddStep(CIPC2581_Ecad_CadData_Step & step)
    {
        Text("Step.Name", step.Name);
        Point("Step.Datum", step.Datum);
        Elements("PadStack", step.PadStackArray, [this](const Path & at, CIPC2581_Ecad_CadData_Step_PadStack & stack) {
            Text(at + ".NetName", stack.NetName);
            AddHole(at + ".LayerHole", *stack.LayerHole);
            Elements(at + ".LayerPad", *stack.LayerPadArray,
                     [this](const Path & in, CIPC2581_Ecad_CadData_Step_Pad & pad) { AddPad(in, pad); });
        });
        Steps("Profile", *step.Profile.Polygon);
        Shapes("Profile.Cutout", *step.Profile.Cutouts);
        Elements("Package", step.PackageArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Step_Package & package) { AddPackage(at, package); });
        Elements("Component", step.ComponentArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Step_Component & part) { AddComponent(at, part); });
        AddNets(step);
        Elements("LayerFeature", step.LayerFeatureArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Step_LayerFeature & layerFeature) {
                     Text(at + ".LayerRef", layerFeature.LayerRef);
                     Text(at + ".ColorRefId", layerFeature.ColorRefId);
                     Elements(at + ".Set", layerFeature.SetArray,
                              [this](const Path & in, CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set) {
                                  AddSet(in, set);
                              });
                 });
    }

    void AddHole(const Path & at, const CIPC2581_Ecad_CadData_Step_Hole & hole)
    {
        Text(at + ".Name", hole.Name);
        Text(at + ".Diameter", hole.Diameter);
        Text(at + ".PlatingStatus", hole.PlatingStatus);
        Text(at + ".PlusTol", hole.PlusTol);
        Text(at + ".MinusTol", hole.MinusTol);
        Point(at + ".Location", hole.Location);
        Text(at + ".ToLayer", hole.ToLayer);
        Text(at + ".FromLayer", hole.FromLayer);
    }

    void AddPad(const Path & at, const CIPC2581_Ecad_CadData_Step_Pad & pad)
    {
        Text(at + ".LayerRef", pad.LayerRef);
        Text(at + ".Pin", pad.Pin);
        Number(at + ".Rotation", pad.Rotation);
        Point(at + ".Location", pad.Location);
        Text(at + ".StandardPrimitiveRefId", pad.StandardPrimitiveRefId);
    }

    void AddPackage(const Path & at, CIPC2581_Ecad_CadData_Step_Package & package)
    {
        Text(at + ".name", package.name);
        Text(at + ".type", package.type);
        Number(at + ".TypeCode", package.TypeCode);
        Steps(at + ".Outline", *package.Outline->Polygon);
        Elements(at + ".Pin", package.PinArray, [this](const Path & in, CIPC2581_Ecad_CadData_Step_Package_Pin & pin) {
            Text(in + ".number", pin.number);
            Text(in + ".name", pin.name);
            Text(in + ".type", pin.type);
            Text(in + ".electricalType", pin.electricalType);
            Number(in + ".Xform.Rotation", pin.Xform->Rotation);
            Number(in + ".Xform.Mirror", pin.Xform->Mirror);
            Point(in + ".Location", pin.Location);
            Text(in + ".StandardPrimitiveRef", pin.StandardPrimitiveRef);
        });
    }

    void AddComponent(const Path & at, const CIPC2581_Ecad_CadData_Step_Component & component)
    {
        Text(at + ".RefDes", component.RefDes);
        Text(at + ".PackageRef", component.PackageRef);
        Text(at + ".Part", component.Part);
        Text(at + ".LayerRef", component.LayerRef);
        Text(at + ".MountType", component.MountType, "OTHER");
        Number(at + ".Height", component.Height);
        Text(at + ".Standoff", component.Standoff);
        Number(at + ".Xform.Rotation", component.Xform->Rotation);
        Number(at + ".Xform.Mirror", component.Xform->Mirror);
        Point(at + ".Location", component.Location);
    }

    void AddNets(CIPC2581_Ecad_CadData_Step & step)
    {
        Elements("LogicalNet", step.LogicalNetArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Step_LogicalNet & net) {
                     Text(at + ".Name", net.Name);
                     Elements(at + ".LogicalNetPin", *net.LogicalNetPinArray,
                              [this](const Path & in, CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin & pin) {
                                  Text(in + ".ComponentRef", pin.ComponentRef);
                                  Text(in + ".Pin", pin.Pin);
                              });
                 });
        Text("PhyNetGroup.Name", step.PhyNetGroup.Name);
        Elements("PhyNet", step.PhyNetGroup.PhyNetArray,
                 [this](const Path & at, CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet & net) {
                     Text(at + ".Name", net.Name);
                     Elements(
                         at + ".PhyNetPoint", net.PhyNetPointArray,
                         [this](const Path & in, CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint & point) {
                             Point(in + ".Location", point.Location);
                             Text(in + ".LayerRef", point.LayerRef);
                             Text(in + ".Exposure", point.Exposure);
                             Text(in + ".NetNode", point.NetNode);
                             Number(in + ".Via", point.Via);
                             Number(in + ".Test", point.Test);
                             Text(in + ".StandardPrimitiveRefId", point.StandardPrimitiveRefId);
                         });
                 });
    }

    void AddSet(const Path & at, CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set)
    {
        Number(at + ".Kind", set.Kind);
        Text(at + ".Net", set.Net);
        Text(at + ".ColorRef", set.ColorRef);
        Number(at + ".TestPoint", set.TestPoint ? 1 : 0);
        Number(at + ".Plate", set.Plate ? 1 : 0);
        Text(at + ".PadUsage", set.PadUsage);
        Point(at + ".Features.Location", set.Features.Location);
        Shapes(at + ".Features.DrawObj", set.Features.DrawObjArray);
        AddPad(at + ".Pad", set.Pad);
        AddHole(at + ".Hole", set.Hole);
    }

    std::vector<std::string> m_lines;
};

}  // namespace ipc2581::tests

#endif
