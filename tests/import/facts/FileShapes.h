#ifndef IPC2581_TESTS_IMPORT_FACTS_FILESHAPES_H
#define IPC2581_TESTS_IMPORT_FACTS_FILESHAPES_H

#include <pugixml.hpp>

#include "tests/import/facts/BoardFile.h"
#include "tests/import/facts/Drawing.h"

namespace ipc2581::facts {

// What stands around a shape: where its points come to lie, what one of its lengths is in the unit of the board, and
// the scale of all transforms, which line widths from a dictionary take part in.
struct Frame {
    Transform transform;
    double unit = 1.0;
    double scale = 1.0;
};

// The frame of what stands inside the element: its Xform at its Location, where it has them.
Frame FrameIn(pugi::xml_node node, const Frame & outer = {});

// A polygon, a cutout or a polyline.
Path PathOf(pugi::xml_node node);

// The shapes of a file, with all references followed and all units in that of the board.
class FileShapes {
public:
    explicit FileShapes(const BoardFile & file) : m_file(file) {}

    // What the features in the element draw.
    [[nodiscard]] Drawing DrawingIn(pugi::xml_node holder, const Frame & frame) const;
    // A shape as its outline, filled or not, in its own unit; empty for an element that is no shape.
    [[nodiscard]] static Shape ShapeOf(pugi::xml_node node);
    // The shape that the element itself is, or that it names in a dictionary, in the unit of the board.
    [[nodiscard]] Shape Resolved(pugi::xml_node shape) const;
    // The first shape that stands in the element or is named there.
    [[nodiscard]] Shape ShapeIn(pugi::xml_node holder) const;
    // The same where the Xform and the Location in the element put it.
    [[nodiscard]] Shape PlacedShapeIn(pugi::xml_node holder) const;
    // The Outline in the element, with its line. Without steps if there is none.
    [[nodiscard]] Stroke OutlineIn(pugi::xml_node holder) const;

private:
    void Draw(pugi::xml_node node, const Frame & frame, int depth, Drawing & drawing) const;
    void DrawEntry(const DictionaryEntry & entry, const Frame & frame, int depth, Drawing & drawing) const;
    void DrawShape(pugi::xml_node node, const Frame & frame, Drawing & drawing) const;
    [[nodiscard]] Stroke StrokeAlong(const Path & path, pugi::xml_node styled, const Frame & frame) const;
    [[nodiscard]] std::string FillOf(pugi::xml_node styled) const;

    const BoardFile & m_file;
};

}  // namespace ipc2581::facts

#endif
