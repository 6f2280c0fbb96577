#ifndef IPC2581_DRAW_LINEDESC_H
#define IPC2581_DRAW_LINEDESC_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"

// How a stroke looks: the LineDesc element. It has no reader of its own; what holds one reads its line.
class IPC2581_API CIPC2581_LineDesc {
public:
    int Shape = 0;  // a host's own code, neither read nor written
    double LineWidth = 0.0;
    CString LineEnd = "ROUND";  // the word of the file, whatever it is

    CIPC2581_LineDesc();
    CIPC2581_LineDesc(const CIPC2581_LineDesc & other);
    virtual ~CIPC2581_LineDesc();
    virtual CIPC2581_LineDesc * clone();
    virtual CIPC2581_LineDesc & operator=(const CIPC2581_LineDesc & other);
    // Writes the LineDesc line and gives 1.
    virtual int Export(CStdioFile & file, int level);

    void Init();
    int GetShape() const { return Shape; }
    void SetShape(int shape) { Shape = shape; }
    double GetLineWidth() const { return LineWidth; }
    void SetLineWidth(double width) { LineWidth = width; }
};

template <>
struct ipc2581::Fields<CIPC2581_LineDesc> {
    using Object = CIPC2581_LineDesc;
    static constexpr std::string_view Name = "CIPC2581_LineDesc";
    static constexpr auto LineDesc =
        Element<Object>("LineDesc", Text("lineEnd=", &Object::LineEnd), Number("lineWidth=", &Object::LineWidth));
    static constexpr auto Elements = Pack{LineDesc};
    static constexpr auto Members = Pack{Member{"Shape", &Object::Shape}, Member{"LineWidth", &Object::LineWidth},
                                         Member{"LineEnd", &Object::LineEnd}};
};

namespace ipc2581::detail {

class TokenList;

// Takes the attributes of a LineDesc line; one that is absent leaves its field as it is.
void ReadLineDesc(const TokenList & tokens, CIPC2581_LineDesc & lineDesc);

}  // namespace ipc2581::detail

#endif
