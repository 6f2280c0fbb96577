#include "hosts/ipc2581/check/LineTags.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace ipc2581::host {
namespace {

constexpr std::size_t None = std::string_view::npos;

bool IsBlank(char ch)
{
    return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n';
}

// Nearly every character of a file goes through these two, for which the searches of a text are too slow.
std::size_t SkipBlanks(std::string_view line, std::size_t at)
{
    while (at < line.size() && IsBlank(line[at])) {
        ++at;
    }
    return at;
}
// The end of a name that begins there. An equals sign is part of the name of an element.
std::size_t EndOfName(std::string_view line, std::size_t at, bool isOfAttribute)
{
    while (at < line.size() && !IsBlank(line[at]) && line[at] != '/' && line[at] != '>' &&
           !(isOfAttribute && line[at] == '=')) {
        ++at;
    }
    return at;
}

}  // namespace

std::string_view Tag::LocalName() const
{
    return name.substr(name.find(':') + 1);
}

std::string_view Tag::Value(std::string_view attribute) const
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const TagAttribute & other) { return other.name == attribute; });
    return found == attributes.end() ? std::string_view() : found->value;
}

const std::vector<Tag> & LineTags::Find(std::string_view line)
{
    m_tags.clear();
    m_hasSelfClosedEarlier = false;
    m_beganWithComment = m_state == State::Comment;
    std::size_t at = GoOn(line, 0);
    while (m_state == State::Text && at < line.size()) {
        at = line.find('<', at);
        if (at == None) {
            break;
        }
        at = Begin(line, at);
    }
    return m_tags;
}

std::size_t LineTags::GoOn(std::string_view line, std::size_t at)
{
    std::string_view end;
    switch (m_state) {
    case State::Text:
        return at;
    case State::Tag:
        return FinishTag(line, at, nullptr);
    case State::Comment:
        end = "-->";
        break;
    case State::Declaration:
        end = ">";
        break;
    }
    const std::size_t found = line.find(end, at);
    if (found == None) {
        return line.size();
    }
    m_state = State::Text;
    return found + end.size();
}

std::size_t LineTags::Begin(std::string_view line, std::size_t at)
{
    const std::string_view rest = line.substr(at);
    if (rest.starts_with("<!--")) {
        m_state = State::Comment;
        m_beganWithComment = m_beganWithComment || m_tags.empty();
        return GoOn(line, at + 4);
    }
    if (rest.starts_with("<!") || rest.starts_with("<?")) {
        m_state = State::Declaration;
        return GoOn(line, at);
    }
    Tag tag;
    ++at;
    if (at < line.size() && line[at] == '/') {
        tag.isClosing = true;
        ++at;
    }
    const std::size_t end = EndOfName(line, at, false);
    tag.name = line.substr(at, end - at);
    m_state = State::Tag;
    at = FinishTag(line, end, &tag);
    m_tags.push_back(std::move(tag));
    return at;
}

std::size_t LineTags::FinishTag(std::string_view line, std::size_t at, Tag * tag)
{
    if (m_quote != 0) {
        const std::size_t end = line.find(m_quote, at);
        if (end == None) {
            return line.size();
        }
        m_quote = 0;
        at = end + 1;
    }
    for (at = SkipBlanks(line, at); at < line.size(); at = SkipBlanks(line, at)) {
        if (line[at] == '>') {
            m_state = State::Text;
            if (tag != nullptr) {
                tag->isFinished = true;
            }
            return at + 1;
        }
        if (line[at] == '/') {
            const bool isEnd = line.substr(at).starts_with("/>");
            if (tag != nullptr) {
                tag->isSelfClosed = isEnd;
            }
            else {
                m_hasSelfClosedEarlier = m_hasSelfClosedEarlier || isEnd;
            }
            ++at;
            continue;
        }
        TagAttribute attribute;
        std::size_t end = EndOfName(line, at, true);
        attribute.name = line.substr(at, end - at);
        at = SkipBlanks(line, end);
        if (at < line.size() && line[at] == '=') {
            at = SkipBlanks(line, at + 1);
            if (at < line.size() && (line[at] == '"' || line[at] == '\'')) {
                const char quote = line[at];
                attribute.isSingleQuoted = quote == '\'';
                end = line.find(quote, ++at);
                attribute.value = line.substr(at, end == None ? None : end - at);
                m_quote = end == None ? quote : '\0';
                at = end == None ? line.size() : end + 1;
            }
        }
        if (tag != nullptr) {
            tag->attributes.push_back(attribute);
        }
    }
    return at;
}

// The whole file is one line to the tags.
void ForEachTag(const std::string & path, const std::function<void(const Tag &)> & visit)
{
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(path, failure);
    std::string text(failure ? 0 : size, '\0');
    std::ifstream(path, std::ios::binary).read(text.data(), static_cast<std::streamsize>(text.size()));
    LineTags tags;
    for (std::size_t at = text.find('<'); at != None; at = text.find('<', at)) {
        tags.m_tags.clear();
        at = tags.Begin(text, at);
        std::for_each(tags.m_tags.begin(), tags.m_tags.end(), visit);
    }
}

}  // namespace ipc2581::host
