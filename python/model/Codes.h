#ifndef IPC2581_PYTHON_MODEL_CODES_H
#define IPC2581_PYTHON_MODEL_CODES_H

#include <array>
#include <span>
#include <string_view>

#include <ipc2581/ipc2581.h>

namespace ipc2581::python {

struct Code {
    const char * name;
    int value;
};

// The names of the numbers that the model has for kinds.
struct CodeTable {
    const char * name;
    const char * doc;
    std::span<const Code> codes;
};

std::span<const CodeTable> CodeTables();

// The table for a member; null for one that has no such numbers. The reading is what the member is filled by.
const CodeTable * CodesOf(std::string_view className, std::string_view member, bool isOuterForm);

}  // namespace ipc2581::python

#endif
