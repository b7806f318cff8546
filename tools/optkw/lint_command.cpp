// optkw lint: what a definition says that its author almost never means, in
// the style of a compiler's diagnostics or as JSON, with an exit status for CI.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "client.h"
#include "commands.h"
#include "definition_model.h"
#include "definition_text.h"
#include "lint_findings.h"

namespace optkw_tool {
namespace {

struct LintRequest {
  std::string definition;
  std::string format = "text";
};

Findings LintDefinition(const LintInput &input) {
  Findings findings;
  CheckEarlyEnd(input, findings);
  CheckNameReachability(input, findings);
  CheckSynonyms(input, findings);
  CheckMemberCycles(input, findings);
  CheckDefaultsAndBounds(input, findings);
  CheckEnumeratedValues(input, findings);
  CheckHelpAndGroups(input, findings);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding &a, const Finding &b) { return a.line < b.line; });
  return findings;
}

void PrintText(const std::string &file, const Findings &findings) {
  for (const Finding &finding : findings) {
    const std::string where = finding.line > 0 ? ":" + std::to_string(finding.line) : "";
    std::printf("%s%s: %s: %s [%s]\n", file.c_str(), where.c_str(), SeverityName(finding.severity),
                finding.message.c_str(), finding.code.c_str());
  }
}

void PrintJson(const std::string &file, const Findings &findings) {
  nlohmann::json records = nlohmann::json::array();
  for (const Finding &finding : findings) {
    records.push_back({{"file", file},
                       {"line", finding.line > 0 ? nlohmann::json(finding.line) : nullptr},
                       {"severity", SeverityName(finding.severity)},
                       {"code", finding.code},
                       {"message", finding.message},
                       {"option", finding.option.empty() ? nlohmann::json(nullptr)
                                                         : nlohmann::json(finding.option)}});
  }
  // Definition text is bytes: replace what isn't UTF-8 rather than fail.
  std::printf("%s\n",
              records.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
}

int RunLint(const LintRequest &request) {
  const std::optional<DefinitionText> text = ReadDefinitionText(request.definition);
  Handle handle;
  optHandle_t h = handle.get();
  const int read = coptReadDefinition(h, request.definition.c_str());
  const std::vector<Message> messages = MessagesFrom(h, 1);
  optClearMessages(h);
  if (read > 0 || !text) {
    for (const Message &message : messages)
      std::fprintf(stderr, "%s\n", message.text.c_str());
    return kUsageOrFile;
  }
  // A second handle answers the lookups: describing a definition sets values.
  Handle described;
  ReadDefinitionNoted(described.get(), request.definition);
  const DefinitionModel model = DescribeDefinition(described.get());
  const Findings findings = LintDefinition({h, model, *text, messages});
  if (request.format == "json")
    PrintJson(request.definition, findings);
  else
    PrintText(request.definition, findings);
  std::fflush(stdout);
  const bool failing = std::any_of(findings.begin(), findings.end(),
                                   [](const Finding &f) { return f.severity != Severity::kNote; });
  return failing ? kErrors : kClean;
}

}  // namespace

void AddLintCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<LintRequest>();
  CLI::App *command =
      app.add_subcommand("lint", "report what a definition accepts but hardly ever means");
  command->footer(
      "Reports names that the lookup method can't reach, multilists that contain themselves, "
      "numbers that didn't survive conversion, boolean defaults other than 0 and 1, enumerated "
      "values that differ only in case, synonyms hidden by option names, missing help, empty "
      "or unknown groups, and why a definition ended early. Exit status: 0 clean or notes "
      "only, 1 warnings or errors, 2 a usage fault or a file that can't be read.\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("--format", request->format, "text (compiler style) or json")
      ->check(CLI::IsMember({"text", "json"}));
  command->callback([request, &status] { status = RunLint(*request); });
}

}  // namespace optkw_tool
