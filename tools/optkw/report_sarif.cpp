// The SARIF 2.1.0 report, for CI systems that annotate files in place: one
// result per statement that drew a message, its further lines joined into
// the result's text, one rule per kind of message.
#include <cctype>
#include <map>
#include <nlohmann/json.hpp>

#include "check_report.h"

namespace optkw_tool {
namespace {

using json = nlohmann::ordered_json;

// The kind of a message: its words before the first quote or number, so that
// "Unknown option \"x\"" is of the kind "unknown-option".
std::string KindOf(const Diagnostic &d) {
  if (d.type == optMsgTooManyMsgs) return "too-many-messages";
  std::string kind;
  int words = 0;
  for (char c : BareText(d.text, d.type)) {
    if (c == '"' || std::isdigit(static_cast<unsigned char>(c))) break;
    if (std::isalpha(static_cast<unsigned char>(c))) {
      kind += static_cast<char>(std::tolower(c));
    } else if (!kind.empty() && kind.back() != '-') {
      if (++words == 6) break;
      kind += '-';
    }
  }
  while (!kind.empty() && kind.back() == '-')
    kind.pop_back();
  return kind.empty() ? "message" : kind;
}

const char *Level(int type) {
  switch (MessageSeverityOf(type)) {
    case MessageSeverity::kError:
      return "error";
    case MessageSeverity::kWarning:
      return "warning";
    default:
      return "note";
  }
}

std::string UriOf(const std::string &file) {
  static const char kHex[] = "0123456789ABCDEF";
  std::string uri;
  for (unsigned char c : file) {
    if (std::isalnum(c) ||
        std::string_view("/._-~").find(static_cast<char>(c)) != std::string_view::npos) {
      uri += static_cast<char>(c);
    } else {
      uri += '%', uri += kHex[c >> 4], uri += kHex[c & 15];
    }
  }
  return uri;
}

class SarifBuilder {
 public:
  void Add(const std::string &kind, const char *level, const std::string &text,
           const std::string &file, int line, json properties) {
    json result = {{"ruleId", kind},
                   {"ruleIndex", RuleIndex(kind)},
                   {"level", level},
                   {"message", {{"text", text}}}};
    if (!file.empty()) {
      json location = {{"artifactLocation", {{"uri", UriOf(file)}}}};
      if (line > 0) location["region"] = {{"startLine", line}};
      result["locations"] = json::array({{{"physicalLocation", location}}});
    }
    if (!properties.empty()) result["properties"] = properties;
    results_.push_back(result);
  }
  json &LastResult() { return results_.back(); }
  json Log() const {
    json driver = {
        {"name", "optkw"}, {"informationUri", "https://example.invalid/optkw"}, {"rules", rules_}};
    return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
            {"version", "2.1.0"},
            {"runs", json::array({{{"tool", {{"driver", driver}}}, {"results", results_}}})}};
  }

 private:
  int RuleIndex(const std::string &kind) {
    auto [at, added] = rule_index_.emplace(kind, static_cast<int>(rules_.size()));
    if (added) rules_.push_back({{"id", kind}, {"shortDescription", {{"text", Described(kind)}}}});
    return at->second;
  }
  // "unknown-option" reads "Unknown option".
  static std::string Described(std::string kind) {
    for (char &c : kind)
      c = c == '-' ? ' ' : c;
    kind[0] = static_cast<char>(std::toupper(kind[0]));
    return kind;
  }
  json rules_ = json::array(), results_ = json::array();
  std::map<std::string, int> rule_index_;
};

bool IsResult(const Diagnostic &d) {
  return d.type != optMsgInputEcho && d.type != optMsgHelp && d.type != optMsgFileEnter &&
         d.type != optMsgFileLeave;
}

void AddRun(SarifBuilder &sarif, const SourceRun &run) {
  bool open = false;  // whether a result can take further lines
  for (const Diagnostic &d : run.diagnostics) {
    if (!IsResult(d)) {
      open = false;
      continue;
    }
    if (d.follow_up && open) {
      json &text = sarif.LastResult()["message"]["text"];
      text = text.get<std::string>() + "\n" + d.text;
      continue;
    }
    json properties = json::object();
    if (!d.option.empty()) properties["option"] = d.option;
    if (!d.hint.empty()) properties["hint"] = d.hint;
    properties["messageType"] = d.type;
    sarif.Add(KindOf(d), Level(d.type), d.text, d.from_file ? d.source : std::string(), d.line,
              properties);
    open = true;
  }
  for (const std::string &hint : run.hints) {
    const std::string file = hint.substr(0, hint.find(" starts with"));
    sarif.Add("leading-bytes", "note", hint, file, 1, json::object());
  }
}

}  // namespace

std::string SarifReport(const CheckReport &report) {
  SarifBuilder sarif;
  for (const SourceRun &run : report.runs)
    AddRun(sarif, run);
  for (const Overflow &overflow : report.overflows)
    sarif.Add("queue-overflow", "warning", OverflowText(overflow), "", 0, json::object());
  for (const std::string &warning : report.write_warnings)
    sarif.Add("write-read-back", "warning", warning, "", 0, json::object());
  return sarif.Log().dump(2) + "\n";
}

}  // namespace optkw_tool
