// optkw: check parameter files against an option definition, show help, and
// export a definition as a reference, from the shell. The command line of
// every command is declared here, the one place that knows CLI11; each
// command runs from the settings it is given.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"

namespace optkw_tool {
namespace {

// The check command line as the user wrote it: files and texts are read in
// the order in which they stand, so sources are gathered by their parse order.
struct CheckArguments {
  CheckRequest request;
  std::vector<std::string> files, strings, command_lines;
  std::string write_to, eol_only, format = "text", explain;
  CLI::Option *files_option = nullptr, *string_option = nullptr, *command_line_option = nullptr;
  CLI::Option *write_option = nullptr, *eol_option = nullptr, *explain_option = nullptr;

  std::vector<Source> SourcesInOrder(const CLI::App &command) const {
    std::vector<Source> sources;
    size_t file = 0, string = 0, command_line = 0;
    for (const CLI::Option *option : command.parse_order()) {
      if (option == files_option) {
        sources.push_back({Source::Kind::kFile, files[file++]});
      } else if (option == string_option) {
        sources.push_back({Source::Kind::kString, strings[string++]});
      } else if (option == command_line_option) {
        sources.push_back({Source::Kind::kCommandLine, command_lines[command_line++]});
      }
    }
    return sources;
  }

  CheckRequest Request(const CLI::App &command) const {
    CheckRequest result = request;
    result.sources = SourcesInOrder(command);
    if (eol_option->count() > 0) result.settings.eol_only = eol_only == "1" ? 1 : 0;
    if (write_option->count() > 0) result.write_to = write_to;
    if (explain_option->count() > 0) result.explain = explain;
    result.format = format == "json"    ? CheckFormat::kJson
                    : format == "sarif" ? CheckFormat::kSarif
                                        : CheckFormat::kText;
    return result;
  }
};

void AddSourceOptions(CLI::App *command, CheckArguments &args) {
  command->add_option("DEF", args.request.definition, "the option definition file")->required();
  args.files_option = command->add_option("PARAMFILE", args.files, "parameter files to read");
  args.string_option = command->add_option("-s", args.strings, "parameter text to read")
                           ->type_name("TEXT")
                           ->allow_extra_args(false);
  args.command_line_option =
      command
          ->add_option("-c", args.command_lines,
                       "a command line to read: each value is one token, so \"a=1 b=2\" sets both")
          ->type_name("CMDLINE")
          ->allow_extra_args(false);
  command->add_flag("--echo", args.request.settings.echo,
                    "echo every line read among the messages");
  command->add_flag("--no-bounds", args.request.settings.no_bounds,
                    "accept values out of range with warnings, not errors");
  args.eol_option =
      command
          ->add_option("--eol-only", args.eol_only,
                       "1 (the default): a value in a file or -s text runs to the end of its "
                       "line; 0: a value is one token, so a line may hold several")
          ->check(CLI::IsMember({"0", "1"}));
}

void AddReportOptions(CLI::App *command, CheckArguments &args) {
  args.write_option = command->add_option(
      "--write", args.write_to,
      "write what is set as a parameter file afterwards, and warn about values that won't read "
      "back as they were; \"-\" writes it to standard output, and the report then goes to "
      "standard error");
  command->add_option("--format", args.format, "text (the default), json or sarif")
      ->check(CLI::IsMember({"text", "json", "sarif"}));
  command->add_flag("--locations", args.request.style.locations,
                    "text: put FILE:LINE: before each message of a file");
  args.explain_option = command->add_option(
      "--explain", args.explain, "show the value, the default and the source that set option NAME");
  args.explain_option->type_name("NAME");
  command->add_flag("--changed", args.request.changed,
                    "list the options whose value differs from the default, with the source "
                    "that set each");
}

void AddCheckCommand(CLI::App &app, int &status) {
  auto args = std::make_shared<CheckArguments>();
  CLI::App *command =
      app.add_subcommand("check", "check parameter files and texts against a definition");
  command->footer(
      "Reads the definition DEF, then every source in the order given: parameter files, "
      "parameter text (-s TEXT) and command lines (-c CMDLINE). Prints every message of the "
      "library, hints of its own (\"hint: \"), then the options that are set with their values, "
      "then the library's count of error and warning lines and the number of statements with "
      "a mistake. Exit status 3 tells that a message queue overflowed and the report is "
      "incomplete.\n");
  AddSourceOptions(command, *args);
  AddReportOptions(command, *args);
  command->callback([args, command, &status] { status = RunCheck(args->Request(*command)); });
}

void AddHelpCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<HelpRequest>();
  CLI::App *command = app.add_subcommand("help", "show the help listing of a definition");
  command->footer(
      "Prints the help of the definition: the summary by group (no REQUEST), the entry of one "
      "option (an option name, a synonym or an abbreviation) followed by what value it takes, "
      "or a listing mode: 1 summary, 2 alphabetical list, 3 both, 4 the bare names, 8 added to "
      "1 marks deprecated options. Listings are whole for any number of options. A name the "
      "definition doesn't know is an error, with suggestions.\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("REQUEST", request->request, "an option name or a listing mode");
  command
      ->add_flag("--piecewise", request->piecewise,
                 "put the listing together entry by entry even when the library's fits "
                 "(for comparing the two)")
      ->group("");
  command->callback([request, &status] { status = RunHelp(*request); });
}

// A prefix must begin the names of C macros as it stands.
CLI::Validator CIdentifier() {
  return CLI::Validator(CIdentifierFault, "IDENTIFIER");
}

void AddExportCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<ExportRequest>();
  CLI::App *command = app.add_subcommand(
      "export",
      "write a definition as a reference or for code (JSON, Markdown, reStructuredText, man, C, "
      "JSON Schema)");
  command->footer(
      "Writes every option of the definition, with type, bounds, default, values, group, "
      "synonyms and deprecation: as JSON (json), as a reference page (markdown, rst) or the "
      "OPTIONS section of a manual page (man); or, for a program's own code and tools, a C "
      "header of option numbers and enumerated values (c-header) or a JSON Schema of a "
      "settings object (json-schema).\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("--format", request->format, "the output format")
      ->required()
      ->check(CLI::IsMember(ExportFormatNames()));
  command
      ->add_option("--prefix", request->prefix,
                   "c-header: the prefix of the constants, a C identifier (default: the "
                   "definition's file name in upper case)")
      ->check(CIdentifier());
  command->callback([request, &status] { status = RunExport(*request); });
}

void AddLintCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<LintRequest>();
  CLI::App *command =
      app.add_subcommand("lint", "report what a definition accepts but hardly ever means");
  command->footer(
      "Reports names that the lookup method can't reach, multilists that contain themselves, "
      "numbers that didn't survive conversion, boolean defaults other than 0 and 1, enumerated "
      "values that differ only in case, synonyms hidden by option names, missing help, empty "
      "or unknown groups, and why a definition ended early. Exit status: 0 clean or notes "
      "only, 1 warnings or errors, 2 a usage fault or a file that can't be read.\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("--format", request->format, "text (compiler style) or json")
      ->check(CLI::IsMember({"text", "json"}));
  command->callback([request, &status] { status = RunLint(*request); });
}

int RunCommandLine(int argc, char **argv) {
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

}  // namespace
}  // namespace optkw_tool

int main(int argc, char **argv) {
  return optkw_tool::RunCommandLine(argc, argv);
}
