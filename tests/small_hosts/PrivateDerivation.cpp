// A class may derive from the library's in private, and its objects are made and deleted like all others.
#include <memory>

#include "tests/small_hosts/Expect.h"

namespace {

class Reader : CIPC2581_XmlDataAdd_Function {
public:
    int CountTokens(const char * text)
    {
        CString line(text);
        CArray<CString, CString> tokens;
        Tokenize(line, &tokens);
        return static_cast<int>(tokens.GetSize());
    }
};

class Shape : CIPC2581_DrawObj {
public:
    int Type() const { return GetDrawType(); }
};

class Names : CStringArray {
public:
    std::int64_t Count() const { return GetSize(); }
};

class Layer : CIPC2581_Ecad_CadData_Layer {
public:
    bool IsPositive() const { return polarity == "POSITIVE"; }
};

}  // namespace

int main()
{
    const std::unique_ptr<Reader> reader(new Reader);
    Expect(reader->CountTokens(R"(<Pad x="1" y="2"/>)") == 3, "a private base works");
    Expect(std::make_unique<Shape>()->Type() == 17, "a shape of its own is a plain one");
    Expect(std::make_unique<Names>()->Count() == 0, "a list of its own is empty");
    Expect(std::make_unique<Layer>()->IsPositive(), "a layer of its own is positive");
    Shape * const shapes = new Shape[3];
    Expect(shapes[2].Type() == 17, "arrays of objects are made too");
    delete[] shapes;
}
