#ifndef IPC2581_HOSTS_IPC2581_COMMANDS_COMMANDS_H
#define IPC2581_HOSTS_IPC2581_COMMANDS_COMMANDS_H

namespace CLI {
class App;
}  // namespace CLI

// One line per command; each has its own source file, named after it.
namespace ipc2581::host {

void AddInfoCommand(CLI::App & program);
void AddBomCommand(CLI::App & program);
void AddComponentsCommand(CLI::App & program);
void AddNetsCommand(CLI::App & program);
void AddLayersCommand(CLI::App & program);
void AddStackupCommand(CLI::App & program);
void AddPackagesCommand(CLI::App & program);
void AddPinsCommand(CLI::App & program);
void AddPadsCommand(CLI::App & program);
void AddHolesCommand(CLI::App & program);
void AddTracksCommand(CLI::App & program);
void AddSvgCommand(CLI::App & program);
void AddHtmlCommand(CLI::App & program);
void AddCheckCommand(CLI::App & program);
void AddConvertCommand(CLI::App & program);
void AddReportCommand(CLI::App & program);
void AddDiffCommand(CLI::App & program);
void AddSqliteCommand(CLI::App & program);

}  // namespace ipc2581::host

#endif
