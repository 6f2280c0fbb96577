#include "hosts/ipc2581/diff/SetText.h"

#include <initializer_list>

#include <import/shapes/Path.h>
#include <ipc2581/fields.h>

#include "hosts/ipc2581/board/ShapeElements.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using Set = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

std::string PointText(const Vertex & point, const Lengths & lengths)
{
    return Cell(lengths.Of(point.X)).Text() + "," + Cell(lengths.Of(point.Y)).Text();
}

// Those that are not empty, with a blank between them.
std::string Words(std::initializer_list<std::string> words)
{
    std::string text;
    for (const std::string & word : words) {
        text.append(text.empty() || word.empty() ? "" : " ").append(word);
    }
    return text;
}

// From where to where a shape goes, or where it is.
class ShapePlace {
public:
    ShapePlace(const Vertex & location, const Lengths & lengths) : m_location(location), m_lengths(lengths) {}

    void operator()(const CIPC2581_Line & line) { FromTo(*line.StartPoint->Point, *line.EndPoint->Point); }
    void operator()(const CIPC2581_PolyLine & line) { Steps(*line.PolyBegin, *line.PolyStepArray); }
    void operator()(const CIPC2581_Polygon & polygon) { Begin(*polygon.PolyBegin); }
    void operator()(const CIPC2581_Outline & outline) { Begin(*outline.Polygon->PolyBegin); }
    void operator()(const CIPC2581_DicDraw_Contour & contour)
    {
        const auto parts = Each(*contour.DicDrawObjArray);
        const auto * const polygon = parts.empty() ? nullptr : dynamic_cast<const CIPC2581_Polygon *>(parts[0]);
        polygon == nullptr ? At({}) : Begin(*polygon->PolyBegin);
    }
    void operator()(const CIPC2581_Text & text)
    {
        At({text.Xform->XOffset, text.Xform->YOffset});
        m_text = Words({'"' + Shown(text.TextString) + '"', m_text});
    }
    void operator()(const CIPC2581_DicDraw_Circle & circle) { At({circle.OffsetX, circle.OffsetY}); }
    void operator()(const CIPC2581_DrawObj & /*shape*/) { At({}); }

    [[nodiscard]] const std::string & Text() const { return m_text; }

private:
    std::string Of(const Vertex & point)
    {
        return PointText({m_location.X + point.X, m_location.Y + point.Y}, m_lengths);
    }
    void At(const Vertex & point) { m_text = "at " + Of(point); }
    void Begin(const CIPC2581_Point & begin) { m_text = "from " + Of(*begin.Point); }
    void FromTo(const Vertex & from, const Vertex & to) { m_text = "from " + Of(from) + " to " + Of(to); }
    void Steps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
    {
        const auto all = Each(steps);
        all.empty() ? Begin(begin) : FromTo(*begin.Point, *all[all.size() - 1]->EndPoint->Point);
    }

    Vertex m_location;
    const Lengths & m_lengths;
    std::string m_text;
};

SetDescription DescribeFeatures(const Set & set, const Lengths & lengths)
{
    const auto shapes = Each(set.Features.DrawObjArray);
    if (shapes.empty()) {
        return {"nothing", ""};
    }
    ShapePlace place(set.Features.Location, lengths);
    ipc2581::VisitShape(*shapes[0], [&](const auto & own) { place(own); });
    std::string text = place.Text();
    if (shapes.size() > 1) {
        text.append(" and ").append(std::to_string(shapes.size() - 1)).append(" more shapes");
    }
    return {ElementOf(*shapes[0]), std::move(text)};
}

SetDescription DescribeAlone(const Set & set, const Lengths & lengths)
{
    switch (set.Kind) {
    case SetKinds::Pad:
        return {"pad", Words({Shown(set.Pad.StandardPrimitiveRefId), "at " + PointText(set.Pad.Location, lengths),
                              set.Pad.Pin.IsEmpty() ? "" : "pin " + Shown(set.Pad.Pin)})};
    case SetKinds::Hole:
        return {"hole", Words({lengths.Of(set.Hole.Diameter).Text(), Shown(set.Hole.PlatingStatus),
                               "at " + PointText(set.Hole.Location, lengths)})};
    default:
        return DescribeFeatures(set, lengths);
    }
}

}  // namespace

SetDescription DescribeSet(const Set & set, const Lengths & lengths)
{
    SetDescription description = DescribeAlone(set, lengths);
    if (!set.Net.IsEmpty()) {
        description.text = Words({description.text, "net " + Shown(set.Net)});
    }
    return description;
}

}  // namespace ipc2581::host
