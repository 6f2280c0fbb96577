#ifndef IPC2581_TESTS_IMPORT_FACTS_FACT_H
#define IPC2581_TESTS_IMPORT_FACTS_FACT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ipc2581::facts {

// A named text and a named number of a fact. The names are for whoever looks at an example.
struct Word {
    std::string_view name;
    std::string value;
};
struct Number {
    std::string_view name;
    double value;
};

// One thing that a board file states: what kind of thing, its words in a fixed order, and its numbers, which are
// compared with a tolerance, so that nothing hangs on how a number was rounded.
struct Fact {
    std::string kind;
    std::string text;
    std::vector<Number> numbers;
};
using Facts = std::vector<Fact>;

Fact MakeFact(std::string_view kind, const std::vector<Word> & words, std::vector<Number> numbers = {});
void AddFact(Facts & facts, std::string_view kind, const std::vector<Word> & words, std::vector<Number> numbers = {});

// One line to look at.
std::string Describe(const Fact & fact);

// The kinds of the standard dictionary and of its entries: the only ones of which a model may have more than the file,
// since a reader makes entries of its own for shapes that have no name in the file.
inline constexpr std::string_view DictionaryKind = "dictionary";
inline constexpr std::string_view DictionaryEntryKind = "dictionary-entry";

// What became of the facts of one kind.
struct KindComparison {
    std::string kind;
    std::size_t stated = 0;
    std::size_t right = 0;
    // In the file and not in the model, and the other way round.
    std::vector<Fact> missing{};
    std::vector<Fact> notStated{};

    [[nodiscard]] bool IsRight() const { return missing.empty() && notStated.empty(); }
};

// The two lists as multisets, kind by kind in the order of the names.
std::vector<KindComparison> Compare(const Facts & file, const Facts & model);

// The comparison as a table, with the first examples of what is not right behind it.
std::string Table(const std::vector<KindComparison> & comparisons, std::size_t examples);

}  // namespace ipc2581::facts

#endif
