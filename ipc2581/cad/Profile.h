#ifndef IPC2581_CAD_PROFILE_H
#define IPC2581_CAD_PROFILE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Polygon.h"

// The Profile element: the outline of the board and its cutouts.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Profile : public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_Polygon * Polygon = nullptr;
    CIPC2581_DrawObjArray * Cutouts = nullptr;

    CIPC2581_Ecad_CadData_Step_Profile();
    CIPC2581_Ecad_CadData_Step_Profile(const CIPC2581_Ecad_CadData_Step_Profile & other);
    ~CIPC2581_Ecad_CadData_Step_Profile() override;
    virtual CIPC2581_Ecad_CadData_Step_Profile * clone() const;
    // Copies the polygon truly and the cutouts as a list of shapes copies them: as plain objects with their draw type.
    virtual CIPC2581_Ecad_CadData_Step_Profile & operator=(const CIPC2581_Ecad_CadData_Step_Profile & other);
    virtual int Export(CStdioFile & file, int level);

    // Empties polygon and cutouts; both stay the same objects.
    void Init();
    // Reads the lines behind the opening line up to the one with "/Profile". A second polygon adds its steps to the
    // first.
    void ReadProfile(CStdioFile & file);

private:
    explicit CIPC2581_Ecad_CadData_Step_Profile(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Profile> {
    using Object = CIPC2581_Ecad_CadData_Step_Profile;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Profile";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"Polygon", &Object::Polygon, "Polygon"}, Member{"Cutouts", &Object::Cutouts, "Cutout"}};
};

#endif
