#ifndef IPC2581_CAD_ECAD_H
#define IPC2581_CAD_ECAD_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/CadData.h"
#include "ipc2581/cad/CadHeader.h"

// The Ecad element: name, header and data of the board.
class IPC2581_API CIPC2581_Ecad : public CIPC2581_XmlDataAdd_Function {
public:
    CString name;
    CIPC2581_Ecad_CadHeader m_CadHeader;
    CIPC2581_Ecad_CadData m_CadData;

    CIPC2581_Ecad();
    ~CIPC2581_Ecad() override;
    virtual int Export(CStdioFile & file, int level);
    virtual int Export_CadHeader(CStdioFile & file, int level);
    virtual int Export_CadData(CStdioFile & file, int level);

    // Takes the unit from the token list of the CadHeader line.
    void ReadCadHeader(CArray<CString, CString> & tokens);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad> {
    using Object = CIPC2581_Ecad;
    static constexpr std::string_view Name = "CIPC2581_Ecad";
    static constexpr auto Ecad = Element<Object>("Ecad", Text("name=", &Object::name));
    static constexpr auto Elements = Pack{Ecad};
    static constexpr auto Members =
        Pack{Member{"name", &Object::name}, Member{"m_CadHeader", &Object::m_CadHeader, "CadHeader"},
             Member{"m_CadData", &Object::m_CadData, "CadData"}};
};

#endif
