#include "import/xml/XmlParser.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <vector>

#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

namespace ipc2581::detail {
namespace {

std::string_view Chars(const xmlChar * begin, const xmlChar * end)
{
    return {reinterpret_cast<const char *>(begin), static_cast<std::size_t>(end - begin)};
}

struct FreeContext {
    void operator()(xmlParserCtxt * context) const
    {
        if (context->myDoc != nullptr) {
            xmlFreeDoc(context->myDoc);
        }
        xmlFreeParserCtxt(context);
    }
};
using Context = std::unique_ptr<xmlParserCtxt, FreeContext>;

struct FreeNames {
    void operator()(xmlDict * names) const { xmlDictFree(names); }
};
using Names = std::unique_ptr<xmlDict, FreeNames>;

void AddName(xmlDict & names, std::string_view name)
{
    xmlDictLookup(&names, reinterpret_cast<const xmlChar *>(name.data()), static_cast<int>(name.size()));
}

// What most of a large board consists of, the most frequent first.
constexpr auto FrequentNames = std::to_array<std::string_view>({
    "x",
    "y",
    "id",
    "name",
    "type",
    "value",
    "NonstandardAttribute",
    "Location",
    "Set",
    "StandardPrimitiveRef",
    "net",
    "testPoint",
    "Pad",
    "padstackDefRef",
    "plate",
    "padUsage",
    "PolyStepSegment",
    "Xform",
    "rotation",
    "componentRef",
    "PinRef",
    "pin",
    "layerRef",
    "LineDescRef",
    "Features",
    "PolyBegin",
    "Polyline",
    "Line",
    "startX",
    "startY",
    "endX",
    "endY",
    "LineDesc",
    "lineEnd",
    "lineWidth",
    "PolyStepCurve",
    "centerX",
    "centerY",
    "clockwise",
});

bool IsFrequent(std::string_view name)
{
    return std::find(FrequentNames.begin(), FrequentNames.end(), name) != FrequentNames.end();
}

// The parser looks each name up in a table, quickly until the table has grown past what a board's names need. It does
// not grow by what stands in a second one behind it, so that only the frequent names are in the first.
void UseQuickNames(xmlParserCtxt & context)
{
    const Names others(xmlDictCreate());
    Names names(xmlDictCreateSub(others.get()));
    if (others == nullptr || names == nullptr) {
        return;
    }
    // As the parser bounds its own, so that a file cannot fill the memory with names.
    xmlDictSetLimit(names.get(), XML_MAX_DICTIONARY_LIMIT);
    for (const std::string_view name : KnownWords) {
        if (!IsFrequent(name)) {
            AddName(*others, name);
        }
    }
    for (const std::string_view name : FrequentNames) {
        AddName(*names, name);
    }
    xmlDictFree(context.dict);
    context.dict = names.release();
}

// What the parser cannot say of its context, such as bytes that its encoding does not have, it says to whoever listens
// in this thread, and to the standard error stream if nobody does.
class ErrorsOfThread {
public:
    ErrorsOfThread(xmlParserCtxt * context, xmlStructuredErrorFunc take)
        : m_function(xmlStructuredError), m_context(xmlStructuredErrorContext)
    {
        xmlSetStructuredErrorFunc(context, take);
    }
    ErrorsOfThread(const ErrorsOfThread &) = delete;
    ErrorsOfThread & operator=(const ErrorsOfThread &) = delete;
    ~ErrorsOfThread() { xmlSetStructuredErrorFunc(m_context, m_function); }

private:
    xmlStructuredErrorFunc m_function;
    void * m_context;
};

// One run of the parser. An exception cannot pass through the parser, which is C: it is kept, the parser gets
// nothing more to read, and it is thrown again when the parser has returned.
class Parse {
public:
    Parse(ByteReader & source, WordTable & words, XmlListener & listener)
        : m_source(source), m_words(words), m_listener(listener)
    {
    }

    void Run();

private:
    static Parse & Of(void * context) { return *static_cast<Parse *>(static_cast<xmlParserCtxt *>(context)->_private); }
    static xmlSAXHandler Handler();

    static int Read(void * parse, char * buffer, int length);
    static void StartElement(void * context, const xmlChar * name, const xmlChar * prefix, const xmlChar * space,
                             int spaceCount, const xmlChar ** spaces, int count, int defaulted,
                             const xmlChar ** attributes);
    static void EndElement(void * context, const xmlChar * name, const xmlChar * prefix, const xmlChar * space);
    static void Characters(void * context, const xmlChar * text, int length);
    static void DeclareEntity(void * context, const xmlChar * name, int type, const xmlChar * publicId,
                              const xmlChar * systemId, xmlChar * content);
    static xmlEntityPtr GetEntity(void * context, const xmlChar * name);
    static void TakeError(void * context, xmlErrorPtr error);
    void TakeFault(const xmlParserInput * input, const xmlError & error);

