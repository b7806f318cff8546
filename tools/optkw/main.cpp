// optkw: check parameter files against an option definition, show help, and
// export a definition as a reference, from the shell.
#include <cstdio>
#include <exception>

#include "commands.h"

int main(int argc, char **argv) {
  using namespace optkw_tool;
  CLI::App app{"optkw - check option settings against an option definition", "optkw"};
  app.require_subcommand(1);
  app.footer(
      "Messages go to standard output, usage faults to standard error.\n"
      "Exit status: 0 without errors, 1 with errors, 2 for a usage fault or a file that\n"
      "can't be opened. 'optkw COMMAND --help' tells more of each command.");
  int status = kClean;
  AddCheckCommand(app, status);
  AddHelpCommand(app, status);
  AddExportCommand(app, status);
  AddLintCommand(app, status);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp &help) {
    return app.exit(help);  // the help of the command asked about, on standard output
  } catch (const CLI::ParseError &error) {
    std::fprintf(stderr, "optkw: %s\nRun 'optkw --help' for usage.\n", error.what());
    return kUsageOrFile;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "optkw: %s\n", error.what());
    return kUsageOrFile;
  }
  return status;
}
