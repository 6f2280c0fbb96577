#include "ipc2581/base/platform/CStdioFile.h"

#include <string_view>

#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/base/platform/SystemFile.h"

using ipc2581::detail::LineFile;

namespace {

const char * ModeOf(unsigned flags)
{
    const bool isReadOnly = (flags & (CStdioFile::modeWrite | CStdioFile::modeReadWrite)) == CStdioFile::modeRead;
    if ((flags & CStdioFile::modeCreate) != 0) {
        return (flags & CStdioFile::modeWrite) != 0 ? "wb" : "w+b";
    }
    return isReadOnly ? "rb" : "r+b";
}

// A pipe with a name, to be read: opening it would wait for somebody who writes to it, and it has no lines to go back
// to. Writing to one, or to a device, is fine.
bool IsPipeToRead(const char * path, unsigned flags)
{
    return (flags & (CStdioFile::modeCreate | CStdioFile::modeWrite)) == 0 && ipc2581::detail::IsNamedPipe(path);
}

}  // namespace

CStdioFile::CStdioFile() : m_lines(std::make_unique<LineFile>()) {}

CStdioFile::~CStdioFile() = default;

int CStdioFile::Open(const char * path, unsigned flags, CFileException * /*error*/)
{
    if (IsOpen()) {
        CStdioFile::Close();
    }
    m_lines->BeginModel();
    const bool isOpened = path != nullptr && !IsPipeToRead(path, flags) && m_lines->Open(path, ModeOf(flags));
    return isOpened ? 1 : 0;
}

int CStdioFile::ReadString(CString & line)
{
    std::string_view text;
    const bool isRead = m_lines->NextLine(text);
    line = text;
    return isRead ? 1 : 0;
}

void CStdioFile::WriteString(const char * text)
{
    const std::string_view bytes(text == nullptr ? "" : text);
    m_lines->Write(bytes.data(), bytes.size());
}

void CStdioFile::Close()
{
    m_lines->Close();
}

bool CStdioFile::IsOpen() const
{
    return m_lines->IsOpen();
}

void CStdioFile::Flush()
{
    m_lines->Flush();
}

std::size_t CStdioFile::Read(void * bytes, std::size_t count)
{
    return m_lines->Read(static_cast<char *>(bytes), count);
}

void CStdioFile::Write(const void * bytes, std::size_t count)
{
    m_lines->WriteBytes(static_cast<const char *>(bytes), count);
}
