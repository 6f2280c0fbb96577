#include "tools/format_page/WrittenBack.h"

#include <memory>
#include <set>
#include <string>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"
#include "hosts/ipc2581/board/ReadWrite.h"
#include "hosts/ipc2581/check/LossTable.h"

namespace ipc2581::format_page {
namespace {

using host::ElementLoss;
using host::Written;

// Notes where a read takes which elements.
class Places : public ReadObserver {
public:
    [[nodiscard]] bool Has(const Path & path) const { return m_places.contains(Join(path)); }

    void LoopBegins() override { m_open.push_back(m_taken); }
    void LoopEnds() override { m_open.pop_back(); }
    void TestHit(std::string_view word) override
    {
        if (!word.starts_with('/')) {
            m_taken = m_open.back() + std::string(word) + "/";
            m_places.insert(m_taken);
        }
    }

private:
    static std::string Join(const Path & path)
    {
        std::string joined;
        for (const std::string_view name : path) {
            joined.append(name).append("/");
        }
        return joined;
    }

    std::set<std::string> m_places;
    std::vector<std::string> m_open;
    std::string m_taken;
};

// Where the elements of a board are read that has all of them. The table of losses knows what is written of an element,
// and not where one may stand.
const Places & PlacesOfAllElements()
{
    static const std::unique_ptr<Places> places = [] {
        auto read = std::make_unique<Places>();
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader reader;
        reader.SetObserver(read.get());
        host::ReadModel(host::BoardFile(IPC2581_BOARD_OF_ALL_ELEMENTS), reader, root, nullptr);
        return read;
    }();
    return *places;
}

std::string_view WordOf(Written written)
{
    switch (written) {
    case Written::Never:
        return "never";
    case Written::Kept:
        return "kept";
    case Written::Changed:
        return "changed";
    case Written::Always:
        return "always";
    }
    return {};
}

}  // namespace

std::string_view WrittenBack(const Path & path, std::string_view attribute)
{
    if (!PlacesOfAllElements().Has(path)) {
        return {};
    }
    ElementLoss document;
    ElementLoss * element = &document;
    for (const std::string_view name : path) {
        element = &element->Inner(name);
    }
    if (!attribute.empty() && element->Find(attribute) == nullptr) {
        return {};
    }
    if (element->IsLost()) {
        return "never";
    }
    return attribute.empty() ? "written" : WordOf(element->Find(attribute)->written);
}

}  // namespace ipc2581::format_page
