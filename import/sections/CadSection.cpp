#include "import/sections/CadSection.h"

#include "import/shapes/Units.h"

namespace ipc2581::detail {

void CadSection::BeginEcad(const XmlElement & ecad)
{
    TakeFields<Fields<CIPC2581_Ecad>::Ecad>(ecad, m_context.board.m_Ecad, m_context.blocks);
}

void CadSection::BeginCadHeader(const XmlElement & header)
{
    CIPC2581_Ecad_CadHeader & own = m_context.board.m_Ecad.m_CadHeader;
    TakeFields<Fields<CIPC2581_Ecad_CadHeader>::CadHeader>(header, own, m_context.blocks);
    m_shapes.SetUnits(own.units);
    if (MillimetresOf(own.units) == 0.0) {
        m_context.Note(NoteKind::UnknownUnit, header.Line(),
                       "the unit \"" + std::string(std::string_view(own.units)) + "\" of the board is not known");
    }
}

void CadSection::ReadSpec(const XmlElement & spec, LossRecorder::Path path)
{
    const std::string name(spec.Value(W("name")));
    m_specs.emplace(name);
    for (const XmlElement general : spec) {
        if (general.Name() != W("General") || general.Value(W("type")) != "MATERIAL") {
            continue;
        }
        for (const XmlElement property : general) {
            if (property.Name() != W("Property") || property.Value(W("text")).empty() || m_materials.contains(name)) {
                continue;
            }
            property.Take();
            const std::string text(property.TakeValue(W("text")));
            const LossRecorder::Path inner =
                m_context.losses.PathOf(m_context.losses.PathOf(path, W("General")), W("Property"));
            m_materials[name] = {text, {inner, property.Line(), {{W("text"), text}}, false}};
        }
    }
}

void CadSection::ReadLayer(const XmlElement & element, LossRecorder::Path path)
{
    auto & layer = AddTo(m_context.board.m_Ecad.m_CadData.m_arrLayer, m_context.Make<CIPC2581_Ecad_CadData_Layer>());
    TakeFields<Fields<CIPC2581_Ecad_CadData_Layer>::Layer>(element, layer, m_context.blocks);
    m_layers.emplace(element.Value(W("name")));
    for (const XmlElement child : element) {
        if (child.Name() != W("Span") || m_spans.contains(element.Value(W("name")))) {
            continue;
        }
        child.Take();
        Span & span = m_spans[std::string(element.Value(W("name")))];
        span.facts = {m_context.losses.PathOf(path, W("Span")), child.Line(), {}, false};
        child.TakeAttributes([&](Word name, std::string_view value) {
            if (name != W("fromLayer") && name != W("toLayer")) {
                return false;
            }
            TakeText(value, name == W("fromLayer") ? span.fromLayer : span.toLayer, m_context.blocks);
            span.facts.attributes.emplace_back(name, value);
            return true;
        });
    }
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
            found->second.facts.isReferenced = true;
            TakeText(found->second.text, layer.materialType, m_context.blocks);
        }
    }
}

void CadSection::TakeSpan(std::string_view layer, CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    const auto found = m_spans.find(layer);
    if (found == m_spans.end()) {
        return;
    }
    found->second.facts.isReferenced = true;
    hole.FromLayer.Assign(found->second.fromLayer, &m_context.blocks);
    hole.ToLayer.Assign(found->second.toLayer, &m_context.blocks);
}

void CadSection::ReportUnreferenced()
{
    ReportUnreferencedOf(m_spans, m_context.losses);
    ReportUnreferencedOf(m_materials, m_context.losses);
}

}  // namespace ipc2581::detail
