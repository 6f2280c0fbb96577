#include "ipc2581/base/platform/CArchive.h"

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CStdioFile.h"

CArchive::CArchive(CStdioFile * file, unsigned mode) : m_file(file), m_mode(mode) {}

void CArchive::Write(const void * bytes, std::size_t count)
{
    m_file->Write(bytes, count);
}

void CArchive::Read(void * bytes, std::size_t count)
{
    if (m_file->Read(bytes, count) != count) {
        throw CArchiveException("the archive ends before the array does");
    }
}
