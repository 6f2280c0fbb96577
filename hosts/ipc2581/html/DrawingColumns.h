#ifndef IPC2581_HOSTS_IPC2581_HTML_DRAWINGCOLUMNS_H
#define IPC2581_HOSTS_IPC2581_HTML_DRAWINGCOLUMNS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "hosts/ipc2581/drawing/Drawing.h"
#include "hosts/ipc2581/html/IntegerColumn.h"

namespace ipc2581::host {

// The length that coordinates of a page are counted in: a micrometre, or a thousandth of a unit that nobody knows.
class Quantum {
public:
    explicit Quantum(const Drawing & drawing);

    [[nodiscard]] std::int64_t Of(double length) const;

private:
    double m_scale;
};

// Items, paths, holes and parts as columns of integers, in the order in which they are added. docs/page-data.md tells
// what each column holds.
class DrawingColumns {
public:
    explicit DrawingColumns(const Quantum & quantum);

    void Add(const Item & item);
    void Add(const Path & path);
    void Add(const std::vector<Path> & paths);
    void Add(const DrillHole & hole);
    void Add(const PlacedPart & part);
    // All of a drawing: shapes, footprints, layers, the profile, holes and parts.
    void Add(const Drawing & drawing);

    [[nodiscard]] const std::vector<IntegerColumn> & All() const { return m_columns; }

private:
    enum Name : std::size_t {
        ItemKindOf,
        ItemShape,
        ItemNet,
        ItemPin,
        ItemText,
        ItemWidth,
        ItemX,
        ItemY,
        ItemAngle,
        ItemScale,
        ItemPaths,
        PathSteps,
        StepKindOf,
        StepX,
        StepY,
        StepCenterX,
        StepCenterY,
        HoleX,
        HoleY,
        HoleDiameter,
        HoleFirst,
        HoleLast,
        HoleNet,
        PartName,
        PartSide,
        PartFootprint,
        PartX,
        PartY,
        PartAngle,
        PartPadNet
    };

    void Put(Name column, std::int64_t number) { m_columns[column].Add(number); }
    void Put(Name column, double length) { m_columns[column].Add(m_quantum.Of(length)); }
    void AddStep(const PathStep & step, const Vertex & before);

    Quantum m_quantum;
    std::vector<IntegerColumn> m_columns;
};

}  // namespace ipc2581::host

#endif
