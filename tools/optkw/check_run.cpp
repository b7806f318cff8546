#include "check_run.h"

#include <set>

#include "leading_bytes.h"

namespace optkw_tool {

std::string Source::Label() const {
  switch (kind) {
    case Kind::kFile:
      return text;
    case Kind::kString:
      return "-s";
    case Kind::kCommandLine:
      return "-c";
  }
  return text;
}

void ApplySettings(optHandle_t h, const Settings &settings) {
  if (settings.echo) optEchoSet(h, 1);
  if (settings.no_bounds) optNoBoundsSet(h, 1);
  if (settings.eol_only) optEOLOnlySet(h, *settings.eol_only);
}

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
    case Source::Kind::kCommandLine: {
      // A shell passes "threads=4 cfl=2" as one argument: one token per value.
      const int former = optEOLOnlySet(h, 0);
      optReadFromCmdLine(h, source.text.c_str());
      optEOLOnlySet(h, former);
      return true;
    }
  }
  return true;
}

SourceRun DrainMessages(optHandle_t h, const std::string &label, const std::string &fallback,
                        bool fallback_is_file) {
  SourceRun run;
  run.label = label;
  run.diagnostics = Locate(MessagesFrom(h, 1), fallback, fallback_is_file);
  optErrorCount(h, &run.errors, &run.warnings);
  optClearMessages(h);
  return run;
}

void AddLeadingBytesHints(SourceRun &run) {
  std::set<std::string> seen;
  for (const Diagnostic &d : run.diagnostics) {
    if (!d.from_file || d.type != optMsgFileEnter || !seen.insert(d.source).second) continue;
    if (auto hint = LeadingBytesHint(d.source)) run.hints.push_back(*hint);
  }
}

std::optional<Overflow> FindOverflow(const SourceRun &run) {
  // Echo lines bypass the limit; once they have filled the queue past it,
  // other messages vanish without the limit's message.
  constexpr size_t kLimit = 5000;
  std::string after;
  for (size_t k = 0; k < run.diagnostics.size(); ++k) {
    const Diagnostic &d = run.diagnostics[k];
    if (d.type == optMsgTooManyMsgs || k > kLimit) return Overflow{d.source, after};
    if (d.line > 0) after = d.source + ":" + std::to_string(d.line);
  }
  return std::nullopt;
}

}  // namespace optkw_tool
