#include "import/sections/StepSection.h"

#include <utility>

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/each.h"

namespace ipc2581::detail {

void StepSection::Begin(const XmlElement & step)
{
    TakeFields<Fields<CIPC2581_Ecad_CadData_Step>::Step>(step, Step(), m_context.blocks);
}

void StepSection::Read(const Tree & tree, const XmlElement & element)
{
    switch (element.Name()) {
    case W("PadStack"):
        ReadPadStack(element);
        break;
    case W("PadStackDef"):
        m_pads.KeepPadStackDef(tree, element);
        break;
    case W("Datum"):
        if (std::exchange(m_hasDatum, true)) {
            break;
        }
        TakeFields<Fields<CIPC2581_Ecad_CadData_Step>::Datum>(element, Step(), m_context.blocks);
        break;
    case W("Profile"):
        ReadProfile(element);
        break;
    case W("StepRepeat"):
        m_context.Note(NoteKind::StepRepeat, element.Line(),
                       "the board repeats the step \"" + std::string(element.Value(W("stepRef"))) + "\"");
        break;
    case W("Package"):
        ReadPackage(element);
        break;
    case W("Component"):
        ReadComponent(element);
        break;
    case W("LogicalNet"):
        ReadLogicalNet(element);
        break;
    default:
        break;
    }
}

void StepSection::ReadProfile(const XmlElement & element)
{
    CIPC2581_Ecad_CadData_Step_Profile & profile = Step().Profile;
    element.Take();
    for (const XmlElement child : element) {
        if (child.Name() == W("Polygon") && profile.Polygon->PolyStepArray->IsEmpty()) {
            m_shapes.ReadPolygon(child, *profile.Polygon);
        }
        else if (child.Name() == W("Cutout")) {
            auto & cutout = AddTo(profile.Cutouts, m_context.Make<CIPC2581_Cutout>());
            m_shapes.ReadCutout(child, cutout);
        }
    }
}

void StepSection::ReadPadStack(const XmlElement & element)
{
    using Pad = CIPC2581_Ecad_CadData_Step_Pad;
    using Hole = CIPC2581_Ecad_CadData_Step_Hole;
    using PadStack = CIPC2581_Ecad_CadData_Step_PadStack;
    PadStack & stack = AddTo(Step().PadStackArray, m_context.Make<PadStack>());
    TakeFields<Fields<PadStack>::PadStack>(element, stack, m_context.blocks);
    bool hasHole = false;
    for (const XmlElement child : element) {
        if (child.Name() == W("LayerPad")) {
            Pad & pad = AddTo(stack.LayerPadArray, m_context.Make<Pad>());
            TakeFields<Fields<Pad>::LayerPad>(child, pad, m_context.blocks);
            CheckLayer(child);
            m_pads.Read(child, child.Value(W("layerRef")), pad);
        }
        else if (child.Name() == W("LayerHole") && !hasHole) {
            hasHole = true;
            Hole & hole = PartOf(stack.LayerHole);
            TakeFields<Fields<Hole>::LayerHole>(child, hole, m_context.blocks);
            TakeFields<Fields<Hole>::LayerHolePlace>(child, hole, m_context.blocks);
            m_cad.ReadSpan(child, hole);
        }
    }
}

void StepSection::ReadPackage(const XmlElement & element)
{
    using Package = CIPC2581_Ecad_CadData_Step_Package;
    Package & package = AddTo(Step().PackageArray, m_context.Make<Package>());
    TakeFields<Fields<Package>::Package>(element, package, m_context.blocks);
    Names & pins = m_packages[std::string(element.Value(W("name")))];
    m_context.references.Declare(NameKind::Package, element.Value(W("name")));
    for (const XmlElement child : element) {
        switch (child.Name()) {
        case W("Outline"):
            if (package.Outline->Polygon->PolyStepArray->IsEmpty()) {
                m_shapes.ReadOutline(child, *package.Outline->Polygon, *package.Outline->LineDesc);
            }
            break;
        case W("LandPattern"):
            ReadLandPattern(child, package.LandPattern);
            break;
        case W("SilkScreen"):
            ReadDrawing(child, package.SilkScreen);
            break;
        case W("AssemblyDrawing"):
            ReadDrawing(child, package.AssemblyDrawing);
            break;
        case W("Pin"):
            ReadPin(child, package);
            pins.emplace(child.Value(W("number")));
            pins.emplace(child.Value(W("name")));
            break;
        default:
            break;
        }
    }
}

void StepSection::ReadLandPattern(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Package_LandPattern & pattern)
{
    using Pad = CIPC2581_Ecad_CadData_Step_Pad;
    element.Take();
    for (const XmlElement child : element) {
        if (child.Name() == W("Pad")) {
            Pad & pad = AddTo(pattern.PadArray, m_context.Make<Pad>());
            TakeFields<Fields<Pad>::Pad>(child, pad, m_context.blocks);
            m_pads.Read(child, {}, pad);
        }
        else if (child.Name() == W("Target")) {
            ReadTarget(child, pattern.TargetArray);
        }
    }
}

// A silk screen or an assembly drawing. Their markings are the targets of the model.
template <typename Drawing>
void StepSection::ReadDrawing(const XmlElement & element, Drawing & drawing)
{
    element.Take();
    for (const XmlElement child : element) {
        if (child.Name() == W("Marking") || child.Name() == W("Target")) {
            ReadTarget(child, drawing.TargetArray);
        }
        else if (child.Name() == W("Outline") && drawing.Outline->Polygon->PolyStepArray->IsEmpty()) {
            m_shapes.ReadOutline(child, *drawing.Outline->Polygon, *drawing.Outline->LineDesc);
        }
    }
}

void StepSection::ReadTarget(const XmlElement & element, CIPC2581_Ecad_CadData_Step_TargetArray & targets)
{
    CIPC2581_Ecad_CadData_Step_Target & target = AddTo(targets, m_context.Make<CIPC2581_Ecad_CadData_Step_Target>());
    m_shapes.ReadPlaced(element, ShapeReader::Hollow::Strokes, ShapeReader::Outlines::Shapes, target.Location,
                        *target.DrawObjArray);
}

// A pin may have several places, each with a shape of its own: each is a pin of the same number.
void StepSection::ReadPin(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Package & package)
{
    using Pin = CIPC2581_Ecad_CadData_Step_Package_Pin;
    Pin * pin = &AddTo(package.PinArray, m_context.Make<Pin>());
    TakeFields<Fields<Pin>::Pin>(element, *pin, m_context.blocks);
    bool hasPlace = false;
    bool hasShape = false;
    bool hasXform = false;
    const auto beginNext = [&] {
        Pin & next = AddTo(package.PinArray, m_context.Make<Pin>());
        next.number.Assign(pin->number, &m_context.blocks);
        next.name.Assign(pin->name, &m_context.blocks);
        next.type.Assign(pin->type, &m_context.blocks);
        next.electricalType.Assign(pin->electricalType, &m_context.blocks);
        pin = &next;
        hasPlace = hasShape = hasXform = false;
    };
    for (const XmlElement child : element) {
        switch (child.Name()) {
        case W("Xform"):
            if (hasPlace && hasShape) {
                beginNext();
            }
            if (!std::exchange(hasXform, true)) {
                TakeXform(child, *pin->Xform);
            }
            break;
        case W("Location"):
            if (hasPlace) {
                beginNext();
            }
            hasPlace = true;
            TakeFields<Fields<Pin>::Location>(child, *pin, m_context.blocks);
            break;
        case W("Outline"):
            if (pin->Outline.Polygon->PolyStepArray->IsEmpty()) {
                m_shapes.ReadOutline(child, *pin->Outline.Polygon, *pin->Outline.LineDesc);
            }
            break;
        default:
            if (!hasShape && IsShapeName(child.Name())) {
                m_pads.TakeShape(child, pin->StandardPrimitiveRef);
                hasShape = true;
            }
            break;
        }
    }
}

void StepSection::CheckLayer(const XmlElement & element)
{
    const std::string_view layer = element.Value(W("layerRef"));
    if (!layer.empty() && !m_context.references.Has(NameKind::Layer, layer)) {
        m_context.TellDangling(element.Line(), "layer", layer);
    }
}

void StepSection::ReadComponent(const XmlElement & element)
{
    using Component = CIPC2581_Ecad_CadData_Step_Component;
    Component & component = AddTo(Step().ComponentArray, m_context.Make<Component>());
    TakeFields<Fields<Component>::Component>(element, component, m_context.blocks);
    const std::string_view package = element.Value(W("packageRef"));
    const Names * const pins = FindIn(m_packages, package);
    m_components.emplace(element.Value(W("refDes")), pins);
    bool hasPlace = false;
    bool hasXform = false;
    for (const XmlElement child : element) {
        if (child.Name() == W("Location") && !std::exchange(hasPlace, true)) {
            TakeFields<Fields<Component>::Location>(child, component, m_context.blocks);
        }
        else if (child.Name() == W("Xform") && !std::exchange(hasXform, true)) {
            TakeXform(child, *component.Xform);
        }
    }
    CheckLayer(element);
    if (!package.empty() && pins == nullptr) {
        m_context.TellDangling(element.Line(), "package", package);
    }
}

void StepSection::CheckPin(const XmlElement & pinRef)
{
    const std::string_view name = pinRef.Value(W("componentRef"));
    if (name.empty()) {
        return;
    }
    const auto component = m_components.find(name);
    if (component == m_components.end()) {
        m_context.TellDangling(pinRef.Line(), "component", name);
        return;
    }
    // A package without any pin says nothing of which there are.
    const Names * const pins = component->second;
    const std::string_view pin = pinRef.Value(W("pin"));
    if (pins != nullptr && !pins->empty() && !pins->contains(pin)) {
        m_context.TellDangling(pinRef.Line(), "pin", std::string(name) + "." + std::string(pin));
    }
}

void StepSection::CheckNet(std::string_view net, std::size_t line)
{
    if (!net.empty() && !m_nets.contains(net)) {
        m_context.TellDangling(line, "net", net);
    }
}

void StepSection::ReadLogicalNet(const XmlElement & element)
{
    using Net = CIPC2581_Ecad_CadData_Step_LogicalNet;
    using Pin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;
    Net & net = AddTo(Step().LogicalNetArray, m_context.Make<Net>());
    TakeFields<Fields<Net>::LogicalNet>(element, net, m_context.blocks);
    m_nets.emplace(element.Value(W("name")));
    for (const XmlElement child : element) {
        if (child.Name() == W("PinRef") || child.Name() == W("LogicalNetPin")) {
            Pin & pin = AddTo(net.LogicalNetPinArray, m_context.Make<Pin>());
            TakeFields<Fields<Pin>::LogicalNetPin>(child, pin, m_context.blocks);
            TakeTextOf(child, W("title"), pin.Title, m_context.blocks);
            CheckPin(child);
        }
    }
}

void StepSection::BeginPhyNetGroup(const XmlElement & group)
{
    CIPC2581_Ecad_CadData_Step_PhyNetGroup & own = Step().PhyNetGroup;
    group.Take();
    if (own.Name.IsEmpty()) {
        TakeFields<Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup>::PhyNetGroup>(group, own, m_context.blocks);
    }
}

void StepSection::ReadPhyNet(const XmlElement & element)
{
    using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
    using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
    Net & net = AddTo(Step().PhyNetGroup.PhyNetArray, m_context.Make<Net>());
    TakeFields<Fields<Net>::PhyNet>(element, net, m_context.blocks);
    for (const XmlElement child : element) {
        if (child.Name() != W("PhyNetPoint")) {
            continue;
        }
        Point & point = AddTo(net.PhyNetPointArray, m_context.Make<Point>());
        TakeFields<Fields<Point>::PhyNetPoint>(child, point, m_context.blocks);
        CheckLayer(child);
        for (const XmlElement inner : child) {
            if (IsShapeName(inner.Name()) && point.StandardPrimitiveRefId.IsEmpty()) {
                m_pads.TakeShape(inner, point.StandardPrimitiveRefId);
            }
        }
    }
}

}  // namespace ipc2581::detail
