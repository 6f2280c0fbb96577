#include <iostream>

#include <ipc2581/ipc2581.h>

namespace {

int ShowMessage(const char * text, unsigned /*type*/, unsigned /*help*/)
{
    std::cout << "message: " << text << "\n";
    return 1;
}

}  // namespace

// Texts, lists and messages, which every other class is made of.
int main()
{
    CString text;
    text.Format("%-8s %7.3f", "R1", 2.5);
    std::cout << "[" << text << "] has " << text.GetLength() << " bytes\n";

    CStringArray words;
    int at = 0;
    for (CString word = text.Tokenize(" ", at); at != -1; word = text.Tokenize(" ", at)) {
        words.Add(word);
    }
    for (const CString & word : ipc2581::Each(words)) {
        std::cout << word << "\n";
    }
    try {
        words.GetAt(2);
    }
    catch (const CInvalidArgException &) {
        std::cout << "there is no third word\n";
    }

    // What the library has to say to a person goes here instead of to the standard error stream.
    AfxSetMessageBoxHandler(ShowMessage);
    CString path("there/is/no/such/board.cvg");
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
}
