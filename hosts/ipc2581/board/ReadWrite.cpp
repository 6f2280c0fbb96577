#include "hosts/ipc2581/board/ReadWrite.h"

#include "hosts/ipc2581/board/LibraryMessages.h"
#include "hosts/ipc2581/board/MemoryBound.h"
#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

std::uint64_t BoundOf(std::uint64_t memoryLimit)
{
    return memoryLimit == 0 ? MemoryForABoard() : memoryLimit;
}

}  // namespace

Imported ImportModel(const BoardFile & file, ImportOptions options, CProgressCtrl * progress)
{
    options.memoryLimit = BoundOf(options.memoryLimit);
    if (progress != nullptr) {
        options.progress = [progress](double part) {
            constexpr double whole = 100;
            progress->SetPos(static_cast<int>(part * whole));
            return true;
        };
    }
    try {
        Imported imported = Import(file.PlainPath(), options);
        if (imported.report.Elements().size() <= 1) {
            throw Error(file.Name(), NoSection);
        }
        return imported;
    }
    catch (const ImportError & error) {
        if (error.Line() == 0) {
            throw Error(file.Name(), error.Cause());
        }
        throw Error(file.Name(), error.Line(), error.Cause(), error.Column());
    }
}

bool ReadModel(const BoardFile & file, CIPC2581_XmlLiteReader & reader, CIPC2581_Parser & root,
               CProgressCtrl * progress, std::uint64_t memoryLimit)
{
    reader.m_pProgressCtrl = progress;
    reader.SetMemoryLimit(BoundOf(memoryLimit));
    CString path(file.PlainPath().c_str());
    bool isWhole = true;
    const LibraryMessages messages;
    try {
        reader.OpenPath(path, root);
    }
    catch (const CInvalidArgException &) {
        isWhole = false;
    }
    catch (const CFileException & failure) {
        throw Error(file.Name(), "cannot be read: " + CauseOf(failure));
    }
    // The model keeps pointers to the progress, which may go with this call.
    root.m_Ecad.m_CadData.m_pProgressCtrl = nullptr;
    root.m_Ecad.m_CadData.m_Step.Progress = nullptr;
    if (!messages.Text().empty()) {
        throw Error(file.Name(), messages.Text());
    }
    return isWhole;
}

void WriteModel(const std::string & path, const std::string & told, CIPC2581_Parser & root, CProgressCtrl * progress)
{
    CIPC2581_XmlLiteReader writer;
    writer.m_pProgressCtrl = progress;
    CString writePath(path.c_str());
    const LibraryMessages messages;
    try {
        if (writer.WriteFilePath(writePath, root) == 0) {
            throw Error(told, "cannot be written: " + messages.Text());
        }
    }
    catch (const CFileException & failure) {
        throw Error(told, "cannot be written: " + CauseOf(failure));
    }
}

void WriteReport(const std::string & design, const std::string & told, CIPC2581_Parser & root)
{
    CString path(design.c_str());
    const LibraryMessages messages;
    try {
        CIPC2581_DataPrint().DataPrint(path, root);
    }
    catch (const CFileException & failure) {
        throw Error(told, "cannot be written: " + CauseOf(failure));
    }
    if (!messages.Text().empty()) {
        throw Error(told, messages.Text());
    }
}

}  // namespace ipc2581::host
