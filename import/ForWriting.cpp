#include "import/ForWriting.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

#include "import/shapes/AddTo.h"
#include "import/shapes/PlacedShape.h"
#include "import/shapes/ShapePaths.h"
#include "ipc2581/each.h"
#include "ipc2581/fields.h"

namespace ipc2581 {
namespace {

using detail::AddTo;

template <typename Rect>
bool HasAllCorners(const Rect & rect)
{
    return rect.UpperRight != 0 && rect.UpperLeft != 0 && rect.LowerLeft != 0 && rect.LowerRight != 0;
}

// True if the writer writes a primitive so that it can be read again. A corner is written with a misspelt word, and
// several run into each other; without any flag all corners are meant.
template <typename Shape>
bool IsWrittenRightly(const Shape & shape)
{
    if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_RectRound> ||
                  std::is_same_v<Shape, CIPC2581_DicDraw_RectCham>) {
        return HasAllCorners(shape) ||
               (shape.UpperRight == 0 && shape.UpperLeft == 0 && shape.LowerLeft == 0 && shape.LowerRight == 0);
    }
    else if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_Circle>) {
        return shape.OffsetX == 0.0 && shape.OffsetY == 0.0;
    }
    else if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_Thermal>) {
        constexpr int spokesThatAreWritten = 4;
        return shape.SpokeCount == spokesThatAreWritten && shape.Shape != OuterForms::Unknown;
    }
    else {
        return !std::is_same_v<Shape, CIPC2581_DicDraw_Butterfly> && !std::is_same_v<Shape, CIPC2581_DicDraw_Donut> &&
               !std::is_same_v<Shape, CIPC2581_DicDraw_Moire>;
    }
}

template <typename Rect>
void DropCorners(Rect & rect)
{
    rect.UpperRight = rect.UpperLeft = rect.LowerLeft = rect.LowerRight = 0;
}

// The shape in a form that is written rightly, as one or several.
void AddForWriting(std::unique_ptr<CIPC2581_DrawObj> shape, CIPC2581_DrawObjArray & shapes)
{
    bool isRight = true;
    VisitShape(*shape, [&](const auto & own) { isRight = IsWrittenRightly(own); });
    if (isRight) {
        if (auto * const rounded = dynamic_cast<CIPC2581_DicDraw_RectRound *>(shape.get())) {
            DropCorners(*rounded);
        }
        else if (auto * const chamfered = dynamic_cast<CIPC2581_DicDraw_RectCham *>(shape.get())) {
            DropCorners(*chamfered);
        }
        AddTo(shapes, std::move(shape));
        return;
    }
    Shapes contours;
    for (const Path & path : FilledPaths(*shape)) {
        AddContours(path, contours);
    }
    for (auto & contour : contours) {
        AddTo(shapes, std::move(contour));
    }
}

void Prepare(CIPC2581_DrawObjArray & shapes)
{
    Shapes before;
    before.reserve(static_cast<std::size_t>(shapes.GetSize()));
    for (CIPC2581_DrawObj * const shape : Each(shapes)) {
        before.emplace_back(shape);
    }
    shapes.RemoveAll();
    for (auto & shape : before) {
        AddForWriting(std::move(shape), shapes);
    }
}

void TurnCurves(CIPC2581_PolyStepArray & steps)
{
    for (CIPC2581_PolyStep * const step : Each(steps)) {
        step->ClockWise = step->ClockWise == 1 ? 0 : 1;
    }
}

// All lists of shapes first, and then the curves of what is in them.
template <typename Object>
void PrepareObject(Object & object);

template <typename Value>
void PrepareValue(Value & value)
{
    if constexpr (std::is_base_of_v<CIPC2581_DrawObjArray, Value>) {
        Prepare(value);
        for (CIPC2581_DrawObj * const shape : Each(value)) {
            VisitShape(*shape,
                       [](const auto & own) { PrepareObject(const_cast<std::remove_cvref_t<decltype(own)> &>(own)); });
        }
    }
    else if constexpr (std::is_same_v<Value, CIPC2581_PolyStepArray>) {
        TurnCurves(value);
    }
    else if constexpr (KindOf<Value>() == FieldKind::List) {
        for (auto * const element : Each(value)) {
            PrepareObject(*element);
        }
    }
    else if constexpr (KindOf<Value>() == FieldKind::Part) {
        PrepareObject(value);
    }
}

template <typename Object>
void PrepareObject(Object & object)
{
    ForEachMember(object, [](const auto & /*member*/, auto & value) {
        using Type = std::remove_cvref_t<decltype(value)>;
        if constexpr (KindOf<Type>() == FieldKind::HostPointer) {
            return;
        }
        else if constexpr (std::is_pointer_v<Type>) {
            PrepareValue(*value);
        }
        else {
            PrepareValue(value);
        }
    });
}

