#include "hosts/ipc2581/check/LineCheck.h"

#include <algorithm>
#include <charconv>
#include <deque>
#include <optional>
#include <string_view>
#include <system_error>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/check/LineTags.h"
#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {
namespace {

constexpr std::size_t None = std::string_view::npos;

bool Holds(std::string_view text, std::string_view word)
{
    return text.find(word) != None;
}

// The tokens of a line, as the reader cuts it.
class LineTokens {
public:
    void Cut(std::string_view line)
    {
        m_tokens.clear();
        m_joined.clear();
        if (!Holds(line, " ")) {
            m_tokens.push_back(line);
            return;
        }
        std::size_t at = line.find_first_not_of(' ');
        while (at != None) {
            const std::size_t end = std::min(line.find(' ', at), line.size());
            m_tokens.push_back(WithoutBrackets(line.substr(at, end - at)));
            at = line.find_first_not_of(' ', end);
        }
    }

    [[nodiscard]] std::size_t Count() const { return m_tokens.size(); }
    std::string_view operator[](std::size_t index) const { return m_tokens[index]; }

    // Moves on to the token that the value beginning here ends on; false if the line does not close it.
    bool SkipValue(std::size_t & index) const
    {
        const std::string_view token = m_tokens[index];
        if (token.find('"') != token.rfind('"')) {
            return true;
        }
        do {
            ++index;
        } while (index < m_tokens.size() && !Holds(m_tokens[index], "\""));
        return index < m_tokens.size();
    }

private:
    std::string_view WithoutBrackets(std::string_view token)
    {
        if (token.starts_with('<')) {
            token.remove_prefix(1);
        }
        if (token.ends_with('>')) {
            token.remove_suffix(1);
        }
        if (token.find_first_of("<>") == None) {
            return token;
        }
        std::string & joined = m_joined.emplace_back(token);
        std::erase_if(joined, [](char c) { return c == '<' || c == '>'; });
        return joined;
    }

    std::vector<std::string_view> m_tokens;
    std::deque<std::string> m_joined;
};

bool IsNumber(std::string_view text)
{
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool Tests(const AttributeLoss & attribute, std::string_view token)
{
    for (std::size_t at = token.find(attribute.name); at != None; at = token.find(attribute.name, at + 1)) {
        if (attribute.isWide || token.substr(at + attribute.name.size()).starts_with('=')) {
            return true;
        }
    }
    return false;
}

const AttributeLoss * FindTested(const std::vector<AttributeLoss> & attributes, std::string_view token)
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const AttributeLoss & attribute) { return Tests(attribute, token); });
    return found == attributes.end() ? nullptr : &*found;
}

const AttributeLoss * FindNamed(const ElementLoss & element, std::string_view name)
{
    for (const std::vector<AttributeLoss> * const attributes : {&element.attributes, &element.second}) {
        for (const AttributeLoss & attribute : *attributes) {
            if (attribute.name == name) {
                return &attribute;
            }
        }
    }
    return nullptr;
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
    return element.name == "AssemblyDrawing" ? "Outline" : element.name;
}

class LineChecker {
public:
    explicit LineChecker(std::size_t limit) : m_found(limit)
    {
        m_levels.push_back({&DocumentReader(), nullptr, "", true});
    }

    void Check(std::string_view line)
    {
        ++m_found.lines;
        m_tags = &m_lineTags.Find(line);
        if (m_lineTags.HasSelfClosedEarlier() && !m_open.empty()) {
            m_open.pop_back();
        }
        Take(line);
        CheckOtherTags();
        FollowTags();
    }

    LineFindings Finish()
    {
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
        const Reader * reader;
        const ElementLoss * element;                  // that it reads; null for the file
        std::string name;                             // of the tag that was taken for the element
        bool isTold;                                  // that it takes lines which are not its own
        std::vector<const ElementLoss *> parts = {};  // that there is one place for, and that were taken
    };

    const Reader & Current() const { return *m_levels.back().reader; }
    const Tag * FirstTag() const { return m_tags->empty() ? nullptr : &m_tags->front(); }

