#ifndef IPC2581_IMPORT_SECTIONS_CADSECTION_H
#define IPC2581_IMPORT_SECTIONS_CADSECTION_H

#include <string>
#include <string_view>

#include "import/elements/Tree.h"
#include "import/sections/Context.h"
#include "import/sections/ShapeReader.h"

namespace ipc2581::detail {

// What Ecad holds beside the steps: header, materials, layers and stackup. A material or a span has arrived only if
// somebody refers to it.
class CadSection {
public:
    CadSection(Context & context, ShapeReader & shapes) : m_context(context), m_shapes(shapes) {}

    void BeginEcad(const XmlElement & ecad);
    void BeginCadHeader(const XmlElement & header);
    void ReadSpec(const XmlElement & spec);
    void ReadLayer(const XmlElement & layer);
    // The groups of one more stand behind those of the first; its own values are lost.
    void ReadStackup(const XmlElement & stackup);

    // The first span that stands in a hole.
    void ReadSpan(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Hole & hole);
    // The span of the layer into a hole on it that has none of its own.
    void TakeSpan(std::string_view layer, CIPC2581_Ecad_CadData_Step_Hole & hole);

    [[nodiscard]] bool HasEcad() const { return m_hasEcad; }

private:
    struct Material {
        std::string text;
        LossRecorder::Hold hold = 0;
    };
    struct Span {
        CString fromLayer;
        CString toLayer;
        LossRecorder::Hold hold = 0;
    };

    void AwaitSpan(const XmlElement & span);
    void ReadStackupLayer(const XmlElement & element, CIPC2581_Ecad_CadData_Stackup_StackupGroup & group);

    Context & m_context;
    ShapeReader & m_shapes;
    ByName<Material> m_materials;
    ByName<Span> m_spans;
    Names m_specs;
    bool m_hasEcad = false;
    bool m_hasHeader = false;
    bool m_hasStackup = false;
};

}  // namespace ipc2581::detail

#endif
