#include "hosts/ipc2581/svg/SvgPicture.h"

#include <algorithm>
#include <charconv>

#include "hosts/ipc2581/svg/SvgShapes.h"

namespace ipc2581::host {
namespace {

using Component = CIPC2581_Ecad_CadData_Step_Component;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

constexpr const char * Desk = "#23272b";
constexpr const char * LightDesk = "#f6f4ee";
constexpr const char * Laminate = "#1c3f2c";
constexpr const char * LightLaminate = "#e9e5d8";
constexpr const char * Metal = "#c9a54a";
constexpr const char * Body = "#d8dde2";
constexpr const char * Edge = "#8c8f92";

// What the parts of a picture are drawn with.
class Pen {
public:
    Pen(const SvgBoard & board, SvgWriter & writer) : m_board(board), m_writer(writer) {}

    void DrawProfile(const char * color);
    void DrawLayer(const BoardLayer & layer);
    void DrawHoles(const BoardLayer & layer);
    void DrawPart(const Component & part, bool isMirrored);

private:
    [[nodiscard]] SvgFrame At(const CPointD & location) const;
    void DrawShape(const CIPC2581_DrawObj & shape, const CPointD & location);
    void DrawSet(const Set & set);
    void DrawPad(const CString & shapeId, const Placement & placement);
    void DrawPin(const CIPC2581_Ecad_CadData_Step_Package_Pin & pin);
    void DrawPins(const Package & package);
    void DrawBody(const Package & package);

