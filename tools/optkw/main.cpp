// optkw: check parameter files against an option definition, show help, and
// export a definition as a reference, from the shell.
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "commands.h"

namespace optkw_tool {
namespace {

constexpr const char *kUsage =
    R"(usage: optkw check DEF [PARAMFILE...] [-s TEXT]... [-c CMDLINE]... [options]
       optkw help DEF [REQUEST]
       optkw export DEF --format json|markdown
       optkw --help
)";

constexpr const char *kHelp = R"(optkw - check option settings against an option definition

  optkw check DEF [PARAMFILE...] [-s TEXT]... [-c CMDLINE]... [options]
      Reads the definition DEF, then every source in the order given: parameter
      files, parameter text (-s TEXT) and command lines (-c CMDLINE). Prints
      every message of the library, then the options that are set with their
      values, then a count of errors and warnings.
        --echo           echo every line read among the messages
        --no-bounds      accept values out of range with warnings, not errors
        --eol-only=0|1   1 (the default): a value runs to the end of its line;
                         0: a value is one token, so a line may hold several
        --write FILE     write what is set as a parameter file afterwards;
                         "-" writes it to standard output, and the report then
                         goes to standard error
      Exit status: 0 without errors, 1 with errors, 2 for a usage fault or a
      file that can't be opened.

  optkw help DEF [REQUEST]
      Prints the help of the definition: the summary by group (no REQUEST),
      the entry of one option (an option name, a synonym or an abbreviation),
      or a listing mode: 1 summary, 2 alphabetical list, 3 both, 4 the bare
      names, 8 added to 1 marks deprecated options.

  optkw export DEF --format json|markdown
      Writes every option of the definition, with type, bounds, default,
      values, group, synonyms and deprecation, as JSON or as a Markdown page.

  Messages go to standard output, usage faults to standard error.
)";

int UsageFault(const std::string &what) {
  std::fprintf(stderr, "optkw: %s\n%s", what.c_str(), kUsage);
  return kUsageOrFile;
}

// Takes the value of an option that needs one: "--opt=value" or "--opt value".
bool TakeValue(const std::vector<std::string> &args, size_t &i, std::string_view name,
               std::string &value) {
  const std::string &arg = args[i];
  if (arg.size() > name.size() && arg.compare(0, name.size(), name) == 0 &&
      arg[name.size()] == '=') {
    value = arg.substr(name.size() + 1);
    return true;
  }
  if (arg != name || i + 1 >= args.size()) return false;
  value = args[++i];
  return true;
}

int Check(const std::vector<std::string> &args) {
  CheckRequest request;
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string &arg = args[i];
    std::string value;
    if (arg == "--echo") {
      request.settings.echo = true;
    } else if (arg == "--no-bounds") {
      request.settings.no_bounds = true;
    } else if (arg.rfind("--eol-only", 0) == 0) {
      if (!TakeValue(args, i, "--eol-only", value) || (value != "0" && value != "1")) {
        return UsageFault("--eol-only takes 0 or 1");
      }
      request.settings.eol_only = value == "1" ? 1 : 0;
    } else if (arg.rfind("--write", 0) == 0) {
      if (!TakeValue(args, i, "--write", value)) return UsageFault("--write needs a file name");
      request.write_to = value;
    } else if (arg == "-s" || arg == "-c") {
      if (i + 1 >= args.size()) return UsageFault(arg + " needs a text");
      const auto kind = arg == "-s" ? Source::Kind::kString : Source::Kind::kCommandLine;
      request.sources.push_back({kind, args[++i]});
    } else if (arg.size() > 1 && arg[0] == '-') {
      return UsageFault("unknown option " + arg);
    } else if (request.definition.empty()) {
      request.definition = arg;
    } else {
      request.sources.push_back({Source::Kind::kFile, arg});
    }
  }
  if (request.definition.empty()) return UsageFault("check needs a definition file");
  return RunCheck(request);
}

int Help(const std::vector<std::string> &args) {
  if (args.size() < 2 || args.size() > 3)
    return UsageFault("help takes a definition file and a request");
  return RunHelp({args[1], args.size() == 3 ? args[2] : ""});
}

int Export(const std::vector<std::string> &args) {
  ExportRequest request;
  for (size_t i = 1; i < args.size(); ++i) {
    std::string value;
    if (args[i].rfind("--format", 0) == 0) {
      if (!TakeValue(args, i, "--format", value) || (value != "json" && value != "markdown")) {
        return UsageFault("--format takes json or markdown");
      }
      request.format = value;
    } else if (request.definition.empty() && args[i][0] != '-') {
      request.definition = args[i];
    } else {
      return UsageFault("unexpected argument " + args[i]);
    }
  }
  if (request.definition.empty() || request.format.empty()) {
    return UsageFault("export needs a definition file and --format");
  }
  return RunExport(request);
}

}  // namespace
}  // namespace optkw_tool

int main(int argc, char **argv) {
  using namespace optkw_tool;
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) return UsageFault("no command");
  try {
    if (args[0] == "--help" || args[0] == "-h") {
      std::fputs(kHelp, stdout);
      return kClean;
    }
    if (args[0] == "check") return Check(args);
    if (args[0] == "help") return Help(args);
    if (args[0] == "export") return Export(args);
    return UsageFault("unknown command " + args[0]);
  } catch (const std::exception &error) {
    std::fprintf(stderr, "optkw: %s\n", error.what());
    return kUsageOrFile;
  }
}
