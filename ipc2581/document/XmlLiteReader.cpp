#include "ipc2581/document/XmlLiteReader.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

namespace {

// Counts the text that has just been added to a list of texts among what the model takes.
void CountLast(CStdioFile & file, const CStringArray & texts)
{
    constexpr std::size_t inside = sizeof(CString) - 2;
    constexpr std::size_t besideText = 2 * sizeof(int) + 2 * HeapOverhead;
    const std::size_t length = static_cast<std::size_t>(texts[texts.GetUpperBound()].GetLength());
    file.Lines().Blocks().Count(sizeof(CString) + (length <= inside ? 0 : besideText + length));
}

}  // namespace

CIPC2581_XmlLiteReader::CIPC2581_XmlLiteReader() = default;
CIPC2581_XmlLiteReader::~CIPC2581_XmlLiteReader() = default;

int CIPC2581_XmlLiteReader::OpenPath(CString & path, CIPC2581_Parser & root)
{
    if (m_File.Open(path, CStdioFile::modeReadWrite, nullptr) == 0) {
        // No return: the scan below finds the end of a file that is not open at once.
        AfxMessageBox("file read error!", 0, 0);
    }
    LineTokens tokens;
    LineCycle line(m_File);
    while (line.Next()) {
        if (line.Holds("Content")) {
            Log("[Content]_Start\n");
            ContentProcess(root);
            Log("[Content]_End\n");
        }
        else if (line.Holds("LogisticHeader")) {
            Log("[LogisticHeader]_Start\n");
            LogisticHeaderProcess(root);
            SetProgress(1);
            Log("[LogisticHeader]_End\n");
        }
        else if (line.Holds("HistoryRecord")) {
            Log("[HistoryRecord]_Start\n");
            HistoryRecordProcess(line.CopyTokens(tokens), root);
            SetProgress(2);
            Log("[HistoryRecord]_End\n");
        }
        else if (line.Holds("Bom")) {
            Log("[Bom]_Start\n");
            BomProcess(line.CopyTokens(tokens), root);
            SetProgress(4);
            Log("[Bom]_End\n");
        }
        else if (line.Holds("Ecad")) {
            Log("[Ecad]_Start\n");
            // Cut before the position goes out: a host may read on in the file when it gets it.
            line.CopyTokens(tokens);
            SetProgress(8);
            EcadProcess(tokens, root);
            Log("[Ecad]_End\n");
        }
        else if (line.Holds("/IPC-2581")) {
            SetProgress(100);
        }
    }
    return 1;
}

int CIPC2581_XmlLiteReader::WriteFilePath(CString & path, CIPC2581_Parser & root)
{
    if (m_File.Open(path, CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr) == 0) {
        // The text of the read path, which hosts know.
        AfxMessageBox("file read error!", 0, 0);
        return 0;
    }
    WriteLine(m_File, "%s<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", Indent(0));
    WriteLine(m_File,
              "%s<IPC-2581 xmlns=\"http://webstds.ipc.org/2581\" "
              "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
              "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n",
              Indent(0));
    if (WriteIPC2581(root, 0) == 0) {
        // The file stays open, and the destructor that closes it could not tell a full disk.
        m_File.Flush();
        return 0;
    }
    WriteLine(m_File, "%s</IPC-2581>\n", Indent(0));
    m_File.Close();
    return 1;
}

int CIPC2581_XmlLiteReader::WriteIPC2581(CIPC2581_Parser & root, int level)
{
    if (root.m_Content.Export(m_File, level) == 0) {
        return 0;
    }
    SetProgress(10);
    if (root.m_Ecad.Export(m_File, level) == 0) {
        return 0;
    }
    SetProgress(100);
    return 1;
}

void CIPC2581_XmlLiteReader::SetMemoryLimit(std::uint64_t bytes)
{
    m_File.Lines().SetModelLimit(bytes);
}

void CIPC2581_XmlLiteReader::SetObserver(ipc2581::ReadObserver * observer)
{
    m_File.Lines().SetObserver(observer);
}

