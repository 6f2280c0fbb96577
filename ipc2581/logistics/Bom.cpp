#include "ipc2581/logistics/Bom.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Bom::CIPC2581_Bom() = default;
CIPC2581_Bom::~CIPC2581_Bom() = default;

void CIPC2581_Bom::ReadBomHeader(CArray<CString, CString> & tokens)
{
    // One word for three fields: the first takes every hit, and hosts rely on the other two staying empty.
    ScanAttributes<Fields<CIPC2581_Bom>::BomHeader>(tokens, *this);
}

void CIPC2581_Bom::ReadBomItem(CArray<CString, CString> & tokens, CStdioFile & file)
{
    auto item = New<CIPC2581_Bom_BomItem>(file);
    ScanAttributes<Fields<CIPC2581_Bom_BomItem>::BomItem>(tokens, *item);
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("RefDes")) {
            auto refDes = NewFrom<Fields<CIPC2581_Bom_BomItem_RefDes>::RefDes>(line, file);
            Append(item->m_arrRefDes, std::move(refDes));
        }
        else if (line.Holds("/BomItem")) {
            Append(m_arrBomItem, std::move(item));
            return;
        }
    }
}
