#ifndef IPC2581_CONTENT_PRIMITIVEFAMILIES_H
#define IPC2581_CONTENT_PRIMITIVEFAMILIES_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// Primitives that differ only in name.
namespace ipc2581::detail {

// A diamond, an ellipse, an oval or a centred rectangle.
class IPC2581_API WidthHeightPrimitive : public Primitive {
public:
    double Width = 0.0;   // the attribute width
    double Height = 0.0;  // the attribute height

    ~WidthHeightPrimitive() override;
    using Primitive::Import;
    int Import(CArray<CString, CString> & tokens) override;

protected:
    explicit WidthHeightPrimitive(int drawType) : Primitive(drawType) {}
    WidthHeightPrimitive(const WidthHeightPrimitive &) = default;
    WidthHeightPrimitive & operator=(const WidthHeightPrimitive &) = default;
    int ExportAs(const char * tag, CStdioFile & file, int level) const;
};

// A hexagon or an octagon.
class IPC2581_API LengthPrimitive : public Primitive {
public:
    double Length = 0.0;  // the attribute length

    ~LengthPrimitive() override;
    using Primitive::Import;
    int Import(CArray<CString, CString> & tokens) override;

protected:
    explicit LengthPrimitive(int drawType) : Primitive(drawType) {}
    LengthPrimitive(const LengthPrimitive &) = default;
    LengthPrimitive & operator=(const LengthPrimitive &) = default;
    int ExportAs(const char * tag, CStdioFile & file, int level) const;
};

// The fields of a rectangle with chamfered or rounded corners, whose third one has a name of its own in each.
struct CorneredRect {
    double width;
    double height;
    double corner;
    int upperRight;
    int upperLeft;
    int lowerLeft;
    int lowerRight;
};

// A corner flag is written as "TRUE", without a blank between two of them.
void WriteCorneredRect(CStdioFile & file, int level, const char * tag, const char * cornerKey,
                       const CorneredRect & rect);

// What such a rectangle takes from an element of the name.
template <typename Class>
constexpr auto CorneredRectElement(std::string_view name, std::string_view cornerWord, double Class::*corner)
{
    return Element<Class>(name, Number("width", &Class::Width), Number("height", &Class::Height),
                          Number(cornerWord, corner),
                          Attribute{"upperRight", Reading::CornerFlag, Pack{&Class::UpperRight}},
                          Attribute{"upperLeft", Reading::CornerFlag, Pack{&Class::UpperLeft}},
                          Attribute{"lowerLeft", Reading::CornerFlag, Pack{&Class::LowerLeft}},
                          Attribute{"lowerRight", Reading::CornerFlag, Pack{&Class::LowerRight}});
}

}  // namespace ipc2581::detail

template <>
struct ipc2581::Fields<ipc2581::detail::LengthPrimitive> {
    using Object = ipc2581::detail::LengthPrimitive;
    static constexpr auto Size = Element<Object>("", Number("length", &Object::Length));
};

template <>
struct ipc2581::Fields<ipc2581::detail::WidthHeightPrimitive> {
    using Object = ipc2581::detail::WidthHeightPrimitive;
    static constexpr auto Size =
        Element<Object>("", Number("width", &Object::Width), Number("height", &Object::Height));
};

#endif
