#ifndef IPC2581_TOOLS_FORMAT_PAGE_SECTIONS_H
#define IPC2581_TOOLS_FORMAT_PAGE_SECTIONS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <ipc2581/fields.h>

#include "tools/format_page/WrittenBack.h"

namespace ipc2581::format_page {

// Objects of a class that a member of another one takes from a file.
struct Child {
    const ClassInfo * info;
    // Empty for what is read from the lines of the owner's element.
    std::string_view element;
    Path place;
};

struct Section {
    const ClassInfo * info;
    // Unique on the page.
    std::string title;
    // Where in a file the objects are read from; none for a class that no file fills.
    std::vector<Path> places;
};

// The element inside the place, or the place itself if it is one of this element; nothing if no file is read so.
std::optional<Path> PlaceOfElement(const Path & place, std::string_view element);

// The sections of the page: the classes in the order in which a file has their elements, then those without places.
std::vector<Section> FindSections(const std::vector<ClassInfo> & classes);

// What the member of an object that is read from the place takes there.
std::vector<Child> ChildrenOf(const std::vector<ClassInfo> & classes, const ClassInfo & owner, const FieldInfo & member,
                              const Path & place);

}  // namespace ipc2581::format_page

#endif
