#include "hosts/ipc2581/sqlite/BoardRows.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/ipc2581/board/BoardFeatures.h"
#include "hosts/ipc2581/board/BoardSize.h"
#include "hosts/ipc2581/board/BomFacts.h"
#include "hosts/ipc2581/board/Copper.h"
#include "hosts/ipc2581/board/ImportWarnings.h"
#include "hosts/ipc2581/board/ReportedFacts.h"
#include "hosts/ipc2581/sqlite/Schema.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Id = std::int64_t;
using Component = CIPC2581_Ecad_CadData_Step_Component;
using Package = CIPC2581_Ecad_CadData_Step_Package;

std::optional<double> Number(const CString & text)
{
    return NumberOf(Shown(text));
}

std::optional<double> Number(const std::string & text)
{
    return NumberOf(text);
}

// The rows of a table that are added for one board.
class TableRows {
public:
    // The columns are those behind the id and the board.
    TableRows(Connection & connection, const std::string & name, const std::string & columns)
        : m_next(connection, std::string("SELECT max(id) FROM ").append(name)),
          m_insert(connection, Insert(name, columns))
    {
    }

    void Begin(Id boardId)
    {
        m_boardId = boardId;
        m_id = m_next.Number("").value_or(0);
    }

    // Gives the id of the row.
    template <typename... Values>
    Id Add(const Values &... values)
    {
        m_insert.Run(++m_id, m_boardId, values...);
        return m_id;
    }

private:
    static std::string Insert(const std::string & name, const std::string & columns)
    {
        std::string text("INSERT INTO ");
        text.append(name).append(" (id, board_id, ").append(columns).append(") VALUES (?, ?, ?");
        for (auto count = std::count(columns.begin(), columns.end(), ','); count != 0; --count) {
            text.append(", ?");
        }
        return text.append(")");
    }

    Statement m_next;
    Statement m_insert;
    Id m_boardId = 0;
    Id m_id = 0;
};

// The rows of what has a name. Of several with one name, the first is meant.
class Names {
public:
    void Clear() { m_ids.clear(); }
    void Add(const std::string & name, Id id) { m_ids.emplace(name, id); }
    [[nodiscard]] std::optional<Id> Find(const std::string & name) const
    {
        const auto found = m_ids.find(name);
        return found == m_ids.end() ? std::nullopt : std::optional(found->second);
    }

private:
    std::unordered_map<std::string, Id> m_ids;
};

// The designator of "U1.2".
std::string DesignatorOf(const std::string & pin)
{
    return pin.substr(0, pin.rfind('.'));
}

// The name in 'the step "NAME"'.
std::string StepOf(const std::string & text)
{
    const std::size_t begin = text.find('"') + 1;
    return text.substr(begin, text.rfind('"') - begin);
}

void AppendAttributes(std::string & json, const LostFact & fact)
{
    json.clear();
    json.push_back('{');
    for (const auto & [name, value] : fact.attributes) {
        if (json.size() > 1) {
            json.push_back(',');
        }
        AppendJsonText(json, name);
        json.push_back(':');
        AppendJsonText(json, value);
    }
    json.push_back('}');
}

}  // namespace

class BoardRows::Tables {
public:
    explicit Tables(Connection & connection) : m_connection(connection) {}

    Connection & Database() { return m_connection; }

