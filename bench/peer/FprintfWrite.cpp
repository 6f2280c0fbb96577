// Writes a model as WriteFilePath does, byte for byte, with one fprintf a line.

#include <cstdint>
#include <cstdio>

#include <ipc2581/ipc2581.h>

#include "bench/Measure.h"

namespace {

using Step = CIPC2581_Ecad_CadData_Step;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

const char * C(const CString & text)
{
    return text;
}

const char * TrueOrFalse(bool value)
{
    return value ? "TRUE" : "FALSE";
}

const char * IfSet(int flag, const char * piece)
{
    return flag != 0 ? piece : "";
}

int Blanks(int depth)
{
    return 3 * depth;
}

void WriteOpening(std::FILE * out, int depth, const char * tag)
{
    std::fprintf(out, "%*s<%s>\n", Blanks(depth), "", tag);
}

void WriteKeyedOpening(std::FILE * out, int depth, const char * tag, const char * key, const CString & value)
{
    std::fprintf(out, "%*s<%s %s=\"%s\">\n", Blanks(depth), "", tag, key, C(value));
}

void WriteClosing(std::FILE * out, int depth, const char * tag)
{
    std::fprintf(out, "%*s</%s>\n", Blanks(depth), "", tag);
}

void WriteLocation(std::FILE * out, int depth, const CPointD & location)
{
    std::fprintf(out, "%*s<Location x=\"%f\" y=\"%f\"/>\n", Blanks(depth), "", location.X, location.Y);
}

void WritePrimitiveRef(std::FILE * out, int depth, const CString & id)
{
    std::fprintf(out, "%*s<StandardPrimitiveRef id=\"%s\"/>\n", Blanks(depth), "", C(id));
}

void WriteLineDesc(std::FILE * out, int depth, const CIPC2581_LineDesc & lineDesc)
{
    std::fprintf(out, "%*s<LineDesc lineEnd=\"%s\" lineWidth=\"%f\" />\n", Blanks(depth), "", C(lineDesc.LineEnd),
                 lineDesc.LineWidth);
}

template <typename ContourShape>
void WriteSteps(std::FILE * out, int depth, const ContourShape & shape)
{
    const CPointD & begin = *shape.PolyBegin->Point;
    std::fprintf(out, "%*s<PolyBegin x=\"%f\" y=\"%f\" />\n", Blanks(depth), "", begin.X, begin.Y);
    for (std::int64_t i = 0; i < shape.PolyStepArray->GetSize(); ++i) {
        const CIPC2581_PolyStep & step = *shape.PolyStepArray->GetAt(i);
        const CPointD & end = *step.EndPoint->Point;
        if (step.Type == 0) {
            std::fprintf(out, "%*s<PolyStepSegment x=\"%f\" y=\"%f\" />\n", Blanks(depth), "", end.X, end.Y);
        }
        else {
            const CPointD & center = *step.CenterPoint->Point;
            std::fprintf(out, "%*s<PolyStepCurve x=\"%f\" y=\"%f\" centerX=\"%f\" centerY=\"%f\" clockwise=\"%s\" />\n",
                         Blanks(depth), "", end.X, end.Y, center.X, center.Y, TrueOrFalse(step.ClockWise == 1));
        }
    }
}

template <typename ContourShape>
void WriteContourShape(std::FILE * out, int depth, const char * tag, const ContourShape & shape)
{
    WriteOpening(out, depth, tag);
    WriteSteps(out, depth + 1, shape);
    WriteClosing(out, depth, tag);
}

void WritePolyLine(std::FILE * out, int depth, const CIPC2581_PolyLine & shape)
{
    WriteOpening(out, depth, "Polyline");
    WriteSteps(out, depth + 1, shape);
    WriteLineDesc(out, depth + 1, *shape.LineDesc);
    WriteClosing(out, depth, "Polyline");
}

void WriteStroke(std::FILE * out, int depth, const CIPC2581_Line & line)
{
    std::fprintf(out, "%*s<Line startX=\"%f\" startY=\"%f\" endX=\"%f\" endY=\"%f\">\n", Blanks(depth), "",
                 line.StartPoint->Point->X, line.StartPoint->Point->Y, line.EndPoint->Point->X,
                 line.EndPoint->Point->Y);
    WriteLineDesc(out, depth + 1, *line.LineDesc);
    WriteClosing(out, depth, "Line");
}

// Shapes that the measured board does not hold are left out; the bytes would differ if it did.
void WriteShapes(std::FILE * out, int depth, const CIPC2581_DrawObjArray & shapes)
{
    for (std::int64_t i = 0; i < shapes.GetSize(); ++i) {
        const CIPC2581_DrawObj * const shape = shapes.GetAt(i);
        switch (shape->DrawType) {
        case 2:
            std::fprintf(out, "%*s<Circle diameter=\"%f\" />\n", Blanks(depth), "",
                         static_cast<const CIPC2581_DicDraw_Circle *>(shape)->Diameter);
            break;
        case 3:
            WriteOpening(out, depth, "Contour");
            WriteShapes(out, depth + 1, *static_cast<const CIPC2581_DicDraw_Contour *>(shape)->DicDrawObjArray);
            WriteClosing(out, depth, "Contour");
            break;
        case 11: {
            const auto & rectangle = *static_cast<const CIPC2581_DicDraw_RectCenter *>(shape);
            std::fprintf(out, "%*s<RectCenter width=\"%f\" height=\"%f\" />\n", Blanks(depth), "", rectangle.Width,
                         rectangle.Height);
            break;
        }
        case 18:
            WriteStroke(out, depth, *static_cast<const CIPC2581_Line *>(shape));
            break;
        case 20:
            WritePolyLine(out, depth, *static_cast<const CIPC2581_PolyLine *>(shape));
            break;
        case 22:
            WriteContourShape(out, depth, "Polygon", *static_cast<const CIPC2581_Polygon *>(shape));
            break;
        case 23:
            WriteContourShape(out, depth, "Cutout", *static_cast<const CIPC2581_Cutout *>(shape));
            break;
        default:
            break;
        }
    }
}

void WriteOutline(std::FILE * out, int depth, const CIPC2581_Outline & outline)
{
    if (outline.Polygon->PolyStepArray->IsEmpty()) {
        return;
    }
    WriteOpening(out, depth, "Outline");
    WriteContourShape(out, depth + 1, "Polygon", *outline.Polygon);
    WriteLineDesc(out, depth + 1, *outline.LineDesc);
    WriteClosing(out, depth, "Outline");
}

void WriteContent(std::FILE * out, int depth, const CIPC2581_Content & content)
{
    WriteOpening(out, depth, "Content");
    std::fprintf(out, "%*s<FunctionMode mode=\"%s\" level=\"%s\"/>\n", Blanks(depth + 1), "", C(content.FunctionMode),
                 C(content.FunctionModeLevel));
    const CIPC2581_Content_DictionaryStandard & standard = *content.DictionaryStandard;
    if (!standard.EntryArray->IsEmpty()) {
        WriteKeyedOpening(out, depth + 1, "DictionaryStandard", "units", standard.Unit);
        for (std::int64_t i = 0; i < standard.EntryArray->GetSize(); ++i) {
            const auto & entry = *standard.EntryArray->GetAt(i);
            WriteKeyedOpening(out, depth + 2, "EntryStandard", "id", entry.EntryStandardId);
            WriteShapes(out, depth + 3, *entry.DrawArray);
            WriteClosing(out, depth + 2, "EntryStandard");
        }
        WriteClosing(out, depth + 1, "DictionaryStandard");
    }
    const auto & colors = *content.m_DictionaryColor->Entry;
    WriteOpening(out, depth + 1, "DictionaryColor");
    for (std::int64_t i = 0; i < colors.GetSize(); ++i) {
        const auto & entry = *colors.GetAt(i);
        WriteKeyedOpening(out, depth + 2, "EntryColor", "id", entry.EntryColorId);
        std::fprintf(out, "%*s<Color r=\"%d\" g=\"%d\" b=\"%d\" />\n", Blanks(depth + 3), "", entry.Red, entry.Green,
                     entry.Blue);
        WriteClosing(out, depth + 2, "EntryColor");
    }
    WriteClosing(out, depth + 1, "DictionaryColor");
    WriteClosing(out, depth, "Content");
}

void WriteProfile(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_Profile & profile)
{
    WriteOpening(out, depth, "Profile");
    WriteContourShape(out, depth + 1, "Polygon", *profile.Polygon);
    WriteShapes(out, depth + 1, *profile.Cutouts);
    WriteClosing(out, depth, "Profile");
}

void WriteTargets(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_TargetArray & targets)
{
    for (std::int64_t i = 0; i < targets.GetSize(); ++i) {
        const CIPC2581_Ecad_CadData_Step_Target & target = *targets.GetAt(i);
        WriteOpening(out, depth, "Target");
        std::fprintf(out, "%*s<Location x=\"%f\" y=\"%f\" />\n", Blanks(depth + 1), "", target.Location.X,
                     target.Location.Y);
        WriteShapes(out, depth + 1, *target.DrawObjArray);
        WriteClosing(out, depth, "Target");
    }
}

void WritePad(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    if (pad.Pin.IsEmpty()) {
        WriteOpening(out, depth, "Pad");
    }
    else {
        WriteKeyedOpening(out, depth, "Pad", "pin", pad.Pin);
    }
    if (pad.Rotation != 0.0) {
        std::fprintf(out, "%*s<Xform rotation=\"%f\"/>\n", Blanks(depth + 1), "", pad.Rotation);
    }
    WriteLocation(out, depth + 1, pad.Location);
    WritePrimitiveRef(out, depth + 1, pad.StandardPrimitiveRefId);
    WriteClosing(out, depth, "Pad");
}

void WritePins(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_Package_PinArray & pins)
{
    for (std::int64_t i = 0; i < pins.GetSize(); ++i) {
        const CIPC2581_Ecad_CadData_Step_Package_Pin & pin = *pins.GetAt(i);
        std::fprintf(out, "%*s<Pin number=\"%s\" name=\"%s\" type=\"%s\" electricalType=\"%s\">\n", Blanks(depth), "",
                     C(pin.number), C(pin.name), C(pin.type), C(pin.electricalType));
        WriteLocation(out, depth + 1, pin.Location);
        WritePrimitiveRef(out, depth + 1, pin.StandardPrimitiveRef);
        WriteClosing(out, depth, "Pin");
    }
}

void WritePackage(std::FILE * out, int depth, const Package & package)
{
    std::fprintf(out, "%*s<Package name=\"%s\" type=\"%s\">\n", Blanks(depth), "", C(package.name), C(package.type));
    WriteOutline(out, depth + 1, *package.Outline);
    WriteOpening(out, depth + 1, "SilkScreen");
    WriteOutline(out, depth + 2, *package.SilkScreen.Outline);
    WriteTargets(out, depth + 2, package.SilkScreen.TargetArray);
    WriteClosing(out, depth + 1, "SilkScreen");
    if (!package.AssemblyDrawing.Outline->Polygon->PolyStepArray->IsEmpty()) {
        WriteOpening(out, depth + 1, "AssemblyDrawing");
        WriteOutline(out, depth + 2, *package.AssemblyDrawing.Outline);
        WriteTargets(out, depth + 2, package.AssemblyDrawing.TargetArray);
        WriteClosing(out, depth + 1, "AssemblyDrawing");
    }
    const auto & landPattern = package.LandPattern;
    if (!landPattern.PadArray.IsEmpty() || !landPattern.TargetArray.IsEmpty()) {
        WriteOpening(out, depth + 1, "LandPattern");
        for (std::int64_t i = 0; i < landPattern.PadArray.GetSize(); ++i) {
            WritePad(out, depth + 2, *landPattern.PadArray.GetAt(i));
        }
        WriteTargets(out, depth + 2, landPattern.TargetArray);
        WriteClosing(out, depth + 1, "LandPattern");
    }
    WritePins(out, depth + 1, package.PinArray);
    WriteClosing(out, depth, "Package");
}

void WriteComponent(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_Component & component)
{
    std::fprintf(out,
                 "%*s<Component refDes=\"%s\" packageRef=\"%s\" layerRef=\"%s\" part=\"%s\" mountType=\"%s\" "
                 "standoff=\"%s\" height=\"0.0\">\n",
                 Blanks(depth), "", C(component.RefDes), C(component.PackageRef), C(component.LayerRef),
                 C(component.Part), C(component.MountType), C(component.Standoff));
    std::fprintf(out, "%*s<Xform rotation=\"%f\"/>\n", Blanks(depth + 1), "", component.Xform->Rotation);
    WriteLocation(out, depth + 1, component.Location);
    WriteClosing(out, depth, "Component");
}

void WriteLogicalNet(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_LogicalNet & net)
{
    WriteKeyedOpening(out, depth, "LogicalNet", "name", net.Name);
    for (std::int64_t i = 0; i < net.LogicalNetPinArray->GetSize(); ++i) {
        const auto & pin = *net.LogicalNetPinArray->GetAt(i);
        std::fprintf(out, "%*s<LogicalNetPin pin=\"%s\" componentRef=\"%s\" />\n", Blanks(depth + 1), "", C(pin.Pin),
                     C(pin.ComponentRef));
    }
    WriteClosing(out, depth, "LogicalNet");
}

void WritePhyNet(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet & net)
{
    WriteKeyedOpening(out, depth, "PhyNet", "name", net.Name);
    for (std::int64_t i = 0; i < net.PhyNetPointArray.GetSize(); ++i) {
        const auto & point = *net.PhyNetPointArray.GetAt(i);
        std::fprintf(out, "%*s<PhyNetPoint x=\"%f\" y=\"%f\" layerRef=\"%s\" netNode=\"%s\" exposure=\"%s\"%s>\n",
                     Blanks(depth + 1), "", point.Location.X, point.Location.Y, C(point.LayerRef), C(point.NetNode),
                     C(point.Exposure), IfSet(point.Via, " via=\"TRUE\""));
        WritePrimitiveRef(out, depth + 2, point.StandardPrimitiveRefId);
        WriteClosing(out, depth + 1, "PhyNetPoint");
    }
    WriteClosing(out, depth, "PhyNet");
}

void WriteHole(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    std::fprintf(out,
                 "%*s<Hole name=\"%s\" diameter=\"%s\" platingStatus=\"%s\" plusTol=\"%s\" minusTol=\"%s\" x=\"%f\" "
                 "y=\"%f\" />\n",
                 Blanks(depth), "", C(hole.Name), C(hole.Diameter), C(hole.PlatingStatus), C(hole.PlusTol),
                 C(hole.MinusTol), hole.Location.X, hole.Location.Y);
}

void WriteSet(std::FILE * out, int depth, const Set & set)
{
    if (set.Kind == 0) {
        WriteKeyedOpening(out, depth, "Set", "net", set.Net);
        WriteOpening(out, depth + 1, "Features");
        WriteLocation(out, depth + 2, set.Features.Location);
        WriteShapes(out, depth + 2, set.Features.DrawObjArray);
        WriteClosing(out, depth + 1, "Features");
    }
    else if (set.Kind == 1) {
        if (set.Net.IsEmpty()) {
            std::fprintf(out, "%*s<Set testPoint=\"%s\" plate=\"%s\" padUsage=\"%s\">\n", Blanks(depth), "",
                         TrueOrFalse(set.TestPoint), TrueOrFalse(set.Plate), C(set.PadUsage));
        }
        else {
            std::fprintf(out, "%*s<Set net=\"%s\" testPoint=\"%s\" plate=\"%s\" padUsage=\"%s\">\n", Blanks(depth), "",
                         C(set.Net), TrueOrFalse(set.TestPoint), TrueOrFalse(set.Plate), C(set.PadUsage));
        }
        WritePad(out, depth + 1, set.Pad);
    }
    else {
        WriteOpening(out, depth, "Set");
        WriteHole(out, depth + 1, set.Hole);
    }
    WriteClosing(out, depth, "Set");
}

void WriteLayerFeature(std::FILE * out, int depth, const CIPC2581_Ecad_CadData_Step_LayerFeature & layerFeature)
{
    WriteKeyedOpening(out, depth, "LayerFeature", "layerRef", layerFeature.LayerRef);
    WriteOpening(out, depth + 1, "Set");
    std::fprintf(out, "%*s<ColorRef id=\"%s\" />\n", Blanks(depth + 2), "", C(layerFeature.ColorRefId));
    WriteClosing(out, depth + 1, "Set");
    for (std::int64_t i = 0; i < layerFeature.SetArray.GetSize(); ++i) {
        WriteSet(out, depth + 1, *layerFeature.SetArray.GetAt(i));
    }
    WriteClosing(out, depth, "LayerFeature");
}

template <typename Array, typename Write>
void WriteAll(std::FILE * out, int depth, const Array & elements, Write write)
{
    for (std::int64_t i = 0; i < elements.GetSize(); ++i) {
        write(out, depth, *elements.GetAt(i));
    }
}

void WriteStep(std::FILE * out, int depth, const Step & step)
{
    WriteKeyedOpening(out, depth, "Step", "name", step.Name);
    std::fprintf(out, "%*s<Datum x=\"%f\" y=\"%f\" />\n", Blanks(depth + 1), "", step.Datum.X, step.Datum.Y);
    WriteProfile(out, depth + 1, step.Profile);
    WriteAll(out, depth + 1, step.PackageArray, WritePackage);
    WriteAll(out, depth + 1, step.ComponentArray, WriteComponent);
    WriteAll(out, depth + 1, step.LogicalNetArray, WriteLogicalNet);
    WriteKeyedOpening(out, depth + 1, "PhyNetGroup", "name", step.PhyNetGroup.Name);
    WriteAll(out, depth + 2, step.PhyNetGroup.PhyNetArray, WritePhyNet);
    WriteClosing(out, depth + 1, "PhyNetGroup");
    WriteAll(out, depth + 1, step.LayerFeatureArray, WriteLayerFeature);
    WriteClosing(out, depth, "Step");
}

void WriteEcad(std::FILE * out, int depth, const CIPC2581_Ecad & ecad)
{
    WriteKeyedOpening(out, depth, "Ecad", "name", ecad.name);
    WriteKeyedOpening(out, depth + 1, "CadHeader", "units", ecad.m_CadHeader.units);
    WriteClosing(out, depth + 1, "CadHeader");
    WriteOpening(out, depth + 1, "CadData");
    for (std::int64_t i = 0; i < ecad.m_CadData.m_arrLayer.GetSize(); ++i) {
        const auto & layer = *ecad.m_CadData.m_arrLayer.GetAt(i);
        std::fprintf(out, "%*s<Layer name=\"%s\" layerFunction=\"%s\" side=\"%s\" polarity=\"%s\">\n",
                     Blanks(depth + 2), "", C(layer.name), C(layer.layerFunction), C(layer.side), C(layer.polarity));
        WriteClosing(out, depth + 2, "Layer");
    }
    WriteStep(out, depth + 2, ecad.m_CadData.m_Step);
    WriteClosing(out, depth + 1, "CadData");
    WriteClosing(out, depth, "Ecad");
}

bool WriteFile(const char * path, const CIPC2581_Parser & root)
{
    std::FILE * const out = std::fopen(path, "wb");
    if (out == nullptr) {
        return false;
    }
    std::fprintf(out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    std::fprintf(out, "<IPC-2581 xmlns=\"http://webstds.ipc.org/2581\" "
                      "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                      "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n");
    WriteContent(out, 1, root.m_Content);
    WriteEcad(out, 1, root.m_Ecad);
    std::fprintf(out, "</IPC-2581>\n");
    const bool isWritten = std::ferror(out) == 0;
    return std::fclose(out) == 0 && isWritten;
}

}  // namespace

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    if (count != 3) {
        std::fputs("usage: fprintf_write FILE OUT\n", stderr);
        return 2;
    }
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    CString path(arguments[1]);
    reader.OpenPath(path, root);
    ResetPeak();
    const double held = PeakMegabytes();
    const double start = CpuMilliseconds();
    const bool isWritten = WriteFile(arguments[2], root);
    const double used = CpuMilliseconds() - start;
    if (!isWritten) {
        std::perror(arguments[2]);
        return 1;
    }
    std::printf("write %.3f ms %.3f MB\n", used, PeakMegabytes() - held);
    return 0;
}
