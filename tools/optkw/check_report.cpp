// What the three report formats share.
#include "check_report.h"

#include <set>

namespace optkw_tool {

Summary Summarise(const std::vector<SourceRun> &runs, bool incomplete) {
  Summary summary;
  summary.incomplete = incomplete;
  std::set<std::string> sources;
  for (size_t k = 0; k < runs.size(); ++k) {
    const SourceRun &run = runs[k];
    summary.errors += run.errors;
    summary.warnings += run.warnings;
    for (const Diagnostic &d : run.diagnostics) {
      if (!IsMistake(d)) continue;
      ++summary.mistakes;
      sources.insert(std::to_string(k) + ':' + d.source);  // -s twice is two sources
    }
  }
  summary.sources_with_mistakes = static_cast<int>(sources.size());
  return summary;
}

std::string OverflowText(const Overflow &overflow) {
  const std::string where =
      overflow.after.empty() ? "while reading " + overflow.source : "after " + overflow.after;
  return "the message queue reached its limit " + where +
         ": later messages of that source were dropped, and the counts are incomplete";
}

}  // namespace optkw_tool
