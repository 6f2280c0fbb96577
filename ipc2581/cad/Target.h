#ifndef IPC2581_CAD_TARGET_H
#define IPC2581_CAD_TARGET_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Xform.h"

// A Target element under a silk screen: a location and the shapes that draw it. Steps have no targets.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Target : public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_Xform * Xform = nullptr;  // owned; a host's own, neither read nor written
    CPointD Location;
    CString ID = "NONE";                             // a host's own, neither read nor written
    CIPC2581_DrawObjArray * DrawObjArray = nullptr;  // owned

    CIPC2581_Ecad_CadData_Step_Target();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Target(ipc2581::detail::ObjectBlocks & blocks);
    // A copy shares transform and shapes with its source, and each of the two deletes them: hosts that copy a target
    // set the pointers of one to null.
    CIPC2581_Ecad_CadData_Step_Target(const CIPC2581_Ecad_CadData_Step_Target & other);
    CIPC2581_Ecad_CadData_Step_Target & operator=(const CIPC2581_Ecad_CadData_Step_Target & other);
    ~CIPC2581_Ecad_CadData_Step_Target() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads contours and polylines up to the line with "/Target".
    void TargetAdd(CStdioFile & file);

    CIPC2581_Xform * GetXform() const { return Xform; }
    // The setters of pointers take them over. What they held before is not deleted.
    void SetXForm(CIPC2581_Xform * xform) { Xform = xform; }
    CPointD GetLocation() const { return Location; }
    void SetLocation(CPointD location) { Location = location; }
    CString GetID() const { return ID; }
    void SetID(CString id) { ID = id; }
    CIPC2581_DrawObjArray * GetDrawObjArray() const { return DrawObjArray; }
    void SetDrawObjArray(CIPC2581_DrawObjArray * shapes) { DrawObjArray = shapes; }

private:
    explicit CIPC2581_Ecad_CadData_Step_Target(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Target> {
    using Object = CIPC2581_Ecad_CadData_Step_Target;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Target";
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto Elements = Pack{Location};
    static constexpr auto Members = Pack{Member{"Xform", &Object::Xform}, Member{"Location", &Object::Location},
                                         Member{"ID", &Object::ID}, Member{"DrawObjArray", &Object::DrawObjArray}};
};

// A list of targets, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_TargetArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Target *, CIPC2581_Ecad_CadData_Step_Target *> {
public:
    CIPC2581_Ecad_CadData_Step_TargetArray();
    ~CIPC2581_Ecad_CadData_Step_TargetArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