    void Take(std::string_view line)
    {
        m_taken = nullptr;
        const LineForm form = Current().form;
        if (form == LineForm::Content) {
            if (line.empty()) {
                m_found.stops.Add({"an empty line inside Content"}, m_found.lines);
                return;
            }
            const std::size_t bracket = line.find('<');
            line.remove_prefix(bracket == None ? 0 : bracket);
        }
        else if (form == LineForm::Trimmed) {
            constexpr std::string_view white = " \t\n\v\f\r";
            line.remove_prefix(std::min(line.find_first_not_of(white), line.size()));
            line.remove_suffix(line.size() - (line.find_last_not_of(white) + 1));
        }
        const std::size_t start = line.find_first_not_of(' ');
        if (start == None && !line.empty()) {
            if (form != LineForm::WholeLine) {
                m_found.stops.Add({"a line of blanks"}, m_found.lines);
            }
            return;
        }
        m_line = line;
        TestLine(form == LineForm::WholeLine || start == None ? line : FirstToken(line, start));
    }

    std::string_view FirstToken(std::string_view line, std::size_t start)
    {
        const std::size_t end = line.find(' ', start);
        const std::string_view token = line.substr(start, end == None ? None : end - start);
        if (start == 0 && end == None) {
            return token;
        }
        // Brackets inside of a first token are rare, and only then does their removal join what stood apart.
        if (token.find_first_of("<>", 1) >= token.size() - 1) {
            return token;
        }
        m_firstToken = token;
        std::erase_if(m_firstToken, [](char c) { return c == '<' || c == '>'; });
        return m_firstToken;
    }

    void TestLine(std::string_view tested)
    {
        const bool hasSlash = Holds(tested, "/");
        for (const ElementLoss & element : Current().elements) {
            const bool isHit =
                element.test != Test::None && Holds(tested, element.name) && (element.test != Test::Opens || !hasSlash);
            if (isHit) {
                if (element.test == Test::Skips) {
                    PassOver();
                }
                else {
                    TakeElement(element);
                }
                return;
            }
        }
        const std::vector<std::string_view> & ends = Current().ends;
        if (hasSlash &&
            std::any_of(ends.begin(), ends.end(), [&](std::string_view end) { return Holds(tested, end); })) {
            EndElement();
            return;
        }
        PassOver();
    }

    void TakeElement(const ElementLoss & element)
    {
        m_taken = &element;
        const Tag * const tag = FirstTag();
        const bool isClosing = tag != nullptr && tag->isClosing;
        if (element.isObject || !isClosing) {
            ++m_found.taken[Str(element.name)];
        }
        if (tag == nullptr || m_lineTags.BeganWithComment()) {
            m_found.readOtherwise.Add({"a comment or a text is taken for " + Opening(element.name)}, m_found.lines);
        }
        else if (isClosing && (element.isObject || element.inner != nullptr)) {
            m_found.readOtherwise.Add({Closing(tag->name) + " is taken for " + Opening(element.name)}, m_found.lines);
        }
        else if (!isClosing && tag->name != element.name) {
            m_found.readOtherwise.Add({Opening(tag->name) + " is taken for " + Opening(element.name)}, m_found.lines);
        }
        CheckPlace(element, isClosing);
        m_tokens.Cut(m_line);
        ScanTokens(element);
        if (tag != nullptr && !isClosing) {
            CheckAttributes(element, *tag);
            if (!tag->isFinished) {
                m_found.swallows.Add({Str(tag->name) + " is split over lines, and only its first line is seen"},
                                     m_found.lines);
            }
        }
        if (element.inner != nullptr && !IsEmptyDictionary(element)) {
            Enter(element, tag);
        }
    }

    // Tells of an element whose place another one has taken already.
    void CheckPlace(const ElementLoss & element, bool isClosing)
    {
        Level & level = m_levels.back();
        const bool isInSet = level.element != nullptr && level.element->name == "Set";
        const bool hasOnePlace = isInSet ? element.name != "ColorRef" : element.inner != nullptr && !element.isObject;
        if (!hasOnePlace || isClosing) {
            return;
        }
        const bool isThere = std::find(level.parts.begin(), level.parts.end(), &element) != level.parts.end();
        const std::string in = level.element == nullptr ? "the file" : Str(level.element->name);
        if (isInSet && !level.parts.empty() && (!isThere || element.name != "Features")) {
            m_found.swallows.Add({Opening(element.name) + " takes the place of " + Opening(level.parts.back()->name) +
                                  " in the same Set"},
                                 m_found.lines);
        }
        else if (isThere) {
            m_found.swallows.Add({"a second " + Opening(element.name) + " in " + in + " goes into the first"},
                                 m_found.lines);
        }
        level.parts.push_back(&element);
    }

