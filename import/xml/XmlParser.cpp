#include "import/xml/XmlParser.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <vector>

#include <libxml/SAX2.h>
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
    Parse(ByteSource & source, WordTable & words, XmlListener & listener)
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
    static void TakeError(void * context, xmlErrorPtr error);

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

    ByteSource & m_source;
    WordTable & m_words;
    XmlListener & m_listener;
    std::exception_ptr m_thrown;
    std::unique_ptr<XmlFault> m_fault;
    // The namespace of the root, by its address, which is the same for all of its elements.
    const xmlChar * m_space = nullptr;
    bool m_hasRoot = false;
    std::vector<XmlAttribute> m_attributes;
};

xmlSAXHandler Parse::Handler()
{
    xmlSAXHandler handler = {};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startDocument = xmlSAX2StartDocument;
    handler.internalSubset = xmlSAX2InternalSubset;
    handler.entityDecl = DeclareEntity;
    handler.getEntity = xmlSAX2GetEntity;
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

bool IsBlank(const xmlChar * text, int length)
{
    return std::all_of(text, text + length, [](xmlChar own) { return own <= ' '; });
}

int Parse::Read(void * parse, char * buffer, int length)
{
    auto & self = *static_cast<Parse *>(parse);
    std::size_t count = 0;
    self.Guard([&] { count = self.m_source.Read({buffer, static_cast<std::size_t>(length)}); });
    return self.IsOver() ? 0 : static_cast<int>(count);
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
    // The parser gives five pointers for each: name, prefix, namespace, and the value from its first to behind its
    // last byte.
    constexpr int pointers = 5;
    m_attributes.clear();
    for (int i = 0; i < count; ++i) {
        const xmlChar ** const attribute = attributes + std::ptrdiff_t(pointers) * i;
        if (attribute[1] == nullptr || attribute[2] == m_space) {
            m_attributes.push_back(
                {m_words.Of(reinterpret_cast<const char *>(attribute[0]), false), Chars(attribute[3], attribute[4])});
        }
    }
    const Word word = m_words.Of(reinterpret_cast<const char *>(name), space != m_space);
    m_listener.Open(word, LineOfTag(*context->input), m_attributes);
}

void Parse::EndElement(void * context, const xmlChar * /*name*/, const xmlChar * /*prefix*/, const xmlChar * /*space*/)
{
    Parse & self = Of(context);
    self.Guard([&] { self.m_listener.Close(); });
}

void Parse::Characters(void * context, const xmlChar * text, int length)
{
    if (!IsBlank(text, length)) {
        Parse & self = Of(context);
        self.Guard([&] { self.m_listener.Text(Chars(text, text + length)); });
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

void Parse::TakeError(void * context, xmlErrorPtr error)
{
    Parse & self = Of(context);
    if (error->level < XML_ERR_ERROR || self.m_fault != nullptr) {
        return;
    }
    std::string cause = error->message == nullptr ? "not well-formed" : error->message;
    cause.erase(cause.find_last_not_of(" \n") + 1);
    self.m_fault = std::make_unique<XmlFault>(cause, static_cast<std::size_t>(std::max(0, error->line)),
                                              static_cast<std::size_t>(std::max(0, error->int2)));
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
}

}  // namespace

void ParseXml(ByteSource & source, WordTable & words, XmlListener & listener)
{
    static const bool isReady = [] {
        xmlInitParser();
        return true;
    }();
    static_cast<void>(isReady);
    Parse(source, words, listener).Run();
}

}  // namespace ipc2581::detail
