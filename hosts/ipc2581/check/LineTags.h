#ifndef IPC2581_HOSTS_IPC2581_CHECK_LINETAGS_H
#define IPC2581_HOSTS_IPC2581_CHECK_LINETAGS_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ipc2581::host {

// An attribute as it stands in a line.
struct TagAttribute {
    std::string_view name;
    std::string_view value;  // between its quotes, or up to the end of the line
    bool isSingleQuoted = false;
};

// A tag that begins in a line.
struct Tag {
    std::string_view name;
    bool isClosing = false;
    bool isSelfClosed = false;
    bool isFinished = false;  // ends in the line that it begins in
    std::vector<TagAttribute> attributes;

    // What follows stands in the element.
    [[nodiscard]] bool StaysOpen() const { return !isClosing && !isSelfClosed; }
    // Without the prefix of a name space.
    [[nodiscard]] std::string_view LocalName() const;
    // Empty if the tag has no such attribute.
    [[nodiscard]] std::string_view Value(std::string_view attribute) const;
};

// Finds the tags of one line after another. What a line leaves open, a tag or a comment, goes on in the next.
class LineTags {
public:
    // The tags that begin in the line; they point into it.
    const std::vector<Tag> & Find(std::string_view line);
    // Whether the last line began inside of a comment, or with one.
    [[nodiscard]] bool BeganWithComment() const { return m_beganWithComment; }
    // Whether a tag of an earlier line has ended in the last one as a self-closed one.
    [[nodiscard]] bool HasSelfClosedEarlier() const { return m_hasSelfClosedEarlier; }

private:
    enum class State { Text, Tag, Comment, Declaration };

    friend void ForEachTag(const std::string & path, const std::function<void(const Tag &)> & visit);

    std::size_t GoOn(std::string_view line, std::size_t at);
    std::size_t Begin(std::string_view line, std::size_t at);
    std::size_t FinishTag(std::string_view line, std::size_t at, Tag * tag);

    State m_state = State::Text;
    char m_quote = 0;  // of the value that the last line left open
    bool m_beganWithComment = false;
    bool m_hasSelfClosedEarlier = false;
    std::vector<Tag> m_tags;
};

// Calls for the tags of a file one after another, wherever its lines end: for what the file has, and not for what the
// reader takes of it.
void ForEachTag(const std::string & path, const std::function<void(const Tag &)> & visit);

}  // namespace ipc2581::host

#endif
