#ifndef IPC2581_CAD_SILKSCREEN_H
#define IPC2581_CAD_SILKSCREEN_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Target.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/Text.h"

// The SilkScreen element of a package, of which the targets alone are read. It is always written, with an outline only
// if a host has filled one.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_SilkScreen : public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_Outline * Outline = nullptr;  // owned and never null
    CIPC2581_Text Text;
    CIPC2581_Ecad_CadData_Step_TargetArray TargetArray;

    CIPC2581_Ecad_CadData_Step_Package_SilkScreen();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Package_SilkScreen(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen(const CIPC2581_Ecad_CadData_Step_Package_SilkScreen &) = delete;
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen &
    operator=(const CIPC2581_Ecad_CadData_Step_Package_SilkScreen &) = delete;
    ~CIPC2581_Ecad_CadData_Step_Package_SilkScreen() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads the targets up to the line with "/SilkScreen".
    void SilkScreenAdd(CStdioFile & file);

private:
    explicit CIPC2581_Ecad_CadData_Step_Package_SilkScreen(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_SilkScreen> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_SilkScreen;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_SilkScreen";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"Outline", &Object::Outline}, Member{"Text", &Object::Text},
                                         Member{"TargetArray", &Object::TargetArray, "Target"}};
};

// A list of silk screens, for hosts; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Package_SilkScreen *,
                         CIPC2581_Ecad_CadData_Step_Package_SilkScreen *> {
public:
    CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray();
    ~CIPC2581_Ecad_CadData_Step_Package_SilkScreenArray() override;
};

#endif
