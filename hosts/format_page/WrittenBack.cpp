#include "hosts/format_page/WrittenBack.h"

#include <algorithm>

#include "hosts/ipc2581/check/LossTable.h"

namespace ipc2581::format_page {
namespace {

using host::ElementLoss;
using host::Written;

template <typename Entry>
const Entry * FindNamed(const std::vector<Entry> & entries, std::string_view name)
{
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry & e) { return e.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

std::string_view WordOf(Written written)
{
    switch (written) {
    case Written::Never:
        return "never";
    case Written::Kept:
        return "kept";
    case Written::Changed:
        return "changed";
    case Written::Always:
        return "always";
    }
    return {};
}

}  // namespace

std::string_view WrittenBack(const Path & path, std::string_view attribute)
{
    const host::Reader * reader = &host::DocumentReader();
    const ElementLoss * element = nullptr;
    for (const std::string_view name : path) {
        element = reader == nullptr ? nullptr : FindNamed(reader->elements, name);
        if (element == nullptr || element->test == host::Test::Skips) {
            return {};
        }
        reader = element->inner;
    }
    if (element == nullptr || attribute.empty()) {
        return element == nullptr ? std::string_view() : WordOf(element->written);
    }
    const host::AttributeLoss * found = FindNamed(element->attributes, attribute);
    found = found == nullptr ? FindNamed(element->second, attribute) : found;
    return found == nullptr ? std::string_view() : WordOf(found->written);
}

}  // namespace ipc2581::format_page