    void Add(Board & board, Id boardId)
    {
        for (TableRows * const rows :
             {&m_steps, &m_layers, &m_stackup, &m_packages, &m_packagePins, &m_items, &m_components, &m_nets,
              &m_netPins, &m_pads, &m_holes, &m_tracks, &m_points, &m_designators, &m_characteristics, &m_makersParts,
              &m_specs, &m_facts, &m_notes}) {
            rows->Begin(boardId);
        }
        for (Names * const names : {&m_layerIds, &m_packageIds, &m_componentIds, &m_netIds, &m_itemIds}) {
            names->Clear();
        }
        AddSteps(board);
        AddLayers(board);
        AddPackages(board);
        AddComponents(board);
        AddItems(board);
        AddNets(board);
        AddFeatures(board);
        AddReported(board);
    }

private:
    void AddSteps(Board & board)
    {
        const Extents extents = ExtentsOf(board.Step());
        const auto ofExtents = [&](double length) { return extents.IsEmpty() ? std::nullopt : std::optional(length); };
        m_steps.Add(Shown(board.Step().Name), true, ofExtents(extents.MinX()), ofExtents(extents.MinY()),
                    ofExtents(extents.MaxX()), ofExtents(extents.MaxY()));
        if (board.Report() == nullptr) {
            return;
        }
        const std::optional<double> unknown;
        for (const Note & note : board.Report()->Notes()) {
            if (note.kind == NoteKind::StepLeftOut) {
                m_steps.Add(StepOf(note.text), false, unknown, unknown, unknown, unknown);
            }
        }
    }

    void AddLayers(Board & board)
    {
        for (const CIPC2581_Ecad_CadData_Layer * const layer : Each(board.CadData().m_arrLayer)) {
            const std::string name = Shown(layer->name);
            m_layerIds.Add(name, m_layers.Add(name, Shown(layer->layerFunction), Shown(layer->side),
                                              Shown(layer->polarity), IsCopper(layer->layerFunction)));
        }
        for (const auto * const group : Each(board.CadData().m_Stackup.StackupGroupArray)) {
            for (const auto * const layer : Each(group->StackupLayerArray)) {
                const std::string name = Shown(layer->layerOrGroupRef);
                m_stackup.Add(m_layerIds.Find(name), name, Shown(group->name), Shown(layer->materialType),
                              layer->thickness, group->thickness, group->tolPlus, group->tolMinus);
            }
        }
    }

