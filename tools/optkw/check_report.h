// Everything optkw check found, and the three ways of reporting it: the
// library's text (with our additions behind it), JSON, and SARIF for CI.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "check_run.h"
#include "provenance.h"

namespace optkw_tool {

struct Summary {
  int errors = 0, warnings = 0;  // the library's counts, summed over sources
  int mistakes = 0;              // statements with a fault
  int sources_with_mistakes = 0;
  bool incomplete = false;  // a queue overflowed, so messages were dropped
};

struct OptionSet {
  std::string name, value;
  bool no_value = false;
};

struct CheckReport {
  std::string definition;
  std::vector<SourceRun> runs;  // the definition first, then each source
  std::vector<Overflow> overflows;
  std::vector<std::string> write_warnings;
  std::vector<OptionSet> options_set;
  std::optional<std::string> explain_name;
  std::optional<OptionReport> explained;  // empty when the name isn't an option
  std::string explain_hint;               // then perhaps the name meant
  std::optional<std::vector<OptionReport>> changed;
  Summary summary;
};

Summary Summarise(const std::vector<SourceRun> &runs, bool incomplete);

struct TextStyle {
  bool locations = false;
};
void PrintText(const CheckReport &report, const TextStyle &style, std::FILE *out);
std::string JsonReport(const CheckReport &report);
std::string SarifReport(const CheckReport &report);

// "queue full in X: messages after X:12 were dropped; the counts are incomplete"
std::string OverflowText(const Overflow &overflow);

}  // namespace optkw_tool
