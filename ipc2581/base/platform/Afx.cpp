#include "ipc2581/base/platform/Afx.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<AfxMessageBoxHandler> g_messageBoxHandler = nullptr;

}  // namespace

CInvalidArgException::CInvalidArgException() : std::invalid_argument("invalid argument") {}
CInvalidArgException::~CInvalidArgException() = default;

CFileException::CFileException(const std::string & text) : std::runtime_error(text) {}
CFileException::~CFileException() = default;

CArchiveException::CArchiveException(const std::string & text) : std::runtime_error(text) {}
CArchiveException::~CArchiveException() = default;

void AfxThrowInvalidArgException()
{
    throw CInvalidArgException();
}

int AfxMessageBox(const char * text, unsigned type, unsigned help)
{
    text = text == nullptr ? "" : text;
    if (const AfxMessageBoxHandler handler = g_messageBoxHandler.load()) {
        return handler(text, type, help);
    }
    std::fprintf(stderr, "%s\n", text);
    return 1;
}

AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler)
{
    return g_messageBoxHandler.exchange(handler);
}
