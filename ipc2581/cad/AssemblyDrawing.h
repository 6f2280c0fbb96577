#ifndef IPC2581_CAD_ASSEMBLYDRAWING_H
#define IPC2581_CAD_ASSEMBLYDRAWING_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Target.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/Text.h"

// The AssemblyDrawing element of a package, of which the outline alone is read.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing : public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_Outline * Outline = nullptr;  // owned and never null
    CIPC2581_Text Text;
    CIPC2581_Ecad_CadData_Step_TargetArray TargetArray;

    CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(ipc2581::detail::ObjectBlocks & blocks);
    // Copies nothing: a copy is an empty drawing, and so is a clone. Hosts rely on it.
    CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(
        const CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing & other);
    // Does nothing.
    CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing &
    operator=(const CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing & other);
    ~CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing() override;
    // Reads nothing and gives 1: the package lets the outline read itself.
    virtual int Import(CStdioFile & file);
    // Writes nothing if the outline has no steps.
    virtual int Export(CStdioFile & file, int level);

    CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing * clone() const;
    // Empties text and targets. The outline keeps its contents and takes the draw type of a plain shape.
    void Init();

private:
    explicit CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"Outline", &Object::Outline}, Member{"Text", &Object::Text},
                                         Member{"TargetArray", &Object::TargetArray}};
};

#endif
