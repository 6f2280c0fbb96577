#ifndef IPC2581_TESTS_IMPORT_FACTS_DRAWING_H
#define IPC2581_TESTS_IMPORT_FACTS_DRAWING_H

#include <string>
#include <string_view>
#include <vector>

#include "tests/import/facts/Fact.h"
#include "tests/import/facts/Geometry.h"

namespace ipc2581::facts {

struct Stroke {
    Path path;
    double width = 0.0;
    std::string end;
};

// A text, with the corners of its box where they have been put.
struct Label {
    std::string text;
    double size = 0.0;
    Point lowerLeft;
    Point upperRight;
};

// What is drawn in one place, wherever it came from.
struct Drawing {
    std::vector<Stroke> strokes;
    std::vector<Shape> areas;
    std::vector<Label> labels;
};

// The kinds of the three things that a drawing is made of.
struct DrawingKinds {
    std::string_view stroke;
    std::string_view area;
    std::string_view label;
};

void AddDrawing(const DrawingKinds & kinds, const std::vector<Word> & words, const Drawing & drawing, Facts & facts);
void AddStroke(std::string_view kind, std::vector<Word> words, const Stroke & stroke, Facts & facts);
void AddShape(std::string_view kind, const std::vector<Word> & words, const Shape & shape, Facts & facts);

// A pad by the shape that it puts on the board; one without a shape by its place.
void AddPad(std::string_view kind, const std::vector<Word> & words, const Shape & placed, Point place, Facts & facts);
// A pin of a package, with the extents and the area of its shape as it is in the dictionary.
void AddPin(const std::vector<Word> & words, Point place, double rotation, const Shape & shape, Facts & facts);

}  // namespace ipc2581::facts

#endif
