#include "ipc2581/document/Parser.h"

CIPC2581_Parser::CIPC2581_Parser() = default;
CIPC2581_Parser::~CIPC2581_Parser() = default;
