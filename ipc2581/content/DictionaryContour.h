#ifndef IPC2581_CONTENT_DICTIONARYCONTOUR_H
#define IPC2581_CONTENT_DICTIONARYCONTOUR_H

#include "ipc2581/base/Export.h"
#include "ipc2581/content/DictionaryDrawObj.h"
#include "ipc2581/draw/Pt.h"

namespace ipc2581::detail {

// What the write-only polygon and cutout have in common: a list of flat steps, whose first is the begin point.
class IPC2581_API DictionaryContour : public CIPC2581_DictionaryDrawObj {
public:
    CIPC2581_PtArray * PtArray;  // owned and never null

    ~DictionaryContour() override;
    DictionaryContour(const DictionaryContour &) = delete;
    DictionaryContour & operator=(const DictionaryContour &) = delete;
    CIPC2581_PtArray * GetPtArray() const { return PtArray; }
    // Copies the list; the argument stays the caller's.
    void SetPtArray(CIPC2581_PtArray * steps) { *PtArray = *steps; }

protected:
    explicit DictionaryContour(int drawType);
    // For the destructors of the two: the list goes while the object is still one of their class.
    void DeleteList();
    // Takes a new empty list. The old one lives on: hosts hold pointers to it.
    void Restart(int drawType);
    // Copies the draw type and the list.
    void CopyContour(const DictionaryContour & other);
};

}  // namespace ipc2581::detail

#endif
