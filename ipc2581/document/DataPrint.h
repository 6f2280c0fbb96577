#ifndef IPC2581_DOCUMENT_DATAPRINT_H
#define IPC2581_DOCUMENT_DATAPRINT_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/document/Parser.h"

// Writes a small text report of the head of a document next to its design file.
class IPC2581_API CIPC2581_DataPrint {
public:
    CIPC2581_DataPrint();
    CIPC2581_DataPrint & operator=(const CIPC2581_DataPrint & other);
    virtual ~CIPC2581_DataPrint();

    // Writes the report and leaves its name in path: all that stands before the first ".cvg", followed by ".txt", so
    // that a path without ".cvg" becomes ".txt" alone. Shows the message "Print file open error!" if the file cannot be
    // created. Throws CFileException for a failed write.
    void DataPrint(CString & path, CIPC2581_Parser & root);
};

#endif
