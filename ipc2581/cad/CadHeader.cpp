#include "ipc2581/cad/CadHeader.h"

CIPC2581_Ecad_CadHeader::CIPC2581_Ecad_CadHeader() = default;
CIPC2581_Ecad_CadHeader::CIPC2581_Ecad_CadHeader(const CIPC2581_Ecad_CadHeader & other) = default;
CIPC2581_Ecad_CadHeader & CIPC2581_Ecad_CadHeader::operator=(const CIPC2581_Ecad_CadHeader & other) = default;
CIPC2581_Ecad_CadHeader::~CIPC2581_Ecad_CadHeader() = default;
