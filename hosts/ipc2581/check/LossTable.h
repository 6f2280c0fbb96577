#ifndef IPC2581_HOSTS_IPC2581_CHECK_LOSSTABLE_H
#define IPC2581_HOSTS_IPC2581_CHECK_LOSSTABLE_H

#include <memory>
#include <string_view>
#include <vector>

#include <ipc2581/fields.h>

// What the library gives back of what it takes from a file: the one place where the program knows it. What it takes is
// told by the library's own tables.
namespace ipc2581::host {

// What comes of an attribute in a file that is written.
enum class Written {
    Never,
    Kept,
    Changed,  // it has an effect, but under another name or with another value
    Always,   // it is there whatever the file has
};

struct AttributeLoss {
    std::string_view name;
    Reading reading;
    Written written;
};

// An element in the place where it is read: a component stands in a step.
class ElementLoss {
public:
    // The whole file.
    ElementLoss();
    ElementLoss(const ElementLoss & parent, std::string_view name);

    [[nodiscard]] std::string_view Name() const { return m_name; }
    [[nodiscard]] const std::vector<AttributeLoss> & Attributes() const { return m_attributes; }
    // Null for an attribute that is not read.
    [[nodiscard]] const AttributeLoss * Find(std::string_view attribute) const;
    // Each of them makes one more object.
    [[nodiscard]] bool IsObject() const { return m_isObject; }
    // There is one place for it, in the object of the element around it.
    [[nodiscard]] bool IsPart() const { return m_isPart; }
    // A part or a list of objects is read from its lines.
    [[nodiscard]] bool HoldsObjects() const;
    // Nothing of it is written, nor of what stands in it.
    [[nodiscard]] bool IsLost() const { return m_isLost; }
    // Whether lines in it may be taken for an element of this name.
    [[nodiscard]] bool Knows(std::string_view name) const;
    // The element of this name in it, which lives as long as this one.
    ElementLoss & Inner(std::string_view name);

private:
    std::string_view m_name;
    // Null for what is no object: a name alone, or a shape that knows no elements.
    const ClassInfo * m_class;
    std::vector<AttributeLoss> m_attributes;
    std::vector<std::unique_ptr<ElementLoss>> m_inner;
    bool m_isObject = false;
    bool m_isPart = false;
    bool m_isLost = false;
};

// Whether the library takes a value as set.
bool ReadsAsSet(Reading reading, std::string_view text);
// Whether the writer of the file meant set: true, in any case, or 1.
bool MeansSet(std::string_view text);
// Whether the writer meant set, and a plain flag is not read so.
bool IsSetUnread(std::string_view text);

}  // namespace ipc2581::host

#endif
