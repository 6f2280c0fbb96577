#ifndef IPC2581_PYTHON_MODEL_CLASSTABLE_H
#define IPC2581_PYTHON_MODEL_CLASSTABLE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <ipc2581/fields.h>

#include "python/model/Codes.h"

// The field tables of the library as data that a binding works with: what an object holds, and how it is reached when
// its class is known only at run time.
namespace ipc2581::python {

struct ClassRow;

// An object and its class. A shape comes as one of its own class.
struct Found {
    void * object = nullptr;
    const ClassRow * type = nullptr;
};

// How lists of one type are used. What stands in them is theirs.
struct ListRow {
    const ClassRow & (*elementType)() = nullptr;
    std::int64_t (*size)(const void * list) = nullptr;
    // Null for a place without an object.
    Found (*at)(void * list, std::int64_t index) = nullptr;
    // The object as an element of such a list; null for one of another class.
    void * (*asElement)(const Found & object) = nullptr;
    // These take what asElement gives, and delete nothing.
    void (*insert)(void * list, std::int64_t index, void * element) = nullptr;
    void (*set)(void * list, std::int64_t index, void * element) = nullptr;
    void (*removeAt)(void * list, std::int64_t index) = nullptr;
};

struct MemberRow {
    std::string_view name;
    FieldKind kind = FieldKind::Text;
    // Of a part or a point.
    const ClassRow & (*type)() = nullptr;
    // Of a list.
    const ListRow * list = nullptr;
    // A number that stands for yes or no.
    bool isFlag = false;
    // The names of the numbers that stand for kinds; null for other numbers.
    const CodeTable * codes = nullptr;
    // Of the member, or of what it points to; null for a pointer to nothing.
    void * (*address)(void * object) = nullptr;
    // What a file fills it from: "refDes of Component".
    std::string source;
};

struct ClassRow {
    std::string_view name;
    // The last part of the name, or the last two where others have the same.
    std::string shortName;
    std::vector<MemberRow> members;
    void * (*create)() = nullptr;
    void (*destroy)(void * object) = nullptr;
    // Null for a class that is no shape.
    CIPC2581_DrawObj * (*asShape)(void * object) = nullptr;
};

// All classes of the model, and that of points.
const std::vector<ClassRow> & Classes();

// By the name of the class or its short name; null if there is none.
const ClassRow * FindClass(std::string_view name);

// Null if there is none.
const MemberRow * FindMember(const ClassRow & type, std::string_view name);

}  // namespace ipc2581::python

#endif
