#include "ipc2581/cad/LayerFeatureSet.h"

#include <string_view>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

Set::CIPC2581_Ecad_CadData_Step_LayerFeature_Set() = default;
Set::CIPC2581_Ecad_CadData_Step_LayerFeature_Set(const Set & other) = default;
Set & Set::operator=(const Set & other) = default;
Set::~CIPC2581_Ecad_CadData_Step_LayerFeature_Set() = default;

int Set::Export(CStdioFile & file, int level)
{
    if (ExportContents(file, level) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Set>\n", Indent(level + 1));
    return 1;
}

// The opening line, whose form goes with the kind, and the member that counts.
int Set::ExportContents(CStdioFile & file, int level)
{
    const std::string_view testPoint = TrueOrFalse(TestPoint);
    const std::string_view plate = TrueOrFalse(Plate);
    switch (Kind) {
    case ipc2581::SetKinds::Features:
        WriteLine(file, "%s<Set net=\"%s\">\n", Indent(level + 1), Net);
        return Features.Export(file, level + 1);
    case ipc2581::SetKinds::Pad:
        if (Net.IsEmpty()) {
            WriteLine(file, "%s<Set testPoint=\"%s\" plate=\"%s\" padUsage=\"%s\">\n", Indent(level + 1), testPoint,
                      plate, PadUsage);
        }
        else {
            WriteLine(file, "%s<Set net=\"%s\" testPoint=\"%s\" plate=\"%s\" padUsage=\"%s\">\n", Indent(level + 1),
                      Net, testPoint, plate, PadUsage);
        }
        return Pad.Export(file, level + 1);
    case ipc2581::SetKinds::Hole:
        WriteLine(file, "%s<Set>\n", Indent(level + 1));
        return Hole.Export(file, level + 1);
    default:
        return 1;
    }
}

void Set::SetAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Skips("Xform")) {
            continue;
        }
        if (line.Holds("ColorRef")) {
            ScanAttributes<Fields<Set>::ColorRef>(line.Tokens(), *this);
        }
        else if (line.Opens("Features")) {
            Features.FeaturesAdd(file);
            Kind = ipc2581::SetKinds::Features;
        }
        else if (line.Opens("Pad")) {
            ScanAttributes<Fields<CIPC2581_Ecad_CadData_Step_Pad>::Pad>(line.Tokens(), Pad);
            Pad.PadAdd(file);
            Kind = ipc2581::SetKinds::Pad;
        }
        else if (line.Opens("Hole")) {
            ReadHole(line.Tokens(), Hole);
            Kind = ipc2581::SetKinds::Hole;
        }
        else if (line.Holds("/Set")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray::CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray() = default;

CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray::~CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
