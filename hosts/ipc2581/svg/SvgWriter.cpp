#include "hosts/ipc2581/svg/SvgWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "hosts/ipc2581/drawing/FormatWords.h"
#include "hosts/ipc2581/svg/SvgPath.h"

namespace ipc2581::host {
namespace {

// Long enough to save most of the tags, and short enough to be kept back.
constexpr std::size_t StrokesAtOnce = 4096;

char ClassOfEnds(StrokeEnds ends)
{
    return ends == StrokeEnds::Square ? 'q' : ends == StrokeEnds::None ? 'n' : 't';
}

// The bytes of the UTF-8 character that the text begins with; 0 if it begins with none that XML takes.
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) {
        return first >= ' ' || first == '\t' ? 1 : 0;
    }
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < length) {
        return 0;
    }
    unsigned code = first & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80U) {
            return 0;
        }
        code = code << 6U | (byte(i) & 0x3fU);
    }
    constexpr std::array<unsigned, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xd800 && code < 0xe000;
    return code < least[length] || code > 0x10ffff || isSurrogate || (code & 0xfffeU) == 0xfffe ? 0 : length;
}

bool StartsWithEntity(std::string_view text)
{
    constexpr std::array<std::string_view, 5> entities = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};
    return std::any_of(entities.begin(), entities.end(),
                       [&](std::string_view entity) { return text.starts_with(entity); });
}

std::string TransformOf(const Placement & placement, int decimals)
{
    std::string text = "translate(";
    AppendNumber(text, placement.location.X, decimals);
    text += ' ';
    text += SvgNumber(placement.location.Y, decimals) + ")";
    text += placement.isMirrored ? "scale(-1 1)" : "";
    const std::string degrees = SvgNumber(placement.rotation, 3);
    return degrees == "0" ? text : text + "rotate(" + degrees + ")";
}

Extents Grown(const Extents & box, double margin)
{
    Extents grown;
    grown.Add({box.MinX() - margin, box.MinY() - margin});
    grown.Add({box.MaxX() + margin, box.MaxY() + margin});
    return grown;
}

// Letters that a style sheet and a link take without escapes; unlike names may become alike.
std::string IdOf(std::string_view kind, std::string_view name)
{
    std::string id(kind);
    id += '-';
    for (const char ch : name) {
        const bool isPlain = (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9');
        id += isPlain || ch == '-' ? ch : '_';
    }
    return id;
}

void WriteHead(std::ostream & out, const SvgFrame & frame, const SvgSheet & sheet)
{
    const auto number = [&](double length) { return SvgNumber(length, frame.decimals); };
    const Extents & page = frame.box;
    const double width = page.MaxX() - page.MinX();
    const double height = page.MaxY() - page.MinY();
    const std::string left = number(page.MinX());
    const std::string top = number(-page.MaxY());
    const SvgUnit unit = SvgUnitOf(frame.unit);
    const auto length = [&](double value) { return SvgNumber(value * unit.factor, frame.decimals + 3) + unit.suffix; };
    out << SvgMark << "\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << length(width) << "\" height=\""
        << length(height) << "\" viewBox=\"" << left << " " << top << " " << number(width) << " " << number(height)
        << "\" fill-rule=\"evenodd\">\n<title>" << SvgText(sheet.title) << "</title>\n"
        << "<style>.t,.q,.n{fill:none;stroke:currentColor;stroke-linejoin:round}.t{stroke-linecap:round}"
        << ".q{stroke-linecap:square}</style>\n"
        << "<rect x=\"" << left << "\" y=\"" << top << "\" width=\"" << number(width) << "\" height=\""
        << number(height) << "\" fill=\"" << sheet.background << "\"/>\n<g transform=\"";
    if (sheet.isFromBelow) {
        // Turned round in the same frame.
        out << "translate(" << number(page.MinX() + page.MaxX()) << " 0)";
    }
    out << "scale(" << (sheet.isFromBelow ? "-1 -1" : "1 -1") << ")\">\n";
}

}  // namespace

SvgUnit SvgUnitOf(std::string_view unit)
{
    constexpr double inch = 25.4;
    const UnitMeasure measure = UnitMeasureOf(unit);
    if (measure.millimetres == 0.0) {
        return {};
    }
    return measure.isImperial ? SvgUnit{"in", measure.millimetres / inch} : SvgUnit{"mm", measure.millimetres};
}

std::string SvgText(std::string_view text)
{
    std::string escaped;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0) {
            escaped += "\xef\xbf\xbd";
        }
        else if (character == "&") {
            escaped += StartsWithEntity(text) ? "&" : "&amp;";
        }
        else if (character == "<") {
            escaped += "&lt;";
        }
        else if (character == ">") {
            escaped += "&gt;";
        }
        else {
            escaped += character;
        }
        text.remove_prefix(character.size());
    }
    return escaped;
}

void SvgWriter::AddBox(const Extents & box, double margin)
{
    if (!box.IsEmpty()) {
        const Extents grown = Grown(box, margin);
        m_box->Add({grown.MinX(), grown.MinY()});
        m_box->Add({grown.MaxX(), grown.MaxY()});
    }
}

