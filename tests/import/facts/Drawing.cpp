#include "tests/import/facts/Drawing.h"

#include <utility>

#include "tests/import/facts/Values.h"

namespace ipc2581::facts {

void AddStroke(std::string_view kind, std::vector<Word> words, const Stroke & stroke, Facts & facts)
{
    if (stroke.path.steps.empty()) {
        return;
    }
    words.push_back({"lineEnd", stroke.end});
    std::vector<Number> numbers = StrokeNumbers(stroke.path);
    numbers.push_back({"lineWidth", stroke.width});
    AddFact(facts, kind, words, std::move(numbers));
}

void AddShape(std::string_view kind, const std::vector<Word> & words, const Shape & shape, Facts & facts)
{
    if (!shape.outlines.empty()) {
        AddFact(facts, kind, words, ShapeNumbers(shape));
    }
}

void AddDrawing(const DrawingKinds & kinds, const std::vector<Word> & words, const Drawing & drawing, Facts & facts)
{
    for (const Stroke & stroke : drawing.strokes) {
        AddStroke(kinds.stroke, words, stroke, facts);
    }
    for (const Shape & area : drawing.areas) {
        AddShape(kinds.area, words, area, facts);
    }
    for (const Label & label : drawing.labels) {
        std::vector<Word> own = words;
        own.push_back({"text", label.text});
        AddFact(facts, kinds.label, own,
                {{"lowerLeftX", label.lowerLeft.x},
                 {"lowerLeftY", label.lowerLeft.y},
                 {"upperRightX", label.upperRight.x},
                 {"upperRightY", label.upperRight.y},
                 {"fontSize", label.size}});
    }
}

void AddPad(std::string_view kind, const std::vector<Word> & words, const Shape & placed, Point place, Facts & facts)
{
    if (placed.outlines.empty()) {
        AddFact(facts, kind, words, {{"x", place.x}, {"y", place.y}});
        return;
    }
    AddFact(facts, kind, words, ShapeNumbers(placed));
}

void AddPin(const std::vector<Word> & words, Point place, double rotation, const Shape & shape, Facts & facts)
{
    std::vector<Number> numbers{{"x", place.x}, {"y", place.y}, {"rotation", Turn(rotation)}};
    if (!shape.outlines.empty()) {
        const std::vector<Number> own = ShapeNumbers(shape);
        numbers.insert(numbers.end(), own.begin(), own.end());
    }
    AddFact(facts, "package-pin", words, std::move(numbers));
}

}  // namespace ipc2581::facts