    void Enter(const ElementLoss & element, const Tag * tag)
    {
        bool isTold = false;
        if (tag != nullptr && tag->isSelfClosed) {
            m_found.swallows.Add(
                {Str(tag->name) + " closes itself, and takes what follows up to the next " + Closing(EndOf(element))},
                m_found.lines);
            isTold = true;
        }
        const bool isClosedHere = std::any_of(m_tags->begin(), m_tags->end(), [&](const Tag & other) {
            return other.isClosing && &other != tag && other.name == element.name;
        });
        if (isClosedHere) {
            m_found.swallows.Add({Closing(element.name) + " stands on the line of its opening tag and is not seen"},
                                 m_found.lines);
            isTold = true;
        }
        m_levels.push_back({element.inner, &element, Str(tag == nullptr ? element.name : tag->name), isTold});
    }

    // The one element with a loop that knows a tag which closes itself.
    bool IsEmptyDictionary(const ElementLoss & element)
    {
        if (element.name != "DictionaryUser") {
            return false;
        }
        for (std::size_t index = 0; index < m_tokens.Count(); ++index) {
            if (Holds(m_tokens[index], "units") && !m_tokens.SkipValue(index)) {
                return false;
            }
            if (Holds(m_tokens[index], "/")) {
                return true;
            }
        }
        return false;
    }

    void ScanTokens(const ElementLoss & element)
    {
        for (std::size_t index = 0; index < m_tokens.Count(); ++index) {
            for (const std::vector<AttributeLoss> * const attributes : {&element.attributes, &element.second}) {
                const AttributeLoss * const hit = FindTested(*attributes, m_tokens[index]);
                if (hit != nullptr && !TakeValue(element, *hit, index)) {
                    return;
                }
            }
        }
    }

    bool TakeValue(const ElementLoss & element, const AttributeLoss & attribute, std::size_t & index)
    {
        const std::string_view token = m_tokens[index];
        const std::string_view name = token.substr(0, token.find('='));
        if (name != attribute.name) {
            const std::string source = name.size() == token.size() ? "a text with this word in it" : Str(name);
            m_found.readOtherwise.Add({source + " is taken for " + Str(attribute.name) + " of " + Str(element.name)},
                                      m_found.lines);
        }
        // Of a word the token alone is looked at.
        if (attribute.value == Value::Word || m_tokens.SkipValue(index)) {
            return true;
        }
        m_found.stops.Add(
            {"a value that is cut off at the end of its line: " + Str(attribute.name) + " of " + Str(element.name)},
            m_found.lines);
        return false;
    }

    void CheckAttributes(const ElementLoss & element, const Tag & tag)
    {
        for (const TagAttribute & attribute : tag.attributes) {
            const AttributeLoss * const loss = FindNamed(element, attribute.name);
            if (loss == nullptr) {
                m_found.attributes.Add({Str(element.name), Str(attribute.name)}, m_found.lines);
                continue;
            }
            CheckValue(element, *loss, attribute);
            if (element.written != Written::Never && loss->written != Written::Kept) {
                m_found.notWritten.Add({Str(element.name), Str(attribute.name), Fate(loss->written)}, m_found.lines);
            }
        }
    }

    static std::string Fate(Written written)
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

