#ifndef IPC2581_CAD_CADDATA_H
#define IPC2581_CAD_CADDATA_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CProgressCtrl.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Layer.h"
#include "ipc2581/cad/Stackup.h"
#include "ipc2581/cad/Step.h"

// The CadData element: layers, stackup and the board itself. There is one step object: a file with several Step
// elements reads them all into it.
class IPC2581_API CIPC2581_Ecad_CadData : public CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_Ecad_CadData_LayerArray m_arrLayer;
    CIPC2581_Ecad_CadData_Stackup m_Stackup;
    CIPC2581_Ecad_CadData_Step m_Step;
    CProgressCtrl * m_pProgressCtrl = nullptr;  // the host's; kept after a read, so it must outlive SetProgress

    CIPC2581_Ecad_CadData();
    ~CIPC2581_Ecad_CadData() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads on from the line after the CadData line up to the one with "/CadData". The control may be null.
    void ReadCadData(CStdioFile & file, CProgressCtrl * progress);
    // Sends the position to the stored control, if there is one.
    void SetProgress(int position);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData> {
    using Object = CIPC2581_Ecad_CadData;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"m_arrLayer", &Object::m_arrLayer, "Layer"}, Member{"m_Stackup", &Object::m_Stackup, "Stackup"},
             Member{"m_Step", &Object::m_Step, "Step"}, Member{"m_pProgressCtrl", &Object::m_pProgressCtrl}};
};

#endif
