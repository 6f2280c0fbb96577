#include "ipc2581/logistics/Bom.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"

using namespace ipc2581::detail;

CIPC2581_Bom::CIPC2581_Bom() = default;
CIPC2581_Bom::~CIPC2581_Bom() = default;

void CIPC2581_Bom::ReadBomHeader(CArray<CString, CString> & tokens)
{
    // One word for three fields: the first takes every hit, and hosts rely on the other two staying empty.
    ScanAttributes(
        tokens, {Text("assembly", assembly), Text("assembly", m_strHeaderText2), Text("assembly", m_strHeaderText3)});
}

void CIPC2581_Bom::ReadBomItem(CArray<CString, CString> & tokens, CStdioFile & file)
{
    auto item = New<CIPC2581_Bom_BomItem>(file);
    ScanAttributes(TokenList(tokens, &file.Lines().Blocks()),
                   {Text("quantity", item->quantity), Text("numberIO", item->numberIO),
                    Text("category", item->category), Text("internalPartNumber", item->internalPartNumber),
                    Text("description", item->description), Text("packageRef", item->packageRef)});
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("RefDes")) {
            auto refDes = New<CIPC2581_Bom_BomItem_RefDes>(file);
            ScanAttributes(line.Tokens(), {Text("name=", refDes->name), Flag("populate=", refDes->populate)});
            Append(item->m_arrRefDes, std::move(refDes));
        }
        else if (line.Holds("/BomItem")) {
            Append(m_arrBomItem, std::move(item));
            return;
        }
    }
}
