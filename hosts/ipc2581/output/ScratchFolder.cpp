#include "hosts/ipc2581/output/ScratchFolder.h"

#include <cerrno>
#include <cstdlib>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/ScratchFile.h"
#include "hosts/ipc2581/output/SignalRemoval.h"

namespace ipc2581::host {

ScratchFolder::ScratchFolder() : m_path(TemporaryFolder() + "/ipc2581-XXXXXX")
{
    const SignalsBlocked blocked;
    if (mkdtemp(m_path.data()) == nullptr) {
        throw Error(TemporaryFolder(), "cannot create a temporary folder: " + SystemCause(errno));
    }
    ListForRemoval(m_path);
}

ScratchFolder::~ScratchFolder()
{
    if (!m_file.empty()) {
        RemoveListed(m_file);
    }
    RemoveListed(m_path);
}

std::string ScratchFolder::File(const std::string & name)
{
    const SignalsBlocked blocked;
    m_file = m_path + "/" + name;
    ListForRemoval(m_file);
    return m_file;
}

}  // namespace ipc2581::host
