#include "ipc2581/draw/DrawObj.h"

#include <cmath>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/LineTemplate.h"

using ipc2581::OuterFormWords;

CIPC2581_DrawObj::CIPC2581_DrawObj() = default;
CIPC2581_DrawObj::CIPC2581_DrawObj(const CIPC2581_DrawObj & other) = default;
CIPC2581_DrawObj::~CIPC2581_DrawObj() = default;

CIPC2581_DrawObj * CIPC2581_DrawObj::clone() const
{
    auto * const copy = new CIPC2581_DrawObj();
    copy->DrawType = DrawType;
    return copy;
}

CIPC2581_DrawObj & CIPC2581_DrawObj::operator=(const CIPC2581_DrawObj & other) = default;

int CIPC2581_DrawObj::Import(CArray<CString, CString> & /*tokens*/)
{
    return 0;
}

int CIPC2581_DrawObj::Import(CStdioFile & /*file*/)
{
    return 0;
}

int CIPC2581_DrawObj::Export(CStdioFile & /*file*/, int /*level*/)
{
    return 0;
}

void CIPC2581_DrawObj::Init()
{
    DrawType = ipc2581::DrawTypes::Plain;
}

double CIPC2581_DrawObj::Distance(double x1, double y1, double x2, double y2)
{
    return std::sqrt(std::pow(x1 - x2, 2.0) + std::pow(y1 - y2, 2.0));
}

int CIPC2581_DrawObj::GetShapeType(CString text)
{
    for (std::size_t code = 0; code < OuterFormWords.size(); ++code) {
        if (text == OuterFormWords[code]) {
            return static_cast<int>(code);
        }
    }
    return ipc2581::OuterForms::Unknown;
}

CString CIPC2581_DrawObj::GetShapeType(int code)
{
    const bool isKnown = code >= 0 && code < static_cast<int>(OuterFormWords.size());
    return CString(OuterFormWords[isKnown ? static_cast<std::size_t>(code) : 0]);
}

CIPC2581_DrawObjArray::CIPC2581_DrawObjArray() = default;

CIPC2581_DrawObjArray::CIPC2581_DrawObjArray(const CIPC2581_DrawObjArray & other) : CIPC2581_DrawObjArray()
{
    ipc2581::detail::AssignClones(*this, other);
}

CIPC2581_DrawObjArray & CIPC2581_DrawObjArray::operator=(const CIPC2581_DrawObjArray & other)
{
    ipc2581::detail::AssignClones(*this, other);
    return *this;
}

CIPC2581_DrawObjArray::~CIPC2581_DrawObjArray()
{
    DeleteAll();
}

CIPC2581_DrawObjArray * CIPC2581_DrawObjArray::clone()
{
    return new CIPC2581_DrawObjArray(*this);
}

int CIPC2581_DrawObjArray::Import(CStdioFile & file)
{
    for (std::int64_t i = 0; i < GetSize(); ++i) {
        if (GetAt(i)->Import(file) == 0) {
            return 0;
        }
    }
    return 1;
}

int CIPC2581_DrawObjArray::Export(CStdioFile & file, int level)
{
    return ipc2581::detail::ExportElements(*this, file, level);
}
