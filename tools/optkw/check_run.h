// One run of optkw check: the definition and each source read into one handle,
// with the messages of each collected and drained before the next source, so
// that the queue's limit of messages holds per source and an overflow in one
// file can't hide the mistakes of the next.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "client.h"
#include "diagnostics.h"

namespace optkw_tool {

struct Source {
  enum class Kind { kFile, kString, kCommandLine };
  Kind kind;
  std::string text;  // the file name, or the parameter text itself

  // How a report names the source: the file name, "-s" or "-c".
  std::string Label() const;
};

struct Settings {
  bool echo = false;
  bool no_bounds = false;
  std::optional<int> eol_only;
};

// What the library said while one source (or the definition) was read.
struct SourceRun {
  std::string label;  // the file name, "-s", "-c", or "--write FILE"
  std::vector<Diagnostic> diagnostics;
  int errors = 0, warnings = 0;  // as optErrorCount counted them
  bool opened = true;
  std::vector<std::string> hints;  // about the files themselves
};

// Where a queue overflowed: the source and the last located message before.
struct Overflow {
  std::string source;  // the innermost source being read when the limit came
  std::string after;   // "FILE:LINE" of the last located message, or empty
};

void ApplySettings(optHandle_t h, const Settings &settings);

// Reads one source into `h`. A command line is read one token per value: the
// end-of-line flag is off for it alone. Gives false for a file that can't be
// opened.
bool ReadSource(optHandle_t h, const Source &source);

// Collects what the queue holds as the run of `label` and empties the queue.
SourceRun DrainMessages(optHandle_t h, const std::string &label, const std::string &fallback,
                        bool fallback_is_file);

// The hints about leading bytes of every file that the run read.
void AddLeadingBytesHints(SourceRun &run);

std::optional<Overflow> FindOverflow(const SourceRun &run);

}  // namespace optkw_tool
