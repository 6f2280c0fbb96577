#ifndef IPC2581_CONTENT_DICDRAW_CUTOUT_H
#define IPC2581_CONTENT_DICDRAW_CUTOUT_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/DictionaryContour.h"

// A Cutout element that hosts fill and the library only writes.
class IPC2581_API CIPC2581_DicDraw_Cutout : public ipc2581::detail::DictionaryContour {
public:
    CIPC2581_DicDraw_Cutout() : DictionaryContour(ipc2581::DictionaryDrawTypes::Cutout) {}
    CIPC2581_DicDraw_Cutout(const CIPC2581_DicDraw_Cutout & other) : CIPC2581_DicDraw_Cutout() { CopyContour(other); }
    ~CIPC2581_DicDraw_Cutout() override;
    using CIPC2581_DictionaryDrawObj::clone;
    using CIPC2581_DictionaryDrawObj::operator=;
    int Export(CStdioFile & file, int level) override;
    // A true copy, the caller's to delete. It does not override the base's clone() const.
    virtual CIPC2581_DicDraw_Cutout * clone() { return new CIPC2581_DicDraw_Cutout(*this); }
    virtual CIPC2581_DicDraw_Cutout & operator=(const CIPC2581_DicDraw_Cutout & other);

    // Takes a new empty list. The old one lives on: hosts hold pointers to it.
    void Init() { Restart(ipc2581::DictionaryDrawTypes::Cutout); }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Cutout> {
    using Object = CIPC2581_DicDraw_Cutout;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Cutout";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}, Member{"PtArray", &Object::PtArray}};
};

#endif
