#ifndef IPC2581_TESTS_IMPORT_FACTS_MODELSHAPES_H
#define IPC2581_TESTS_IMPORT_FACTS_MODELSHAPES_H

#include <map>
#include <string>

#include "ipc2581/ipc2581.h"
#include "tests/import/facts/Drawing.h"

namespace ipc2581::facts {

// A text of the model without its entities. One that holds a character that should be an entity is marked.
std::string TextOf(const CString & text);

Point PointOf(const CPointD & point);
Xform XformOf(const CIPC2581_Xform & xform);
// Where something with this transform at this location lies. A null pointer is no transform.
Transform PlaceOf(const CPointD & location, const CIPC2581_Xform * xform = nullptr);

Path PathOf(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps);
Stroke StrokeOf(const CIPC2581_Outline & outline);

// What a list of shapes draws.
Drawing DrawingOf(const CIPC2581_DrawObjArray * shapes, const Transform & transform);
// All areas of a list of shapes in one.
Shape ShapeOf(const CIPC2581_DrawObjArray * shapes);

// The shapes of the standard dictionary by their ids, in the unit of the board.
class ModelShapes {
public:
    explicit ModelShapes(const CIPC2581_Parser & board);
    // Empty for an id that is not there.
    [[nodiscard]] Shape Named(const CString & id) const;

private:
    std::map<std::string, Shape> m_shapes;
};

}  // namespace ipc2581::facts

#endif
