#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>

#include <ipc2581/ipc2581.h>

#include "bench/Measure.h"

namespace {

bool hasFailed = false;

int Report(const char * text, unsigned, unsigned)
{
    std::fprintf(stderr, "%s\n", text);
    hasFailed = true;
    return 0;
}

struct Counts {
    std::int64_t contours = 0;
    std::int64_t steps = 0;

    void Add(const CIPC2581_PolyStepArray & path)
    {
        ++contours;
        steps += path.GetSize();
    }
    void Add(const CIPC2581_DrawObjArray & shapes)
    {
        for (std::int64_t i = 0; i < shapes.GetSize(); ++i) {
            const CIPC2581_DrawObj * const shape = shapes.GetAt(i);
            if (const auto * const contour = dynamic_cast<const CIPC2581_DicDraw_Contour *>(shape)) {
                Add(*contour->DicDrawObjArray);
            }
            else if (const auto * const polyLine = dynamic_cast<const CIPC2581_PolyLine *>(shape)) {
                Add(*polyLine->PolyStepArray);
            }
            else if (const auto * const polygon = dynamic_cast<const CIPC2581_Polygon *>(shape)) {
                Add(*polygon->PolyStepArray);
            }
            else if (const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(shape)) {
                Add(*cutout->PolyStepArray);
            }
        }
    }
    void Add(const CIPC2581_Ecad_CadData_Step_Package & package)
    {
        Add(*package.Outline->Polygon->PolyStepArray);
        Add(*package.AssemblyDrawing.Outline->Polygon->PolyStepArray);
        for (std::int64_t i = 0; i < package.SilkScreen.TargetArray.GetSize(); ++i) {
            Add(*package.SilkScreen.TargetArray.GetAt(i)->DrawObjArray);
        }
        for (std::int64_t i = 0; i < package.PinArray.GetSize(); ++i) {
            Add(*package.PinArray.GetAt(i)->Outline.Polygon->PolyStepArray);
        }
    }
};

template <typename Element, typename Size>
std::int64_t Sum(const CExPtrArray<Element *, Element *> & elements, Size size)
{
    std::int64_t sum = 0;
    for (std::int64_t i = 0; i < elements.GetSize(); ++i) {
        sum += size(*elements.GetAt(i));
    }
    return sum;
}

// Under the names that the other programs print, so that one can see that all hold the same board.
void PrintCounts(const CIPC2581_Parser & root)
{
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    const auto & entries = *root.m_Content.DictionaryStandard->EntryArray;
    Counts counts;
    for (std::int64_t i = 0; i < entries.GetSize(); ++i) {
        counts.Add(*entries.GetAt(i)->DrawArray);
    }
    counts.Add(*step.Profile.Polygon->PolyStepArray);
    counts.Add(*step.Profile.Cutouts);
    for (std::int64_t i = 0; i < step.PackageArray.GetSize(); ++i) {
        counts.Add(*step.PackageArray.GetAt(i));
    }
    std::int64_t shapes = 0;
    for (std::int64_t i = 0; i < step.LayerFeatureArray.GetSize(); ++i) {
        const auto & sets = step.LayerFeatureArray.GetAt(i)->SetArray;
        for (std::int64_t j = 0; j < sets.GetSize(); ++j) {
            counts.Add(sets.GetAt(j)->Features.DrawObjArray);
            shapes += sets.GetAt(j)->Features.DrawObjArray.GetSize();
        }
    }
    const auto print = [](const char * name, std::int64_t count) {
        std::printf(" %s %lld", name, static_cast<long long>(count));
    };
    std::printf("counts");
    print("entries", entries.GetSize());
    print("designators", Sum(root.m_Bom.m_arrBomItem, [](const auto & item) { return item.m_arrRefDes.GetSize(); }));
    print("packages", step.PackageArray.GetSize());
    print("pins", Sum(step.PackageArray, [](const auto & package) { return package.PinArray.GetSize(); }));
    print("components", step.ComponentArray.GetSize());
    print("nets", step.LogicalNetArray.GetSize());
    print("net_pins", Sum(step.LogicalNetArray, [](const auto & net) { return net.LogicalNetPinArray->GetSize(); }));
    print("points", Sum(step.PhyNetGroup.PhyNetArray, [](const auto & net) { return net.PhyNetPointArray.GetSize(); }));
    print("sets", Sum(step.LayerFeatureArray, [](const auto & layer) { return layer.SetArray.GetSize(); }));
    print("shapes", shapes);
    print("contours", counts.contours);
    print("steps", counts.steps);
    std::printf("\n");
}

struct Options {
    const char * file = nullptr;
    const char * out = nullptr;
    bool counts = false;
    bool destroy = false;
};

bool ReadOptions(int count, char ** arguments, Options & options)
{
    for (int i = 1; i < count; ++i) {
        const std::string_view argument(arguments[i]);
        if (argument == "--counts") {
            options.counts = true;
        }
        else if (argument == "--destroy") {
            options.destroy = true;
        }
        else if (options.file == nullptr) {
            options.file = arguments[i];
        }
        else if (options.out == nullptr) {
            options.out = arguments[i];
        }
        else {
            return false;
        }
    }
    return options.file != nullptr;
}

}  // namespace

int main(int count, char ** arguments)
{
    using namespace ipc2581::bench;
    Options options;
    if (!ReadOptions(count, arguments, options)) {
        std::fputs("usage: library_read FILE [OUT] [--counts] [--destroy]\n", stderr);
        return 2;
    }
    AfxSetMessageBoxHandler(Report);
    auto root = std::make_unique<CIPC2581_Parser>();
    CIPC2581_XmlLiteReader reader;
    CString path(options.file);
    double start = CpuMilliseconds();
    reader.OpenPath(path, *root);
    double end = CpuMilliseconds();
    if (hasFailed) {
        return 1;
    }
    std::printf("read %.3f ms %.3f MB\n", end - start, PeakMegabytes());
    std::printf("process %.3f ms\n", end);
    if (options.counts) {
        PrintCounts(*root);
    }
    if (options.out != nullptr) {
        CString out(options.out);
        ResetPeak();
        const double held = PeakMegabytes();
        start = CpuMilliseconds();
        const int result = reader.WriteFilePath(out, *root);
        end = CpuMilliseconds();
        if (hasFailed || result != 1) {
            return 1;
        }
        std::printf("write %.3f ms %.3f MB\n", end - start, PeakMegabytes() - held);
    }
    if (options.destroy) {
        start = CpuMilliseconds();
        root.reset();
        std::printf("destroy %.3f ms %.3f MB\n", CpuMilliseconds() - start, PeakMegabytes());
    }
    // Left to the system, so that a profile of the program does not count what was not asked for.
    static_cast<void>(root.release());
    return 0;
}
