// The JSON report: one record per message of the library, with its location,
// the option it names and our hint in fields of their own.
#include <nlohmann/json.hpp>

#include "check_report.h"

namespace optkw_tool {
namespace {

using json = nlohmann::ordered_json;

json Record(const Diagnostic &d) {
  json record = {{"severity", MessageSeverityName(MessageSeverityOf(d.type))},
                 {"text", d.text},
                 {"type", d.type},
                 {"type_name", MessageTypeName(d.type)},
                 {"source", d.source},
                 {"source_is_file", d.from_file},
                 {"follow_up", d.follow_up}};
  if (d.line > 0) record["line"] = d.line;
  if (!d.option.empty()) record["option"] = d.option;
  if (!d.hint.empty()) record["hint"] = d.hint;
  return record;
}

json OptionRecord(const OptionReport &option) {
  json record = {{"name", option.name},
                 {"value", option.value},
                 {"default", option.default_value},
                 {"changed", option.changed}};
  record["set_by"] = option.origin.empty() ? json(nullptr) : json(option.origin);
  return record;
}

json SummaryRecord(const Summary &s) {
  return {{"errors", s.errors},
          {"warnings", s.warnings},
          {"mistakes", s.mistakes},
          {"sources_with_mistakes", s.sources_with_mistakes},
          {"incomplete", s.incomplete}};
}

}  // namespace

std::string JsonReport(const CheckReport &report) {
  json messages = json::array(), hints = json::array(), notes = json::array();
  for (const SourceRun &run : report.runs) {
    for (const Diagnostic &d : run.diagnostics)
      messages.push_back(Record(d));
    for (const std::string &hint : run.hints)
      hints.push_back(hint);
  }
  for (const Overflow &overflow : report.overflows) {
    notes.push_back({{"kind", "queue_overflow"},
                     {"source", overflow.source},
                     {"dropped_after", overflow.after},
                     {"text", OverflowText(overflow)}});
  }
  json options = json::array();
  for (const OptionSet &option : report.options_set)
    options.push_back({{"name", option.name}, {"value", option.value}});
  json out = {{"definition", report.definition},
              {"messages", messages},
              {"file_hints", hints},
              {"notes", notes},
              {"write_warnings", report.write_warnings},
              {"options_set", options},
              {"summary", SummaryRecord(report.summary)}};
  if (report.explain_name)
    out["explain"] = report.explained ? OptionRecord(*report.explained)
                                      : json{{"name", *report.explain_name},
                                             {"unknown", true},
                                             {"hint", report.explain_hint}};
  if (report.changed) {
    out["changed"] = json::array();
    for (const OptionReport &option : *report.changed)
      out["changed"].push_back(OptionRecord(option));
  }
  return out.dump(2) + "\n";
}

}  // namespace optkw_tool
