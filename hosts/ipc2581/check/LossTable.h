#ifndef IPC2581_HOSTS_IPC2581_CHECK_LOSSTABLE_H
#define IPC2581_HOSTS_IPC2581_CHECK_LOSSTABLE_H

#include <string_view>
#include <vector>

// What the library takes from a file and what it gives back, element by element: the one place where the program knows
// it. A table for each loop that the library reads lines with; see docs/lines.md for the words.
namespace ipc2581::host {

// How a value is taken.
enum class Value {
    Text,
    Number,
    Word,          // one of a few words in upper case
    Flag,          // set by a value that holds TRUE in upper case
    MisspeltFlag,  // set by no word that a file has: the test is for TURE
    ControlFlag,   // set by no word that a file has: the test is for the character with the code 1
    Direction,     // turned round: FALSE is clockwise
};

// What comes of an element or an attribute in a file that is written.
enum class Written {
    Never,
    Kept,
    Changed,  // it has an effect, but under another name or with another value
    Always,   // it is there whatever the file has
};

struct AttributeLoss {
    std::string_view name;
    Value value = Value::Text;
    Written written = Written::Kept;
    // Found in every token that holds the name, and not only in one that holds it with a "=" behind.
    bool isWide = false;
};

// How the first token of a line is tested.
enum class Test {
    Opens,  // holds the word and no slash
    Holds,  // holds the word, as a closing line does too
    Skips,  // holds the word, and the line is passed over
    None,   // no test at all: the lines of the element are read as those of its parent
};

struct Reader;

struct ElementLoss {
    std::string_view name;
    Test test = Test::Opens;
    Written written = Written::Kept;
    std::vector<AttributeLoss> attributes = {};
    // Reads the lines behind the opening line; null if the element is its one line.
    const Reader * inner = nullptr;
    // Each line that passes the test makes one more object.
    bool isObject = false;
    // Attributes of the double form: tested once more behind each token.
    std::vector<AttributeLoss> second = {};
};

// How a line becomes tokens.
enum class LineForm { Plain, Content, Trimmed, WholeLine };

struct Reader {
    LineForm form = LineForm::Plain;
    // In the order of the tests.
    std::vector<ElementLoss> elements;
    // What ends the loop, tested behind the elements; empty for the end of the file.
    std::vector<std::string_view> ends = {};
};

// The loop that reads a whole file.
const Reader & DocumentReader();

// Whether the library takes a value as set.
bool ReadsAsSet(Value value, std::string_view text);
// Whether the writer of the file meant set: true, in any case, or 1.
bool MeansSet(std::string_view text);

}  // namespace ipc2581::host

#endif
