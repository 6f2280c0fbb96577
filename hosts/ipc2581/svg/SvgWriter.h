#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGWRITER_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGWRITER_H

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

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
    // What follows belongs to something of this kind and name: a layer, a net or a part.
    void BeginNamed(std::string_view kind, std::string_view name);
    void EndGroup();
    // Tags of no other kind, as they stand.
    void Raw(std::string_view tags);

    void Fill(const Path & path);
    void Disc(const Vertex & center, double diameter);
    // One without a width is a hairline, and thinner where it must be.
    void Stroke(const Path & path, double width, StrokeEnds ends);
    // No hairline is wider, from here on; 0 for none.
    void SetThinnest(double width) { m_thinnest = width; }

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
    double m_thinnest = 0.0;
    Extents m_whole;
    Extents * m_box = &m_whole;
    std::unordered_map<const void *, Symbol> m_symbols;
    std::unordered_set<std::string> m_ids;
    // Strokes of one kind are kept back, to become one element.
    std::string m_strokes;
    double m_strokeWidth = 0.0;
    char m_strokeClass = ' ';
};

// What all pictures of a board have in common, so that they can be laid over each other.
struct SvgFrame {
    std::string unit;  // of the board
    int decimals = 4;
    Extents box;             // the page; never empty
    double boardSize = 1.0;  // the longer side of the board; a hairline is a thousandth of it
};

// What a picture is drawn on.
struct SvgSheet {
    std::string title;
    std::string background;
    bool isFromBelow = false;
};

// What makes the drawing, and then the texts.
struct SvgDrawing {
    std::function<void(SvgWriter &)> draw;
    std::function<void(SvgWriter &)> label;
};

// The comment that each picture of this program begins with.
inline constexpr std::string_view SvgMark = "<!-- Drawn by ipc2581 svg -->";

// Writes a whole picture.
void WriteSvg(std::ostream & out, const SvgFrame & frame, const SvgSheet & sheet, const SvgDrawing & drawing);

}  // namespace ipc2581::host

#endif