    const SvgBoard & m_board;
    SvgWriter & m_writer;
};

SvgFrame Pen::At(const CPointD & location) const
{
    SvgFrame frame = m_writer.Frame();
    frame.offset = location;
    return frame;
}

void Pen::DrawProfile(const char * color)
{
    m_writer.BeginGroup(color);
    m_writer.Fill(ProfilePath(m_board.Step().Profile, m_writer.Frame()));
    m_writer.EndGroup();
    m_writer.BeginGroup(Edge);
    m_writer.Stroke(ProfilePath(m_board.Step().Profile, m_writer.Frame()), 0.0, "ROUND");
    m_writer.EndGroup();
}

void Pen::DrawShape(const CIPC2581_DrawObj & shape, const CPointD & location)
{
    SvgPath path(At(location));
    if (const auto * const polyLine = dynamic_cast<const CIPC2581_PolyLine *>(&shape)) {
        path.AddSteps(*polyLine->PolyBegin, *polyLine->PolyStepArray);
        m_writer.Stroke(path, *polyLine->LineDesc);
    }
    else if (const auto * const line = dynamic_cast<const CIPC2581_Line *>(&shape)) {
        const CPointD & start = *line->StartPoint->Point;
        const CPointD & end = *line->EndPoint->Point;
        // The reader makes a line without a place of every line description that stands outside a shape that it knows.
        if (start.X != 0 || start.Y != 0 || end.X != 0 || end.Y != 0) {
            path.MoveTo(start);
            path.LineTo(end);
            m_writer.Stroke(path, *line->LineDesc);
        }
    }
    else {
        for (const SvgPath & filled : FilledPaths(shape, At(location))) {
            m_writer.Fill(filled);
        }
    }
}

void Pen::DrawPad(const CString & shapeId, const Placement & placement)
{
    const auto * const entry = m_board.ShapeOf(shapeId);
    if (entry == nullptr) {
        return;
    }
    const auto draw = [&] {
        SvgFrame frame = m_writer.Frame();
        frame.scale = m_board.ShapeScale();
        for (const CIPC2581_DrawObj * const shape : Each(entry->DrawArray)) {
            for (const SvgPath & filled : FilledPaths(*shape, frame)) {
                m_writer.Fill(filled);
            }
        }
    };
    m_writer.Use(entry, draw, placement);
}

// All that a set holds, whatever of it was read last.
void Pen::DrawSet(const Set & set)
{
    for (const CIPC2581_DrawObj * const shape : Each(set.Features.DrawObjArray)) {
        DrawShape(*shape, set.Features.Location);
    }
    DrawPad(set.Pad.StandardPrimitiveRefId, {set.Pad.Location, set.Pad.Rotation});
    double diameter = 0.0;
    const std::string_view digits = set.Hole.Diameter;
    std::from_chars(digits.data(), digits.data() + digits.size(), diameter);
    if (diameter > 0) {
        m_writer.Disc(set.Hole.Location, diameter);
    }
}

void Pen::DrawLayer(const BoardLayer & layer)
{
    for (const CIPC2581_Ecad_CadData_Step_LayerFeature * const feature : layer.features) {
        for (const Set * const set : Each(feature->SetArray)) {
            DrawSet(*set);
        }
    }
    for (const CIPC2581_Ecad_CadData_Step_Pad * const pad : layer.pads) {
        DrawPad(pad->StandardPrimitiveRefId, {pad->Location, pad->Rotation});
    }
}

void Pen::DrawHoles(const BoardLayer & layer)
{
    for (const DrillHole & hole : m_board.Holes()) {
        if (m_board.IsDrilled(layer, hole)) {
            m_writer.Disc(hole.center, hole.diameter);
        }
    }
}

void Pen::DrawPin(const CIPC2581_Ecad_CadData_Step_Package_Pin & pin)
{
    DrawPad(pin.StandardPrimitiveRef, {pin.Location, pin.Xform->Rotation});
}

// The pads of the land pattern, or else the pins: where a file has both, the ones lie on the others.
void Pen::DrawPins(const Package & package)
{
    for (const CIPC2581_Ecad_CadData_Step_Pad * const pad : Each(package.LandPattern.PadArray)) {
        DrawPad(pad->StandardPrimitiveRefId, {pad->Location, pad->Rotation});
    }
    if (package.LandPattern.PadArray.GetSize() == 0) {
        for (const CIPC2581_Ecad_CadData_Step_Package_Pin * const pin : Each(package.PinArray)) {
            DrawPin(*pin);
        }
    }
}

const CIPC2581_Outline & OutlineOf(const Package & package)
{
    return package.Outline->Polygon->PolyStepArray->GetSize() != 0 ? *package.Outline
                                                                   : *package.AssemblyDrawing.Outline;
}

void Pen::DrawBody(const Package & package)
{
    const CIPC2581_Outline & outline = OutlineOf(package);
    SvgPath path(m_writer.Frame());
    path.AddContour(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray);
    m_writer.Stroke(path, *outline.LineDesc);
    for (const CIPC2581_Ecad_CadData_Step_Target * const target : Each(package.SilkScreen.TargetArray)) {
        for (const CIPC2581_DrawObj * const shape : Each(target->DrawObjArray)) {
            DrawShape(*shape, target->Location);
        }
    }
}

void Pen::DrawPart(const Component & part, bool isMirrored)
{
    const Package * const package = m_board.PackageOf(part.PackageRef);
    if (package == nullptr) {
        return;
    }
    const auto draw = [&] {
        m_writer.BeginGroup(Metal);
        DrawPins(*package);
        m_writer.EndGroup();
        m_writer.BeginGroup(Body);
        DrawBody(*package);
        m_writer.EndGroup();
    };
    m_writer.Use(package, draw, {part.Location, part.Xform->Rotation, isMirrored});
}

bool IsDark(const std::string & color)
{
    unsigned value = 0;
    std::from_chars(color.data() + 1, color.data() + color.size(), value, 16);
    return 3 * (value >> 16U) + 6 * (value >> 8U & 0xffU) + (value & 0xffU) < 10 * 0x90;
}

bool IsMirrored(const Component & part, Side side)
{
    return side == Side::Bottom || part.Xform->Mirror == 1;
}

template <typename Draw>
void ForParts(const SvgBoard & board, Side side, const Draw & draw)
{
    for (const Component * const part : Each(board.Step().ComponentArray)) {
        if (board.SideOf(*part) == side) {
            draw(*part);
        }
    }
}

// Puts the designator on the middle of the part, as large as the part allows. The unit is that of the texts.
void Label(const SvgBoard & board, const Component & part, Side side, double unit, SvgWriter & writer)
{
    const Placement placement{part.Location, part.Xform->Rotation, IsMirrored(part, side)};
    Extents box;
    const Package * const package = board.PackageOf(part.PackageRef);
    if (package != nullptr) {
        const CIPC2581_Outline & outline = OutlineOf(*package);
        Extents own;
        own.AddContour(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray);
        box = placement.Of(own);
    }
    if (box.IsEmpty()) {
        box.Add(part.Location);
    }
    const std::string_view name = part.RefDes;
    const double width = (box.MaxX() - box.MinX()) / unit;
    const double height = (box.MaxY() - box.MinY()) / unit;
    // A character is about two thirds as wide as the font is high.
    const double length = 0.66 * static_cast<double>(std::max<std::size_t>(name.size(), 1));
    const bool isUpright = height > 1.5 * width;
    const double fitting = std::min((isUpright ? height : width) / length, 0.8 * (isUpright ? width : height));
    const double x = (box.MinX() + box.MaxX()) / 2 / unit;
    const double y = -(box.MinY() + box.MaxY()) / 2 / unit;
    writer.Text({side == Side::Bottom ? -x : x, y}, std::clamp(fitting, 4.0, 30.0), isUpright, name);
}

// Fonts of far less than a unit are drawn badly: the texts have a unit of their own, a thousandth of the picture.
void LabelParts(const SvgBoard & board, Side side, SvgWriter & writer)
{
    const Extents & box = writer.Box();
    const double size = std::max(box.MaxX() - box.MinX(), box.MaxY() - box.MinY());
    const double unit = size > 0 ? size / 1000 : 1.0;
    writer.BeginGroup("#fff", " font-family=\"sans-serif\" text-anchor=\"middle\" transform=\"scale(" +
                                  SvgNumber(unit, 9) + ")\"");
    ForParts(board, side, [&](const Component & part) { Label(board, part, side, unit, writer); });
    writer.EndGroup();
}

bool IsSeenFrom(const BoardLayer & layer, Side side, LayerRole role)
{
    return layer.side == side && LayerRoleOf(layer.function) == role;
}

}  // namespace

void WriteLayerPicture(std::ostream & out, const SvgBoard & board, const BoardLayer & layer)
{
    const std::string color = board.ColorOf(layer);
    const std::string desk = IsDark(color) ? LightDesk : Desk;
    const LayerRole role = LayerRoleOf(layer.function);
    const auto draw = [&](SvgWriter & writer) {
        Pen pen(board, writer);
        // Of a negative layer the file draws what is not there.
        pen.DrawProfile(layer.isNegative ? color.c_str() : IsDark(color) ? LightLaminate : Laminate);
        writer.BeginGroup(layer.isNegative ? desk : color);
        pen.DrawLayer(layer);
        if (role == LayerRole::Drill && layer.features.empty()) {
            pen.DrawHoles(layer);
        }
        writer.EndGroup();
        if (role == LayerRole::Copper) {
            writer.BeginGroup(desk);
            pen.DrawHoles(layer);
            writer.EndGroup();
        }
    };
    WriteSvg(out, {board.Unit(), desk}, {draw, [](SvgWriter &) {}});
}

void WriteSidePicture(std::ostream & out, const SvgBoard & board, Side side)
{
    const auto draw = [&](SvgWriter & writer) {
        Pen pen(board, writer);
        pen.DrawProfile(Laminate);
        for (const LayerRole role : {LayerRole::Copper, LayerRole::Legend, LayerRole::Document}) {
            for (const BoardLayer & layer : board.Layers()) {
                if (IsSeenFrom(layer, side, role) && !layer.isNegative) {
                    writer.BeginGroup(board.ColorOf(layer));
                    pen.DrawLayer(layer);
                    writer.EndGroup();
                }
            }
        }
        ForParts(board, side, [&](const Component & part) { pen.DrawPart(part, IsMirrored(part, side)); });
        writer.BeginGroup(Desk);
        for (const BoardLayer & layer : board.Layers()) {
            if (IsSeenFrom(layer, side, LayerRole::Copper)) {
                pen.DrawHoles(layer);
                break;
            }
        }
        writer.EndGroup();
    };
    const auto label = [&](SvgWriter & writer) { LabelParts(board, side, writer); };
    WriteSvg(out, {board.Unit(), Desk, side == Side::Bottom}, {draw, label});
}

}  // namespace ipc2581::host
