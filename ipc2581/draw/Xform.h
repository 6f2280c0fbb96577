#ifndef IPC2581_DRAW_XFORM_H
#define IPC2581_DRAW_XFORM_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"

// The placement transform of a text, a component, a pin or a target, filled by the readers of those that hold it. Only
// the rotation is ever written.
class IPC2581_API CIPC2581_Xform : public CIPC2581_XmlDataAdd_Function {
public:
    double XOffset = 0.0;
    double YOffset = 0.0;
    double Rotation = 0.0;  // degrees
    int Mirror = 0;
    double Scale = 0.0;  // 0 and not 1 where nobody set it

    CIPC2581_Xform();
    CIPC2581_Xform(const CIPC2581_Xform & other);
    CIPC2581_Xform & operator=(const CIPC2581_Xform & other);
    ~CIPC2581_Xform() override;
    // Writes the Xform line with the rotation and gives 1.
    virtual int Export(CStdioFile & file, int level);

    void Init();
    double GetXOffset() const { return XOffset; }
    void SetXOffset(double value) { XOffset = value; }
    double GetYOffset() const { return YOffset; }
    void SetYOffset(double value) { YOffset = value; }
    double GetRotation() const { return Rotation; }
    void SetRotation(double value) { Rotation = value; }
    int GetMirror() const { return Mirror; }
    void SetMirror(int value) { Mirror = value; }
    double GetScale() const { return Scale; }
    void SetScale(double value) { Scale = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_Xform> {
    using Object = CIPC2581_Xform;
    static constexpr std::string_view Name = "CIPC2581_Xform";
    static constexpr auto OfComponent =
        Element<Object>("Xform", Number("rotation=", &Object::Rotation), Flag("mirror=", &Object::Mirror));
    static constexpr auto OfPin = Element<Object>("Xform", Number("rotation=", &Object::Rotation),
                                                  Attribute{"mirror=", Reading::ControlFlag, Pack{&Object::Mirror}});
    static constexpr auto Elements = Pack{OfComponent, OfPin};
    static constexpr auto Members =
        Pack{Member{"XOffset", &Object::XOffset}, Member{"YOffset", &Object::YOffset},
             Member{"Rotation", &Object::Rotation}, Member{"Mirror", &Object::Mirror}, Member{"Scale", &Object::Scale}};
};

#endif
