#include "ipc2581/cad/LayerFeature.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using LayerFeature = CIPC2581_Ecad_CadData_Step_LayerFeature;
using LayerFeatureArray = CIPC2581_Ecad_CadData_Step_LayerFeatureArray;

LayerFeature::CIPC2581_Ecad_CadData_Step_LayerFeature() = default;
LayerFeature::~CIPC2581_Ecad_CadData_Step_LayerFeature() = default;

int LayerFeature::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<LayerFeature layerRef=\"%s\">\n", Indent(level + 1), LayerRef);
    WriteLine(file, "%s<Set>\n", Indent(level + 2));
    WriteLine(file, "%s<ColorRef id=\"%s\" />\n", Indent(level + 3), ColorRefId);
    WriteLine(file, "%s</Set>\n", Indent(level + 2));
    if (SetArray.Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</LayerFeature>\n", Indent(level + 1));
    return 1;
}

void LayerFeature::LayerFeatureAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Skips("Xform")) {
            continue;
        }
        if (line.Opens("Set")) {
            auto set = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_LayerFeature_Set>::Set>(line, file);
            set->SetAdd(file);
            const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & added = *Append(SetArray, std::move(set));
            if (!added.ColorRef.IsEmpty()) {
                ColorRefId = added.ColorRef;
            }
        }
        else if (line.Holds("/LayerFeature")) {
            return;
        }
    }
}

LayerFeatureArray::CIPC2581_Ecad_CadData_Step_LayerFeatureArray() = default;

LayerFeatureArray::~CIPC2581_Ecad_CadData_Step_LayerFeatureArray()
{
    DeleteAll();
}

int CIPC2581_Ecad_CadData_Step_LayerFeatureArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

LayerFeature * LayerFeatureArray::pGetLayerFeatureWithName(CString name) const
{
    return FindFirst(*this, &LayerFeature::LayerRef, name);
}

LayerFeature * LayerFeatureArray::FindLayerFeature(CString name) const
{
    return pGetLayerFeatureWithName(name);
}
