#include <iostream>
#include <string>

#include <ipc2581/fields.h>

namespace {

// Prints each member of the model that holds something, under the name that it has in its class.
class Dump {
public:
    template <typename Member, typename Object>
    void Enter(const Member & member, const Object & /*object*/)
    {
        std::cout << m_indent << member.name << "\n";
        m_indent += "  ";
    }
    template <typename Member, typename Object>
    void Leave(const Member & /*member*/, const Object & /*object*/)
    {
        m_indent.resize(m_indent.size() - 2);
    }
    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        if (value != Type()) {
            std::cout << m_indent << member.name << " = " << value << "\n";
        }
    }
    template <typename Member>
    void Value(const Member & member, const CStringArray & texts)
    {
        for (const CString & text : ipc2581::Each(texts)) {
            Value(member, text);
        }
    }
    template <typename Member>
    void Value(const Member & member, const CPointD & point)
    {
        std::cout << m_indent << member.name << " = " << point.X << ", " << point.Y << "\n";
    }

private:
    std::string m_indent;
};

}  // namespace

int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    Dump dump;
    ipc2581::Walk(root, dump);
}
