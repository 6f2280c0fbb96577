#ifndef IPC2581_DRAW_DRAWOBJ_H
#define IPC2581_DRAW_DRAWOBJ_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"

// Base of every shape that a list of shapes can hold. Besides the interface to copy, read and write a shape, it holds
// one number that hosts compare, of ipc2581::DrawTypes. Coordinates are in the document's own units throughout.
class IPC2581_API CIPC2581_DrawObj {
public:
    int DrawType = ipc2581::DrawTypes::Plain;

    CIPC2581_DrawObj();
    CIPC2581_DrawObj(const CIPC2581_DrawObj & other);
    virtual ~CIPC2581_DrawObj();
    // A new object, the caller's to delete. The base makes a plain object that has the draw type alone, and the
    // geometry classes keep it so: their true copy is a clone() of their own, which is not const.
    virtual CIPC2581_DrawObj * clone() const;
    // Copies the draw type alone, also where the object is of a derived class.
    virtual CIPC2581_DrawObj & operator=(const CIPC2581_DrawObj & other);
    // Reads the shape from the token list of its one line; 0 here.
    virtual int Import(CArray<CString, CString> & tokens);
    // Reads the shape from the lines behind its opening line, up to its end; 0 here.
    virtual int Import(CStdioFile & file);
    // Writes the shape, indented by level + 1 steps. Gives 1, or 0 if something in it could not be written; the
    // base writes nothing and gives 0.
    virtual int Export(CStdioFile & file, int level);

    void Init();
    int GetDrawType() const { return DrawType; }
    void SetDrawType(int drawType) { DrawType = drawType; }

    // Distance between two points.
    double Distance(double x1, double y1, double x2, double y2);

    // The outer form of butterflies, donuts and thermals: ROUND 0, SQUARE 1, HEXAGON 2, OCTAGON 3. Any other text gives
    // -1; any other number gives ROUND.
    static int GetShapeType(CString text);
    static CString GetShapeType(int code);
};

template <>
struct ipc2581::Fields<CIPC2581_DrawObj> {
    using Object = CIPC2581_DrawObj;
    static constexpr std::string_view Name = "CIPC2581_DrawObj";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}};
};

// A list of shapes, which it owns.
class IPC2581_API CIPC2581_DrawObjArray : public CExPtrArray<CIPC2581_DrawObj *, CIPC2581_DrawObj *> {
public:
    CIPC2581_DrawObjArray();
    CIPC2581_DrawObjArray(const CIPC2581_DrawObjArray & other);
    // Deletes the own shapes and takes the clone() const of each of the other's. Hosts rely on what that keeps:
    // primitives and contours are copied, every other shape becomes a plain object with its draw type, at which the
    // Export of the copied list stops.
    CIPC2581_DrawObjArray & operator=(const CIPC2581_DrawObjArray & other);
    ~CIPC2581_DrawObjArray() override;

    // A new list as operator= makes it, the caller's to delete.
    virtual CIPC2581_DrawObjArray * clone();
    // Makes no shapes: lets each shape that is there read itself from the file, in order, up to the first that gives 0.
    virtual int Import(CStdioFile & file);
    // Writes each shape at the same level, up to the first that gives 0; 1 for an empty list.
    virtual int Export(CStdioFile & file, int level);
};

#endif
