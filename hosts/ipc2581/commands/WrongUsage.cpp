#include "hosts/ipc2581/commands/WrongUsage.h"

#include <algorithm>
#include <cstddef>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

// How many characters are wrong, missing, too many, or swapped with their neighbour.
std::size_t Distance(const std::string & one, const std::string & other)
{
    std::vector<std::vector<std::size_t>> cost(one.size() + 1, std::vector<std::size_t>(other.size() + 1));
    for (std::size_t i = 0; i <= one.size(); ++i) {
        for (std::size_t j = 0; j <= other.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const std::size_t wrong = one[i - 1] == other[j - 1] ? 0 : 1;
            cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + wrong});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1]) {
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
            }
        }
    }
    return cost[one.size()][other.size()];
}

std::vector<std::string> CommandsOf(const CLI::App & program)
{
    std::vector<std::string> names;
    for (const CLI::App * const command : program.get_subcommands(nullptr)) {
        names.push_back(command->get_name());
    }
    return names;
}

std::vector<std::string> OptionsOf(const CLI::App & command)
{
    std::vector<std::string> names;
    for (const CLI::Option * const option : command.get_options()) {
        for (const std::string & name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

std::string Joined(const std::vector<std::string> & names)
{
    std::string list;
    for (const std::string & name : names) {
        list.append(list.empty() ? "" : ", ").append(name);
    }
    return list;
}

std::string Meant(const std::string & nearest)
{
    return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

// The parser gives them in another order.
std::vector<std::string> InOrderOf(const std::vector<std::string> & arguments, std::vector<std::string> some)
{
    std::vector<std::string> ordered;
    for (const std::string & argument : arguments) {
        const auto found = std::find(some.begin(), some.end(), argument);
        if (found != some.end()) {
            ordered.push_back(argument);
            some.erase(found);
        }
    }
    ordered.insert(ordered.end(), some.begin(), some.end());
    return ordered;
}

std::string NotExpected(const CLI::App & program, const std::vector<std::string> & arguments)
{
    const CLI::App * command = &program;
    std::vector<std::string> extras = program.remaining();
    for (const CLI::App * const used : program.get_subcommands()) {
        command = used;
        const std::vector<std::string> own = used->remaining();
        extras.insert(extras.end(), own.begin(), own.end());
    }
    std::string list;
    std::string nearest;
    for (const std::string & extra : InOrderOf(arguments, extras)) {
        list += " " + extra;
        if (nearest.empty() && extra.starts_with("--")) {
            nearest = NearestOf(extra.substr(0, extra.find('=')), OptionsOf(*command));
        }
    }
    return std::string(extras.size() > 1 ? "The following arguments were" : "The following argument was") +
           " not expected:" + list + Meant(nearest);
}

}  // namespace

std::string NearestOf(const std::string & misspelt, const std::vector<std::string> & words)
{
    constexpr std::size_t shortest = 4;
    std::size_t most = misspelt.size() < shortest ? 1 : 2;
    std::string nearest;
    for (const std::string & word : words) {
        const bool isBegun = misspelt.size() > 1 && word.starts_with(misspelt);
        const std::size_t distance = isBegun ? 0 : Distance(LowerCase(misspelt), word);
        if (distance < most || (distance == most && nearest.empty())) {
            most = distance;
            nearest = word;
        }
    }
    return nearest;
}

std::string WrongUsageOf(const CLI::App & program, const CLI::ParseError & error,
                         const std::vector<std::string> & arguments)
{
    const std::vector<std::string> commands = CommandsOf(program);
    if (arguments.empty()) {
        return "a command is missing: one of " + Joined(commands);
    }
    const std::string & first = arguments.front();
    if (!first.starts_with('-') && std::find(commands.begin(), commands.end(), first) == commands.end()) {
        return OneLine(first) + " is no command" + Meant(NearestOf(first, commands));
    }
    if (dynamic_cast<const CLI::ExtrasError *>(&error) != nullptr) {
        return OneLine(NotExpected(program, arguments));
    }
    const std::string what = error.what();
    return what.substr(0, what.find('\n'));
}

}  // namespace ipc2581::host