void CIPC2581_XmlLiteReader::SetProgress(int position)
{
    SendMessageA(m_pProgressCtrl, PBM_SETPOS, position, 0);
}

void CIPC2581_XmlLiteReader::ContentProcess(CIPC2581_Parser & root)
{
    CIPC2581_Content & content = root.m_Content;
    LineTokens tokens;
    LineCycle line(m_File, LineForm::Content);
    const auto readName = [&](void (CIPC2581_Content::*read)(CString &), const CStringArray & names) {
        (content.*read)(line.CopyTokens(tokens)[0]);
        CountLast(m_File, names);
    };
    while (line.Next()) {
        if (line.Holds("FunctionMode")) {
            content.ReadFunctionMode(line.CopyTokens(tokens));
        }
        else if (line.Holds("StepRef")) {
            readName(&CIPC2581_Content::ReadStepRef, content.StepRef);
        }
        else if (line.Holds("LayerRef")) {
            readName(&CIPC2581_Content::ReadLayerRef, content.LayerRef);
        }
        else if (line.Holds("BomRef")) {
            readName(&CIPC2581_Content::ReadBomRef, content.BomRef);
        }
        else if (line.Holds("DictionaryStandard")) {
            content.ReadDictionaryStandard(line.CopyTokens(tokens), m_File);
        }
        else if (line.Holds("DictionaryUser")) {
            content.ReadDictionaryUser(line.CopyTokens(tokens), m_File);
        }
        else if (line.Holds("DictionaryColor")) {
            content.ReadDictionaryColor(line.CopyTokens(tokens), m_File);
        }
        else if (line.Holds("/Content")) {
            return;
        }
    }
}

void CIPC2581_XmlLiteReader::LogisticHeaderProcess(CIPC2581_Parser & root)
{
    LineCycle line(m_File);
    while (line.Next()) {
        if (line.Holds("Role")) {
            ScanAttributes<Fields<CIPC2581_LogisticHeader>::Role>(line.Tokens(), root.m_LogisticHeader);
        }
        else if (line.Holds("Person")) {
            ScanAttributes<Fields<CIPC2581_LogisticHeader>::Person>(line.Tokens(), root.m_LogisticHeader);
        }
        else if (line.Holds("/LogisticHeader")) {
            return;
        }
    }
}

void CIPC2581_XmlLiteReader::HistoryRecordProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root)
{
    ScanAttributes<Fields<CIPC2581_HistoryRecord>::HistoryRecord>(tokens, root.m_HistoryRecord);
}

void CIPC2581_XmlLiteReader::BomProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root)
{
    ScanAttributes<Fields<CIPC2581_Bom>::Bom>(tokens, root.m_Bom);
    LineTokens opening;
    LineCycle line(m_File);
    while (line.Next()) {
        if (line.Holds("BomHeader")) {
            root.m_Bom.ReadBomHeader(line.CopyTokens(opening));
        }
        else if (line.Holds("BomItem")) {
            root.m_Bom.ReadBomItem(line.CopyTokens(opening), m_File);
        }
        else if (line.Holds("/Bom")) {
            return;
        }
    }
}

void CIPC2581_XmlLiteReader::EcadProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root)
{
    ScanAttributes<Fields<CIPC2581_Ecad>::Ecad>(tokens, root.m_Ecad);
    LineTokens opening;
    LineCycle line(m_File);
    while (line.Next()) {
        if (line.Opens("CadHeader")) {
            root.m_Ecad.ReadCadHeader(line.CopyTokens(opening));
            SetProgress(10);
        }
        else if (line.Opens("CadData")) {
            SetProgress(20);
            root.m_Ecad.m_CadData.ReadCadData(m_File, m_pProgressCtrl);
        }
        else if (line.Holds("/Ecad")) {
            return;
        }
    }
}

void CIPC2581_XmlLiteReader::Log(const char * entry)
{
    m_arrSectionLog.SetAtGrow(m_arrSectionLog.GetSize(), entry);
    CountLast(m_File, m_arrSectionLog);
}
