// The commands of the optkw tool, each as what it runs given its settings. The
// command line (main.cpp) fills these settings in; the commands know nothing
// of how they were asked for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check_report.h"
#include "check_run.h"

namespace optkw_tool {

// Exit status: 0 no errors, 1 errors in the texts read, 2 a usage fault or a
// file that can't be opened, 3 a message queue that overflowed, so that the
// report is incomplete.
enum ExitStatus { kClean = 0, kErrors = 1, kUsageOrFile = 2, kIncomplete = 3 };

enum class CheckFormat { kText, kJson, kSarif };

struct CheckRequest {
  std::string definition;
  std::vector<Source> sources;  // in the order they stand on the command line
  Settings settings;
  std::optional<std::string> write_to;  // "-" for standard output
  CheckFormat format = CheckFormat::kText;
  TextStyle style;
  std::optional<std::string> explain;
  bool changed = false;
};

struct HelpRequest {
  std::string definition;
  std::string request;  // an option name or a listing mode; empty for the summary
  bool piecewise = false;
};

struct ExportRequest {
  std::string definition;
  std::string format;  // one of ExportFormatNames()
  std::string prefix;  // of the C constants; from the definition's file name if empty
};

struct LintRequest {
  std::string definition;
  std::string format = "text";
};

// Each returns the exit status.
int RunCheck(const CheckRequest &request);
int RunHelp(const HelpRequest &request);
int RunExport(const ExportRequest &request);
int RunLint(const LintRequest &request);

std::vector<std::string> ExportFormatNames();
// The reason `text` can't begin the names of C macros; empty if it can.
std::string CIdentifierFault(const std::string &text);

}  // namespace optkw_tool