void SvgWriter::BeginGroup(std::string_view color, std::string_view attributes)
{
    Flush();
    m_out << "<g color=\"" << color << "\" fill=\"" << color << "\"" << attributes << ">\n";
}

void SvgWriter::BeginNamed(std::string_view kind, std::string_view name)
{
    Flush();
    const std::string wanted = IdOf(kind, name);
    std::string id = wanted;
    for (int i = 2; !m_ids.insert(id).second; ++i) {
        id = wanted + "." + std::to_string(i);
    }
    m_out << "<g id=\"" << id << "\" class=\"" << kind << "\"><title>" << SvgText(name) << "</title>\n";
}

void SvgWriter::EndGroup()
{
    Raw("</g>\n");
}

void SvgWriter::Raw(std::string_view tags)
{
    Flush();
    m_out << tags;
}

void SvgWriter::Fill(const Path & path)
{
    Flush();
    if (!path.IsEmpty()) {
        const SvgPath written(path, m_decimals);
        AddBox(written.Box());
        m_out << "<path d=\"" << written.Data() << "\"/>\n";
    }
}

void SvgWriter::Disc(const Vertex & center, double diameter)
{
    Flush();
    Path path;
    path.AddEllipse(center, diameter / 2, diameter / 2);
    AddBox(SvgPath(path, m_decimals).Box());
    m_out << "<circle cx=\"" << SvgNumber(center.X, m_decimals) << "\" cy=\"" << SvgNumber(center.Y, m_decimals)
          << "\" r=\"" << SvgNumber(diameter / 2, m_decimals) << "\"/>\n";
}

void SvgWriter::Stroke(const Path & path, double width, StrokeEnds ends)
{
    if (path.IsEmpty()) {
        return;
    }
    const double hairline = m_thinnest > 0 ? std::min(m_thinnest, m_hairline) : m_hairline;
    const double shown = width > 0 ? width : hairline;
    const char strokeClass = ClassOfEnds(ends);
    if (shown != m_strokeWidth || strokeClass != m_strokeClass || m_strokes.size() > StrokesAtOnce) {
        Flush();
        m_strokeWidth = shown;
        m_strokeClass = strokeClass;
    }
    const SvgPath written(path, m_decimals);
    // A square end reaches beyond the end of the line by half the width on each axis of the line.
    AddBox(written.Box(), strokeClass == 'q' ? shown * std::numbers::sqrt2 / 2 : shown / 2);
    m_strokes += written.Data();
}

void SvgWriter::Define(const void * key, const std::function<void()> & draw)
{
    const std::size_t number = m_symbols.size();
    Symbol & symbol = m_symbols.emplace(key, Symbol{number, {}}).first->second;
    Extents * const outer = std::exchange(m_box, &symbol.box);
    m_out << "<defs><g id=\"s" << number << "\">\n";
    draw();
    Flush();
    m_out << "</g></defs>\n";
    m_box = outer;
}

void SvgWriter::Use(const void * key, const std::function<void()> & draw, const Placement & placement)
{
    Flush();
    if (!m_symbols.contains(key)) {
        Define(key, draw);
    }
    const Symbol & symbol = m_symbols.at(key);
    AddBox(Placed(symbol.box, placement));
    m_out << "<use href=\"#s" << symbol.number << "\"";
    if (placement.isMirrored || SvgNumber(placement.rotation, 3) != "0") {
        m_out << " transform=\"" << TransformOf(placement, m_decimals) << "\"/>\n";
    }
    else {
        m_out << " x=\"" << SvgNumber(placement.location.X, m_decimals) << "\" y=\""
              << SvgNumber(placement.location.Y, m_decimals) << "\"/>\n";
    }
}

void SvgWriter::Text(const Vertex & place, double size, bool isUpright, std::string_view text)
{
    const std::string x = SvgNumber(place.X, 1);
    const std::string y = SvgNumber(place.Y, 1);
    m_out << "<text font-size=\"" << SvgNumber(size, 1) << "\" dy=\".35em\" ";
    if (isUpright) {
        m_out << "transform=\"translate(" << x << " " << y << ")rotate(-90)\">";
    }
    else {
        m_out << "x=\"" << x << "\" y=\"" << y << "\">";
    }
    m_out << SvgText(text) << "</text>\n";
}

void SvgWriter::Flush()
{
    if (!m_strokes.empty()) {
        m_out << "<path class=\"" << m_strokeClass << "\" stroke-width=\"" << SvgNumber(m_strokeWidth, m_decimals + 1)
              << "\" d=\"" << m_strokes << "\"/>\n";
        m_strokes.clear();
    }
}

void WriteSvg(std::ostream & out, const SvgFrame & frame, const SvgSheet & sheet, const SvgDrawing & drawing)
{
    WriteHead(out, frame, sheet);
    SvgWriter writer(out, frame.decimals, frame.boardSize / 1000);
    drawing.draw(writer);
    writer.EndGroup();
    drawing.label(writer);
    out << "</svg>\n";
}

}  // namespace ipc2581::host
