// optkw lint: what a definition says that its author almost never means, in
// the style of a compiler's diagnostics or as JSON, with an exit status for CI.
#include <algorithm>
#include <cstdio>
#include <string>

#include "client.h"
#include "commands.h"
#include "definition_model.h"
#include "definition_text.h"
#include "lint_findings.h"

namespace optkw_tool {
namespace {

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

}  // namespace

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
    std::printf("%s\n", LintJson(request.definition, findings).c_str());
  else
    PrintText(request.definition, findings);
  std::fflush(stdout);
  const bool failing = std::any_of(findings.begin(), findings.end(),
                                   [](const Finding &f) { return f.severity != Severity::kNote; });
  return failing ? kErrors : kClean;
}

}  // namespace optkw_tool
