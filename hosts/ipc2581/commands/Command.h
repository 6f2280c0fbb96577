#ifndef IPC2581_HOSTS_IPC2581_COMMANDS_COMMAND_H
#define IPC2581_HOSTS_IPC2581_COMMANDS_COMMAND_H

#include <exception>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/check/ImportNotes.h"
#include "hosts/ipc2581/check/ListingLosses.h"
#include "hosts/ipc2581/output/Output.h"
#include "hosts/ipc2581/table/Table.h"

// What the commands have in common.
namespace ipc2581::host {

// A new command. The example is shown in its help and in that of the program.
CLI::App & AddCommand(CLI::App & program, const std::string & name, const std::string & description,
                      const std::string & example);

// The argument BOARD, under this name.
void AddBoard(CLI::App & command, std::string & board, const std::string & name = "BOARD");
// The options of how boards are read.
void AddReading(CLI::App & command, Reading & reading);

// The file of an argument BOARD, where "-" is the standard input. Throws Error.
BoardFile OpenBoardFile(const std::string & board);
// Reads a board, with a progress bar on a terminal. Throws Error.
Board ReadBoard(const std::string & path, const Reading & reading);

// A board whose command is the last thing that the program does.
class LastBoard : public Board {
public:
    using Board::Board;
    LastBoard(const LastBoard &) = delete;
    LastBoard & operator=(const LastBoard &) = delete;
    ~LastBoard() { LeaveToProcess(); }
};
LastBoard OpenBoard(const std::string & path, const Reading & reading);

struct TwoBoards {
    std::unique_ptr<LastBoard> before;
    std::unique_ptr<LastBoard> after;
};
// Reads two boards, at the same time where the reader allows it. Of two that cannot be read it tells of the first.
TwoBoards OpenTwoBoards(const std::string & before, const std::string & after, Reading reading);

// The options of all listings.
struct ListingOptions {
    Format format = Format::Table;
    std::string output;  // empty is the standard output
};
void AddListingOptions(CLI::App & command, ListingOptions & options);

// The option that asks for the unit of lengths.
void AddUnits(CLI::App & command, std::string & unit);

// What a listing of a board is known to lack, and what an import tells of the file as a whole.
std::string LacksOf(Board & board, const std::vector<Listed> & listed, Absence absence = Absence::Told);
// What stands above a listing in JSON. The losses are told apart from what an import has noted one by one.
Source SourceOf(Board & board, const Lengths & lengths, const std::string & losses);

// The option that lets a command replace what is there, which is refused without.
void AddForce(CLI::App & command, Existing & existing);
// Throws Error, before a board is read, for an output that would not be written behind it.
void RefuseOutput(const std::string & output, std::initializer_list<std::string> inputs, Existing existing);

// Says in one line on standard error what is known to be lacking, and points to the command that shows all of it.
// Silent if nothing is.
void Warn(const Board & board, const std::string & losses);
// Says in one line on standard error what of the file an import has not taken as it stands, if there is any.
void WarnOfImport(const Board & board);

// For a strict reading, says in one line on standard error what was lost, and ends the program with a status of its
// own. Everything is written by then.
void EndWhereLost(std::initializer_list<const Board *> boards);
void TellLosses(const std::string & board, const std::string & losses);
// The option for it.
void AddStrict(CLI::App & command, bool & isStrict);

// Says in one line on standard error why the program has failed.
void TellFailure(const std::exception & failure);

// The arguments of a command that lists one board, sorted or not.
struct SortedListing {
    std::string board;
    Reading reading;
    ListingOptions listing;
    std::string unit;  // of lengths; empty is that of the board
    bool isSorted = false;
};
// The argument BOARD, how it is read, and the options of a listing.
void AddBoardListing(CLI::App & command, SortedListing & options);
// The option that asks for the order.
void AddSort(CLI::App & command, SortedListing & options, const std::string & order);

// Prints a Table or a Listing where the options say. The inputs are never overwritten.
template <typename Printed, typename... Sources>
void Print(const Printed & printed, const ListingOptions & options, std::initializer_list<std::string> inputs,
           const Sources &... sources)
{
    Output output(options.output, inputs);
    printed.Print(output.Stream(), options.format, sources...);
    output.Finish();
}

// Reads the board, prints the table made of it, and warns of what the table is known to lack.
using TableMaker = std::function<Table(Board & board, const Lengths & lengths)>;
void PrintTable(const SortedListing & options, const TableMaker & make, const std::vector<Listed> & listed);

// A command that lists one table with lengths in it, sorted or not.
struct LengthListing {
    std::string name;
    std::string description;
    std::string example;
    std::string order;
    Table (*make)(Board & board, const Lengths & lengths, bool isSorted);
    std::vector<Listed> listed;
};
void AddLengthListing(CLI::App & program, const LengthListing & listing);

}  // namespace ipc2581::host

#endif
