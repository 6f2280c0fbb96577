#include "hosts/ipc2581/check/ElementCounts.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <type_traits>

#include <expat.h>

#include "hosts/ipc2581/board/ShapeElements.h"
#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

struct CloseFile {
    void operator()(std::FILE * file) const { std::fclose(file); }
};

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

void XMLCALL CountElement(void * counts, const XML_Char * name, const XML_Char **)
{
    ++(*static_cast<ElementCounts *>(counts))[name];
}

class ModelCounter {
public:
    explicit ModelCounter(ElementCounts & counts) : m_counts(counts) {}

    void CountContent(const CIPC2581_Content & content)
    {
        Add("StepRef", static_cast<std::size_t>(content.StepRef.GetSize()));
        Add("LayerRef", static_cast<std::size_t>(content.LayerRef.GetSize()));
        Add("BomRef", static_cast<std::size_t>(content.BomRef.GetSize()));
        Add("EntryStandard", Count(content.DictionaryStandard->EntryArray));
        Add("EntryColor", Count(content.m_DictionaryColor->Entry));
        for (const CIPC2581_Content_DictionaryStandard_EntryStandard * const entry :
             Each(content.DictionaryStandard->EntryArray)) {
            CountShapes(*entry->DrawArray);
        }
    }

    void CountBom(const CIPC2581_Bom & bom)
    {
        Add("BomItem", Count(bom.m_arrBomItem));
        for (const CIPC2581_Bom_BomItem * const item : Each(bom.m_arrBomItem)) {
            Add("RefDes", Count(item->m_arrRefDes));
        }
    }

    void CountData(const CIPC2581_Ecad_CadData & data)
    {
        Add("Layer", Count(data.m_arrLayer));
        Add("StackupGroup", Count(data.m_Stackup.StackupGroupArray));
        for (const CIPC2581_Ecad_CadData_Stackup_StackupGroup * const group : Each(data.m_Stackup.StackupGroupArray)) {
            Add("StackupLayer", Count(group->StackupLayerArray));
        }
    }

    void CountStep(const CIPC2581_Ecad_CadData_Step & step)
    {
        Add("PadStack", Count(step.PadStackArray));
        for (const CIPC2581_Ecad_CadData_Step_PadStack * const padStack : Each(step.PadStackArray)) {
            Add("LayerPad", Count(padStack->LayerPadArray));
        }
        CountOutline(*step.Profile.Polygon);
        CountShapes(*step.Profile.Cutouts);
        CountPackages(step);
        Add("Component", Count(step.ComponentArray));
        Add("LogicalNet", Count(step.LogicalNetArray));
        for (const CIPC2581_Ecad_CadData_Step_LogicalNet * const net : Each(step.LogicalNetArray)) {
            Add("LogicalNetPin", Count(net->LogicalNetPinArray));
        }
        Add("PhyNet", Count(step.PhyNetGroup.PhyNetArray));
        for (const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet * const net : Each(step.PhyNetGroup.PhyNetArray)) {
            Add("PhyNetPoint", Count(net->PhyNetPointArray));
        }
        CountFeatures(step);
    }

private:
    void Add(const char * name, std::size_t count) { m_counts[name] += count; }

    void CountPackages(const CIPC2581_Ecad_CadData_Step & step)
    {
        Add("Package", Count(step.PackageArray));
        for (const CIPC2581_Ecad_CadData_Step_Package * const package : Each(step.PackageArray)) {
            CountOutline(*package->Outline->Polygon);
            CountOutline(*package->AssemblyDrawing.Outline->Polygon);
            Add("Pad", Count(package->LandPattern.PadArray));
            Add("Target", Count(package->SilkScreen.TargetArray));
            for (const CIPC2581_Ecad_CadData_Step_Target * const target : Each(package->SilkScreen.TargetArray)) {
                CountShapes(*target->DrawObjArray);
            }
            Add("Pin", Count(package->PinArray));
            for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package->PinArray)) {
                CountOutline(*pin->Outline.Polygon);
            }
        }
    }

    void CountFeatures(const CIPC2581_Ecad_CadData_Step & step)
    {
        Add("LayerFeature", Count(step.LayerFeatureArray));
        for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : Each(step.LayerFeatureArray)) {
            Add("Set", Count(feature->SetArray));
            for (const CIPC2581_Ecad_CadData_Step_LayerFeature_Set * const set : Each(feature->SetArray)) {
                Add("Pad", set->Kind == 1 ? 1 : 0);
                Add("Hole", set->Kind == 2 ? 1 : 0);
                CountShapes(set->Features.DrawObjArray);
            }
        }
    }

    void CountShapes(const CIPC2581_DrawObjArray & shapes)
    {
        VisitShapes(shapes, [this](int /*place*/, const char * name) { Add(name, 1); });
    }

    // A polygon that is there in the model, and in the file only if it has steps.
    void CountOutline(const CIPC2581_Polygon & polygon)
    {
        if (polygon.PolyStepArray->IsEmpty()) {
            Add("Polygon", 0);
        }
        else {
            VisitShape(polygon, [this](int /*place*/, const char * name) { Add(name, 1); });
        }
    }

    ElementCounts & m_counts;
};

}  // namespace

XmlCounts CountXml(const std::string & path)
{
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        throw Error(path, SystemCause(errno));
    }
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser> parser(XML_ParserCreate(nullptr));
    XmlCounts counts;
    XML_SetUserData(parser.get(), &counts.elements);
    XML_SetStartElementHandler(parser.get(), &CountElement);
    std::array<char, 1 << 16> block;
    bool isEnd = false;
    while (!isEnd) {
        const std::size_t count = std::fread(block.data(), 1, block.size(), file.get());
        if (std::ferror(file.get()) != 0) {
            throw Error(path, SystemCause(errno));
        }
        isEnd = count < block.size();
        if (XML_Parse(parser.get(), block.data(), static_cast<int>(count), isEnd ? 1 : 0) == XML_STATUS_ERROR) {
            counts.error = XML_ErrorString(XML_GetErrorCode(parser.get()));
            counts.errorLine = XML_GetCurrentLineNumber(parser.get());
            break;
        }
    }
    return counts;
}

ElementCounts CountModel(CIPC2581_Parser & root)
{
    ElementCounts counts;
    ModelCounter counter(counts);
    counter.CountContent(root.m_Content);
    counter.CountBom(root.m_Bom);
    counter.CountData(root.m_Ecad.m_CadData);
    counter.CountStep(root.m_Ecad.m_CadData.m_Step);
    return counts;
}

}  // namespace ipc2581::host
