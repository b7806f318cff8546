// The text report: the library's messages exactly as it gives them, with our
// additions on lines of their own ("hint: ", "note: ", "warning: ").
#include "check_report.h"

namespace optkw_tool {
namespace {

const char *Plural(int n, const char *one, const char *many) {
  return n == 1 ? one : many;
}

// "kestrel-extra.opt:4: " before a message of a file, when asked for.
std::string LocationPrefix(const Diagnostic &d, const TextStyle &style) {
  if (!style.locations || !d.from_file) return {};
  if (d.type != optMsgDefineError && d.type != optMsgValueError && d.type != optMsgValueWarning &&
      d.type != optMsgDeprecated && d.type != optMsgUserError) {
    return {};
  }
  return d.source + (d.line > 0 ? ":" + std::to_string(d.line) : std::string()) + ": ";
}

void PrintRun(const SourceRun &run, const TextStyle &style, std::FILE *out) {
  std::string pending_hint;  // printed behind the further lines of its message
  for (const Diagnostic &d : run.diagnostics) {
    if (!d.follow_up && !pending_hint.empty()) {
      std::fprintf(out, "hint: %s\n", pending_hint.c_str());
      pending_hint.clear();
    }
    std::fprintf(out, "%s%s\n", LocationPrefix(d, style).c_str(), d.text.c_str());
    if (!d.hint.empty()) pending_hint = d.hint;
  }
  if (!pending_hint.empty()) std::fprintf(out, "hint: %s\n", pending_hint.c_str());
  for (const std::string &hint : run.hints)
    std::fprintf(out, "hint: %s\n", hint.c_str());
}

void PrintOptionsSet(const std::vector<OptionSet> &options, std::FILE *out) {
  std::fputs("Options set:\n", out);
  for (const OptionSet &option : options) {
    if (option.no_value) {
      std::fprintf(out, "  %s\n", option.name.c_str());
    } else {
      std::fprintf(out, "  %s = %s\n", option.name.c_str(), option.value.c_str());
    }
  }
  if (options.empty()) std::fputs("  (none)\n", out);
}

// An empty value shows as "", as in parameter text.
const char *Shown(const std::string &value) {
  return value.empty() ? "\"\"" : value.c_str();
}

void PrintExplained(const CheckReport &report, std::FILE *out) {
  if (!report.explained) {
    std::fprintf(out, "\"%s\" is no option of %s\n", report.explain_name->c_str(),
                 report.definition.c_str());
    if (!report.explain_hint.empty()) std::fprintf(out, "hint: %s\n", report.explain_hint.c_str());
    return;
  }
  const OptionReport &option = *report.explained;
  std::fprintf(out, "%s\n  value:   %s\n  default: %s\n  set by:  %s\n", option.name.c_str(),
               Shown(option.value), Shown(option.default_value),
               option.origin.empty() ? "(nothing)" : option.origin.c_str());
}

void PrintChanged(const std::vector<OptionReport> &changed, std::FILE *out) {
  std::fputs("Changed from the defaults:\n", out);
  for (const OptionReport &option : changed) {
    std::fprintf(out, "  %s = %s (default %s; set by %s)\n", option.name.c_str(),
                 Shown(option.value), Shown(option.default_value),
                 option.origin.empty() ? "nothing" : option.origin.c_str());
  }
  if (changed.empty()) std::fputs("  (none)\n", out);
}

void PrintSummary(const Summary &s, std::FILE *out) {
  std::fprintf(out, "%d %s, %d %s (message lines); ", s.errors, Plural(s.errors, "error", "errors"),
               s.warnings, Plural(s.warnings, "warning", "warnings"));
  if (s.mistakes == 0) {
    std::fputs("no mistakes", out);
  } else {
    std::fprintf(out, "%d %s in %d %s", s.mistakes, Plural(s.mistakes, "mistake", "mistakes"),
                 s.sources_with_mistakes, Plural(s.sources_with_mistakes, "source", "sources"));
  }
  std::fputs(s.incomplete ? "; incomplete, messages were dropped\n" : "\n", out);
}

}  // namespace

void PrintText(const CheckReport &report, const TextStyle &style, std::FILE *out) {
  for (const SourceRun &run : report.runs)
    PrintRun(run, style, out);
  for (const Overflow &overflow : report.overflows)
    std::fprintf(out, "note: %s\n", OverflowText(overflow).c_str());
  for (const std::string &warning : report.write_warnings)
    std::fprintf(out, "%s\n", warning.c_str());
  if (report.explain_name) {
    PrintExplained(report, out);
  } else if (report.changed) {
    PrintChanged(*report.changed, out);
  } else {
    PrintOptionsSet(report.options_set, out);
  }
  PrintSummary(report.summary, out);
  std::fflush(out);
}

}  // namespace optkw_tool