bool IsNothing(const CIPC2581_Xform & xform)
{
    return xform.XOffset == 0.0 && xform.YOffset == 0.0 && xform.Rotation == 0.0 && xform.Mirror == 0 &&
           (xform.Scale == 0.0 || xform.Scale == 1.0);
}

// Counts what is never written, wherever it stands.
class UnwrittenCount {
public:
    explicit UnwrittenCount(const CIPC2581_Parser & board)
    {
        CountLogistics(board);
        CountCad(board.m_Ecad.m_CadData);
        const CIPC2581_Ecad_CadData_Step & step = board.m_Ecad.m_CadData.m_Step;
        CountParts(step);
        for (const auto * const layer : Each(step.LayerFeatureArray)) {
            for (const auto * const set : Each(layer->SetArray)) {
                CountSet(*set);
            }
        }
    }

    std::vector<Unwritten> Take() { return std::move(m_left); }

private:
    void Add(std::string_view one, std::string_view several, std::size_t count)
    {
        if (count == 0) {
            return;
        }
        for (Unwritten & known : m_left) {
            if (known.one == one) {
                known.count += count;
                return;
            }
        }
        m_left.push_back({one, several, count});
    }

    void CountLogistics(const CIPC2581_Parser & board)
    {
        const bool hasHeader =
            !board.m_LogisticHeader.m_strPersonName.IsEmpty() || !board.m_LogisticHeader.m_strRoleName.IsEmpty();
        Add("logistic header", "logistic headers", hasHeader ? 1U : 0U);
        const CIPC2581_HistoryRecord & history = board.m_HistoryRecord;
        const bool hasHistory = !history.origination.IsEmpty() || !history.lastChange.IsEmpty();
        Add("history record", "history records", hasHistory ? 1U : 0U);
        Add("item of the bill of materials", "items of the bill of materials", Count(board.m_Bom.m_arrBomItem));
        const CIPC2581_Content & content = board.m_Content;
        Add("reference of the content", "references of the content",
            static_cast<std::size_t>(content.StepRef.GetSize() + content.LayerRef.GetSize() +
                                     content.BomRef.GetSize()));
        Add("figure of the user dictionary", "figures of the user dictionary",
            Count(content.DictionaryUser->EntryArray));
    }

    void CountCad(const CIPC2581_Ecad_CadData & data)
    {
        for (const auto * const group : Each(data.m_Stackup.StackupGroupArray)) {
            Add("layer of the stackup", "layers of the stackup", Count(group->StackupLayerArray));
        }
        Add("pad stack", "pad stacks", Count(data.m_Step.PadStackArray));
        for (const auto * const net : Each(data.m_Step.PhyNetGroup.PhyNetArray)) {
            for (const auto * const point : Each(net->PhyNetPointArray)) {
                Add("point of a net for tests", "points of nets for tests", point->Test != 0 ? 1U : 0U);
            }
        }
    }

    void CountParts(const CIPC2581_Ecad_CadData_Step & step)
    {
        for (const auto * const component : Each(step.ComponentArray)) {
            Add("mirrored component", "mirrored components", component->Xform->Mirror != 0 ? 1U : 0U);
            Add("height of a component", "heights of components", component->Height != 0.0 ? 1U : 0U);
        }
        for (const auto * const package : Each(step.PackageArray)) {
            for (const auto * const pin : Each(package->PinArray)) {
                Add("transform of a pin", "transforms of pins", IsNothing(*pin->Xform) ? 0U : 1U);
                Add("outline of a pin", "outlines of pins", pin->Outline.Polygon->PolyStepArray->IsEmpty() ? 0U : 1U);
            }
            // A drawing without an outline is not written at all.
            const auto & drawing = package->AssemblyDrawing;
            Add("marking of an assembly drawing", "markings of assembly drawings",
                drawing.Outline->Polygon->PolyStepArray->IsEmpty() ? Count(drawing.TargetArray) : 0U);
        }
    }

    void CountSet(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set)
    {
        const bool hasHole = set.Kind == SetKinds::Hole;
        Add("span of a hole", "spans of holes", hasHole && !set.Hole.FromLayer.IsEmpty() ? 1U : 0U);
        Add("net of a hole", "nets of holes", hasHole && !set.Net.IsEmpty() ? 1U : 0U);
        for (const CIPC2581_DrawObj * const shape : Each(set.Features.DrawObjArray)) {
            Add("text", "texts", dynamic_cast<const CIPC2581_Text *>(shape) != nullptr ? 1U : 0U);
        }
    }

    std::vector<Unwritten> m_left;
};

}  // namespace

void PrepareForWriting(CIPC2581_Parser & board)
{
    PrepareObject(board);
}

std::vector<Unwritten> UnwrittenOf(const CIPC2581_Parser & board)
{
    return UnwrittenCount(board).Take();
}

}  // namespace ipc2581
