#ifndef IPC2581_LOGISTICS_BOM_H
#define IPC2581_LOGISTICS_BOM_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/logistics/BomItem.h"

// The Bom element: the bill of materials. Read and never written. A second one adds its items to the first.
class IPC2581_API CIPC2581_Bom : public CIPC2581_XmlDataAdd_Function {
public:
    CString name;
    CString assembly;
    CString m_strHeaderText2;  // stays empty
    CString m_strHeaderText3;  // stays empty
    CIPC2581_BomItemArray m_arrBomItem;

    CIPC2581_Bom();
    ~CIPC2581_Bom() override;

    // Takes the assembly from the token list of a BomHeader line.
    void ReadBomHeader(CArray<CString, CString> & tokens);
    // Takes the attributes from the token list of a BomItem line and reads on up to the line with "/BomItem", where the
    // item is added; at the end of the file it is dropped.
    void ReadBomItem(CArray<CString, CString> & tokens, CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Bom> {
    using Object = CIPC2581_Bom;
    static constexpr std::string_view Name = "CIPC2581_Bom";
    static constexpr auto Bom = Element<Object>("Bom", Text("name=", &Object::name));
    static constexpr auto BomHeader =
        Element<Object>("BomHeader", Text("assembly", &Object::assembly), Text("assembly", &Object::m_strHeaderText2),
                        Text("assembly", &Object::m_strHeaderText3));
    static constexpr auto Elements = Pack{Bom, BomHeader};
    static constexpr auto Members = Pack{Member{"name", &Object::name}, Member{"assembly", &Object::assembly},
                                         Member{"m_strHeaderText2", &Object::m_strHeaderText2},
                                         Member{"m_strHeaderText3", &Object::m_strHeaderText3},
                                         Member{"m_arrBomItem", &Object::m_arrBomItem, "BomItem"}};
};

#endif
