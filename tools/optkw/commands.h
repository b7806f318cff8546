// The commands of the optkw tool. Each command file registers its subcommand
// with the app: its arguments, flags and help, and what runs when it is chosen.
#pragma once

#include <CLI/CLI.hpp>

namespace optkw_tool {

// Exit status: 0 no errors, 1 errors in the texts read, 2 a usage fault or a
// file that can't be opened, 3 a message queue that overflowed, so that the
// report is incomplete.
enum ExitStatus { kClean = 0, kErrors = 1, kUsageOrFile = 2, kIncomplete = 3 };

// Each adds its subcommand to `app`; when the subcommand is chosen, its run
// stores the exit status in `status`.
void AddCheckCommand(CLI::App &app, int &status);
void AddHelpCommand(CLI::App &app, int &status);
void AddExportCommand(CLI::App &app, int &status);
void AddLintCommand(CLI::App &app, int &status);

}  // namespace optkw_tool
