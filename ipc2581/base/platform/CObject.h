#ifndef IPC2581_BASE_PLATFORM_COBJECT_H
#define IPC2581_BASE_PLATFORM_COBJECT_H

#include <ostream>

#include "ipc2581/base/Export.h"

class CArchive;

// What a class knows about itself at run time.
struct CRuntimeClass {
    const char * m_lpszClassName;  // "CObject" also for a derived class that says nothing else
    int m_nObjectSize;             // in bytes
};

// Where Dump writes to.
using CDumpContext = std::ostream;

// Base of all containers. The order of its virtual operations is part of the interface.
class IPC2581_API CObject {
public:
    // What the class knows about itself; it stays the library's.
    virtual CRuntimeClass * GetRuntimeClass() const;
    virtual ~CObject();
    // Stores to or loads from an archive; nothing here.
    virtual void Serialize(CArchive & archive);
    // Throws CInvalidArgException if the object is damaged; nothing here.
    virtual void AssertValid() const;
    // Writes a line for a human reader.
    virtual void Dump(CDumpContext & out) const;

    CObject(const CObject &) = delete;
    CObject & operator=(const CObject &) = delete;

protected:
    CObject() = default;
};

#endif
