#ifndef IPC2581_CAD_CADHEADER_H
#define IPC2581_CAD_CADHEADER_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CString.h"

// The CadHeader element, of which the unit alone is kept, as the word of the file.
class IPC2581_API CIPC2581_Ecad_CadHeader : public CIPC2581_XmlDataAdd_Function {
public:
    CString units;

    CIPC2581_Ecad_CadHeader();
    CIPC2581_Ecad_CadHeader(const CIPC2581_Ecad_CadHeader & other);
    CIPC2581_Ecad_CadHeader & operator=(const CIPC2581_Ecad_CadHeader & other);
    ~CIPC2581_Ecad_CadHeader() override;

    CString GetUnit() const { return units; }
    void SetUnit(CString unit) { units = unit; }
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadHeader> {
    using Object = CIPC2581_Ecad_CadHeader;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadHeader";
    static constexpr auto CadHeader = Element<Object>("CadHeader", Text("units=", &Object::units));
    static constexpr auto Elements = Pack{CadHeader};
    static constexpr auto Members = Pack{Member{"units", &Object::units}};
};

#endif
