// optkw check: read a definition and parameter sources, report what the
// library said, where, and what is set.
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "check_report.h"
#include "client.h"
#include "commands.h"
#include "definition_model.h"
#include "hints.h"
#include "safe_writer.h"

namespace optkw_tool {
namespace {

// The name a source has in the library's brackets.
std::string BracketName(const Source &source) {
  switch (source.kind) {
    case Source::Kind::kFile:
      return source.text;
    case Source::Kind::kString:
      return source.text.size() <= 255 ? "string" : "pchar";
    case Source::Kind::kCommandLine:
      return "command line";
  }
  return source.text;
}

std::vector<OptionSet> OptionsSet(optHandle_t h) {
  std::vector<OptionSet> options;
  for (int nr = 1; nr <= optCount(h); ++nr) {
    int defined, recent, ref, data_type, type, subtype;
    optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
    if (defined == 0) continue;
    char name[OPTKW_STRBUF_SIZE];
    coptGetNameNr(h, nr, name);
    options.push_back({name, ValueText(h, nr), type != optTypeStrList && subtype == optsubNoValue});
  }
  return options;
}

bool WantsHints(const std::vector<SourceRun> &runs) {
  for (const SourceRun &run : runs)
    for (const Diagnostic &d : run.diagnostics)
      if (BareText(d.text, d.type).rfind("Unknown ", 0) == 0) return true;
  return false;
}

DefinitionModel ModelOf(const std::string &definition) {
  Handle described;
  coptReadDefinition(described.get(), definition.c_str());
  optClearMessages(described.get());
  return DescribeDefinition(described.get());
}

void AddAllHints(CheckReport &report) {
  const bool unknown_name = report.explain_name && !report.explained;
  if (!WantsHints(report.runs) && !unknown_name) return;
  const DefinitionModel model = ModelOf(report.definition);
  for (SourceRun &run : report.runs)
    AddHints(run.diagnostics, model);
  if (unknown_name) report.explain_hint = NameHint(*report.explain_name, model);
}

class CheckRunner {
 public:
  explicit CheckRunner(const CheckRequest &request) : request_(request) {}

  int Run() {
    optHandle_t h = handle_.get();
    ApplySettings(h, request_.settings);
    report_.definition = request_.definition;
    bool all_opened = coptReadDefinition(h, request_.definition.c_str()) <= 0;
    report_.runs.push_back(DrainMessages(h, request_.definition, request_.definition, true));
    if (all_opened) {
      for (const Source &source : request_.sources)
        all_opened = ReadOne(source) && all_opened;
    }
    if (all_opened && request_.write_to) all_opened = Write();
    Conclude();
    AddAllHints(report_);
    Print();
    if (!all_opened) return kUsageOrFile;
    if (request_.explain && !report_.explained) return kUsageOrFile;
    if (report_.summary.incomplete) return kIncomplete;
    return report_.summary.errors > 0 ? kErrors : kClean;
  }

 private:
  bool Tracing() const { return request_.explain || request_.changed; }

  // Prepares a further handle: the definition read, the settings applied.
  std::function<void(optHandle_t)> Preparer(bool with_settings) const {
    return [this, with_settings](optHandle_t other) {
      coptReadDefinition(other, request_.definition.c_str());
      if (with_settings)
        ApplySettings(other, {false, request_.settings.no_bounds, request_.settings.eol_only});
      optClearMessages(other);
    };
  }

  bool ReadOne(const Source &source) {
    optHandle_t h = handle_.get();
    const Snapshot before = Tracing() ? TakeSnapshot(h) : Snapshot();
    const bool opened = ReadSource(h, source);
    const bool is_file = source.kind == Source::Kind::kFile;
    SourceRun run = DrainMessages(h, source.Label(), BracketName(source), is_file);
    run.opened = opened;
    AddLeadingBytesHints(run);
    report_.runs.push_back(std::move(run));
    if (Tracing()) NoteOrigins(source, SetBetween(before, TakeSnapshot(h)));
    return opened;
  }

  void NoteOrigins(const Source &source, const std::vector<int> &set) {
    if (set.empty()) return;
    std::map<int, Origin> lines;
    if (source.kind == Source::Kind::kFile)
      lines = AttributeLines(source.text, set, Preparer(true));
    for (int nr : set) {
      const auto line = lines.find(nr);
      origins_[nr] = line == lines.end() ? Origin{source.Label(), 0} : line->second;
    }
  }

  bool Write() {
    const bool to_stdout = request_.write_to == "-";
    WriteResult written =
        WriteAndVerify(handle_.get(), to_stdout ? "" : *request_.write_to, Preparer(false));
    report_.write_warnings = written.warnings;
    SourceRun run = DrainMessages(handle_.get(), "--write", *request_.write_to, true);
    if (!run.diagnostics.empty()) report_.runs.push_back(std::move(run));
    return written.ok;
  }

  void Conclude() {
    optHandle_t h = handle_.get();
    for (const SourceRun &run : report_.runs)
      if (auto overflow = FindOverflow(run)) report_.overflows.push_back(*overflow);
    report_.options_set = OptionsSet(h);
    if (Tracing()) Explain();
    report_.summary = Summarise(report_.runs, !report_.overflows.empty());
  }

  void Explain() {
    Handle defaults;
    Preparer(false)(defaults.get());
    optHandle_t h = handle_.get();
    if (request_.explain) {
      report_.explain_name = request_.explain;
      int nr = -1, ref = -1;
      if (coptFindStr(h, request_.explain->c_str(), &nr, &ref) != 0 && nr > 0)
        report_.explained = ReportOption(h, defaults.get(), nr, origins_);
    }
    if (request_.changed) {
      report_.changed.emplace();
      for (int nr = 1; nr <= optCount(h); ++nr) {
        OptionReport option = ReportOption(h, defaults.get(), nr, origins_);
        if (option.changed) report_.changed->push_back(option);
      }
    }
  }

  void Print() const {
    // With the parameter text on standard output, the report goes to standard error.
    std::FILE *out = request_.write_to == "-" ? stderr : stdout;
    switch (request_.format) {
      case CheckFormat::kText:
        PrintText(report_, request_.style, out);
        break;
      case CheckFormat::kJson:
        std::fputs(JsonReport(report_).c_str(), out);
        break;
      case CheckFormat::kSarif:
        std::fputs(SarifReport(report_).c_str(), out);
        break;
    }
    std::fflush(out);
  }

  const CheckRequest &request_;
  Handle handle_;
  CheckReport report_;
  std::map<int, Origin> origins_;
};

}  // namespace

int RunCheck(const CheckRequest &request) {
  return CheckRunner(request).Run();
}

}  // namespace optkw_tool
