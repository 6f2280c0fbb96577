#ifndef IPC2581_CAD_HOLE_H
#define IPC2581_CAD_HOLE_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"

// One drilled hole: the LayerHole of a pad stack or the Hole of a set. Its measures are kept as the text of the file.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Hole : public CIPC2581_XmlDataAdd_Function {
public:
    CString Name;
    CString Diameter;
    CString PlatingStatus;
    CString PlusTol;
    CString MinusTol;
    CPointD Location;
    // The span, read and never written.
    CString ToLayer;
    CString FromLayer;

    CIPC2581_Ecad_CadData_Step_Hole();
    CIPC2581_Ecad_CadData_Step_Hole(const CIPC2581_Ecad_CadData_Step_Hole & other);
    // Copies the texts and leaves the location: the position does not travel with a copy.
    CIPC2581_Ecad_CadData_Step_Hole & operator=(const CIPC2581_Ecad_CadData_Step_Hole & other);
    ~CIPC2581_Ecad_CadData_Step_Hole() override;
    // Writes the one line of a Hole and gives 1.
    virtual int Export(CStdioFile & file, int level);

    // Empties the texts and leaves the location.
    void Init();
    // Reads the span behind a LayerHole line, up to a line with "/Hole" or "/LayerHole".
    void LayerHoleAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Hole> {
    using Object = CIPC2581_Ecad_CadData_Step_Hole;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Hole";
    static constexpr auto Hole =
        Element<Object>("Hole", Text("name=", &Object::Name), Text("diameter=", &Object::Diameter),
                        Text("platingStatus=", &Object::PlatingStatus), Text("plusTol=", &Object::PlusTol),
                        Text("minusTol=", &Object::MinusTol));
    static constexpr auto HolePlace = Element<Object>("Hole", Number("x=", &Object::Location, &CPointD::X),
                                                      Number("y=", &Object::Location, &CPointD::Y));
    static constexpr auto LayerHole = Hole.Of("LayerHole");
    static constexpr auto LayerHolePlace = HolePlace.Of("LayerHole");
    static constexpr auto Span =
        Element<Object>("Span", Text("toLayer=", &Object::ToLayer), Text("fromLayer=", &Object::FromLayer));
    static constexpr auto Elements = Pack{Hole, HolePlace, LayerHole, LayerHolePlace, Span};
    static constexpr auto Members = Pack{Member{"Name", &Object::Name},
                                         Member{"Diameter", &Object::Diameter},
                                         Member{"PlatingStatus", &Object::PlatingStatus},
                                         Member{"PlusTol", &Object::PlusTol},
                                         Member{"MinusTol", &Object::MinusTol},
                                         Member{"Location", &Object::Location},
                                         Member{"ToLayer", &Object::ToLayer},
                                         Member{"FromLayer", &Object::FromLayer}};
};

// A list of holes, for hosts; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_HoleArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Hole *, CIPC2581_Ecad_CadData_Step_Hole *> {
public:
    CIPC2581_Ecad_CadData_Step_HoleArray();
    ~CIPC2581_Ecad_CadData_Step_HoleArray() override;

    virtual int Export(CStdioFile & file, int level);
};

namespace ipc2581::detail {

class TokenList;

// Takes the attributes of a LayerHole or Hole line.
void ReadHole(const TokenList & tokens, CIPC2581_Ecad_CadData_Step_Hole & hole);

}  // namespace ipc2581::detail

#endif