    void AddPackages(Board & board)
    {
        const auto facts = FactsOfPackages(board);
        std::size_t place = 0;
        for (const Package * const package : Each(board.Step().PackageArray)) {
            const auto found = facts.find(place++);
            const PackageFacts own = found == facts.end() ? PackageFacts() : found->second;
            const std::string name = Shown(package->name);
            const Id id = m_packages.Add(name, Shown(package->type), Number(own.height), own.pinOne);
            m_packageIds.Add(name, id);
            for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package->PinArray)) {
                m_packagePins.Add(id, Shown(pin->number), Shown(pin->name), Shown(pin->type),
                                  Shown(pin->electricalType), pin->Location.X, pin->Location.Y, pin->Xform->Rotation,
                                  Shown(pin->StandardPrimitiveRef));
            }
        }
    }

    void AddComponents(Board & board)
    {
        const BomFacts bom(board);
        for (const Component * const component : Each(board.Step().ComponentArray)) {
            const std::string designator = Shown(component->RefDes);
            const std::string package = Shown(component->PackageRef);
            const std::string layer = Shown(component->LayerRef);
            const Id id = m_components.Add(
                m_packageIds.Find(package), m_layerIds.Find(layer), designator, package, Shown(component->Part), layer,
                Shown(component->MountType), component->Location.X, component->Location.Y, component->Xform->Rotation,
                component->Xform->Mirror != 0, component->Height, Number(component->Standoff), bom.IsFitted(designator),
                bom.Value(designator));
            m_componentIds.Add(designator, id);
        }
    }

    void AddItems(Board & board)
    {
        auto values = ValuesOfItems(board);
        std::vector<Id> ids;
        for (const CIPC2581_Bom_BomItem * const item : Each(board.Root().m_Bom.m_arrBomItem)) {
            const std::string number = Shown(item->internalPartNumber);
            ids.push_back(m_items.Add(Number(item->quantity), number, Number(item->numberIO), Shown(item->category),
                                      Shown(item->description), Shown(item->packageRef), values[ids.size()]));
            m_itemIds.Add(number, ids.back());
            for (const CIPC2581_Bom_BomItem_RefDes * const refDes : Each(item->m_arrRefDes)) {
                const std::string designator = Shown(refDes->name);
                m_designators.Add(ids.back(), m_componentIds.Find(designator), designator, refDes->populate);
            }
        }
        for (const Characteristic & own : CharacteristicsOfItems(board)) {
            const std::optional<Id> item = own.item < ids.size() ? std::optional(ids[own.item]) : std::nullopt;
            m_characteristics.Add(item, own.kind, own.name, own.value, own.unit);
        }
        for (const MakersPart & own : PartsOfMakers(board)) {
            m_makersParts.Add(m_itemIds.Find(own.partNumber), own.partNumber, own.maker, own.part, own.availability);
        }
    }

    void AddNets(Board & board)
    {
        const auto classes = ClassesOfNets(board);
        std::size_t place = 0;
        for (const auto * const net : Each(board.Step().LogicalNetArray)) {
            const auto found = classes.find(place++);
            const std::string name = Shown(net->Name);
            const Id id = m_nets.Add(name, found == classes.end() ? std::string() : found->second);
            m_netIds.Add(name, id);
            for (const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin * const pin :
                 Each(net->LogicalNetPinArray)) {
                const std::string designator = Shown(pin->ComponentRef);
                m_netPins.Add(id, m_componentIds.Find(designator), designator, Shown(pin->Pin));
            }
        }
        for (const auto * const net : Each(board.Step().PhyNetGroup.PhyNetArray)) {
            const std::string name = Shown(net->Name);
            const std::optional<Id> id = m_netIds.Find(name);
            for (const auto * const point : Each(net->PhyNetPointArray)) {
                const std::string layer = Shown(point->LayerRef);
                m_points.Add(id, m_layerIds.Find(layer), name, point->Location.X, point->Location.Y, layer,
                             Shown(point->Exposure), Shown(point->NetNode), point->Via != 0,
                             Shown(point->StandardPrimitiveRefId), point->Test != 0);
            }
        }
    }

    void AddFeatures(Board & board)
    {
        for (const PadPlace & place : PadsOf(board)) {
            AddPad(place);
        }
        for (const HolePlace & place : HolesOf(board)) {
            AddHole(place);
        }
        for (const Track & track : TracksOf(board)) {
            AddTrack(track);
        }
    }

    void AddPad(const PadPlace & place)
    {
        const bool isOfSet = place.set != nullptr;
        const std::string net = Shown(*place.net);
        const std::string layer = Shown(*place.layer);
        const std::string pin = Shown(place.pad->Pin);
        m_pads.Add(m_netIds.Find(net), m_layerIds.Find(layer), m_componentIds.Find(DesignatorOf(pin)), net, layer,
                   place.pad->Location.X, place.pad->Location.Y, place.pad->Rotation,
                   Shown(place.pad->StandardPrimitiveRefId), pin, isOfSet ? Shown(place.set->PadUsage) : std::string(),
                   isOfSet ? std::optional(place.set->Plate) : std::nullopt,
                   isOfSet ? std::optional(place.set->TestPoint) : std::nullopt, isOfSet ? "set" : "pad stack");
    }

    void AddHole(const HolePlace & place)
    {
        const CIPC2581_Ecad_CadData_Step_Hole & hole = *place.hole;
        const bool isOfLayer = place.layer != nullptr;
        const std::string net = Shown(*place.net);
        const std::string layer = isOfLayer ? Shown(*place.layer) : std::string();
        m_holes.Add(m_netIds.Find(net), m_layerIds.Find(layer), Shown(hole.Name), Number(hole.Diameter),
                    Shown(hole.PlatingStatus), hole.Location.X, hole.Location.Y, net, Shown(hole.FromLayer),
                    Shown(hole.ToLayer), Number(hole.PlusTol), Number(hole.MinusTol), layer,
                    isOfLayer ? "set" : "pad stack");
    }

    void AddTrack(const Track & track)
    {
        const auto ofArc = [&](auto value) { return track.isArc ? std::optional(value) : std::nullopt; };
        const std::string net = Shown(*track.net);
        const std::string layer = Shown(*track.layer);
        m_tracks.Add(m_netIds.Find(net), m_layerIds.Find(layer), net, layer, track.isArc ? "arc" : "line",
                     track.line->LineWidth, Shown(track.line->LineEnd), track.from.X, track.from.Y, track.to.X,
                     track.to.Y, ofArc(track.center.X), ofArc(track.center.Y), ofArc(track.isClockwise),
                     LengthOf(track));
    }

    void AddReported(const Board & board)
    {
        for (const SpecProperty & own : SpecProperties(board)) {
            m_specs.Add(own.spec, own.property, own.value);
        }
        if (board.Report() == nullptr) {
            return;
        }
        const ImportReport & report = *board.Report();
        std::string attributes;
        report.ForEachLost([&](const LostFact & fact) {
            AppendAttributes(attributes, fact);
            m_facts.Add(fact.path, LineOf(fact.line), fact.owner, attributes);
        });
        for (const Warning & warning : WarningsOfImport(report, !board.HowRead().step.empty())) {
            m_notes.Add(warning.kind, LineOf(warning.line), warning.text);
        }
    }

    static std::optional<std::size_t> LineOf(std::size_t line)
    {
        return line == 0 ? std::nullopt : std::optional(line);
    }

    Connection & m_connection;
    TableRows m_steps{m_connection, "steps", "name, is_read, min_x, min_y, max_x, max_y"};
    TableRows m_layers{m_connection, "layers", "layer, function, side, polarity, copper"};
    TableRows m_stackup{m_connection, "stackup",
                        "layer_id, layer, group_name, material, thickness, group_thickness, group_tolerance_plus, "
                        "group_tolerance_minus"};
    TableRows m_packages{m_connection, "packages", "package, type, height, pin_one"};
    TableRows m_packagePins{m_connection, "package_pins",
                            "package_id, pin, name, type, electrical_type, x, y, rotation, primitive"};
    TableRows m_items{m_connection, "items", "quantity, part_number, pins, category, description, package, value"};
    TableRows m_components{m_connection, "components",
                           "package_id, layer_id, designator, package, part, layer, mount, x, y, rotation, mirror, "
                           "height, standoff, fitted, value"};
    TableRows m_nets{m_connection, "nets", "net, class"};
    TableRows m_netPins{m_connection, "net_pins", "net_id, component_id, designator, pin"};
    TableRows m_pads{m_connection, "pads",
                     "net_id, layer_id, component_id, net, layer, x, y, rotation, primitive, pin, usage, plate, "
                     "test_point, origin"};
    TableRows m_holes{m_connection, "holes",
                      "net_id, layer_id, hole, diameter, plating, x, y, net, from_layer, to_layer, tolerance_plus, "
                      "tolerance_minus, layer, origin"};
    TableRows m_tracks{m_connection, "tracks",
                       "net_id, layer_id, net, layer, kind, width, line_end, from_x, from_y, to_x, to_y, center_x, "
                       "center_y, clockwise, length"};
    TableRows m_points{m_connection, "points",
                       "net_id, layer_id, net, x, y, layer, exposure, node, via, primitive, test"};
    TableRows m_designators{m_connection, "designators", "item_id, component_id, designator, fitted"};
    TableRows m_characteristics{m_connection, "characteristics", "item_id, kind, name, value, unit"};
    TableRows m_makersParts{m_connection, "makers_parts", "item_id, part_number, maker, part, availability"};
    TableRows m_specs{m_connection, "specs", "spec, property, value"};
    TableRows m_facts{m_connection, "facts", "path, line, owner, attributes"};
    TableRows m_notes{m_connection, "notes", "kind, line, text"};
    Names m_layerIds;
    Names m_packageIds;
    Names m_componentIds;
    Names m_netIds;
    Names m_itemIds;
};

BoardRows::BoardRows(Connection & connection) : m_tables(std::make_unique<Tables>(connection)) {}

BoardRows::~BoardRows() = default;

void BoardRows::Remove(std::int64_t boardId)
{
    for (const char * const table : TablesOfABoard) {
        const std::string text = std::string("DELETE FROM ").append(table).append(" WHERE board_id = ?");
        Statement(m_tables->Database(), text).Run(boardId);
    }
}

void BoardRows::Add(Board & board, std::int64_t boardId)
{
    m_tables->Add(board, boardId);
}

}  // namespace ipc2581::host
