#ifndef IPC2581_BENCH_GENERATOR_BOARDPLAN_H
#define IPC2581_BENCH_GENERATOR_BOARDPLAN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/generator/Random.h"

namespace ipc2581::bench {

// All lengths are millionths of a millimetre.
struct Place {
    std::int64_t X = 0;
    std::int64_t Y = 0;
};

// What fills a layer.
enum class LayerContent { None, Signal, Plane, Pads, Drawing, Holes };

struct Layer {
    std::string Name;
    std::string Function;
    std::string Side;
    LayerContent Content = LayerContent::None;
    // The share of the layer in the bytes of all layers.
    std::uint64_t Weight = 0;
};

struct PackagePin {
    std::string Number;
    Place Offset;
    std::size_t Primitive = 0;
    bool IsTurned = false;
};

struct Package {
    std::string Name;
    std::string Type;
    bool IsThroughHole = false;
    Place HalfBody;
    std::vector<PackagePin> Pins;
};

struct Part {
    std::string Name;
    std::string Description;
    std::string Prefix;
    std::size_t Package = 0;
};

struct Component {
    std::string RefDes;
    std::size_t Part = 0;
    bool IsOnBottom = false;
    Place Location;
    std::int64_t Rotation = 0;
    std::int64_t Height = 0;
    // The net of each pin of the package; NoNet where there is none.
    std::vector<std::size_t> Nets;
};

struct ComponentPin {
    std::size_t Component = 0;
    std::size_t Pin = 0;
};

struct Net {
    std::string Name;
    std::vector<ComponentPin> Pins;
};

struct Via {
    Place Location;
    std::size_t Net = 0;
    std::size_t Primitive = 0;
    std::int64_t Drill = 0;
};

// What a board of a size has, in the proportions of boards that are built: about 28 components, 45 nets and 100 vias
// for each million bytes, while packages and layers grow with the root of the size.
struct BoardPlan {
    static constexpr std::size_t NoNet = SIZE_MAX;

    BoardPlan(std::uint64_t bytes, Random & random);

    Place Size;
    std::vector<Layer> Layers;
    // Indexes of the copper layers, from the top.
    std::vector<std::size_t> Copper;
    std::vector<std::string> Primitives;
    // The first primitives are circles for vias.
    std::size_t ViaPrimitives = 0;
    std::vector<Package> Packages;
    std::vector<Part> Parts;
    std::vector<Component> Components;
    std::vector<Net> Nets;
    std::vector<Via> Vias;
    std::vector<ComponentPin> TopPins;
    std::vector<ComponentPin> BottomPins;

    Place Anywhere(Random & random) const;

private:
    void AddLayers(std::size_t copperCount);
    void AddPackages(std::size_t count, std::int64_t largest, Random & random);
    void AddParts(std::size_t count, Random & random);
    void AddComponents(std::size_t count, Random & random);
    void AddNets(std::size_t count, Random & random);
};

}  // namespace ipc2581::bench

#endif
