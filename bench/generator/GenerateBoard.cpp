#include "bench/generator/GenerateBoard.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>

#include "bench/generator/BoardPlan.h"
#include "bench/generator/LineWriter.h"
#include "bench/generator/Random.h"

namespace ipc2581::bench {

namespace {

constexpr const char * Units = "MILLIMETER";

const char * TrueOrFalse(bool value)
{
    return value ? "TRUE" : "FALSE";
}

Place operator+(Place left, Place right)
{
    return {left.X + right.X, left.Y + right.Y};
}

// Draws no two random numbers in one argument list: their order would be the compiler's choice.
class BoardWriter {
public:
    BoardWriter(std::uint64_t bytes, std::uint64_t seed, std::ostream & out)
        : m_random(seed), m_bytes(bytes), m_plan(bytes, m_random), m_lines(out)
    {
    }

    void Write()
    {
        m_lines.Line("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        m_lines.Tag("IPC-2581")
            .Text("xmlns", "http://webstds.ipc.org/2581")
            .Text("xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance")
            .Text("xmlns:xsd", "http://www.w3.org/2001/XMLSchema")
            .Open();
        WriteContent();
        WriteLogistics();
        WriteBom();
        m_lines.Tag("Ecad").Text("name", "Board").Open();
        m_lines.Tag("CadHeader").Text("units", Units).Open();
        m_lines.End("CadHeader");
        m_lines.Tag("CadData").Open();
        WriteLayers();
        WriteStackup();
        WriteStep();
        m_lines.End("CadData");
        m_lines.End("Ecad");
        m_lines.End("IPC-2581");
    }

private:
    void WriteContent()
    {
        m_lines.Tag("Content").Open();
        m_lines.Tag("FunctionMode").Text("mode", "FABRICATION").Text("level", "3").Close("/>");
        m_lines.Body("StepRef", "Board");
        for (const Layer & layer : m_plan.Layers) {
            m_lines.Body("LayerRef", layer.Name);
        }
        m_lines.Body("BomRef", "Board_BOM");
        m_lines.Tag("DictionaryStandard").Text("units", Units).Open();
        for (std::size_t i = 0; i < m_plan.Primitives.size(); ++i) {
            m_lines.Tag("EntryStandard").Text("id", m_plan.Primitives[i]).Open();
            WritePrimitive(i);
            m_lines.End("EntryStandard");
        }
        m_lines.End("DictionaryStandard");
        WriteDictionaryUser();
        m_lines.Tag("DictionaryColor").Open();
        for (std::size_t i = 0; i < m_plan.Layers.size(); ++i) {
            m_lines.Tag("EntryColor").Text("id", ColorName(i)).Open();
            const std::int64_t red = m_random.Between(0, 255);
            const std::int64_t green = m_random.Between(0, 255);
            const std::int64_t blue = m_random.Between(0, 255);
            m_lines.Tag("Color").Whole("r", red).Whole("g", green).Whole("b", blue).Close(" />");
            m_lines.End("EntryColor");
        }
        m_lines.End("DictionaryColor");
        m_lines.End("Content");
    }

    void WritePrimitive(std::size_t index)
    {
        const std::int64_t width = Length(200000, 3000000);
        const std::int64_t height = Length(200000, 3000000);
        const std::int64_t small = Length(20000, 100000);
        const std::size_t kind = index < m_plan.ViaPrimitives ? 0 : m_random.Below(100);
        if (kind < 15) {
            m_lines.Tag("Circle").Fixed("diameter", width).Close(" />");
        }
        else if (kind < 50) {
            m_lines.Tag("RectCenter").Fixed("width", width).Fixed("height", height).Close(" />");
        }
        else if (kind < 65) {
            m_lines.Tag("RectRound").Fixed("width", width).Fixed("height", height).Fixed("radius", small).Close("  />");
        }
        else if (kind < 75) {
            m_lines.Tag("Oval").Fixed("width", width).Fixed("height", height).Close(" />");
        }
        else if (kind < 80) {
            m_lines.Tag("RectCham").Fixed("width", width).Fixed("height", height).Fixed("chamfer", small).Close("  />");
        }
        else if (kind < 83) {
            m_lines.Tag("RectCorner")
                .Fixed("lowerLeftX", -width)
                .Fixed("lowerLeftY", -height)
                .Fixed("upperRightX", width)
                .Fixed("upperRightY", height)
                .Close(" />");
        }
        else if (kind < 85) {
            m_lines.Tag("Octagon").Fixed("length", width).Close(" />");
        }
        else if (kind < 87) {
            m_lines.Tag("Thermal")
                .Text("shape", "ROUND")
                .Fixed("outerDiameter", width + small)
                .Fixed("innerDiameter", width)
                .Text("spokeCount", "4")
                .Fixed("gap", small)
                .Fixed("spokeStartAngle", 45000000)
                .Close(" />");
        }
        else if (kind < 89) {
            m_lines.Tag("Donut")
                .Text("shape", "ROUND")
                .Fixed("outerDiameter", width + small)
                .Fixed("innerDiameter", width)
                .Close(" />");
        }
        else {
            WriteContour({-width, -height}, PolygonSteps(40), 0);
        }
    }

    void WriteDictionaryUser()
    {
        m_lines.Tag("DictionaryUser").Text("units", Units).Open();
        for (std::size_t i = 0; i < m_plan.Primitives.size() / 4; ++i) {
            m_lines.Tag("EntryUser").Text("id", "USER_" + std::to_string(i + 1)).Open();
            WritePolyline({0, 0});
            m_lines.End("EntryUser");
        }
        m_lines.End("DictionaryUser");
    }

    void WriteLogistics()
    {
        m_lines.Tag("LogisticHeader").Open();
        m_lines.Tag("Role").Text("id", "Owner").Text("roleFunction", "SENDER").Text("name", "Design").Close(" />");
        m_lines.Tag("Enterprise").Text("id", "Maker").Text("code", "NONE").Close(" />");
        m_lines.Tag("Person")
            .Text("name", "Ann Example")
            .Text("enterpriseRef", "Maker")
            .Text("roleRef", "Owner")
            .Close(" />");
        m_lines.End("LogisticHeader");
        m_lines.Tag("HistoryRecord")
            .Text("number", "1")
            .Text("origination", "2024-01-31T08:00:00")
            .Text("toolRef", "Generator")
            .Text("lastChange", "2024-02-29T17:30:00")
            .Close(" />");
    }

    void WriteBom()
    {
        m_lines.Tag("Bom").Text("name", "Board_BOM").Open();
        m_lines.Tag("BomHeader").Text("assembly", "Board_A").Text("revision", "1.0").Close(" />");
        std::vector<std::vector<const Component *>> users(m_plan.Parts.size());
        for (const Component & component : m_plan.Components) {
            users[component.Part].push_back(&component);
        }
        for (std::size_t i = 0; i < m_plan.Parts.size(); ++i) {
            const Part & part = m_plan.Parts[i];
            const std::string & package = m_plan.Packages[part.Package].Name;
            m_lines.Tag("BomItem")
                .Whole("quantity", static_cast<std::int64_t>(users[i].size()))
                .Whole("numberIO", static_cast<std::int64_t>(i + 1))
                .Text("category", "ELECTRICAL")
                .Text("internalPartNumber", part.Name)
                .Text("description", part.Description)
                .Text("packageRef", package)
                .Open();
            for (const Component * component : users[i]) {
                m_lines.Tag("RefDes")
                    .Text("name", component->RefDes)
                    .Text("packageRef", package)
                    .Text("populate", TrueOrFalse(m_random.Percent(95)))
                    .Text("layerRef", SideLayer(*component).Name)
                    .Close(" />");
            }
            m_lines.End("BomItem");
        }
        m_lines.End("Bom");
    }

    void WriteLayers()
    {
        for (const Layer & layer : m_plan.Layers) {
            m_lines.Tag("Layer")
                .Text("name", layer.Name)
                .Text("layerFunction", layer.Function)
                .Text("side", layer.Side)
                .Text("polarity", "POSITIVE")
                .Open();
            m_lines.End("Layer");
        }
    }

    void WriteStackup()
    {
        m_lines.Tag("Stackup")
            .Text("overallThickness", "1.600")
            .Text("tolPlus", "0.160")
            .Text("tolMinus", "0.160")
            .Text("whereMeasured", "METAL")
            .Open();
        m_lines.Tag("StackupGroup")
            .Text("name", "Primary")
            .Fixed("thickness", 1600000)
            .Fixed("tolPlus", 160000)
            .Fixed("tolMinus", 160000)
            .Open();
        for (const Layer & layer : m_plan.Layers) {
            const bool isCopper = layer.Content == LayerContent::Signal || layer.Content == LayerContent::Plane;
            if (isCopper || layer.Content == LayerContent::None) {
                m_lines.Tag("StackupLayer")
                    .Text("layerOrGroupRef", layer.Name)
                    .Text("materialType", isCopper ? "COPPER" : "FR4")
                    .Fixed("thickness", isCopper ? 35000 : 200000)
                    .Close(" />");
            }
        }
        m_lines.End("StackupGroup");
        m_lines.End("Stackup");
    }

    void WriteStep()
    {
        m_lines.Tag("Step").Text("name", "Board").Open();
        // One via in eight has a pad stack of its own; the others share theirs.
        for (std::size_t i = 0; i < m_plan.Vias.size(); i += 8) {
            WritePadStack(m_plan.Vias[i]);
        }
        WritePlace("Datum", {0, 0}, " />");
        WriteProfile();
        for (const Package & package : m_plan.Packages) {
            WritePackage(package);
        }
        for (const Component & component : m_plan.Components) {
            WriteComponent(component);
        }
        for (const Net & net : m_plan.Nets) {
            m_lines.Tag("LogicalNet").Text("name", net.Name).Open();
            for (const ComponentPin pin : net.Pins) {
                m_lines.Tag("LogicalNetPin")
                    .Text("pin", PinOf(pin).Number)
                    .Text("componentRef", m_plan.Components[pin.Component].RefDes)
                    .Close(" />");
            }
            m_lines.End("LogicalNet");
        }
        m_lines.Tag("PhyNetGroup").Text("name", "Board_Group").Open();
        for (const Net & net : m_plan.Nets) {
            WritePhyNet(net);
        }
        m_lines.End("PhyNetGroup");
        WriteLayerFeatures();
        m_lines.End("Step");
    }

    void WritePadStack(const Via & via)
    {
        m_lines.Tag("PadStack").Text("net", m_plan.Nets[via.Net].Name).Open();
        m_lines.Tag("LayerHole")
            .Text("name", "Through")
            .Fixed("diameter", via.Drill)
            .Text("platingStatus", "VIA")
            .Text("plusTol", "0.050000")
            .Text("minusTol", "0.050000")
            .Fixed("x", via.Location.X)
            .Fixed("y", via.Location.Y)
            .Open();
        m_lines.Tag("Span").Text("fromLayer", "TOP").Text("toLayer", "BOTTOM").Close(" />");
        m_lines.End("LayerHole");
        for (const std::size_t layer : m_plan.Copper) {
            m_lines.Tag("LayerPad").Text("layerRef", m_plan.Layers[layer].Name).Open();
            WritePlace("Location", via.Location, "/>");
            WritePrimitiveRef(via.Primitive);
            m_lines.End("LayerPad");
        }
        m_lines.End("PadStack");
    }

    void WriteProfile()
    {
        m_lines.Tag("Profile").Open();
        m_lines.Tag("Polygon").Open();
        WriteRectangle({0, 0}, m_plan.Size);
        m_lines.End("Polygon");
        for (std::size_t i = 0; i < 4; ++i) {
            m_lines.Tag("Cutout").Open();
            WritePath(m_plan.Anywhere(m_random), 4, 30, true);
            m_lines.End("Cutout");
        }
        m_lines.End("Profile");
    }

    void WritePackage(const Package & package)
    {
        const Place low = {-package.HalfBody.X, -package.HalfBody.Y};
        m_lines.Tag("Package").Text("name", package.Name).Text("type", package.Type).Open();
        WriteOutline(low, package.HalfBody);
        m_lines.Tag("SilkScreen").Open();
        m_lines.Tag("Target").Open();
        WritePlace("Location", low, " />");
        WritePolyline(low);
        m_lines.End("Target");
        m_lines.End("SilkScreen");
        m_lines.Tag("AssemblyDrawing").Open();
        WriteOutline(low, package.HalfBody);
        m_lines.End("AssemblyDrawing");
        m_lines.Tag("LandPattern").Open();
        for (const PackagePin & pin : package.Pins) {
            WritePad(pin.Number, pin.IsTurned ? 90000000 : 0, pin.Offset, pin.Primitive);
        }
        m_lines.End("LandPattern");
        for (const PackagePin & pin : package.Pins) {
            m_lines.Tag("Pin")
                .Text("number", pin.Number)
                .Text("name", pin.Number)
                .Text("type", package.IsThroughHole ? "THRU" : "SURFACE")
                .Text("electricalType", "ELECTRICAL")
                .Open();
            if (pin.IsTurned) {
                m_lines.Tag("Xform").Fixed("rotation", 90000000).Close("/>");
            }
            WritePlace("Location", pin.Offset, "/>");
            WritePrimitiveRef(pin.Primitive);
            m_lines.End("Pin");
        }
        m_lines.End("Package");
    }

    void WriteOutline(Place low, Place high)
    {
        m_lines.Tag("Outline").Open();
        m_lines.Tag("Polygon").Open();
        WriteRectangle(low, high);
        m_lines.End("Polygon");
        WriteLineDesc();
        m_lines.End("Outline");
    }

    void WriteComponent(const Component & component)
    {
        const Part & part = m_plan.Parts[component.Part];
        const Package & package = m_plan.Packages[part.Package];
        m_lines.Tag("Component")
            .Text("refDes", component.RefDes)
            .Text("packageRef", package.Name)
            .Text("layerRef", SideLayer(component).Name)
            .Text("part", part.Name)
            .Text("mountType", package.IsThroughHole ? "THMT" : "SMT")
            .Text("standoff", "0.0")
            .Fixed("height", component.Height)
            .Open();
        m_lines.Tag("Xform").Fixed("rotation", component.Rotation);
        if (component.IsOnBottom) {
            m_lines.Text("mirror", "TRUE");
        }
        m_lines.Close("/>");
        WritePlace("Location", component.Location, "/>");
        m_lines.End("Component");
    }

    void WritePhyNet(const Net & net)
    {
        static constexpr const char * Exposures[] = {"EXPOSED", "COVERED_PRIMARY", "COVERED_SECONDARY", "COVERED"};
        m_lines.Tag("PhyNet").Text("name", net.Name).Open();
        const std::size_t count = 2 + m_random.Below(13);
        for (std::size_t i = 0; i < count; ++i) {
            const Place place = m_plan.Anywhere(m_random);
            const std::size_t layer = m_random.Of(m_plan.Copper);
            const char * exposure = m_random.Of(Exposures);
            m_lines.Tag("PhyNetPoint")
                .Fixed("x", place.X)
                .Fixed("y", place.Y)
                .Text("layerRef", m_plan.Layers[layer].Name)
                .Text("netNode", i == 0 || i + 1 == count ? "END" : "MIDDLE")
                .Text("exposure", exposure);
            if (m_random.Percent(40)) {
                m_lines.Text("via", "TRUE");
            }
            m_lines.Open();
            WritePrimitiveRef(m_random.Below(m_plan.Primitives.size()));
            m_lines.End("PhyNetPoint");
        }
        m_lines.End("PhyNet");
    }

    // The layers share what is left of the size by their weights.
    void WriteLayerFeatures()
    {
        const std::uint64_t begin = m_lines.Written();
        const std::uint64_t left = m_bytes > begin ? m_bytes - begin : 0;
        std::uint64_t total = 0;
        for (const Layer & layer : m_plan.Layers) {
            total += layer.Weight;
        }
        std::uint64_t reached = 0;
        for (std::size_t i = 0; i < m_plan.Layers.size(); ++i) {
            const Layer & layer = m_plan.Layers[i];
            if (layer.Content == LayerContent::None) {
                continue;
            }
            reached += layer.Weight;
            m_lines.Tag("LayerFeature").Text("layerRef", layer.Name).Open();
            m_lines.Tag("Set").Open();
            m_lines.Tag("ColorRef").Text("id", ColorName(i)).Close(" />");
            m_lines.End("Set");
            do {
                WriteSet(layer);
            } while (m_lines.Written() < begin + left / total * reached);
            m_lines.End("LayerFeature");
        }
    }

    void WriteSet(const Layer & layer)
    {
        switch (layer.Content) {
        case LayerContent::Holes:
            WriteHoleSet();
            break;
        case LayerContent::Drawing:
            WriteDrawingSet();
            break;
        case LayerContent::Pads:
            WritePadSet(layer);
            break;
        case LayerContent::Plane:
            if (m_random.Percent(90)) {
                WritePadSet(layer);
            }
            else {
                WriteCopperSet(60);
            }
            break;
        default:
            if (m_random.Percent(70)) {
                WritePadSet(layer);
            }
            else {
                WriteCopperSet(5);
            }
            break;
        }
    }

    void WriteHoleSet()
    {
        const Via & via = m_random.Of(m_plan.Vias);
        m_lines.Tag("Set").Open();
        m_lines.Tag("Hole")
            .Text("name", "Through")
            .Fixed("diameter", via.Drill)
            .Text("platingStatus", "VIA")
            .Text("plusTol", "0.050000")
            .Text("minusTol", "0.050000")
            .Fixed("x", via.Location.X)
            .Fixed("y", via.Location.Y)
            .Close(" />");
        m_lines.End("Set");
    }

    void WritePadSet(const Layer & layer)
    {
        const bool hasPins = layer.Side == "TOP" || layer.Side == "BOTTOM";
        if (!hasPins || (layer.Content == LayerContent::Signal && m_random.Percent(35))) {
            const Via & via = m_random.Of(m_plan.Vias);
            OpenPadSet(m_plan.Nets[via.Net].Name, true, "VIA");
            WritePad("", 0, via.Location, via.Primitive);
        }
        else {
            const ComponentPin pin = m_random.Of(layer.Side == "TOP" ? m_plan.TopPins : m_plan.BottomPins);
            const Component & component = m_plan.Components[pin.Component];
            const std::size_t net = component.Nets[pin.Pin];
            const bool hasNet = net != BoardPlan::NoNet && layer.Content == LayerContent::Signal;
            OpenPadSet(hasNet ? m_plan.Nets[net].Name : std::string(), false, "TERMINATION");
            const PackagePin & pad = PinOf(pin);
            WritePad(component.RefDes + '.' + pad.Number, component.Rotation, component.Location + pad.Offset,
                     pad.Primitive);
        }
        m_lines.End("Set");
    }

    void OpenPadSet(const std::string & net, bool isPlated, const char * usage)
    {
        m_lines.Tag("Set");
        if (!net.empty()) {
            m_lines.Text("net", net);
        }
        m_lines.Text("testPoint", TrueOrFalse(m_random.Percent(2)))
            .Text("plate", TrueOrFalse(isPlated))
            .Text("padUsage", usage)
            .Open();
    }

    void WritePad(const std::string & pin, std::int64_t rotation, Place location, std::size_t primitive)
    {
        m_lines.Tag("Pad");
        if (!pin.empty()) {
            m_lines.Text("pin", pin);
        }
        m_lines.Open();
        if (rotation != 0) {
            m_lines.Tag("Xform").Fixed("rotation", rotation).Close("/>");
        }
        WritePlace("Location", location, "/>");
        WritePrimitiveRef(primitive);
        m_lines.End("Pad");
    }

    void WriteCopperSet(std::uint64_t contourChance)
    {
        OpenFeatures(m_random.Of(m_plan.Nets).Name);
        const Place begin = m_plan.Anywhere(m_random);
        if (m_random.Percent(contourChance)) {
            const std::size_t steps = PolygonSteps(600);
            WriteContour(begin, steps, m_random.Below(5));
        }
        else if (m_random.Percent(70)) {
            WritePolyline(begin);
        }
        else {
            WriteStroke(begin);
        }
        CloseFeatures();
    }

    void WriteDrawingSet()
    {
        OpenFeatures("");
        const std::size_t count = 1 + m_random.Below(6);
        for (std::size_t i = 0; i < count; ++i) {
            const Place begin = m_plan.Anywhere(m_random);
            const std::size_t kind = m_random.Below(100);
            if (kind < 55) {
                WriteStroke(begin);
            }
            else if (kind < 92) {
                WritePolyline(begin);
            }
            else if (kind < 97) {
                WriteContour(begin, PolygonSteps(40), 0);
            }
            else {
                m_lines.Tag("Circle").Fixed("diameter", Length(200000, 2000000)).Close(" />");
            }
        }
        CloseFeatures();
    }

    void OpenFeatures(const std::string & net)
    {
        m_lines.Tag("Set").Text("net", net).Open();
        m_lines.Tag("Features").Open();
        WritePlace("Location", {0, 0}, "/>");
    }

    void CloseFeatures()
    {
        m_lines.End("Features");
        m_lines.End("Set");
    }

    void WriteStroke(Place begin)
    {
        const Place end = begin + Move();
        m_lines.Tag("Line")
            .Fixed("startX", begin.X)
            .Fixed("startY", begin.Y)
            .Fixed("endX", end.X)
            .Fixed("endY", end.Y)
            .Open();
        WriteLineDesc();
        m_lines.End("Line");
    }

    void WritePolyline(Place begin)
    {
        const std::size_t kind = m_random.Below(100);
        const std::size_t steps = kind < 40   ? 1
                                  : kind < 80 ? 2 + m_random.Below(3)
                                  : kind < 93 ? 5 + m_random.Below(5)
                                              : 10 + m_random.Below(30);
        m_lines.Tag("Polyline").Open();
        WritePath(begin, steps, 8, false);
        WriteLineDesc();
        m_lines.End("Polyline");
    }

    void WriteContour(Place begin, std::size_t steps, std::size_t cutouts)
    {
        m_lines.Tag("Contour").Open();
        m_lines.Tag("Polygon").Open();
        WritePath(begin, steps, 5, true);
        m_lines.End("Polygon");
        for (std::size_t i = 0; i < cutouts; ++i) {
            m_lines.Tag("Cutout").Open();
            const Place hole = m_plan.Anywhere(m_random);
            WritePath(hole, PolygonSteps(30), 20, true);
            m_lines.End("Cutout");
        }
        m_lines.End("Contour");
    }

    std::size_t PolygonSteps(std::size_t most)
    {
        const std::size_t kind = m_random.Below(100);
        const std::size_t steps = kind < 70   ? 4
                                  : kind < 82 ? 5 + m_random.Below(5)
                                  : kind < 94 ? 10 + m_random.Below(30)
                                  : kind < 99 ? 40 + m_random.Below(110)
                                              : 150 + m_random.Below(450);
        return std::min(steps, most);
    }

    void WritePath(Place begin, std::size_t steps, std::uint64_t curveChance, bool isClosed)
    {
        WritePlace("PolyBegin", begin, " />");
        Place at = begin;
        for (std::size_t i = 0; i < steps; ++i) {
            const Place from = at;
            at = isClosed && i + 1 == steps ? begin : at + Move();
            if (m_random.Percent(curveChance)) {
                m_lines.Tag("PolyStepCurve")
                    .Fixed("x", at.X)
                    .Fixed("y", at.Y)
                    .Fixed("centerX", (from.X + at.X) / 2)
                    .Fixed("centerY", (from.Y + at.Y) / 2)
                    .Text("clockwise", TrueOrFalse(m_random.Percent(50)))
                    .Close(" />");
            }
            else {
                WritePlace("PolyStepSegment", at, " />");
            }
        }
    }

    void WriteRectangle(Place low, Place high)
    {
        WritePlace("PolyBegin", low, " />");
        for (const Place corner : {Place{high.X, low.Y}, high, Place{low.X, high.Y}, low}) {
            WritePlace("PolyStepSegment", corner, " />");
        }
    }

    void WriteLineDesc()
    {
        static constexpr std::int64_t Widths[] = {100000, 127000, 150000, 200000, 254000, 500000};
        m_lines.Tag("LineDesc")
            .Text("lineEnd", m_random.Percent(97) ? "ROUND" : "SQUARE")
            .Fixed("lineWidth", m_random.Of(Widths))
            .Close(" />");
    }

    void WritePlace(std::string_view name, Place place, std::string_view end)
    {
        m_lines.Tag(name).Fixed("x", place.X).Fixed("y", place.Y).Close(end);
    }

    void WritePrimitiveRef(std::size_t primitive)
    {
        m_lines.Tag("StandardPrimitiveRef").Text("id", m_plan.Primitives[primitive]).Close("/>");
    }

    // A length on a grid of ten thousandths of a millimetre, as layouts have them.
    std::int64_t Length(std::int64_t low, std::int64_t high) { return m_random.Between(low / 100, high / 100) * 100; }

    Place Move()
    {
        const std::int64_t x = Length(-3000000, 3000000);
        const std::int64_t y = Length(-3000000, 3000000);
        // Most strokes run along the axes or at half a right angle.
        switch (m_random.Below(4)) {
        case 0:
            return {x, 0};
        case 1:
            return {0, y};
        case 2:
            return {x, x};
        default:
            return {x, y};
        }
    }

    static std::string ColorName(std::size_t layer) { return "COLOR_" + std::to_string(layer + 1); }

    const Layer & SideLayer(const Component & component) const
    {
        return m_plan.Layers[component.IsOnBottom ? m_plan.Copper.back() : m_plan.Copper.front()];
    }

    const PackagePin & PinOf(ComponentPin pin) const
    {
        return m_plan.Packages[m_plan.Parts[m_plan.Components[pin.Component].Part].Package].Pins[pin.Pin];
    }

    Random m_random;
    const std::uint64_t m_bytes;
    const BoardPlan m_plan;
    LineWriter m_lines;
};

}  // namespace

void GenerateBoard(std::uint64_t bytes, std::uint64_t seed, std::ostream & out)
{
    BoardWriter(bytes, seed, out).Write();
}

std::string GenerateBoard(std::uint64_t bytes, std::uint64_t seed)
{
    std::ostringstream out;
    GenerateBoard(bytes, seed, out);
    return std::move(out).str();
}

}  // namespace ipc2581::bench
