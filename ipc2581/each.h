#ifndef IPC2581_EACH_H
#define IPC2581_EACH_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CString.h"

// What connects the library's types with those of a host written in standard C++.
namespace ipc2581 {

// The elements of a list, for a loop over them: pointers of a list of objects, texts of a CStringArray. This is a view,
// not a copy, so the list must not grow or shrink meanwhile.
template <typename Type, typename ArgType>
std::span<const Type> Each(const CArray<Type, ArgType> & list)
{
    return {list.GetData(), static_cast<std::size_t>(list.GetSize())};
}

// The same for a list that the model holds by pointer; a null pointer counts as an empty list.
template <typename Type, typename ArgType>
std::span<const Type> Each(const CArray<Type, ArgType> * list)
{
    return list == nullptr ? std::span<const Type>() : Each(*list);
}

// How many elements a list has, as the standard library counts.
template <typename Type, typename ArgType>
std::size_t Count(const CArray<Type, ArgType> & list)
{
    return Each(list).size();
}

// The same for a list that the model holds by pointer; 0 for a null pointer.
template <typename Type, typename ArgType>
std::size_t Count(const CArray<Type, ArgType> * list)
{
    return Each(list).size();
}

// A copy of the text, which outlives the model. Zero bytes inside are kept.
inline std::string Str(const CString & text)
{
    return std::string(static_cast<std::string_view>(text));
}

}  // namespace ipc2581

#endif
