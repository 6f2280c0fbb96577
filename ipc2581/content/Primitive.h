#ifndef IPC2581_CONTENT_PRIMITIVE_H
#define IPC2581_CONTENT_PRIMITIVE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"

namespace ipc2581::detail {

// What the fifteen dictionary primitives have in common: one self-closing element on one line, of attributes alone.
// Their Init names the assignment that it uses, since a host's own assignment may call Init.
class IPC2581_API Primitive : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    using CIPC2581_DrawObj::Import;
    // Takes the next line of the file as the element's line, whatever stands on it, and gives 1. No reader of the
    // library uses this: they pass the tokens of the line that they hold to the other form.
    int Import(CStdioFile & file) override;

protected:
    explicit Primitive(int drawType) { DrawType = drawType; }
    Primitive(const Primitive &) = default;
    Primitive & operator=(const Primitive &) = default;
};

}  // namespace ipc2581::detail

#endif