    // Does what may throw, if nothing has been thrown yet. The parser ends when it next wants to read; told to stop, it
    // would free what it may have in hand.
    template <typename Action>
    void Guard(Action action)
    {
        if (IsOver()) {
            return;
        }
        try {
            action();
        }
        catch (...) {
            m_thrown = std::current_exception();
        }
    }
    [[nodiscard]] bool IsOver() const { return m_thrown != nullptr || m_fault != nullptr; }
    void Open(xmlParserCtxt * context, const xmlChar * name, const xmlChar * space, int count,
              const xmlChar ** attributes);
    Word NameOf(xmlParserCtxt * context, const xmlChar ** attribute);
    void AddText(std::string_view text, bool isBeforeTag);
    void EndText();
    [[nodiscard]] std::size_t LineOfOpening(const xmlParserInput & input) const;
    void MarkPlace(const xmlParserInput & input);
    void CountMade(xmlParserCtxt * context, std::size_t bytes);
    [[nodiscard]] bool IsCutAt(const xmlParserInput & input, int fault) const;
    void CheckEnd(xmlParserCtxt * context);

    ByteReader & m_source;
    WordTable & m_words;
    XmlListener & m_listener;
    std::exception_ptr m_thrown;
    std::unique_ptr<XmlFault> m_fault;
    // The namespace of the root, by its address, which is the same for all of its elements.
    const xmlChar * m_space = nullptr;
    bool m_hasRoot = false;
    std::vector<XmlAttribute> m_attributes;
    // Where the parser stood when it last told of something.
    const xmlParserInput * m_input = nullptr;
    int m_line = 0;
    // What has been read, and what the parser has made of it.
    std::size_t m_read = 0;
    bool m_hasEnded = false;
    std::size_t m_made = 0;
    // The text since the last tag, and the blanks in front of it, of which more than these are none of it.
    std::string m_text;
    std::array<char, 4096> m_blanks = {};
    std::size_t m_blankCount = 0;
};

xmlSAXHandler Parse::Handler()
{
    xmlSAXHandler handler = {};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startDocument = xmlSAX2StartDocument;
    handler.internalSubset = xmlSAX2InternalSubset;
    handler.entityDecl = DeclareEntity;
    handler.getEntity = GetEntity;
    handler.startElementNs = StartElement;
    handler.endElementNs = EndElement;
    handler.characters = Characters;
    // Told apart from other text the blanks would cost the parser more than they cost here.
    handler.ignorableWhitespace = Characters;
    handler.cdataBlock = Characters;
    handler.serror = TakeError;
    return handler;
}

// The last "<" in front of the end; it is there.
const xmlChar * LastBracket(const xmlChar * begin, const xmlChar * end)
{
#ifdef __GLIBC__
    return static_cast<const xmlChar *>(memrchr(begin, '<', static_cast<std::size_t>(end - begin)));
#else
    return begin + Chars(begin, end).rfind('<');
#endif
}

// The line on which a tag begins: the parser stands at its end, with the whole tag in its buffer, and a value has no
// "<" in it.
std::size_t LineOfTag(const xmlParserInput & input)
{
    const xmlChar * const begin = LastBracket(input.base, input.cur);
    const auto length = static_cast<std::size_t>(input.cur - begin);
    auto line = static_cast<std::size_t>(input.line);
    if (std::memchr(begin, '\n', length) != nullptr) {
        line -= static_cast<std::size_t>(std::count(begin, input.cur, '\n'));
    }
    return line;
}

// The highest bit of each of eight bytes that is more than a blank.
std::uint64_t MoreThanBlanks(const char * bytes)
{
    constexpr std::uint64_t highest = 0x8080808080808080U;
    constexpr std::uint64_t fromBlank = 0x5F5F5F5F5F5F5F5FU;
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, sizeof(eight));
    return (((eight & ~highest) + fromBlank) | eight) & highest;
}

// Eight bytes at a time, the last ones with some of those before them, since half of what the parser tells of is the
// blanks in front of a tag.
bool IsBlank(std::string_view text)
{
    constexpr std::size_t step = sizeof(std::uint64_t);
    if (text.size() < step) {
        return std::all_of(text.begin(), text.end(), [](char own) { return static_cast<unsigned char>(own) <= ' '; });
    }
    const char * const last = text.data() + text.size() - step;
    std::uint64_t more = MoreThanBlanks(last);
    for (const char * bytes = text.data(); bytes < last && more == 0; bytes += step) {
        more = MoreThanBlanks(bytes);
    }
    return more == 0;
}

// Whether the parser, which has told of all in front of a tag, stands before that tag.
bool IsBeforeTag(const xmlParserInput & input, const xmlChar * end)
{
    // Behind the last byte that the parser has of the document stands a zero byte.
    return input.cur == end && end[0] == '<' && end[1] != '\0' && end[1] != '!' && end[1] != '?';
}

// Up to the end of the room, or of the source: the parser takes less for the end where it looks for the encoding.
int Parse::Read(void * parse, char * buffer, int length)
{
    auto & self = *static_cast<Parse *>(parse);
    std::span<char> room(buffer, static_cast<std::size_t>(length));
    self.Guard([&] {
        for (std::size_t count = 1; count != 0 && !room.empty();) {
            count = self.m_source.Read(room);
            room = room.subspan(count);
        }
    });
    const std::size_t read = static_cast<std::size_t>(length) - room.size();
    self.m_hasEnded = !room.empty();
    self.m_read += read;
    return self.IsOver() ? 0 : static_cast<int>(read);
}

void Parse::StartElement(void * context, const xmlChar * name, const xmlChar * /*prefix*/, const xmlChar * space,
                         int /*spaceCount*/, const xmlChar ** /*spaces*/, int count, int /*defaulted*/,
                         const xmlChar ** attributes)
{
    auto * const parser = static_cast<xmlParserCtxt *>(context);
    Parse & self = Of(context);
    self.Guard([&] { self.Open(parser, name, space, count, attributes); });
}

void Parse::Open(xmlParserCtxt * context, const xmlChar * name, const xmlChar * space, int count,
                 const xmlChar ** attributes)
{
    if (!m_hasRoot) {
        m_hasRoot = true;
        m_space = space;
    }
    EndText();
    // The parser gives five pointers for each: name, prefix, namespace, and the value from its first to behind its
    // last byte.
    constexpr int pointers = 5;
    std::size_t made = 0;
    m_attributes.resize(static_cast<std::size_t>(count));
    for (XmlAttribute & attribute : m_attributes) {
        attribute = {NameOf(context, attributes), Chars(attributes[3], attributes[4])};
        made += attribute.value.size();
        attributes += pointers;
    }
    CountMade(context, made);
    const Word word = m_words.Of(reinterpret_cast<const char *>(name), space != m_space);
    m_listener.Open(word, LineOfOpening(*context->input), m_attributes);
    MarkPlace(*context->input);
}

// A tag behind which the parser stands on the line on which it last told of something is on that line.
std::size_t Parse::LineOfOpening(const xmlParserInput & input) const
{
    const bool isOnLine = &input == m_input && input.line == m_line;
    return isOnLine ? static_cast<std::size_t>(input.line) : LineOfTag(input);
}

void Parse::MarkPlace(const xmlParserInput & input)
{
    m_input = &input;
    m_line = input.line;
}

// An attribute of another namespace goes by its whole name, which is none that the import knows.
Word Parse::NameOf(xmlParserCtxt * context, const xmlChar ** attribute)
{
    if (attribute[1] == nullptr || attribute[2] == m_space) {
        return m_words.Of(reinterpret_cast<const char *>(attribute[0]), false);
    }
    const xmlChar * const name = xmlDictQLookup(context->dict, attribute[1], attribute[0]);
    if (name == nullptr) {
        throw std::bad_alloc();
    }
    return m_words.Of(reinterpret_cast<const char *>(name), true);
}

void Parse::EndElement(void * context, const xmlChar * /*name*/, const xmlChar * /*prefix*/, const xmlChar * /*space*/)
{
    Parse & self = Of(context);
    self.Guard([&] {
        self.EndText();
        self.m_listener.Close();
    });
    self.MarkPlace(*static_cast<xmlParserCtxt *>(context)->input);
}

void Parse::Characters(void * context, const xmlChar * text, int length)
{
    auto * const parser = static_cast<xmlParserCtxt *>(context);
    Parse & self = Of(context);
    self.Guard([&] {
        self.CountMade(parser, static_cast<std::size_t>(length));
        self.AddText(Chars(text, text + length), IsBeforeTag(*parser->input, text + length));
    });
    self.MarkPlace(*parser->input);
}

// Blanks are kept apart until something else comes, since mostly nothing does.
void Parse::AddText(std::string_view text, bool isBeforeTag)
{
    if (m_text.empty() && IsBlank(text)) {
        if (isBeforeTag) {
            return;
        }
        const std::size_t count = std::min(text.size(), m_blanks.size() - m_blankCount);
        std::copy_n(text.data(), count, m_blanks.data() + m_blankCount);
        m_blankCount += count;
        return;
    }
    if (m_text.empty()) {
        m_text.assign(m_blanks.data(), m_blankCount);
    }
    m_text.append(text);
}

void Parse::EndText()
{
    m_blankCount = 0;
    if (!m_text.empty()) {
        m_listener.Text(m_text);
        m_text.clear();
    }
}

// Entities and defaults may make much of a short document. A document without them makes at most twice as much as was
// read of it, by its encoding.
void Parse::CountMade(xmlParserCtxt * context, std::size_t bytes)
{
    constexpr std::size_t free = 1'000'000;
    constexpr std::size_t most = 5;
    m_made += bytes;
    if (m_made > free + most * m_read && m_fault == nullptr) {
        m_fault = std::make_unique<XmlFault>("its entities and defaults make too much of it",
                                             static_cast<std::size_t>(std::max(0, context->input->line)), 0);
    }
}

// An entity that stands elsewhere is not declared at all, so that nobody can ask for it.
void Parse::DeclareEntity(void * context, const xmlChar * name, int type, const xmlChar * publicId,
                          const xmlChar * systemId, xmlChar * content)
{
    if (type == XML_INTERNAL_GENERAL_ENTITY) {
        xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
    }
}

// Each reference counts with all that it stands for, whatever comes of it.
xmlEntityPtr Parse::GetEntity(void * context, const xmlChar * name)
{
    Parse & self = Of(context);
    xmlEntity * const entity = xmlSAX2GetEntity(context, name);
    if (entity == nullptr || self.IsOver()) {
        return entity;
    }
    self.Guard([&] {
        self.CountMade(static_cast<xmlParserCtxt *>(context), static_cast<std::size_t>(std::max(0, entity->length)));
    });
    return self.IsOver() ? nullptr : entity;
}

void Parse::TakeError(void * context, xmlErrorPtr error)
{
    Parse & self = Of(context);
    if (error->level >= XML_ERR_ERROR) {
        self.Guard([&] { self.TakeFault(static_cast<const xmlParserCtxt *>(context)->input, *error); });
    }
}

void Parse::TakeFault(const xmlParserInput * input, const xmlError & error)
{
    std::string cause = error.message == nullptr ? "not well-formed" : error.message;
    cause.erase(cause.find_last_not_of(" \n") + 1);
    std::replace(cause.begin(), cause.end(), '\n', ' ');
    if (input != nullptr && IsCutAt(*input, error.code)) {
        cause = "the file ends here and is not whole: " + cause;
    }
    m_fault = std::make_unique<XmlFault>(cause, static_cast<std::size_t>(std::max(0, error.line)),
                                         static_cast<std::size_t>(std::max(0, error.int2)));
}

// What the parser misses at the end of a file it tells of in many ways, sometimes a character or two ahead. Two tags
// that do not belong together, something behind the root and no root at all are other faults there.
bool Parse::IsCutAt(const xmlParserInput & input, int fault) const
{
    return m_hasEnded && input.end - input.cur <= 2 && fault != XML_ERR_TAG_NAME_MISMATCH &&
           fault != XML_ERR_DOCUMENT_END && fault != XML_ERR_DOCUMENT_EMPTY;
}

// The parser takes a zero byte for the end of the document.
void Parse::CheckEnd(xmlParserCtxt * context)
{
    char next = 0;
    const xmlParserInput & input = *context->input;
    if (input.cur < input.end || Read(this, &next, 1) != 0) {
        throw XmlFault("there are bytes behind its end", static_cast<std::size_t>(std::max(0, input.line)), 0);
    }
}

void Parse::Run()
{
    xmlSAXHandler handler = Handler();
    // The context has itself for the data of its callbacks, as those of the parser's own expect.
    const Context context(xmlCreateIOParserCtxt(&handler, nullptr, Read, nullptr, this, XML_CHAR_ENCODING_NONE));
    if (m_thrown != nullptr) {
        std::rethrow_exception(m_thrown);
    }
    if (context == nullptr) {
        throw std::bad_alloc();
    }
    context->_private = this;
    UseQuickNames(*context);
    const ErrorsOfThread errors(context.get(), TakeError);
    xmlCtxtUseOptions(context.get(), XML_PARSE_NOENT | XML_PARSE_NONET);
    const int result = xmlParseDocument(context.get());
    if (m_thrown != nullptr) {
        std::rethrow_exception(m_thrown);
    }
    if (m_fault != nullptr) {
        throw XmlFault(*m_fault);
    }
    if (result != 0 || context->wellFormed == 0) {
        throw XmlFault("not well-formed",
                       static_cast<std::size_t>(std::max(0, context->input == nullptr ? 0 : context->input->line)), 0);
    }
    CheckEnd(context.get());
    if (m_thrown != nullptr) {
        std::rethrow_exception(m_thrown);
    }
}

}  // namespace

void ParseXml(ByteReader & source, WordTable & words, XmlListener & listener)
{
    static const bool isReady = [] {
        xmlInitParser();
        return true;
    }();
    static_cast<void>(isReady);
    Parse(source, words, listener).Run();
}

}  // namespace ipc2581::detail
