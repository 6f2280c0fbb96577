#ifndef IPC2581_IMPORT_SECTIONS_FEATURESECTION_H
#define IPC2581_IMPORT_SECTIONS_FEATURESECTION_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "import/elements/Tree.h"
#include "import/sections/CadSection.h"
#include "import/sections/Context.h"
#include "import/sections/PadReader.h"
#include "import/sections/ShapeReader.h"
#include "import/sections/StepSection.h"

namespace ipc2581::detail {

// What lies on the layers: LayerFeature and its sets. A set of the model is about one thing; a set of a file with
// several of them becomes several sets.
class FeatureSection {
public:
    FeatureSection(Context & context, CadSection & cad, StepSection & step, ShapeReader & shapes, PadReader & pads)
        : m_context(context), m_cad(cad), m_step(step), m_shapes(shapes), m_pads(pads)
    {
    }

    void BeginLayer(const XmlElement & layerFeature);
    void BeginSet(const XmlElement & set);
    // What stands right in the set.
    void Read(const XmlElement & element);
    void EndSet() { m_set = nullptr; }
    // Gives a step without logical nets those that its sets name.
    void EndStep(std::size_t line);

private:
    using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

    // A net that a set names, and the line of the first that does.
    struct StatedNet {
        std::unique_ptr<CIPC2581_Ecad_CadData_Step_LogicalNet> net;
        std::string name;
        std::size_t line;
    };

    [[nodiscard]] CIPC2581_Ecad_CadData_Step & Step() const { return m_context.board.m_Ecad.m_CadData.m_Step; }

    // A set of the model for what comes now: the one of the file, or one more like it.
    Set & NextSet(int kind);
    void ReadFeatures(const XmlElement & element);
    void ReadPad(const XmlElement & element);
    void ReadHole(const XmlElement & element);
    void ReadArea(const XmlElement & element);
    // By the text that the model has for the name.
    StatedNet & StatedNetOf(std::string_view text, std::string_view name, std::size_t line);
    void AddNetPin(const XmlElement & pinRef, const Set & set);

    Context & m_context;
    CadSection & m_cad;
    StepSection & m_step;
    ShapeReader & m_shapes;
    PadReader & m_pads;
    CIPC2581_Ecad_CadData_Step_LayerFeature * m_layer = nullptr;
    std::string m_layerName;
    Set * m_set = nullptr;
    bool m_isUsed = false;
    // The nets of the sets, as long as the step has had no logical ones.
    std::vector<StatedNet> m_nets;
    ByName<std::size_t> m_netPlaces;
    Names m_netPins;
};

}  // namespace ipc2581::detail

#endif
