// The commands of the optkw tool and the arguments they take.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace optkw_tool {

// Exit status: 0 no errors, 1 errors in the texts read, 2 a usage fault or a
// file that can't be opened.
enum ExitStatus { kClean = 0, kErrors = 1, kUsageOrFile = 2 };

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

struct HelpRequest {
  std::string definition;
  std::string request;  // an option name or a listing mode; empty for the summary
};

struct ExportRequest {
  std::string definition;
  std::string format;  // "json" or "markdown"
};

int RunCheck(const CheckRequest &request);
int RunHelp(const HelpRequest &request);
int RunExport(const ExportRequest &request);

}  // namespace optkw_tool
