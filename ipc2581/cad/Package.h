#ifndef IPC2581_CAD_PACKAGE_H
#define IPC2581_CAD_PACKAGE_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/AssemblyDrawing.h"
#include "ipc2581/cad/LandPattern.h"
#include "ipc2581/cad/PackagePin.h"
#include "ipc2581/cad/SilkScreen.h"
#include "ipc2581/draw/Outline.h"

// A Package element: what a kind of part looks like.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package : public CIPC2581_XmlDataAdd_Function {
public:
    CString name;
    CString type;                          // the word of the file, written back as it is
    int TypeCode = 0;                      // of the type, see GetPackageType
    CIPC2581_Outline * Outline = nullptr;  // owned and never null
    CIPC2581_Ecad_CadData_Step_Package_LandPattern LandPattern;
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen SilkScreen;
    CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing AssemblyDrawing;
    CIPC2581_Ecad_CadData_Step_Package_PinArray PinArray;

    CIPC2581_Ecad_CadData_Step_Package();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Package(ipc2581::detail::ObjectBlocks & blocks);
    // Copies the type code and nothing else, as operator= does: hosts rely on it.
    CIPC2581_Ecad_CadData_Step_Package(const CIPC2581_Ecad_CadData_Step_Package & other);
    CIPC2581_Ecad_CadData_Step_Package & operator=(const CIPC2581_Ecad_CadData_Step_Package & other);
    ~CIPC2581_Ecad_CadData_Step_Package() override;
    // Outline, silk screen, assembly drawing, land pattern and pins, in this order whatever the file had.
    virtual int Export(CStdioFile & file, int level);

    // Sets the type code to 0. The outline keeps its contents and takes the draw type of a plain shape; the rest stays.
    void Init();
    // Reads the lines behind the opening line up to the one with "/Package".
    void PackageAdd(CStdioFile & file);

    // The code of a type, 1 to 48, by its full text: the name, for most types a blank, and tabs up to a column that
    // differs type by type. The plain word of a file gives 0, as does every other text.
    int GetPackageType(CString text);
    // The full text of a code; that of OTHER for every code outside the table.
    CString GetPackageType(int code);

private:
    explicit CIPC2581_Ecad_CadData_Step_Package(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package> {
    using Object = CIPC2581_Ecad_CadData_Step_Package;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package";
    static constexpr auto Package =
        Element<Object>("Package", Text("name=", &Object::name), Text("type=", &Object::type));
    static constexpr auto Elements = Pack{Package};
    static constexpr auto Members = Pack{Member{"name", &Object::name},
                                         Member{"type", &Object::type},
                                         Member{"TypeCode", &Object::TypeCode},
                                         Member{"Outline", &Object::Outline, "Outline"},
                                         Member{"LandPattern", &Object::LandPattern, "LandPattern"},
                                         Member{"SilkScreen", &Object::SilkScreen, "SilkScreen"},
                                         Member{"AssemblyDrawing", &Object::AssemblyDrawing, "AssemblyDrawing"},
                                         Member{"PinArray", &Object::PinArray, "Pin"}};
};

// The packages of the board, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PackageArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Package *, CIPC2581_Ecad_CadData_Step_Package *> {
public:
    CIPC2581_Ecad_CadData_Step_PackageArray();
    ~CIPC2581_Ecad_CadData_Step_PackageArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The first package with this name; null if there is none.
    CIPC2581_Ecad_CadData_Step_Package * pGetIPCPackageWithName(CString name) const;
};

#endif
