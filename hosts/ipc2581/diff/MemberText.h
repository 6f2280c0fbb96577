#ifndef IPC2581_HOSTS_IPC2581_DIFF_MEMBERTEXT_H
#define IPC2581_HOSTS_IPC2581_DIFF_MEMBERTEXT_H

#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <ipc2581/fields.h>

#include "hosts/ipc2581/diff/NetRenames.h"
#include "hosts/ipc2581/table/Cell.h"

namespace ipc2581::host {

// Writes all that an object of the model holds as one text, with numbers as listings show them. Nets go by the names
// that they were given, and lengths are in the unit that was asked for. What is empty or zero is left out, since most
// of a set is.
class MemberWriter {
public:
    MemberWriter(const NetRenames & renames, double scale) : m_renames(renames), m_scale(scale) {}

    template <typename Member>
    void Value(const Member & member, const CString & value)
    {
        const bool isNet = member.name == std::string_view("Net") || member.name == std::string_view("NetName");
        const std::optional<double> length = IsLengthAsText(member.name) ? NumberOf(value) : std::nullopt;
        if (length.has_value()) {
            AppendNumber(member.name, *length * m_scale);
            return;
        }
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
        const double x = value.X * m_scale;
        const double y = value.Y * m_scale;
        if (IsZero(x) && IsZero(y)) {
            return;
        }
        m_text.append(member.name).append(1, '=');
        Cell(x).AppendText(m_text);
        m_text.append(1, ',');
        Cell(y).AppendText(m_text);
        m_text.append(1, '\n');
    }
    template <typename Member>
    void Value(const Member & member, double value)
    {
        AppendNumber(member.name, IsLength(member.name) ? value * m_scale : value);
    }
    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        AppendNumber(member.name, static_cast<double>(value));
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

    static bool IsLength(std::string_view name)
    {
        return name != "Rotation" && name != "Scale" && name != "SpokeStartAngle" && name != "LineAngle";
    }

    static bool IsLengthAsText(std::string_view name)
    {
        return name == "Diameter" || name == "PlusTol" || name == "MinusTol";
    }

    void AppendNumber(std::string_view name, double number)
    {
        if (IsZero(number)) {
            return;
        }
        m_text.append(name).append(1, '=');
        Cell(number).AppendText(m_text);
        m_text.append(1, '\n');
    }

    void Append(std::string_view name, std::string_view value)
    {
        if (value.empty()) {
            return;
        }
        m_text.append(name).append(1, '=').append(value).append(1, '\n');
    }

    const NetRenames & m_renames;
    double m_scale;
    std::string m_text;
};

template <typename Object>
std::string MemberText(const Object & object, const NetRenames & renames = {}, double scale = 1.0)
{
    MemberWriter writer(renames, scale);
    Walk(object, writer);
    return writer.Take();
}

}  // namespace ipc2581::host

#endif
