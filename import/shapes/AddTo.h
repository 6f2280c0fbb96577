#ifndef IPC2581_IMPORT_SHAPES_ADDTO_H
#define IPC2581_IMPORT_SHAPES_ADDTO_H

#include <memory>

#include "ipc2581/base/OwnedPart.h"

namespace ipc2581::detail {

// Appends an object to a list of the model, which owns it. Where there is no memory for that the object goes.
template <typename List, typename Object>
Object & AddTo(List & list, std::unique_ptr<Object> object)
{
    PartOf(list).Add(object.get());
    return *object.release();
}

}  // namespace ipc2581::detail

#endif
