#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPATH_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPATH_H

#include <string>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

// A number in as few characters as its decimals allow, behind a blank where the text would swallow it otherwise.
void AppendNumber(std::string & text, double number, int decimals);
std::string SvgNumber(double number, int decimals);

// How coordinates of the file become those of a path.
struct SvgFrame {
    int decimals = 3;
    double scale = 1.0;
    CPointD offset = {};
};

// The data of a path element and the box round it. The y axis points up: pictures turn it over as a whole.
class SvgPath {
public:
    explicit SvgPath(const SvgFrame & frame) : m_frame(frame) {}

    void MoveTo(const CPointD & point);
    void LineTo(const CPointD & point);
    // A circular arc from where the path stands; a whole circle if it ends there.
    void ArcTo(const CPointD & end, const CPointD & center, bool isClockwise);
    void Close();

    void AddEllipse(const CPointD & center, double radiusX, double radiusY);
    // A begin point and its steps, left open. One without steps adds nothing.
    void AddSteps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps);
    // The same, closed.
    void AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps);

    [[nodiscard]] bool IsEmpty() const { return m_data.empty(); }
    [[nodiscard]] const std::string & Data() const { return m_data; }
    [[nodiscard]] const Extents & Box() const { return m_box; }

private:
    [[nodiscard]] CPointD Placed(const CPointD & point) const;
    void AppendPoint(char command, const CPointD & placed);
    void AppendArc(double radiusX, double radiusY, bool isLarge, bool isClockwise, const CPointD & placed);

    SvgFrame m_frame;
    std::string m_data;
    Extents m_box;
    CPointD m_at;
};

}  // namespace ipc2581::host

#endif
