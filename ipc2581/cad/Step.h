#ifndef IPC2581_CAD_STEP_H
#define IPC2581_CAD_STEP_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CProgressCtrl.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Component.h"
#include "ipc2581/cad/LayerFeature.h"
#include "ipc2581/cad/LogicalNet.h"
#include "ipc2581/cad/Package.h"
#include "ipc2581/cad/PadStack.h"
#include "ipc2581/cad/PhyNetGroup.h"
#include "ipc2581/cad/Profile.h"

// The Step element: the board itself. Reading and writing it are not inverse: pad stacks are never written, and the
// children come out in the order of Export.
class IPC2581_API CIPC2581_Ecad_CadData_Step : public CIPC2581_XmlDataAdd_Function {
public:
    CString Name;
    CIPC2581_Ecad_CadData_Step_PadStackArray PadStackArray;
    CPointD Datum;
    CIPC2581_Ecad_CadData_Step_Profile Profile;
    CIPC2581_Ecad_CadData_Step_PackageArray PackageArray;
    CIPC2581_Ecad_CadData_Step_ComponentArray ComponentArray;
    CIPC2581_Ecad_CadData_Step_LogicalNetArray LogicalNetArray;
    CIPC2581_Ecad_CadData_Step_PhyNetGroup PhyNetGroup;
    CIPC2581_Ecad_CadData_Step_LayerFeatureArray LayerFeatureArray;
    CProgressCtrl * Progress = nullptr;  // the host's; kept after a read, so it must outlive SetProgress

    CIPC2581_Ecad_CadData_Step();
    // Copies the name alone, as operator= does: the copy of a board is a named empty board. Hosts rely on it.
    CIPC2581_Ecad_CadData_Step(const CIPC2581_Ecad_CadData_Step & other);
    CIPC2581_Ecad_CadData_Step & operator=(const CIPC2581_Ecad_CadData_Step & other);
    ~CIPC2581_Ecad_CadData_Step() override;
    virtual int Export(CStdioFile & file, int level);

    // Empties the name and forgets the progress control; everything else stays.
    void Init();
    // Takes the name from the token list of the Step line and reads on up to a line with "/Step". It adds to what is
    // there. The control may be null.
    void ReadStep(CArray<CString, CString> & tokens, CStdioFile & file, CProgressCtrl * progress);
    // Sends the position to the stored control, if there is one.
    void SetProgress(int value);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step> {
    using Object = CIPC2581_Ecad_CadData_Step;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step";
    static constexpr auto Step = Element<Object>("Step", Text("name=", &Object::Name));
    static constexpr auto Datum = PointElement("Datum", &Object::Datum);
    static constexpr auto Elements = Pack{Step, Datum};
    static constexpr auto Members = Pack{Member{"Name", &Object::Name},
                                         Member{"PadStackArray", &Object::PadStackArray, "PadStack"},
                                         Member{"Datum", &Object::Datum},
                                         Member{"Profile", &Object::Profile, "Profile"},
                                         Member{"PackageArray", &Object::PackageArray, "Package"},
                                         Member{"ComponentArray", &Object::ComponentArray, "Component"},
                                         Member{"LogicalNetArray", &Object::LogicalNetArray, "LogicalNet"},
                                         Member{"PhyNetGroup", &Object::PhyNetGroup, "PhyNetGroup"},
                                         Member{"LayerFeatureArray", &Object::LayerFeatureArray, "LayerFeature"},
                                         Member{"Progress", &Object::Progress}};
};

#endif
