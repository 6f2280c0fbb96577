#include "ipc2581/document/DataPrint.h"

#include "ipc2581/base/lines/LineFile.h"

namespace {

// With its zero bytes, at which WriteString would stop.
void Print(CStdioFile & file, const CString & text)
{
    file.Lines().Write(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

void PrintList(CStdioFile & file, const char * label, const CStringArray & names)
{
    for (std::int64_t i = 0; i < names.GetSize(); ++i) {
        Print(file, label + names[i] + "\n");
    }
}

}  // namespace

CIPC2581_DataPrint::CIPC2581_DataPrint() = default;
CIPC2581_DataPrint & CIPC2581_DataPrint::operator=(const CIPC2581_DataPrint & /*other*/)
{
    return *this;
}
CIPC2581_DataPrint::~CIPC2581_DataPrint() = default;

void CIPC2581_DataPrint::DataPrint(CString & path, CIPC2581_Parser & root)
{
    path = path.Left(path.Find(".cvg")) + ".txt";
    CStdioFile file;
    if (file.Open(path, CStdioFile::modeCreate | CStdioFile::modeReadWrite, nullptr) == 0) {
        AfxMessageBox("Print file open error!", 0, 0);
        return;
    }
    const CIPC2581_Content & content = root.m_Content;
    Print(file, content.FunctionMode + " ");
    Print(file, content.FunctionModeLevel + "\n");
    Print(file, content.FunctionModeComment + "\n");
    // The swapped letters are part of the report.
    PrintList(file, "SetpRef: ", content.StepRef);
    PrintList(file, "LayerRef: ", content.LayerRef);
    PrintList(file, "BomRef: ", content.BomRef);
    Print(file, "DictionaryStandard Units: " + content.DictionaryStandard->Unit + "\n");
    // The destructor closes the file, where a full disk could not be told any more.
    file.Flush();
}
