#ifndef IPC2581_CAD_HOLE_H
#define IPC2581_CAD_HOLE_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
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