    void CheckValue(const ElementLoss & element, const AttributeLoss & loss, const TagAttribute & attribute)
    {
        const std::string_view value = attribute.value;
        const std::string of = Str(loss.name) + " of " + Str(element.name);
        const auto tell = [&](const std::string & what) { m_found.readOtherwise.Add({what}, m_found.lines); };
        if (attribute.isSingleQuoted) {
            tell(of + " in single quotes is not understood");
        }
        switch (loss.value) {
        case Value::Flag:
        case Value::MisspeltFlag:
        case Value::ControlFlag:
            if (MeansSet(value) && !ReadsAsSet(loss.value, value)) {
                tell(Str(loss.name) + "=\"" + Str(value) + "\" of " + Str(element.name) + " is read as not set");
            }
            break;
        case Value::Direction:
            tell(of + " is turned round");
            break;
        case Value::Number:
            if (!IsNumber(value)) {
                tell(of + " is no plain number");
            }
            break;
        case Value::Word:
            break;
        case Value::Text:
            if (Holds(value, "/")) {
                tell(of + " loses its slashes");
            }
            if (Holds(value, "&")) {
                tell(of + " keeps entities as they stand");
            }
            if (Holds(value, "  ")) {
                tell(of + " loses blanks out of runs");
            }
            break;
        }
    }

    void EndElement()
    {
        const Level ended = m_levels.back();
        m_levels.pop_back();
        const Tag * const tag = FirstTag();
        const bool isOwn = tag != nullptr && (tag->name == ended.name || tag->name == EndOf(*ended.element));
        if (!ended.isTold && !isOwn) {
            m_found.swallows.Add(
                {ended.name + " ends at " + (tag == nullptr ? "a comment or a text" : Closing(tag->name))},
                m_found.lines);
        }
    }

    void PassOver()
    {
        const Tag * const tag = FirstTag();
        if (tag == nullptr || m_lineTags.BeganWithComment()) {
            return;
        }
        if (tag->isClosing) {
            CheckClosing(tag->name);
            return;
        }
        for (const ElementLoss & element : Current().elements) {
            if (element.test == Test::None && element.name == tag->name) {
                TakeWrapper(element, *tag);
                return;
            }
        }
        m_found.elements.Add({Str(tag->name), m_open.empty() ? "" : m_open.back()}, m_found.lines);
    }

    void TakeWrapper(const ElementLoss & element, const Tag & tag)
    {
        ++m_found.taken[Str(element.name)];
        for (const TagAttribute & attribute : tag.attributes) {
            // The name spaces are written as the library knows them.
            if (!attribute.name.starts_with("xmlns")) {
                m_found.attributes.Add({Str(element.name), Str(attribute.name)}, m_found.lines);
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
            const bool isKnown = m_taken != nullptr || IsKnown(tag.name);
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

    bool IsKnown(std::string_view name) const
    {
        const std::vector<ElementLoss> & elements = Current().elements;
        return std::any_of(elements.begin(), elements.end(),
                           [&](const ElementLoss & element) { return element.name == name; });
    }

    // Keeps the names of the elements that are open in the sense of XML.
    void FollowTags()
    {
        for (const Tag & tag : *m_tags) {
            if (!tag.isClosing) {
                if (!tag.isSelfClosed) {
                    m_open.emplace_back(tag.name);
                }
            }
            else if (const auto found = std::find(m_open.rbegin(), m_open.rend(), tag.name); found != m_open.rend()) {
                m_open.erase(found.base() - 1, m_open.end());
            }
        }
    }

    LineFindings m_found;
    LineTags m_lineTags;
    const std::vector<Tag> * m_tags = nullptr;
    LineTokens m_tokens;
    std::string_view m_line;
    std::string m_firstToken;
    std::vector<Level> m_levels;
    std::vector<std::string> m_open;
    const ElementLoss * m_taken = nullptr;
};

}  // namespace

void Findings::Add(std::vector<std::string> what, std::size_t line)
{
    std::string key;
    for (const std::string & part : what) {
        key += part;
        key += '\n';
    }
    const auto [entry, isNew] = m_index.try_emplace(std::move(key), m_all.size());
    if (isNew) {
        m_all.emplace_back(std::move(what), Places());
    }
    Places & places = m_all[entry->second].second;
    ++places.count;
    if (places.lines.size() < m_limit) {
        places.lines.push_back(line);
    }
}

LineFindings CheckLines(const std::string & path, std::size_t limit)
{
    CStdioFile file;
    file.Open(path.c_str(), CStdioFile::modeRead, nullptr);
    LineChecker checker(limit);
    CString line;
    while (file.ReadString(line) != 0) {
        checker.Check(line);
    }
    return checker.Finish();
}

}  // namespace ipc2581::host
