#ifndef IPC2581_CONTENT_DICDRAW_CONTOUR_H
#define IPC2581_CONTENT_DICDRAW_CONTOUR_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"

// The Contour element, in a dictionary entry, a feature set or a target: polygons and cutouts in file order.
class IPC2581_API CIPC2581_DicDraw_Contour : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_DrawObjArray * DicDrawObjArray;  // owned and never null

    CIPC2581_DicDraw_Contour();
    // For a reader: with its list in the same blocks.
    explicit CIPC2581_DicDraw_Contour(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_DicDraw_Contour(const CIPC2581_DicDraw_Contour & other);
    ~CIPC2581_DicDraw_Contour() override;
    using CIPC2581_DrawObj::operator=;
    // A new contour, the caller's to delete. Its list is a copied list of shapes: the polygons and cutouts in it have
    // become plain objects, and its Export gives 0 behind the opening line.
    CIPC2581_DicDraw_Contour * clone() const override;
    // Reads nothing and gives 1.
    int Import(CArray<CString, CString> & tokens) override;
    // Reads up to the line with "/Contour" and gives 1. Shapes are added to those that are there.
    int Import(CStdioFile & file) override;
    int Export(CStdioFile & file, int level) override;
    // Copies the draw type and the list.
    virtual CIPC2581_DicDraw_Contour & operator=(const CIPC2581_DicDraw_Contour & other);

    // Deletes the shapes; the list stays.
    void Init();
    CIPC2581_DrawObjArray * GetDicDrawObjArray() const { return DicDrawObjArray; }
    // Copies the list; the argument stays the caller's.
    void SetDicDrawObjArray(CIPC2581_DrawObjArray * shapes) { *DicDrawObjArray = *shapes; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Contour> {
    using Object = CIPC2581_DicDraw_Contour;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Contour";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"DicDrawObjArray", &Object::DicDrawObjArray}};
};

#endif
