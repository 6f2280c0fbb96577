#ifndef IPC2581_TESTS_DOCUMENT_MODELTEXT_H
#define IPC2581_TESTS_DOCUMENT_MODELTEXT_H

#include <cstdint>
#include <sstream>
#include <string>

#include "ipc2581/fields.h"

namespace ipc2581::tests {

// Writes down all that a model holds.
class ModelWriter {
public:
    template <typename Member>
    void Value(const Member & member, const CString & value)
    {
        m_text << member.name << '=' << static_cast<const char *>(value) << '\n';
    }
    template <typename Member>
    void Value(const Member & member, const CStringArray & values)
    {
        for (std::int64_t i = 0; i < values.GetSize(); ++i) {
            Value(member, values[i]);
        }
    }
    template <typename Member>
    void Value(const Member & member, const CPointD & value)
    {
        m_text << member.name << '=' << value.X << ',' << value.Y << '\n';
    }
    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        m_text << member.name << '=' << value << '\n';
    }
    template <typename Member, typename Object>
    void Enter(const Member & member, const Object & /*object*/)
    {
        m_text << member.name << ' ' << Fields<Object>::Name << " {\n";
    }
    template <typename Member, typename Object>
    void Leave(const Member & /*member*/, const Object & /*object*/)
    {
        m_text << "}\n";
    }
    std::string Text() const { return m_text.str(); }

private:
    std::ostringstream m_text = [] {
        std::ostringstream text;
        text << std::hexfloat;
        return text;
    }();
};

inline std::string ModelText(const CIPC2581_Parser & root)
{
    ModelWriter writer;
    Walk(root, writer);
    return writer.Text();
}

}  // namespace ipc2581::tests

#endif
