#ifndef IPC2581_DOCUMENT_XMLLITEREADER_H
#define IPC2581_DOCUMENT_XMLLITEREADER_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/ReadObserver.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CProgressCtrl.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CStringArray.h"
#include "ipc2581/document/Parser.h"

// Reads a file into a root and writes a root to a file. One reader is meant for one file at a time; a second OpenPath,
// or WriteFilePath after OpenPath, closes the previous file. Nothing here catches what a damaged file or a failing disk
// throws: CInvalidArgException for a line of blanks or a value cut off at the end of its line, CFileException for a
// failed read or write. The root then holds what was finished before. What a reader makes is of hidden classes derived
// from the public ones, side by side in blocks: typeid gives the hidden class, only delete and not ::delete gives the
// memory back, and a block stays until its last object goes.
class IPC2581_API CIPC2581_XmlLiteReader : public CIPC2581_XmlDataAdd_Function {
public:
    CStdioFile m_File;          // stays open after OpenPath, until the reader is destroyed or opens another
    CStringArray m_arrMessage;  // nothing fills it
    CProgressCtrl * m_pProgressCtrl = nullptr;  // the host's, which assigns it; null shows no progress
    CStringArray m_arrSectionLog;               // the start and end of each section in file order; never cleared

    CIPC2581_XmlLiteReader();
    CIPC2581_XmlLiteReader(const CIPC2581_XmlLiteReader &) = delete;
    CIPC2581_XmlLiteReader & operator=(const CIPC2581_XmlLiteReader &) = delete;
    ~CIPC2581_XmlLiteReader() override;

    // Reads the file, which must exist and be writable too, into the root and returns 1. A file that cannot be opened
    // shows the message "file read error!", reads nothing, and gives 1 as well.
    int OpenPath(CString & path, CIPC2581_Parser & root);
    // Writes the Content and Ecad sections of the root to the file and returns 1. Returns 0 after the message "file
    // read error!" if the file cannot be created, and if a part of the model could not be written; the file then stays
    // open and ends in the middle.
    int WriteFilePath(CString & path, CIPC2581_Parser & root);
    // Writes the two sections into the open file.
    int WriteIPC2581(CIPC2581_Parser & root, int level);
    // How many bytes the model of each later read may take, from its OpenPath on: for the objects and texts that it
    // makes, in blocks of 32 KiB, and for their places in lists. There is no limit at first. A read that passes it ends
    // with CFileException, and the root then holds what was finished before. So does a read of a line that is longer
    // than both a sixteenth of the limit and 128 KiB.
    void SetMemoryLimit(std::uint64_t bytes);
    // From now on the observer, the host's own, watches lines being read, which then takes longer; null, as at first,
    // ends that. It must outlive the reads, and must not change while one is running.
    void SetObserver(ipc2581::ReadObserver * observer);
    // Sends the position to the progress control, if there is one.
    void SetProgress(int position);

    // Read one section each from the open file, up to its closing line; the history record stands on its line alone.
    // The token list is that of the line which opened the section.
    void ContentProcess(CIPC2581_Parser & root);
    void LogisticHeaderProcess(CIPC2581_Parser & root);
    // Takes the attributes of the record's one line.
    void HistoryRecordProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root);
    // Takes the name from the opening line, and reads on.
    void BomProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root);
    // Takes the name from the opening line, and reads on.
    void EcadProcess(CArray<CString, CString> & tokens, CIPC2581_Parser & root);

private:
    void Log(const char * entry);
};

#endif
