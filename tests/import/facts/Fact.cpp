#include "tests/import/facts/Fact.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "ipc2581/base/platform/CString.h"

namespace ipc2581::facts {
namespace {

// What two readers of one number may differ in: coordinates have at most six decimals, areas grow with the board.
constexpr double Tolerance = 2e-6;

bool IsNear(double a, double b)
{
    return std::abs(a - b) <= Tolerance * std::max({1.0, std::abs(a), std::abs(b)});
}

bool AreNumbersNear(const Fact & a, const Fact & b)
{
    return std::equal(a.numbers.begin(), a.numbers.end(), b.numbers.begin(), b.numbers.end(),
                      [](const Number & x, const Number & y) { return IsNear(x.value, y.value); });
}

bool IsBefore(const Fact & a, const Fact & b)
{
    return std::lexicographical_compare(a.numbers.begin(), a.numbers.end(), b.numbers.begin(), b.numbers.end(),
                                        [](const Number & x, const Number & y) { return x.value < y.value; });
}

// Facts of one kind and text, with the same count of numbers, from both sides.
struct Group {
    Facts file;
    Facts model;
};

double FirstNumber(const Fact & fact)
{
    return fact.numbers.empty() ? 0.0 : fact.numbers.front().value;
}

// Takes the facts of a group that fit each other in pairs; only those whose first numbers are near are looked at.
void MatchGroup(Group & group, KindComparison & result)
{
    std::sort(group.file.begin(), group.file.end(), IsBefore);
    std::sort(group.model.begin(), group.model.end(), IsBefore);
    std::vector<bool> isTaken(group.model.size());
    std::size_t first = 0;
    for (Fact & fact : group.file) {
        const double number = FirstNumber(fact);
        while (first < group.model.size() && (isTaken[first] || (FirstNumber(group.model[first]) < number &&
                                                                 !IsNear(FirstNumber(group.model[first]), number)))) {
            ++first;
        }
        std::size_t found = first;
        while (found < group.model.size() && IsNear(FirstNumber(group.model[found]), number) &&
               (isTaken[found] || !AreNumbersNear(fact, group.model[found]))) {
            ++found;
        }
        if (found < group.model.size() && IsNear(FirstNumber(group.model[found]), number)) {
            isTaken[found] = true;
            ++result.right;
        }
        else {
            result.missing.push_back(std::move(fact));
        }
    }
    for (std::size_t i = 0; i < group.model.size(); ++i) {
        if (!isTaken[i]) {
            result.notStated.push_back(std::move(group.model[i]));
        }
    }
}

using GroupKey = std::pair<std::string, std::size_t>;
using Groups = std::map<GroupKey, Group>;

// What the model has of its own and may have.
void DropOwn(const Facts & file, Facts & model)
{
    std::erase_if(model, [&](const Fact & entry) {
        return std::none_of(file.begin(), file.end(), [&](const Fact & fact) { return fact.text == entry.text; });
    });
}

KindComparison CompareKind(const std::string & kind, Facts file, Facts model)
{
    KindComparison result{.kind = kind, .stated = file.size()};
    if (kind == DictionaryKind || kind == DictionaryEntryKind) {
        DropOwn(file, model);
    }
    Groups groups;
    for (Fact & fact : file) {
        groups[GroupKey(fact.text, fact.numbers.size())].file.push_back(std::move(fact));
    }
    for (Fact & fact : model) {
        groups[GroupKey(fact.text, fact.numbers.size())].model.push_back(std::move(fact));
    }
    for (auto & [key, group] : groups) {
        MatchGroup(group, result);
    }
    return result;
}

// As printf does it, whatever the locale.
template <typename... Arguments>
std::string Formatted(const char * format, Arguments... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return text.GetString();
}

void AppendExamples(const char * title, const Facts & facts, std::size_t count, std::string & text)
{
    for (std::size_t i = 0; i < std::min(count, facts.size()); ++i) {
        text += std::string(title) + Describe(facts[i]) + "\n";
    }
}

}  // namespace

Fact MakeFact(std::string_view kind, const std::vector<Word> & words, std::vector<Number> numbers)
{
    Fact fact{std::string(kind), {}, std::move(numbers)};
    for (const Word & word : words) {
        fact.text.append(fact.text.empty() ? "" : " ").append(word.name).append("=\"").append(word.value).append("\"");
    }
    return fact;
}

void AddFact(Facts & facts, std::string_view kind, const std::vector<Word> & words, std::vector<Number> numbers)
{
    facts.push_back(MakeFact(kind, words, std::move(numbers)));
}

std::string Describe(const Fact & fact)
{
    std::string text = fact.kind + " " + fact.text;
    for (const Number & number : fact.numbers) {
        // What is 0 but for rounding is shown so.
        const double value = std::abs(number.value) < 1e-9 ? 0.0 : number.value;
        text.append(" ").append(number.name).append(Formatted("=%.9g", value));
    }
    return text;
}

std::vector<KindComparison> Compare(const Facts & file, const Facts & model)
{
    std::map<std::string, std::pair<Facts, Facts>> kinds;
    for (const Fact & fact : file) {
        kinds[fact.kind].first.push_back(fact);
    }
    for (const Fact & fact : model) {
        kinds[fact.kind].second.push_back(fact);
    }
    std::vector<KindComparison> comparisons;
    comparisons.reserve(kinds.size());
    for (auto & [kind, facts] : kinds) {
        comparisons.push_back(CompareKind(kind, std::move(facts.first), std::move(facts.second)));
    }
    return comparisons;
}

std::string Table(const std::vector<KindComparison> & comparisons, std::size_t examples)
{
    std::string text = Formatted("%-20s %8s %8s %8s %10s\n", "kind", "stated", "right", "missing", "not stated");
    for (const KindComparison & comparison : comparisons) {
        text += Formatted("%-20s %8zu %8zu %8zu %10zu\n", comparison.kind.c_str(), comparison.stated, comparison.right,
                          comparison.missing.size(), comparison.notStated.size());
    }
    for (const KindComparison & comparison : comparisons) {
        AppendExamples("missing     ", comparison.missing, examples, text);
        AppendExamples("not stated  ", comparison.notStated, examples, text);
    }
    return text;
}

}  // namespace ipc2581::facts
