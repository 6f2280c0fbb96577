#ifndef IPC2581_IMPORT_SECTIONS_STEPSECTION_H
#define IPC2581_IMPORT_SECTIONS_STEPSECTION_H

#include <string>
#include <string_view>

#include "import/elements/Tree.h"
#include "import/sections/CadSection.h"
#include "import/sections/Context.h"
#include "import/sections/PadReader.h"
#include "import/sections/ShapeReader.h"

namespace ipc2581::detail {

// What a Step holds beside its layers: profile, packages, components and nets.
class StepSection {
public:
    StepSection(Context & context, CadSection & cad, ShapeReader & shapes, PadReader & pads)
        : m_context(context), m_cad(cad), m_shapes(shapes), m_pads(pads)
    {
    }

    void Begin(const XmlElement & step);
    // What stands right in the step, with the tree that it is the root of.
    void Read(const Tree & tree, const XmlElement & element);
    void BeginPhyNetGroup(const XmlElement & group);
    void ReadPhyNet(const XmlElement & net);

    [[nodiscard]] bool HasLogicalNets() const { return !Step().LogicalNetArray.IsEmpty(); }
    // Tells of a pin that no component of the step has, and of a net that is not among the logical ones.
    void CheckPin(const XmlElement & pinRef);
    void CheckNet(std::string_view net, std::size_t line);

private:
    [[nodiscard]] CIPC2581_Ecad_CadData_Step & Step() const { return m_context.board.m_Ecad.m_CadData.m_Step; }

    void ReadProfile(const XmlElement & element);
    void ReadPadStack(const XmlElement & element);
    void ReadPackage(const XmlElement & element);
    void ReadLandPattern(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Package_LandPattern & pattern);
    template <typename Drawing>
    void ReadDrawing(const XmlElement & element, Drawing & drawing);
    void ReadTarget(const XmlElement & element, CIPC2581_Ecad_CadData_Step_TargetArray & targets);
    void ReadPin(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Package & package);
    void ReadComponent(const XmlElement & element);
    void ReadLogicalNet(const XmlElement & element);
    void CheckLayer(const XmlElement & element);

    Context & m_context;
    CadSection & m_cad;
    ShapeReader & m_shapes;
    PadReader & m_pads;
    // The pins of each package, by number and by name; those of each component, null without a package; the logical
    // nets.
    ByName<Names> m_packages;
    ByName<const Names *> m_components;
    Names m_nets;
    bool m_hasDatum = false;
};

}  // namespace ipc2581::detail

#endif
