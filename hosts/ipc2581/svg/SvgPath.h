#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPATH_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPATH_H

#include <string>

#include <import/shapes/Path.h>

#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

// A number in as few characters as its decimals allow, after a blank where it would otherwise run into the text.
void AppendNumber(std::string & text, double number, int decimals);
std::string SvgNumber(double number, int decimals);

// The data of a path element and the box round it. The y axis points up: pictures are flipped as a whole.
class SvgPath {
public:
    SvgPath(const Path & path, int decimals);

    [[nodiscard]] const std::string & Data() const { return m_data; }
    [[nodiscard]] const Extents & Box() const { return m_box; }

private:
    void Add(const PathStep & step);
    void LineTo(const Vertex & end);
    void ArcTo(const Vertex & end, const Vertex & center, bool isClockwise);
    void AddEllipse(const Vertex & center, const Vertex & radii);
    void AppendPoint(char command, const Vertex & point);
    void AppendArc(double radiusX, double radiusY, bool isLarge, bool isClockwise, const Vertex & end);

    int m_decimals;
    std::string m_data;
    Extents m_box;
    Vertex m_at;
};

}  // namespace ipc2581::host

#endif
