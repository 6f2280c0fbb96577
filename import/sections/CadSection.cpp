#include "import/sections/CadSection.h"

#include <utility>

#include "import/shapes/Units.h"

namespace ipc2581::detail {

void CadSection::BeginEcad(const XmlElement & ecad)
{
    ecad.Take();
    if (!std::exchange(m_hasEcad, true)) {
        TakeFields<Fields<CIPC2581_Ecad>::Ecad>(ecad, m_context.board.m_Ecad, m_context.blocks);
    }
}

void CadSection::BeginCadHeader(const XmlElement & header)
{
    CIPC2581_Ecad_CadHeader & own = m_context.board.m_Ecad.m_CadHeader;
    header.Take();
    if (std::exchange(m_hasHeader, true)) {
        return;
    }
    TakeFields<Fields<CIPC2581_Ecad_CadHeader>::CadHeader>(header, own, m_context.blocks);
    m_shapes.SetUnits(own.units);
    if (MillimetresOf(own.units) == 0.0) {
        m_context.Note(NoteKind::UnknownUnit, header.Line(),
                       "the unit \"" + std::string(std::string_view(own.units)) + "\" of the board is not known");
    }
}

void CadSection::ReadSpec(const XmlElement & spec)
{
    const std::string name(spec.Value(W("name")));
    m_specs.emplace(name);
    for (const XmlElement general : spec) {
        if (general.Name() != W("General") || general.Value(W("type")) != "MATERIAL") {
            continue;
        }
        for (const XmlElement property : general) {
            const std::string_view text = property.Value(W("text"));
            if (property.Name() == W("Property") && !text.empty() && !m_materials.contains(name)) {
                const LossRecorder::Hold hold = m_context.losses.NewHold();
                property.Hold(hold, {W("text")});
                m_materials.emplace(name, Material{std::string(text), hold});
            }
        }
    }
}

void CadSection::ReadLayer(const XmlElement & element)
{
    auto & layer = AddTo(m_context.board.m_Ecad.m_CadData.m_arrLayer, m_context.Make<CIPC2581_Ecad_CadData_Layer>());
    TakeFields<Fields<CIPC2581_Ecad_CadData_Layer>::Layer>(element, layer, m_context.blocks);
    const std::string_view name = element.Value(W("name"));
    m_context.references.Declare(NameKind::Layer, name);
    const auto child = FirstOf(element, W("Span"));
    if (!child.has_value() || m_spans.contains(name)) {
        return;
    }
    Span & span = m_spans[std::string(name)];
    span.hold = m_context.losses.NewHold();
    child->Hold(span.hold, {W("fromLayer"), W("toLayer")});
    TakeText(child->Value(W("fromLayer")), span.fromLayer, m_context.blocks);
    TakeText(child->Value(W("toLayer")), span.toLayer, m_context.blocks);
    AwaitSpan(*child);
}

void CadSection::ReadStackup(const XmlElement & element)
{
    using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
    CIPC2581_Ecad_CadData_Stackup & stackup = m_context.board.m_Ecad.m_CadData.m_Stackup;
    if (m_hasStackup) {
        element.Take();
        m_context.Note(NoteKind::Merged, element.Line(),
                       "the groups of one more stackup, \"" + std::string(element.Value(W("name"))) +
                           "\", stand behind those of the first");
    }
    else {
        TakeFields<Fields<CIPC2581_Ecad_CadData_Stackup>::Stackup>(element, stackup, m_context.blocks);
    }
    m_hasStackup = true;
    for (const XmlElement child : element) {
        if (child.Name() != W("StackupGroup")) {
            continue;
        }
        Group & group = AddTo(stackup.StackupGroupArray, m_context.Make<Group>());
        TakeFields<Fields<Group>::StackupGroup>(child, group, m_context.blocks);
        m_context.references.Declare(NameKind::StackupGroup, child.Value(W("name")));
        for (const XmlElement inner : child) {
            if (inner.Name() == W("StackupLayer")) {
                ReadStackupLayer(inner, group);
            }
        }
    }
}

void CadSection::ReadStackupLayer(const XmlElement & element, CIPC2581_Ecad_CadData_Stackup_StackupGroup & group)
{
    using Layer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;
    Layer & layer = AddTo(group.StackupLayerArray, m_context.Make<Layer>());
    TakeFields<Fields<Layer>::StackupLayer>(element, layer, m_context.blocks);
    m_context.references.AwaitLayerOrGroup(element.Value(W("layerOrGroupRef")), element.Line());
    // What refers to a spec stays a fact without a member, since a spec says more than its material.
    for (const XmlElement child : element) {
        if (child.Name() != W("SpecRef")) {
            continue;
        }
        if (!m_specs.contains(child.Value(W("id")))) {
            m_context.TellDangling(child.Line(), "spec", child.Value(W("id")));
        }
        if (!layer.materialType.IsEmpty()) {
            continue;
        }
        const auto found = m_materials.find(child.Value(W("id")));
        if (found != m_materials.end()) {
            m_context.losses.Refer(found->second.hold);
            TakeText(found->second.text, layer.materialType, m_context.blocks);
        }
    }
}

void CadSection::ReadSpan(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    const auto child = FirstOf(element, W("Span"));
    if (!child.has_value()) {
        return;
    }
    TakeFields<Fields<CIPC2581_Ecad_CadData_Step_Hole>::Span>(*child, hole, m_context.blocks);
    AwaitSpan(*child);
}

void CadSection::AwaitSpan(const XmlElement & span)
{
    for (const Word end : {W("fromLayer"), W("toLayer")}) {
        m_context.references.Await(NameKind::Layer, span.Value(end), span.Line());
    }
}

void CadSection::TakeSpan(std::string_view layer, CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    const auto found = m_spans.find(layer);
    if (found == m_spans.end()) {
        return;
    }
    m_context.losses.Refer(found->second.hold);
    hole.FromLayer.Assign(found->second.fromLayer, &m_context.blocks);
    hole.ToLayer.Assign(found->second.toLayer, &m_context.blocks);
}

}  // namespace ipc2581::detail
