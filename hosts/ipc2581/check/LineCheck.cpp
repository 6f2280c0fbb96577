#include "hosts/ipc2581/check/LineCheck.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <optional>
#include <string_view>
#include <system_error>

#include <ipc2581/base/ReadObserver.h>

#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/check/LineTags.h"
#include "hosts/ipc2581/check/LossTable.h"

namespace ipc2581::host {
namespace {

bool Holds(std::string_view text, std::string_view word)
{
    return text.find(word) != std::string_view::npos;
}

bool IsNumber(std::string_view text)
{
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::string Str(std::string_view text)
{
    return std::string(text);
}

std::string Opening(std::string_view name)
{
    return std::string("<").append(name).append(">");
}

std::string Closing(std::string_view name)
{
    return std::string("</").append(name).append(">");
}

// The element whose closing tag is meant to end the loop.
std::string_view EndOf(const ElementLoss & element)
{
    return element.Name() == "AssemblyDrawing" ? "Outline" : element.Name();
}

// An element whose lines are read as those of its parent, its own first line apart.
bool IsWrapper(const ElementLoss & parent, std::string_view name)
{
    return parent.Name().empty() ? name == "IPC-2581" : parent.Name() == "AssemblyDrawing" && name == "Outline";
}

std::string StopText(ReadStop stop)
{
    return stop == ReadStop::EmptyLine ? "an empty line inside Content" : "a line of blanks";
}

// The names of the elements that are open in the sense of XML, the innermost last.
class OpenElements {
public:
    void Open(std::string_view name)
    {
        m_names.emplace_back(name);
        ++m_counts[m_names.back()];
    }
    // The innermost one, if there is any.
    void CloseLast()
    {
        if (!m_names.empty()) {
            --m_counts[m_names.back()];
            m_names.pop_back();
        }
    }
    // The innermost one of the name, with all inside of it; nothing if none is open.
    void Close(const std::string & name)
    {
        const auto found = m_counts.find(name);
        if (found == m_counts.end()) {
            return;
        }
        for (const std::size_t outer = found->second; outer != 0 && found->second == outer;) {
            CloseLast();
        }
    }
    [[nodiscard]] std::string_view Last() const { return m_names.empty() ? "" : std::string_view(m_names.back()); }

private:
    std::vector<std::string> m_names;
    // How many of each name, so that a closing tag without an opening one costs no search.
    std::unordered_map<std::string, std::size_t> m_counts;
};

// Holds what the reader does with a line against the tags that stand on it. A line is looked at when the reader has
// done with it, which is when it takes the next one.
class LineChecker : public ReadObserver {
public:
    explicit LineChecker(std::size_t limit) : m_found(limit) {}

    void LoopBegins() override
    {
        if (m_levels.empty()) {
            m_levels.push_back({&m_document, "", true});
        }
        else {
            m_isEntered = true;
        }
    }

    void LineTaken(std::string_view line) override
    {
        CheckLine();
        m_line = line;
        m_hasLine = true;
        m_taken = nullptr;
        m_isEntered = false;
        m_isEnd = false;
        m_attributes.clear();
        m_stop.reset();
        ++m_found.lines;
    }

    void TestHit(std::string_view word) override
    {
        if (word.starts_with('/')) {
            // The end of the document ends no loop.
            m_isEnd = m_levels.size() > 1;
        }
        else if (m_taken == nullptr) {
            m_taken = &Current().Inner(word);
        }
    }

    void AttributeTaken(std::string_view word, Reading reading, std::string_view token) override
    {
        const std::string_view attribute = word.substr(0, word.find('='));
        const std::string_view name = token.substr(0, token.find('='));
        TakenAttribute & taken = m_attributes.emplace_back(TakenAttribute{attribute, reading, ""});
        if (name != attribute) {
            taken.source = name.size() == token.size() ? "a text with this word in it" : Str(name);
        }
    }

    bool PassOver(ReadStop stop) override
    {
        m_stop = stop;
        return true;
    }

    LineFindings Finish()
    {
        CheckLine();
        // Those around it go on for the same reason.
        const Level & innermost = m_levels.back();
        if (!innermost.isTold) {
            m_found.swallows.Add({innermost.name + " does not end before the end of the file"}, m_found.lines);
        }
        return std::move(m_found);
    }

private:
    // A loop of the reader that is running.
    struct Level {
        ElementLoss * element;                        // that it reads
        std::string name;                             // of the tag that was taken for the element
        bool isTold;                                  // that it takes lines which are not its own
        std::vector<const ElementLoss *> parts = {};  // that there is one place for, and that were taken
    };

    struct TakenAttribute {
        std::string_view name;
        Reading reading;
        std::string source;  // of a token that was taken for an attribute of another name
    };

    ElementLoss & Current() const { return *m_levels.back().element; }
    const Tag * FirstTag() const { return m_tags->empty() ? nullptr : &m_tags->front(); }

    void CheckLine()
    {
        if (!m_hasLine) {
            return;
        }
        m_tags = &m_lineTags.Find(m_line);
        if (m_lineTags.HasSelfClosedEarlier()) {
            m_open.CloseLast();
        }
        if (m_taken != nullptr) {
            TakeElement();
        }
        else if (m_stop) {
            m_found.stops.Add({StopText(*m_stop)}, m_found.lines);
        }
        else if (!m_isEnd) {
            PassOverLine();
        }
        if (m_isEnd) {
            EndElement();
        }
        CheckOtherTags();
        FollowTags();
    }

    void TakeElement()
    {
        const Tag * const tag = FirstTag();
        const bool isClosing = tag != nullptr && tag->isClosing;
        if (m_taken->IsObject() || !isClosing) {
            Count(m_taken->Name());
        }
        CheckName(tag);
        if (!isClosing) {
            CheckPlace();
        }
        TellTaken();
        if (tag != nullptr && !isClosing) {
            CheckAttributes(*tag);
            if (!tag->isFinished) {
                m_found.swallows.Add({Str(tag->name) + " is split over lines, and only its first line is seen"},
                                     m_found.lines);
            }
        }
        if (m_isEntered) {
            Enter(tag);
        }
    }

    void Count(std::string_view name)
    {
        const auto found = m_found.taken.find(name);
        ++(found == m_found.taken.end() ? m_found.taken[Str(name)] : found->second);
    }

    void CheckName(const Tag * tag)
    {
        const std::string_view name = m_taken->Name();
        if (tag == nullptr || m_lineTags.BeganWithComment()) {
            m_found.readOtherwise.Add({"a comment or a text is taken for " + Opening(name)}, m_found.lines);
        }
        else if (tag->isClosing && (m_taken->IsObject() || m_isEntered)) {
            m_found.readOtherwise.Add({Closing(tag->name) + " is taken for " + Opening(name)}, m_found.lines);
        }
        else if (!tag->isClosing && tag->name != name) {
            m_found.readOtherwise.Add({Opening(tag->name) + " is taken for " + Opening(name)}, m_found.lines);
        }
    }

    // Tells of an element whose place another one has taken already.
    void CheckPlace()
    {
        Level & level = m_levels.back();
        const bool isInSet = level.element->Name() == "Set";
        if (!m_taken->IsPart() || !(isInSet || m_isEntered || m_taken->HoldsObjects())) {
            return;
        }
        const bool isThere = std::find(level.parts.begin(), level.parts.end(), m_taken) != level.parts.end();
        if (isInSet && !level.parts.empty() && (!isThere || m_taken->Name() != "Features")) {
            m_found.swallows.Add({Opening(m_taken->Name()) + " takes the place of " +
                                  Opening(level.parts.back()->Name()) + " in the same Set"},
                                 m_found.lines);
        }
        else if (isThere) {
            const std::string in = m_levels.size() == 1 ? "the file" : Str(level.element->Name());
            m_found.swallows.Add({"a second " + Opening(m_taken->Name()) + " in " + in + " goes into the first"},
                                 m_found.lines);
        }
        level.parts.push_back(m_taken);
    }

    void Enter(const Tag * tag)
    {
        const std::string_view name = m_taken->Name();
        bool isTold = false;
        if (tag != nullptr && tag->isSelfClosed) {
            m_found.swallows.Add(
                {Str(tag->name) + " closes itself, and takes what follows up to the next " + Closing(EndOf(*m_taken))},
                m_found.lines);
            isTold = true;
        }
        const bool isClosedHere = std::any_of(m_tags->begin(), m_tags->end(), [&](const Tag & other) {
            return other.isClosing && &other != tag && other.name == name;
        });
        if (isClosedHere) {
            m_found.swallows.Add({Closing(name) + " stands on the line of its opening tag and is not seen"},
                                 m_found.lines);
            isTold = true;
        }
        m_levels.push_back({m_taken, Str(tag == nullptr ? name : tag->name), isTold});
    }

    // Tells which tokens were taken for attributes of other names, and whether a value has stopped the read.
    void TellTaken()
    {
        for (const TakenAttribute & taken : m_attributes) {
            if (!taken.source.empty()) {
                m_found.readOtherwise.Add({taken.source + " is taken for " + Str(taken.name) + OfTaken()},
                                          m_found.lines);
            }
        }
        if (m_stop) {
            const std::string_view open = m_attributes.empty() ? "" : m_attributes.back().name;
            m_found.stops.Add({"a value that is cut off at the end of its line: " + Str(open) + OfTaken()},
                              m_found.lines);
        }
    }

    [[nodiscard]] std::string OfTaken() const { return " of " + Str(m_taken->Name()); }

    void CheckAttributes(const Tag & tag)
    {
        for (const TagAttribute & attribute : tag.attributes) {
            const AttributeLoss * const loss = m_taken->Find(attribute.name);
            if (loss == nullptr) {
                m_found.attributes.Add({m_taken->Name(), attribute.name}, m_found.lines);
                continue;
            }
            CheckValue(*loss, attribute);
            if (!m_taken->IsLost() && loss->written != Written::Kept) {
                m_found.notWritten.Add({m_taken->Name(), attribute.name, Fate(loss->written)}, m_found.lines);
            }
        }
    }

    static std::string_view Fate(Written written)
    {
        switch (written) {
        case Written::Changed:
            return "changed";
        case Written::Always:
            return "replaced";
        default:
            return "left out";
        }
    }

    // The elements of one name are not read alike everywhere: how this one was goes before.
    Reading ReadingOf(const AttributeLoss & loss) const
    {
        const auto taken = std::find_if(m_attributes.begin(), m_attributes.end(),
                                        [&](const TakenAttribute & attribute) { return attribute.name == loss.name; });
        return taken == m_attributes.end() ? loss.reading : taken->reading;
    }

    void CheckValue(const AttributeLoss & loss, const TagAttribute & attribute)
    {
        const std::string_view value = attribute.value;
        const auto tell = [&](const std::string & what) { m_found.readOtherwise.Add({what}, m_found.lines); };
        const auto tellOf = [&](const char * what) { tell(Str(loss.name) + OfTaken() + " " + what); };
        if (attribute.isSingleQuoted) {
            tellOf("in single quotes is not understood");
        }
        const Reading reading = ReadingOf(loss);
        switch (reading) {
        case Reading::Flag:
        case Reading::CornerFlag:
        case Reading::ControlFlag:
            if (MeansSet(value) && !ReadsAsSet(reading, value)) {
                tell(Str(loss.name) + "=\"" + Str(value) + "\" of " + Str(m_taken->Name()) + " is read as not set");
            }
            break;
        case Reading::Direction:
            tellOf("is turned round");
            break;
        case Reading::Number:
        case Reading::Integer:
            if (!IsNumber(value)) {
                tellOf("is no plain number");
            }
            break;
        case Reading::OuterForm:
        case Reading::RoundOrSquare:
            break;
        case Reading::Text:
            if (Holds(value, "/")) {
                tellOf("loses its slashes");
            }
            if (Holds(value, "&")) {
                tellOf("keeps entities as they stand");
            }
            if (Holds(value, "  ")) {
                tellOf("loses blanks out of runs");
            }
            break;
        }
    }

    void EndElement()
    {
        const Level ended = std::move(m_levels.back());
        m_levels.pop_back();
        const Tag * const tag = FirstTag();
        const bool isOwn = tag != nullptr && (tag->name == ended.name || tag->name == EndOf(*ended.element));
        if (!ended.isTold && !isOwn) {
            m_found.swallows.Add(
                {ended.name + " ends at " + (tag == nullptr ? "a comment or a text" : Closing(tag->name))},
                m_found.lines);
        }
    }

    void PassOverLine()
    {
        const Tag * const tag = FirstTag();
        if (tag == nullptr || m_lineTags.BeganWithComment()) {
            return;
        }
        if (tag->isClosing) {
            CheckClosing(tag->name);
        }
        else if (IsWrapper(Current(), tag->name)) {
            TakeWrapper(*tag);
        }
        else {
            m_found.elements.Add({tag->name, m_open.Last()}, m_found.lines);
        }
    }

    void TakeWrapper(const Tag & tag)
    {
        Count(tag.name);
        for (const TagAttribute & attribute : tag.attributes) {
            // The name spaces are written as the library knows them.
            if (!attribute.name.starts_with("xmlns")) {
                m_found.attributes.Add({tag.name, attribute.name}, m_found.lines);
            }
        }
    }

    // A closing tag that nothing ends at, though a loop is running for its element.
    void CheckClosing(std::string_view name)
    {
        Level & level = m_levels.back();
        if (level.isTold) {
            return;
        }
        if (level.name == name) {
            m_found.swallows.Add({Str(name) + " without an Outline takes what follows up to the next </Outline>"},
                                 m_found.lines);
            level.isTold = true;
        }
        else if (IsOpen(name)) {
            m_found.swallows.Add({level.name + " does not end before " + Closing(name)}, m_found.lines);
            level.isTold = true;
        }
    }

    bool IsOpen(std::string_view name) const
    {
        return std::any_of(m_levels.begin() + 1, m_levels.end(),
                           [&](const Level & level) { return level.name == name; });
    }

    void CheckOtherTags()
    {
        for (std::size_t i = 1; i < m_tags->size(); ++i) {
            const Tag & tag = (*m_tags)[i];
            const bool isKnown = m_taken != nullptr || Current().Knows(tag.name);
            if (!tag.isClosing && isKnown) {
                m_found.swallows.Add({Opening(tag.name) + " behind another tag on its line is not seen"},
                                     m_found.lines);
            }
            else if (tag.isClosing && IsOpen(tag.name) && (*m_tags)[0].name != tag.name) {
                m_found.swallows.Add({Closing(tag.name) + " behind another tag on its line is not seen"},
                                     m_found.lines);
            }
        }
    }

    void FollowTags()
    {
        for (const Tag & tag : *m_tags) {
            if (tag.StaysOpen()) {
                m_open.Open(tag.name);
            }
            else if (tag.isClosing) {
                m_open.Close(Str(tag.name));
            }
        }
    }

    LineFindings m_found;
    ElementLoss m_document;
    std::vector<Level> m_levels;
    LineTags m_lineTags;
    const std::vector<Tag> * m_tags = nullptr;
    OpenElements m_open;

    // What the reader has done with the line that it has taken last.
    std::string m_line;
    bool m_hasLine = false;
    ElementLoss * m_taken = nullptr;
    std::vector<TakenAttribute> m_attributes;
    std::optional<ReadStop> m_stop;
    bool m_isEntered = false;
    bool m_isEnd = false;
};

}  // namespace

void Findings::Add(std::initializer_list<std::string_view> what, std::size_t line)
{
    m_key.clear();
    for (const std::string_view part : what) {
        m_key.append(part).append(1, '\n');
    }
    const auto [entry, isNew] = m_index.try_emplace(m_key, m_all.size());
    if (isNew) {
        m_all.emplace_back(std::vector<std::string>(what.begin(), what.end()), Places());
    }
    Places & places = m_all[entry->second].second;
    ++places.count;
    if (places.lines.size() < m_limit) {
        places.lines.push_back(line);
    }
}

std::size_t Findings::Sum() const
{
    return std::accumulate(m_all.begin(), m_all.end(), std::size_t(0),
                           [](std::size_t sum, const auto & found) { return sum + found.second.count; });
}

LineFindings CheckLines(const BoardFile & file, std::size_t limit, CIPC2581_Parser & root, CProgressCtrl * progress)
{
    LineChecker checker(limit);
    CIPC2581_XmlLiteReader reader;
    reader.SetObserver(&checker);
    ReadModel(file, reader, root, progress);
    return checker.Finish();
}

}  // namespace ipc2581::host
