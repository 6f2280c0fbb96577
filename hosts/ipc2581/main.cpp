#include <exception>
#include <iostream>
#include <sstream>
#include <string>

#include <CLI/CLI.hpp>
#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/commands/Command.h"
#include "hosts/ipc2581/commands/Commands.h"
#include "hosts/ipc2581/commands/ExitStatus.h"
#include "hosts/ipc2581/commands/WrongUsage.h"
#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/output/Output.h"
#include "hosts/ipc2581/output/SignalRemoval.h"
#include "hosts/ipc2581/output/StandardStreams.h"

using namespace ipc2581::host;

namespace {

enum Status { Done = 0, NotDone = 1, WrongUsage = 2 };

void AddCommands(CLI::App & program)
{
    AddInfoCommand(program);
    AddBomCommand(program);
    AddComponentsCommand(program);
    AddNetsCommand(program);
    AddLayersCommand(program);
    AddStackupCommand(program);
    AddPackagesCommand(program);
    AddPinsCommand(program);
    AddPadsCommand(program);
    AddHolesCommand(program);
    AddTracksCommand(program);
    AddSvgCommand(program);
    AddHtmlCommand(program);
    AddCheckCommand(program);
    AddConvertCommand(program);
    AddReportCommand(program);
    AddDiffCommand(program);
    AddSqliteCommand(program);
}

std::string Examples(const CLI::App & program)
{
    std::string examples = "Examples:";
    for (const CLI::App * const command : program.get_subcommands(nullptr)) {
        const std::string footer = command->get_footer();
        examples += "\n  " + footer.substr(footer.find(": ") + 2);
    }
    return examples;
}

void PrintHelp(const CLI::App & program, const CLI::ParseError & asked)
{
    Output output;
    program.exit(asked, output.Stream(), output.Stream());
    output.Finish();
}

int Run(int count, const char * const * arguments)
{
    CLI::App program("Shows what is in an IPC-2581 board file.", "ipc2581");
    program.set_version_flag("--version", std::string("ipc2581 ") + ipc2581::Version, "Print the version and exit");
    program.set_help_flag("-h,--help", "Print this help and exit");
    program.require_subcommand(1);
    AddCommands(program);
    program.footer(Examples(program));
    try {
        program.parse(count, arguments);
    }
    catch (const CLI::ParseError & error) {
        if (error.get_exit_code() == 0) {
            PrintHelp(program, error);
            return Done;
        }
        std::cerr << "ipc2581: " << WrongUsageOf(program, error, {arguments + 1, arguments + count})
                  << " (see ipc2581 --help)\n";
        return WrongUsage;
    }
    return Done;
}

}  // namespace

int main(int count, char ** arguments)
{
    TakeClosedStandardStreams();
    RemoveListedOnSignals();
    try {
        return Run(count, arguments);
    }
    catch (const ExitStatus & end) {
        return end.number;
    }
    catch (const std::exception & error) {
        TellFailure(error);
    }
    return NotDone;
}
