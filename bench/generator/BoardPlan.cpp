#include "bench/generator/BoardPlan.h"

#include <algorithm>
#include <iterator>

namespace ipc2581::bench {

namespace {

constexpr std::int64_t Millimetre = 1000000;

std::int64_t Root(std::int64_t value)
{
    std::int64_t root = 0;
    while ((root + 1) * (root + 1) <= value) {
        ++root;
    }
    return root;
}

std::string Named(const char * prefix, std::size_t number)
{
    return prefix + std::to_string(number);
}

void AddTwoPins(Package & package, Random & random)
{
    static constexpr const char * Sizes[] = {"0201", "0402", "0603", "0805", "1206", "1210", "2512"};
    package.Name = std::string(random.Of(Sizes)) + "_" + package.Name;
    package.Type = random.Percent(80) ? "CHIP" : "TANTALUM";
    const std::int64_t reach = random.Between(300, 3000) * 1000;
    package.Pins.push_back({"1", {-reach, 0}, 0, false});
    package.Pins.push_back({"2", {reach, 0}, 0, false});
    package.HalfBody = {reach, reach / 2};
}

void AddTwoRows(Package & package, Random & random)
{
    const std::int64_t perRow = random.Between(2, 10);
    const std::int64_t pitch = random.Between(4, 25) * 100000;
    const std::int64_t reach = random.Between(20, 80) * 100000;
    package.IsThroughHole = random.Percent(20);
    package.Name = (package.IsThroughHole ? "DIP" : "SO") + std::to_string(perRow * 2) + "_" + package.Name;
    package.Type = package.IsThroughHole ? "PLASTIC_DIP" : "SOIC";
    for (std::int64_t i = 0; i < perRow * 2; ++i) {
        const bool isLeft = i < perRow;
        const std::int64_t row = isLeft ? i : perRow * 2 - 1 - i;
        package.Pins.push_back(
            {std::to_string(i + 1), {isLeft ? -reach : reach, (perRow - 1) * pitch / 2 - row * pitch}, 0, false});
    }
    package.HalfBody = {reach, perRow * pitch / 2};
}

void AddFourRows(Package & package, std::int64_t largest, Random & random)
{
    const std::int64_t perRow = random.Between(4, std::max<std::int64_t>(4, largest * 2));
    const std::int64_t pitch = random.Between(4, 8) * 100000;
    const std::int64_t reach = perRow * pitch / 2 + Millimetre;
    package.Name = "QFP" + std::to_string(perRow * 4) + "_" + package.Name;
    package.Type = "SQUARE_QUAD_FLATPACK";
    for (std::int64_t i = 0; i < perRow * 4; ++i) {
        const std::int64_t along = i % perRow * pitch - (perRow - 1) * pitch / 2;
        const std::int64_t side = i / perRow;
        Place offset;
        switch (side) {
        case 0:
            offset = {-reach, -along};
            break;
        case 1:
            offset = {along, -reach};
            break;
        case 2:
            offset = {reach, along};
            break;
        default:
            offset = {-along, reach};
            break;
        }
        package.Pins.push_back({std::to_string(i + 1), offset, 0, side % 2 == 1});
    }
    package.HalfBody = {reach, reach};
}

void AddGrid(Package & package, std::int64_t largest, Random & random)
{
    const std::int64_t perRow = random.Between(3, std::max<std::int64_t>(3, largest));
    const std::int64_t pitch = random.Between(4, 12) * 100000;
    package.Name = "BGA" + std::to_string(perRow * perRow) + "_" + package.Name;
    package.Type = "PLASTIC_BGA";
    for (std::int64_t i = 0; i < perRow * perRow; ++i) {
        const std::int64_t row = i / perRow;
        const std::int64_t column = i % perRow;
        package.Pins.push_back({static_cast<char>('A' + row) + std::to_string(column + 1),
                                {column * pitch - (perRow - 1) * pitch / 2, (perRow - 1) * pitch / 2 - row * pitch},
                                0,
                                false});
    }
    package.HalfBody = {perRow * pitch / 2 + pitch, perRow * pitch / 2 + pitch};
}

}  // namespace

BoardPlan::BoardPlan(std::uint64_t bytes, Random & random)
{
    const std::uint64_t thousands = bytes / 1000;
    const std::int64_t root = Root(static_cast<std::int64_t>(thousands));
    const auto count = [thousands](std::uint64_t perMillion, std::uint64_t least) {
        return static_cast<std::size_t>(std::max(least, thousands * perMillion / 1000));
    };

    const std::int64_t edge = 30 * Millimetre + root * Millimetre;
    Size = {edge * 3 / 2, edge};
    AddLayers(static_cast<std::size_t>(std::clamp<std::int64_t>(2 + root / 40 * 2, 2, 20)));
    ViaPrimitives = 4;
    const std::size_t primitiveCount = 12 + std::min<std::size_t>(400, count(6, 0));
    for (std::size_t i = 0; i < primitiveCount; ++i) {
        Primitives.push_back(Named(i < ViaPrimitives ? "VIA_" : "SHAPE_", i + 1));
    }
    AddPackages(3 + static_cast<std::size_t>(root * 13 / 32), std::min<std::int64_t>(20, 4 + root / 16), random);
    AddParts(Packages.size() * 5 / 3, random);
    AddComponents(count(28, 4), random);
    AddNets(count(45, 4), random);
    const std::size_t viaCount = count(100, 2);
    for (std::size_t i = 0; i < viaCount; ++i) {
        const Place location = Anywhere(random);
        const std::size_t net = random.Below(Nets.size());
        const std::size_t primitive = random.Below(ViaPrimitives);
        Vias.push_back({location, net, primitive, random.Between(2, 12) * 50000});
    }
}

Place BoardPlan::Anywhere(Random & random) const
{
    const std::int64_t x = random.Between(0, Size.X);
    return {x, random.Between(0, Size.Y)};
}

void BoardPlan::AddLayers(std::size_t copperCount)
{
    Layers.push_back({"SILK_TOP", "SILKSCREEN", "TOP", LayerContent::Drawing, 3});
    Layers.push_back({"PASTE_TOP", "SOLDERPASTE", "TOP", LayerContent::Pads, 5});
    Layers.push_back({"MASK_TOP", "SOLDERMASK", "TOP", LayerContent::Pads, 10});
    for (std::size_t i = 0; i < copperCount; ++i) {
        const bool isOuter = i == 0 || i + 1 == copperCount;
        const bool isPlane = !isOuter && i % 3 == 1;
        const std::string name = i == 0 ? "TOP" : isOuter ? "BOTTOM" : Named("INNER_", i + 1);
        Copper.push_back(Layers.size());
        Layers.push_back({name, isPlane ? "PLANE" : "SIGNAL",
                          i == 0    ? "TOP"
                          : isOuter ? "BOTTOM"
                                    : "INTERNAL",
                          isPlane ? LayerContent::Plane : LayerContent::Signal, isOuter ? 14U : 8U});
        if (i + 1 < copperCount) {
            Layers.push_back(
                {Named("DIELECTRIC_", i + 1), i % 2 == 0 ? "DIELPREG" : "DIELCORE", "INTERNAL", LayerContent::None, 0});
        }
    }
    Layers.push_back({"MASK_BOTTOM", "SOLDERMASK", "BOTTOM", LayerContent::Pads, 10});
    Layers.push_back({"PASTE_BOTTOM", "SOLDERPASTE", "BOTTOM", LayerContent::Pads, 3});
    Layers.push_back({"SILK_BOTTOM", "SILKSCREEN", "BOTTOM", LayerContent::Drawing, 2});
    Layers.push_back({"DRILL", "DRILL", "ALL", LayerContent::Holes, 5});
    Layers.push_back({"DOCUMENTATION", "DOCUMENT", "NONE", LayerContent::Drawing, 1});
}

void BoardPlan::AddPackages(std::size_t count, std::int64_t largest, Random & random)
{
    for (std::size_t i = 0; i < count; ++i) {
        Package package;
        package.Name = Named("P", i + 1);
        const std::size_t kind = random.Below(100);
        if (kind < 50 || i == 0) {
            AddTwoPins(package, random);
        }
        else if (kind < 75) {
            AddTwoRows(package, random);
        }
        else if (kind < 92) {
            AddFourRows(package, largest, random);
        }
        else {
            AddGrid(package, largest, random);
        }
        const std::size_t primitive = ViaPrimitives + random.Below(Primitives.size() - ViaPrimitives);
        for (PackagePin & pin : package.Pins) {
            pin.Primitive = primitive;
        }
        Packages.push_back(std::move(package));
    }
}

void BoardPlan::AddParts(std::size_t count, Random & random)
{
    static constexpr const char * Descriptions[] = {"RES 10K 1% 0.1W", "CAP 100NF 16V X7R", "FERRITE 600R 0.5A",
                                                    "DIODE SCHOTTKY 40V", "LED GREEN"};
    static constexpr const char * Circuits[] = {"MICROCONTROLLER 32 BIT", "DC DC CONVERTER 3A", "OP AMP DUAL",
                                                "MEMORY 4 GBIT", "CONNECTOR 2 ROWS"};
    static constexpr const char * Prefixes[] = {"R", "C", "L", "D", "D"};
    for (std::size_t i = 0; i < count; ++i) {
        Part part;
        part.Package = i < Packages.size() ? i : random.Below(Packages.size());
        part.Name = Named("PN-", 100000 + i * 7);
        const std::size_t kind = random.Below(std::size(Descriptions));
        const bool isSmall = Packages[part.Package].Pins.size() == 2;
        part.Description = isSmall ? Descriptions[kind] : Circuits[kind];
        part.Prefix = isSmall ? Prefixes[kind] : kind == 4 ? "J" : "U";
        Parts.push_back(std::move(part));
    }
}

void BoardPlan::AddComponents(std::size_t count, Random & random)
{
    for (std::size_t i = 0; i < count; ++i) {
        Component component;
        component.Part = random.Below(Parts.size());
        // Large packages stand once or twice on a board, small ones in hundreds.
        for (int turn = 0; turn < 2 && Packages[Parts[component.Part].Package].Pins.size() > 12; ++turn) {
            component.Part = random.Below(Parts.size());
        }
        const Part & part = Parts[component.Part];
        component.RefDes = part.Prefix + std::to_string(i + 1);
        component.IsOnBottom = random.Percent(35);
        component.Location = Anywhere(random);
        component.Rotation = random.Between(0, 7) * 45 * Millimetre;
        component.Height = random.Between(3, 60) * 100000;
        const std::size_t pinCount = Packages[part.Package].Pins.size();
        component.Nets.assign(pinCount, NoNet);
        for (std::size_t pin = 0; pin < pinCount; ++pin) {
            (component.IsOnBottom ? BottomPins : TopPins).push_back({i, pin});
        }
        Components.push_back(std::move(component));
    }
    // A board with parts on one side only has none to draw from on the other.
    if (TopPins.empty()) {
        TopPins = BottomPins;
    }
    if (BottomPins.empty()) {
        BottomPins = TopPins;
    }
}

void BoardPlan::AddNets(std::size_t count, Random & random)
{
    static constexpr const char * Supplies[] = {"GND", "VCC_3V3", "VCC_1V8", "VCC_5V0"};
    static constexpr const char * Signals[] = {"N$", "DDR_DQ", "DDR_A", "PCIE_TX", "PCIE_RX", "GPIO", "ADC_IN", "LED_"};
    const std::size_t supplyCount = std::size(Supplies);
    for (std::size_t i = 0; i < count; ++i) {
        Nets.push_back({i < supplyCount ? Supplies[i] : Named(random.Of(Signals), i), {}});
    }
    for (std::size_t i = 0; i < Components.size(); ++i) {
        for (std::size_t pin = 0; pin < Components[i].Nets.size(); ++pin) {
            const std::size_t kind = random.Below(100);
            if (kind < 10) {
                continue;
            }
            const std::size_t net = random.Below(kind < 35 ? supplyCount : Nets.size());
            Components[i].Nets[pin] = net;
            Nets[net].Pins.push_back({i, pin});
        }
    }
}

}  // namespace ipc2581::bench
