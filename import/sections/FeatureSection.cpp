#include "import/sections/FeatureSection.h"

#include <utility>

#include "ipc2581/base/Codes.h"

namespace ipc2581::detail {

void FeatureSection::BeginLayer(const XmlElement & layerFeature)
{
    using LayerFeature = CIPC2581_Ecad_CadData_Step_LayerFeature;
    m_layer = &AddTo(Step().LayerFeatureArray, m_context.Make<LayerFeature>());
    TakeFields<Fields<LayerFeature>::LayerFeature>(layerFeature, *m_layer, m_context.blocks);
    m_layerName = layerFeature.Value(W("layerRef"));
    m_context.losses.BeginLayer(layerFeature.Line(), m_layerName);
    if (!m_context.references.Has(NameKind::Layer, m_layerName)) {
        m_context.TellDangling(layerFeature.Line(), "layer", m_layerName);
    }
}

void FeatureSection::BeginSet(const XmlElement & element)
{
    m_set = &AddTo(m_layer->SetArray, m_context.Make<Set>());
    m_isUsed = false;
    TakeFields<Fields<Set>::Set>(element, *m_set, m_context.blocks);
    if (m_step.HasLogicalNets()) {
        m_step.CheckNet(element.Value(W("net")), element.Line());
    }
    else if (!m_set->Net.IsEmpty()) {
        StatedNetOf(m_set->Net, element.Value(W("net")), element.Line());
    }
}

FeatureSection::StatedNet & FeatureSection::StatedNetOf(std::string_view text, std::string_view name, std::size_t line)
{
    const auto known = m_netPlaces.find(text);
    if (known != m_netPlaces.end()) {
        return m_nets[known->second];
    }
    m_netPlaces.emplace(text, m_nets.size());
    m_nets.push_back({m_context.Make<CIPC2581_Ecad_CadData_Step_LogicalNet>(), std::string(name), line});
    m_nets.back().net->Name.Assign(text, &m_context.blocks);
    return m_nets.back();
}

FeatureSection::Set & FeatureSection::NextSet(int kind)
{
    if (m_isUsed) {
        Set & next = AddTo(m_layer->SetArray, m_context.Make<Set>());
        next.Net.Assign(m_set->Net, &m_context.blocks);
        next.ColorRef.Assign(m_set->ColorRef, &m_context.blocks);
        next.TestPoint = m_set->TestPoint;
        next.Plate = m_set->Plate;
        next.PadUsage.Assign(m_set->PadUsage, &m_context.blocks);
        m_set = &next;
    }
    m_isUsed = true;
    m_set->Kind = kind;
    return *m_set;
}

void FeatureSection::Read(const XmlElement & element)
{
    switch (element.Name()) {
    case W("ColorRef"):
        if (m_set->ColorRef.IsEmpty()) {
            TakeFields<Fields<Set>::ColorRef>(element, *m_set, m_context.blocks);
            m_context.references.Await(NameKind::Color, element.Value(W("id")), element.Line());
            m_layer->ColorRefId = m_set->ColorRef;
        }
        break;
    case W("Features"):
        ReadFeatures(element);
        break;
    case W("Pad"):
        ReadPad(element);
        break;
    case W("Hole"):
        ReadHole(element);
        break;
    case W("SlotCavity"):
    case W("Fiducial"):
    case W("BadBoardMark"):
    case W("GlobalFiducial"):
    case W("GoodPanelMark"):
    case W("LocalFiducial"):
        ReadArea(element);
        break;
    default:
        break;
    }
}

void FeatureSection::ReadFeatures(const XmlElement & element)
{
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features & features = NextSet(SetKinds::Features).Features;
    m_shapes.ReadPlaced(element, ShapeReader::Hollow::Strokes, ShapeReader::Outlines::Shapes, features.Location,
                        features.DrawObjArray);
}

// A slot or a mark: an area at its place.
void FeatureSection::ReadArea(const XmlElement & element)
{
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features & features = NextSet(SetKinds::Features).Features;
    m_shapes.ReadPlaced(element, ShapeReader::Hollow::Areas, ShapeReader::Outlines::Areas, features.Location,
                        features.DrawObjArray);
}

void FeatureSection::ReadPad(const XmlElement & element)
{
    using Pad = CIPC2581_Ecad_CadData_Step_Pad;
    Set & set = NextSet(SetKinds::Pad);
    TakeFields<Fields<Pad>::Pad>(element, set.Pad, m_context.blocks);
    for (const XmlElement child : element) {
        if (child.Name() != W("PinRef")) {
            continue;
        }
        m_step.CheckPin(child);
        if (!m_step.HasLogicalNets()) {
            AddNetPin(child, set);
        }
    }
    m_pads.Read(element, m_layerName, set.Pad);
}

void FeatureSection::ReadHole(const XmlElement & element)
{
    using Hole = CIPC2581_Ecad_CadData_Step_Hole;
    Hole & hole = NextSet(SetKinds::Hole).Hole;
    TakeFields<Fields<Hole>::Hole>(element, hole, m_context.blocks);
    TakeFields<Fields<Hole>::HolePlace>(element, hole, m_context.blocks);
    m_cad.ReadSpan(element, hole);
    if (hole.FromLayer.IsEmpty() && hole.ToLayer.IsEmpty()) {
        m_cad.TakeSpan(m_layerName, hole);
    }
}

void FeatureSection::AddNetPin(const XmlElement & pinRef, const Set & set)
{
    using Pin = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;
    if (set.Net.IsEmpty()) {
        return;
    }
    const std::string_view name = set.Net;
    std::string key(name);
    key.append("\n").append(pinRef.Value(W("componentRef"))).append("\n").append(pinRef.Value(W("pin")));
    if (!m_netPins.emplace(std::move(key)).second) {
        return;
    }
    Pin & pin = AddTo(m_nets[m_netPlaces.find(name)->second].net->LogicalNetPinArray, m_context.Make<Pin>());
    TakeText(pinRef.Value(W("componentRef")), pin.ComponentRef, m_context.blocks);
    TakeText(pinRef.Value(W("pin")), pin.Pin, m_context.blocks);
    TakeText(pinRef.Value(W("title")), pin.Title, m_context.blocks);
}

void FeatureSection::EndStep(std::size_t line)
{
    if (m_nets.empty()) {
        return;
    }
    if (m_step.HasLogicalNets()) {
        for (const StatedNet & stated : m_nets) {
            m_step.CheckNet(stated.name, stated.line);
        }
        m_nets.clear();
        return;
    }
    const std::string nets = m_nets.size() == 1 ? " net is" : " nets are";
    m_context.Note(NoteKind::NetsFromSets, line,
                   std::to_string(m_nets.size()) + nets +
                       " made of the sets and pads of the layers, since the file has no logical nets");
    for (StatedNet & stated : m_nets) {
        AddTo(Step().LogicalNetArray, std::move(stated.net));
    }
}

}  // namespace ipc2581::detail
