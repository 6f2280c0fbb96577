#ifndef IPC2581_HOSTS_IPC2581_DIFF_MEMBERTEXT_H
#define IPC2581_HOSTS_IPC2581_DIFF_MEMBERTEXT_H

#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include <ipc2581/fields.h>

#include "hosts/ipc2581/diff/NetRenames.h"
#include "hosts/ipc2581/table/Cell.h"

namespace ipc2581::host {

// Writes all that an object of the model holds as one text, with numbers as listings show them. Nets go by the names
// that they were given. What is empty or zero is left out, since most of a set is.
class MemberWriter {
public:
    explicit MemberWriter(const NetRenames & renames) : m_renames(renames) {}

    template <typename Member>
    void Value(const Member & member, const CString & value)
    {
        const bool isNet = member.name == std::string_view("Net") || member.name == std::string_view("NetName");
        Append(member.name, isNet ? std::string_view(m_renames.NewName(value)) : std::string_view(value));
    }
    template <typename Member>
    void Value(const Member & member, const CStringArray & values)
    {
        for (std::int64_t i = 0; i < values.GetSize(); ++i) {
            Append(member.name, values[i]);
        }
    }
    template <typename Member>
    void Value(const Member & member, const CPointD & value)
    {
        if (IsZero(value.X) && IsZero(value.Y)) {
            return;
        }
        m_text.append(member.name).append(1, '=');
        Cell(value.X).AppendText(m_text);
        m_text.append(1, ',');
        Cell(value.Y).AppendText(m_text);
        m_text.append(1, '\n');
    }
    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        if (IsZero(static_cast<double>(value))) {
            return;
        }
        m_text.append(member.name).append(1, '=');
        Cell(value).AppendText(m_text);
        m_text.append(1, '\n');
    }
    template <typename Member, typename Object>
    void Enter(const Member & member, const Object & /*object*/)
    {
        Append(member.name, Fields<Object>::Name);
        m_text.append("{\n");
    }
    template <typename Member, typename Object>
    void Leave(const Member & /*member*/, const Object & /*object*/)
    {
        m_text.append("}\n");
    }

    [[nodiscard]] std::string Take() { return std::move(m_text); }

private:
    // As listings show it.
    static bool IsZero(double number)
    {
        constexpr double smallest = 0.5e-6;
        return std::abs(number) < smallest;
    }

    void Append(std::string_view name, std::string_view value)
    {
        if (value.empty()) {
            return;
        }
        m_text.append(name).append(1, '=').append(value).append(1, '\n');
    }

    const NetRenames & m_renames;
    std::string m_text;
};

template <typename Object>
std::string MemberText(const Object & object, const NetRenames & renames = {})
{
    MemberWriter writer(renames);
    Walk(object, writer);
    return writer.Take();
}

}  // namespace ipc2581::host

#endif
