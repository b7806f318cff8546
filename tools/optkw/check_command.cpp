// optkw check: read a definition and parameter sources, report what the
// library said and what is set.
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "client.h"
#include "commands.h"

namespace optkw_tool {
namespace {

struct Source {
  enum class Kind { kFile, kString, kCommandLine };
  Kind kind;
  std::string text;  // the file name, or the parameter text itself
};

struct Settings {
  bool echo = false;
  bool no_bounds = false;
  std::optional<int> eol_only;
};

struct CheckRequest {
  std::string definition;
  std::vector<Source> sources;
  Settings settings;
  std::optional<std::string> write_to;  // "-" for standard output
};

void ApplySettings(optHandle_t h, const Settings &settings) {
  if (settings.echo) optEchoSet(h, 1);
  if (settings.no_bounds) optNoBoundsSet(h, 1);
  if (settings.eol_only) optEOLOnlySet(h, *settings.eol_only);
}

// Reads one source; gives false when it was a file that couldn't be opened.
bool ReadSource(optHandle_t h, const Source &source) {
  switch (source.kind) {
    case Source::Kind::kFile:
      return coptReadParameterFile(h, source.text.c_str()) == 0;
    case Source::Kind::kString:
      if (source.text.size() <= 255) {
        // The counted form takes any 255 bytes as they stand.
        char counted[OPTKW_STRBUF_SIZE];
        counted[0] = static_cast<char>(source.text.size());
        source.text.copy(counted + 1, source.text.size());
        optReadFromStr(h, counted);
      } else {
        optReadFromPChar(h, source.text.c_str());
      }
      return true;
    case Source::Kind::kCommandLine:
      optReadFromCmdLine(h, source.text.c_str());
      return true;
  }
  return true;
}

// "name = value" for every option that is set, with both values of a
// two-valued option and every entry of a string list.
void PrintOptionsSet(optHandle_t h, std::FILE *out) {
  std::fputs("Options set:\n", out);
  int shown = 0;
  for (int nr = 1; nr <= optCount(h); ++nr) {
    int defined, recent, ref, data_type, type, subtype;
    optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
    if (defined == 0) continue;
    char name[OPTKW_STRBUF_SIZE], key[OPTKW_STRBUF_SIZE], help[OPTKW_STRBUF_SIZE];
    char value[OPTKW_STRBUF_SIZE];
    coptGetNameNr(h, nr, name);
    ++shown;
    if (type == optTypeStrList) {
      coptGetHelpNr(h, nr, key, help);
      const int count = coptListCountStr(h, key);
      std::fprintf(out, "  %s =", name);
      for (int k = 1; k <= count; ++k) {
        coptReadFromListStr(h, key, k, value);
        std::fprintf(out, "%s \"%s\"", k > 1 ? "," : "", value);
      }
      std::fputc('\n', out);
    } else if (subtype == optsubNoValue) {
      std::fprintf(out, "  %s\n", name);
    } else {
      coptGetStrNr(h, nr, value);
      std::fprintf(out, "  %s = %s", name, value);
      if (subtype == optsub2Values) {
        coptGetStr2Nr(h, nr, value);
        std::fprintf(out, " %s", value);
      }
      std::fputc('\n', out);
    }
  }
  if (shown == 0) std::fputs("  (none)\n", out);
}

const char *Plural(int n, const char *one, const char *many) {
  return n == 1 ? one : many;
}

int RunCheck(const CheckRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  ApplySettings(h, request.settings);
  const bool to_stdout = request.write_to == "-";
  // With the parameter text on standard output, the report goes to standard error.
  std::FILE *report = to_stdout ? stderr : stdout;

  bool all_opened = coptReadDefinition(h, request.definition.c_str()) <= 0;
  if (all_opened) {
    for (const Source &source : request.sources)
      all_opened = ReadSource(h, source) && all_opened;
  }
  if (all_opened && request.write_to) {
    all_opened = coptWriteParameterFile(h, to_stdout ? "" : request.write_to->c_str()) == 0;
  }

  for (const Message &message : MessagesFrom(h, 1))
    std::fprintf(report, "%s\n", message.text.c_str());
  PrintOptionsSet(h, report);
  int errors = 0, warnings = 0;
  optErrorCount(h, &errors, &warnings);
  std::fprintf(report, "%d %s, %d %s\n", errors, Plural(errors, "error", "errors"), warnings,
               Plural(warnings, "warning", "warnings"));
  std::fflush(report);
  if (!all_opened) return kUsageOrFile;
  return errors > 0 ? kErrors : kClean;
}

// The command line as the user wrote it: files and texts are read in the
// order in which they stand, so sources are gathered by their parse order.
struct CheckArguments {
  CheckRequest request;
  std::vector<std::string> files, strings, command_lines;
  std::string write_to;
  std::string eol_only;
  CLI::Option *files_option = nullptr, *string_option = nullptr, *command_line_option = nullptr;
  CLI::Option *write_option = nullptr, *eol_option = nullptr;

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
};

}  // namespace

void AddCheckCommand(CLI::App &app, int &status) {
  auto args = std::make_shared<CheckArguments>();
  CLI::App *command =
      app.add_subcommand("check", "check parameter files and texts against a definition");
  command->footer(
      "Reads the definition DEF, then every source in the order given: parameter files, "
      "parameter text (-s TEXT) and command lines (-c CMDLINE). Prints every message of the "
      "library, then the options that are set with their values, then a count of errors and "
      "warnings.\n");
  command->add_option("DEF", args->request.definition, "the option definition file")->required();
  args->files_option = command->add_option("PARAMFILE", args->files, "parameter files to read");
  args->string_option = command->add_option("-s", args->strings, "parameter text to read")
                            ->type_name("TEXT")
                            ->allow_extra_args(false);
  args->command_line_option =
      command->add_option("-c", args->command_lines, "a command line to read")
          ->type_name("CMDLINE")
          ->allow_extra_args(false);
  command->add_flag("--echo", args->request.settings.echo,
                    "echo every line read among the messages");
  command->add_flag("--no-bounds", args->request.settings.no_bounds,
                    "accept values out of range with warnings, not errors");
  args->eol_option =
      command
          ->add_option("--eol-only", args->eol_only,
                       "1 (the default): a value runs to the end of its line; 0: a value is one "
                       "token, so a line may hold several")
          ->check(CLI::IsMember({"0", "1"}));
  args->write_option = command->add_option(
      "--write", args->write_to,
      "write what is set as a parameter file afterwards; \"-\" writes it to standard output, "
      "and the report then goes to standard error");
  command->callback([args, command, &status] {
    CheckRequest request = args->request;
    request.sources = args->SourcesInOrder(*command);
    if (args->eol_option->count() > 0) request.settings.eol_only = args->eol_only == "1" ? 1 : 0;
    if (args->write_option->count() > 0) request.write_to = args->write_to;
    status = RunCheck(request);
  });
}

}  // namespace optkw_tool
