#ifndef IPC2581_HOSTS_IPC2581_CHECK_FILETAGS_H
#define IPC2581_HOSTS_IPC2581_CHECK_FILETAGS_H

#include <fstream>
#include <string>
#include <string_view>

namespace ipc2581::host {

// The tags of a file one after another, wherever its lines end: what the file has, and not what the reader takes of it.
// Comments and declarations are passed over.
class FileTags {
public:
    explicit FileTags(const std::string & path) : m_in(path, std::ios::binary) {}

    // False at the end of the file.
    bool Next();
    // Without a prefix; that of a closing tag has its "/" in front.
    [[nodiscard]] std::string_view Name() const { return m_name; }
    // Empty if the tag has no such attribute.
    [[nodiscard]] std::string_view Value(std::string_view attribute) const;

private:
    void SkipComment();

    std::ifstream m_in;
    std::string m_piece;  // up to the end of the tag
    std::string_view m_name;
};

}  // namespace ipc2581::host

#endif
