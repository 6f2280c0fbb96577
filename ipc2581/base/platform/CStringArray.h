#ifndef IPC2581_BASE_PLATFORM_CSTRINGARRAY_H
#define IPC2581_BASE_PLATFORM_CSTRINGARRAY_H

#include "ipc2581/base/platform/CArray.h"

// A list of texts, empty at first. SetAtGrow(GetSize(), text) appends.
class IPC2581_API CStringArray : public CArray<CString, const CString &> {
public:
    CStringArray();
    ~CStringArray() override;
};

#endif
