// A null text is an empty text everywhere, and a character joins a text on either side.
#include "tests/small_hosts/Expect.h"

int main()
{
    const char * const null = nullptr;
    CString text("net");
    Expect(text < "nett" && text > "nes" && text >= CString("net") && "a" < text, "texts have an order");
    Expect('A' + text == "Anet", "a character in front");
    Expect(text + 'B' == "netB", "a character behind");
    Expect('<' + text + '>' == "<net>", "both");
    Expect("x" + text + "y" == "xnety", "texts on both sides");

    Expect(!(text == null) && CString() == null && text != null, "compared with a null text");
    Expect(text.Compare(null) != 0 && CString().Compare(null) == 0, "compared by its operation");
    Expect(text.Find(null) == text.Find(""), "a null text is found where an empty one is");
    Expect(text.Replace("e", null) == 1 && text == "nt", "replaced by a null text");
    Expect(text.Replace(null, "x") == 0, "nothing of it is replaced");
    int position = 0;
    Expect(text.Tokenize(null, position) == "nt", "cut by a null text");
    text += null;
    Expect(text == "nt" && text + null == "nt" && null + text == "nt", "joined");
    text = null;
    Expect(text.IsEmpty() && CString(null).IsEmpty(), "taken over");

    const TempFile file;
    CStdioFile out;
    Expect(out.Open(null, CStdioFile::modeReadWrite, nullptr) == 0, "there is no file without a name");
    Expect(out.Open(file.Path().c_str(), CStdioFile::modeReadWrite, nullptr) != 0, "there is one with it");
    out.WriteString(null);
    out.WriteString("end");
    out.Close();
    Expect(file.Bytes() == "end", "a null text is written as nothing");

    AfxSetMessageBoxHandler([](const char * shown, unsigned, unsigned) { return shown[0] == '\0' ? 7 : 0; });
    Expect(AfxMessageBox(null, 0, 0) == 7, "shown as an empty text");
    AfxSetMessageBoxHandler(nullptr);
    Expect(AfxMessageBox(null, 0, 0) == 1, "and without a handler");

    CStringArray names;
    names.SetAtGrow(0, null);
    Expect(names.GetAt(0).IsEmpty(), "kept in a list");
    CIPC2581_Text label;
    label.SetTextString(null);
    Expect(label.GetTextString() == "", "kept in an object");
}
