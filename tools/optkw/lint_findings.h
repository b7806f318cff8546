// What `optkw lint` finds in a definition: things the definition reader accepts
// but an author almost never means. Each check reads the definition through
// the library; the definition text is consulted only for what the library
// doesn't expose (see definition_text.h).
#pragma once

#include <string>
#include <vector>

#include "client.h"
#include "definition_model.h"
#include "definition_text.h"

namespace optkw_tool {

enum class Severity { kNote, kWarning, kError };

struct Finding {
  int line = 0;  // 0 where no line is known
  Severity severity = Severity::kWarning;
  std::string code;
  std::string message;
  std::string option;  // empty where the finding concerns no single option
};

// Everything lint needs to know about one definition.
struct LintInput {
  optHandle_t handle;  // has read the definition, nothing else
  const DefinitionModel &model;
  const DefinitionText &text;
  const std::vector<Message> &read_messages;  // what the library said while reading
};

using Findings = std::vector<Finding>;

void CheckNameReachability(const LintInput &input, Findings &findings);
void CheckSynonyms(const LintInput &input, Findings &findings);
void CheckMemberCycles(const LintInput &input, Findings &findings);
void CheckDefaultsAndBounds(const LintInput &input, Findings &findings);
void CheckEnumeratedValues(const LintInput &input, Findings &findings);
void CheckHelpAndGroups(const LintInput &input, Findings &findings);
void CheckEarlyEnd(const LintInput &input, Findings &findings);

// The line of option `number` in the definition text, 0 if not found.
int OptionLine(const LintInput &input, int number);
const Statement *OptionStatement(const LintInput &input, int number);

const char *SeverityName(Severity severity);

// The findings as a JSON array of records, for programs.
std::string LintJson(const std::string &file, const Findings &findings);

}  // namespace optkw_tool
