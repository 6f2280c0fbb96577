#ifndef IPC2581_CAD_LANDPATTERN_H
#define IPC2581_CAD_LANDPATTERN_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Pad.h"
#include "ipc2581/cad/Target.h"

// The LandPattern element of a package, of which the pads alone are read.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_LandPattern : public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_Ecad_CadData_Step_PadArray PadArray;
    CIPC2581_Ecad_CadData_Step_TargetArray TargetArray;

    CIPC2581_Ecad_CadData_Step_Package_LandPattern();
    ~CIPC2581_Ecad_CadData_Step_Package_LandPattern() override;
    // Writes nothing if there is neither pad nor target.
    virtual int Export(CStdioFile & file, int level);

    // Reads the pads up to the line with "/LandPattern".
    void LandPatternAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_LandPattern> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_LandPattern;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_LandPattern";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"PadArray", &Object::PadArray, "Pad"}, Member{"TargetArray", &Object::TargetArray}};
};

#endif
