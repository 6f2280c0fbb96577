#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGWRITER_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGWRITER_H

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/ipc2581/drawing/Drawing.h"
#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

// How lengths of a picture are given.
struct SvgUnit {
    const char * suffix = "";  // empty for an unknown unit
    double factor = 1.0;       // from the board's unit to that of the suffix
};
SvgUnit SvgUnitOf(std::string_view unit);

// Text between tags. What XML or UTF-8 does not allow becomes a replacement character. The reader hands on the
// entities of the file as they stand, so that those of XML stay entities.
std::string SvgText(std::string_view text);

// Writes the elements of a picture as they come, and measures them. The y axis points up.
class SvgWriter {
public:
    SvgWriter(std::ostream & out, int decimals, double hairline)
        : m_out(out), m_decimals(decimals), m_hairline(hairline)
    {
    }
    SvgWriter(const SvgWriter &) = delete;
    SvgWriter & operator=(const SvgWriter &) = delete;

    // What follows has the colour, up to the end of the group. The attributes are written as they stand.
    void BeginGroup(std::string_view color, std::string_view attributes = "");
    void EndGroup();

    void Fill(const Path & path);
    void Disc(const Vertex & center, double diameter);
    // One without a width is a hairline.
    void Stroke(const Path & path, double width, StrokeEnds ends);

    // Something that is drawn once and used at many places. The key tells it from others.
    void Use(const void * key, const std::function<void()> & draw, const Placement & placement);

    // Readable in a picture as it is seen: its place is one of the picture, with the y axis pointing down. Places and
    // sizes have one decimal.
    void Text(const Vertex & place, double size, bool isUpright, std::string_view text);

    // Writes out what is kept back.
    void Flush();
    [[nodiscard]] const Extents & Box() const { return *m_box; }

private:
    struct Symbol {
        std::size_t number;
        Extents box;
    };

    void AddBox(const Extents & box, double margin = 0.0);
    void Define(const void * key, const std::function<void()> & draw);

    std::ostream & m_out;
    int m_decimals;
    double m_hairline;
    Extents m_whole;
    Extents * m_box = &m_whole;
    std::unordered_map<const void *, Symbol> m_symbols;
    // Strokes of one kind are kept back, to become one element.
    std::string m_strokes;
    double m_strokeWidth = 0.0;
    char m_strokeClass = ' ';
};

// What a picture is drawn on.
struct SvgSheet {
    std::string unit;  // of the board
    int decimals;
    std::string background;
    bool isFromBelow = false;
};

// What makes the drawing, and then the texts.
struct SvgDrawing {
    std::function<void(SvgWriter &)> draw;
    std::function<void(SvgWriter &)> label;
};

// Writes a whole picture. The drawing and the texts are made twice, first to measure them.
void WriteSvg(std::ostream & out, const SvgSheet & sheet, const SvgDrawing & drawing);

}  // namespace ipc2581::host

#endif
