#include "ipc2581/content/DictionaryContour.h"

namespace ipc2581::detail {

DictionaryContour::DictionaryContour(int drawType) : PtArray(nullptr)
{
    Restart(drawType);
}

// Nothing is left to delete here but of an object whose constructor has failed.
DictionaryContour::~DictionaryContour()
{
    DeleteList();
}

void DictionaryContour::DeleteList()
{
    delete PtArray;
    PtArray = nullptr;
}

void DictionaryContour::Restart(int drawType)
{
    DrawType = drawType;
    PtArray = new CIPC2581_PtArray();
}

void DictionaryContour::CopyContour(const DictionaryContour & other)
{
    DrawType = other.DrawType;
    *PtArray = *other.PtArray;
}

}  // namespace ipc2581::detail
