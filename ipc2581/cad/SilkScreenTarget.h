#ifndef IPC2581_CAD_SILKSCREENTARGET_H
#define IPC2581_CAD_SILKSCREENTARGET_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"

// A Target element of contours alone, for hosts: no reader of the library makes one.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target : public CIPC2581_XmlDataAdd_Function {
public:
    CPointD Location;
    CIPC2581_DrawObjArray DrawObjArray;

    CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target();
    // The shapes of a copy are those of a copied list of shapes.
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target(
        const CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target & other);
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target &
    operator=(const CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target & other);
    ~CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target() override;

    // Reads up to the line with "/Target". The contours that it makes have the draw type 5.
    void TargetAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target";
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto Elements = Pack{Location};
    static constexpr auto Members =
        Pack{Member{"Location", &Object::Location}, Member{"DrawObjArray", &Object::DrawObjArray}};
};

// A list of silk screen targets, for hosts; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target *,
                         CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target *> {
public:
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray();
    ~CIPC2581_Ecad_CadData_Step_Package_SilkScreen_TargetArray() override;
};

#endif
