#include "hosts/ipc2581/check/ElementCounts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <numeric>
#include <span>
#include <string_view>
#include <type_traits>

#include <expat.h>
#include <ipc2581/fields.h>

#include "hosts/ipc2581/board/ShapeElements.h"
#include "hosts/ipc2581/files/OpenFile.h"
#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

void XMLCALL CountElement(void * counts, const XML_Char * name, const XML_Char **)
{
    ++(*static_cast<ElementCounts *>(counts))[name];
}

// The bytes from 0x80 to 0x9f of windows-1252, which many design tools write and the parser does not know; its others
// are those of Latin-1.
constexpr std::array<int, 32> Windows1252 = {0x20ac, -1,     0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                                             0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, -1,     0x017d, -1,
                                             -1,     0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                                             0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, -1,     0x017e, 0x0178};

int XMLCALL FindEncoding(void *, const XML_Char * name, XML_Encoding * encoding)
{
    if (LowerCase(name) != "windows-1252") {
        return XML_STATUS_ERROR;
    }
    const std::span<int> characters(encoding->map);
    std::iota(characters.begin(), characters.end(), 0);
    std::copy(Windows1252.begin(), Windows1252.end(), characters.begin() + 0x80);
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
}

// Counts while it walks through a model.
class ModelCounter {
public:
    explicit ModelCounter(ElementCounts & counts) : m_counts(counts) {}

    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        if constexpr (std::is_same_v<Type, CStringArray>) {
            Add(member.element, static_cast<std::size_t>(value.GetSize()));
        }
    }

    template <typename Owner, typename Type, typename Object>
    void Enter(const Member<Owner, Type> & /*member*/, const Object & object)
    {
        constexpr bool isListedShape = std::is_base_of_v<CIPC2581_DrawObj, Object> && KindOf<Type>() == FieldKind::List;
        if constexpr (isListedShape || std::is_same_v<Object, CIPC2581_PolyStep>) {
            Add(ElementOf(object), 1);
        }
        else if constexpr (std::is_same_v<Object, CIPC2581_Polygon>) {
            // It is there in the model, and in the file only if it has steps.
            Add("Polygon", object.PolyStepArray->IsEmpty() ? 0 : 1);
        }
        else if constexpr (std::is_same_v<Object, CIPC2581_Ecad_CadData_Step_LayerFeature_Set>) {
            Add("Pad", object.Kind == SetKinds::Pad ? 1 : 0);
            Add("Hole", object.Kind == SetKinds::Hole ? 1 : 0);
        }
        AddLists(object);
    }

    template <typename Member, typename Object>
    void Leave(const Member & /*member*/, const Object & /*object*/)
    {
    }

private:
    void Add(std::string_view name, std::size_t count) { m_counts[std::string(name)] += count; }

    // Of lists that have an element for all of their objects, empty ones too.
    template <typename Object>
    void AddLists(const Object & object)
    {
        ForEachMember(object, [this](const auto & member, const auto & value) { this->AddList(member, value); });
    }

    template <typename Owner, typename Type>
    void AddList(const Member<Owner, Type> & member, const Type & value)
    {
        if constexpr (KindOf<Type>() == FieldKind::List) {
            using List = std::remove_pointer_t<Type>;
            if constexpr (!std::is_same_v<typename List::Element, CIPC2581_DrawObj>) {
                if (!member.element.empty()) {
                    Add(member.element, Count(value));
                }
            }
        }
    }

    ElementCounts & m_counts;
};

}  // namespace

XmlCounts CountXml(const std::string & path)
{
    const OpenedFile file = OpenFile(path);
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser> parser(XML_ParserCreate(nullptr));
    XmlCounts counts;
    XML_SetUserData(parser.get(), &counts.elements);
    XML_SetStartElementHandler(parser.get(), &CountElement);
    XML_SetUnknownEncodingHandler(parser.get(), &FindEncoding, nullptr);
    std::array<char, 1 << 16> block;
    bool isEnd = false;
    while (!isEnd) {
        const std::size_t count = ReadBlock(path, file.get(), block);
        isEnd = count < block.size();
        if (XML_Parse(parser.get(), block.data(), static_cast<int>(count), isEnd ? 1 : 0) == XML_STATUS_ERROR) {
            counts.error = XML_ErrorString(XML_GetErrorCode(parser.get()));
            counts.errorLine = XML_GetCurrentLineNumber(parser.get());
            break;
        }
    }
    return counts;
}

ElementCounts CountModel(const CIPC2581_Parser & root)
{
    ElementCounts counts;
    ModelCounter counter(counts);
    Walk(root, counter);
    return counts;
}

}  // namespace ipc2581::host
