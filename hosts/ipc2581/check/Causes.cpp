#include "hosts/ipc2581/check/Causes.h"

namespace ipc2581::host {

void Causes::Add(const std::string & cause)
{
    m_text.append(m_text.empty() ? "" : "; ").append(cause);
}

void Causes::AddMissing(const std::string & things, std::size_t inFile, std::size_t inModel)
{
    if (inModel < inFile) {
        m_isLacking = true;
        Add(std::to_string(inFile - inModel) + " of " + std::to_string(inFile) + " " + things + " missing");
    }
}

void Causes::AddMissingOrNone(const std::string & things, std::size_t inFile, std::size_t inModel)
{
    if (m_isAbsenceTold && inFile == 0 && inModel == 0) {
        Add("no " + things + " in the file");
    }
    AddMissing(things, inFile, inModel);
}

void Causes::AddOtherwise(std::size_t count, const std::string & thing, const std::string & how,
                          const std::string & cause)
{
    if (count != 0) {
        m_isLacking = true;
        Add(std::to_string(count) + " " + thing + (count == 1 ? "" : "s") + " " + how + " (" + cause + ")");
    }
}

}  // namespace ipc2581::host
