#ifndef IPC2581_HOSTS_IPC2581_GEOMETRY_EXTENTS_H
#define IPC2581_HOSTS_IPC2581_GEOMETRY_EXTENTS_H

#include <limits>

#include <import/shapes/Path.h>
#include <import/shapes/Placement.h>
#include <ipc2581/ipc2581.h>

namespace ipc2581::host {

// The smallest upright box round all that was added; empty at first.
class Extents {
public:
    void Add(const CPointD & point);
    // A circular arc round the centre; a whole circle if it ends where it starts.
    void AddArc(const CPointD & start, const CPointD & end, const CPointD & center, bool isClockwise);
    // A begin point and its steps. One without steps adds nothing.
    void AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps);

    [[nodiscard]] bool IsEmpty() const { return m_minX > m_maxX; }
    [[nodiscard]] double MinX() const { return m_minX; }
    [[nodiscard]] double MinY() const { return m_minY; }
    [[nodiscard]] double MaxX() const { return m_maxX; }
    [[nodiscard]] double MaxY() const { return m_maxY; }

private:
    double m_minX = std::numeric_limits<double>::infinity();
    double m_minY = std::numeric_limits<double>::infinity();
    double m_maxX = -std::numeric_limits<double>::infinity();
    double m_maxY = -std::numeric_limits<double>::infinity();
};

// The box round a box that is placed.
Extents Placed(const Extents & box, const Placement & placement);

}  // namespace ipc2581::host

#endif
