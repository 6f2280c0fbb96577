#ifndef IPC2581_BASE_PLATFORM_AFX_H
#define IPC2581_BASE_PLATFORM_AFX_H

#include <stdexcept>
#include <string>

#include "ipc2581/base/Export.h"

// A bad index: an array access out of range, a line of blanks, a value that is cut off at the end of its line.
class IPC2581_API CInvalidArgException : public std::invalid_argument {
public:
    CInvalidArgException();
    ~CInvalidArgException() override;
};

// A failed read, write, flush or close. The text names the file and the cause.
class IPC2581_API CFileException : public std::runtime_error {
public:
    // With the text that what() gives.
    explicit CFileException(const std::string & text);
    ~CFileException() override;
};

// An archive that ended before all of an array was read from it.
class IPC2581_API CArchiveException : public std::runtime_error {
public:
    // With the text that what() gives.
    explicit CArchiveException(const std::string & text);
    ~CArchiveException() override;
};

// Throws CInvalidArgException. Nothing in the library catches it: it reaches the caller of OpenPath.
[[noreturn]] IPC2581_API void AfxThrowInvalidArgException();

// Shows a message to the host's user. The library always passes 0 for type and help and ignores the result.
using AfxMessageBoxHandler = int (*)(const char * text, unsigned type, unsigned help);

// Calls the handler that the host has set and gives its result; without one the text goes to the standard
// error stream and the result is 1.
IPC2581_API int AfxMessageBox(const char * text, unsigned type, unsigned help);

// Sets the handler for the whole process and returns the one before. Null means the standard error stream.
IPC2581_API AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler);

#endif
