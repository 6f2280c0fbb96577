#include "ipc2581/cad/CadData.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/KeptProgress.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData::CIPC2581_Ecad_CadData() = default;

CIPC2581_Ecad_CadData::~CIPC2581_Ecad_CadData()
{
    ForgetProgress(m_pProgressCtrl);
}

int CIPC2581_Ecad_CadData::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "CadData", m_arrLayer, m_Stackup, m_Step);
}

void CIPC2581_Ecad_CadData::ReadCadData(CStdioFile & file, CProgressCtrl * progress)
{
    m_pProgressCtrl = progress;
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Layer")) {
            Append(m_arrLayer, NewFrom<Fields<CIPC2581_Ecad_CadData_Layer>::Layer>(line, file));
            SetProgress(22);
        }
        else if (line.Opens("Stackup")) {
            LineTokens tokens;
            m_Stackup.ReadStackUp(line.CopyTokens(tokens), file);
            SetProgress(25);
        }
        else if (line.Opens("Step")) {
            // Cut before the position goes out: a host may read on in the file when it gets it.
            LineTokens tokens;
            line.CopyTokens(tokens);
            SetProgress(30);
            m_Step.ReadStep(tokens, file, progress);
        }
        else if (line.Holds("/CadData")) {
            return;
        }
    }
}

void CIPC2581_Ecad_CadData::SetProgress(int position)
{
    SendMessageA(m_pProgressCtrl, PBM_SETPOS, position, 0);
}
