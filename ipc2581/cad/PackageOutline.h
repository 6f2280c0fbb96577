#ifndef IPC2581_CAD_PACKAGEOUTLINE_H
#define IPC2581_CAD_PACKAGEOUTLINE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Polygon.h"

// The Outline element of a pin. Read and, as far as a document goes, never written.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_Outline : public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_LineDesc * LineDesc = nullptr;
    CIPC2581_Polygon * Polygon = nullptr;

    CIPC2581_Ecad_CadData_Step_Package_Outline();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Package_Outline(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Ecad_CadData_Step_Package_Outline(const CIPC2581_Ecad_CadData_Step_Package_Outline & other);
    ~CIPC2581_Ecad_CadData_Step_Package_Outline() override;
    // A true copy with parts of its own.
    virtual CIPC2581_Ecad_CadData_Step_Package_Outline * clone() const;
    virtual CIPC2581_Ecad_CadData_Step_Package_Outline &
    operator=(const CIPC2581_Ecad_CadData_Step_Package_Outline & other);
    // Reads up to the line with "/Outline" and gives 1.
    virtual int Import(CStdioFile & file);
    // Written also without steps, line description first.
    virtual int Export(CStdioFile & file, int level);

    // Resets the parts in place.
    void Init();
    CIPC2581_LineDesc * GetLineDesc() const { return LineDesc; }
    CIPC2581_Polygon * GetPolygon() const { return Polygon; }
    // The setters copy the value; the argument stays the caller's.
    void SetLineDesc(CIPC2581_LineDesc * lineDesc) { *LineDesc = *lineDesc; }
    void SetPolygon(CIPC2581_Polygon * polygon) { *Polygon = *polygon; }

private:
    explicit CIPC2581_Ecad_CadData_Step_Package_Outline(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_Outline> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_Outline;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_Outline";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"LineDesc", &Object::LineDesc, "LineDesc"}, Member{"Polygon", &Object::Polygon, "Polygon"}};
};

#endif
