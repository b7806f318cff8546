// Lint: how a definition presents itself (help text, groups), the line at which
// a read stopped early, and where an option stands in the text.
#include <cstdlib>
#include <string>

#include "lint_findings.h"

namespace optkw_tool {
namespace {

bool GroupExists(const DefinitionModel &model, int number) {
  for (const GroupInfo &group : model.groups)
    if (group.number == number) return true;
  return false;
}

int GroupLine(const LintInput &input, const std::string &name) {
  for (const Statement &statement : input.text.statements)
    if (statement.type_word == "group" && statement.name == name) return statement.line;
  return 0;
}

// The statement above line `number`, if any.
const Statement *StatementAbove(const DefinitionText &text, int number) {
  const Statement *above = nullptr;
  for (const Statement &statement : text.statements)
    if (statement.line < number) above = &statement;
  return above;
}

// Why line `number` ended the read.
std::string EarlyEndCause(const DefinitionText &text, int number) {
  if (number < 1 || number > static_cast<int>(text.lines.size())) return "";
  const std::string &line = text.lines[number - 1].text;
  if (!line.empty() && line[0] == '\t')
    return "the line begins with a tab: a continuation line needs a blank in column 1";
  if (!line.empty() && line[0] == ' ') {
    const Statement *above = StatementAbove(text, number);
    if (above && !TakesContinuationLines(above->type_word))
      return "an indented line below a " + Quoted(above->type_word) + " statement (" + above->name +
             ", line " + std::to_string(above->line) + "), which takes no continuation lines";
    return "an indented line where a statement should begin";
  }
  if (!line.empty() && line[0] == '#')
    return "a comment needs \"*\" in column 1; \"#\" is a comment only in parameter text";
  return "a statement must begin with a letter or a digit (or \".\" for a dot option)";
}

}  // namespace

const Statement *OptionStatement(const LintInput &input, int number) {
  const std::string &key = input.model.options[number - 1].key;
  int occurrence = 0;
  for (int k = 1; k < number; ++k)
    if (input.model.options[k - 1].key == key) ++occurrence;
  return FindStatement(input.text, key, occurrence);
}

int OptionLine(const LintInput &input, int number) {
  const Statement *statement = OptionStatement(input, number);
  return statement ? statement->line : 0;
}

const char *SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kNote:
      return "note";
    case Severity::kWarning:
      return "warning";
    default:
      return "error";
  }
}

void CheckHelpAndGroups(const LintInput &input, Findings &findings) {
  const DefinitionModel &model = input.model;
  for (const OptionInfo &option : model.options) {
    if (option.number == 1) continue;  // the built-in Help
    const int line = OptionLine(input, option.number);
    if (option.help.empty())
      findings.push_back({line, Severity::kNote, "no-help",
                          "option " + Quoted(option.key) + " has no help text", option.key});
    if (option.group > 0 && !model.groups.empty() && !GroupExists(model, option.group))
      findings.push_back({line, Severity::kWarning, "unknown-group",
                          "option " + Quoted(option.key) + " names group " +
                              std::to_string(option.group) +
                              ", which isn't defined: the summary leaves it out",
                          option.key});
  }
  for (const GroupInfo &group : model.groups) {
    bool used = false;
    for (const OptionInfo &option : model.options)
      used = used || option.group == group.number;
    if (!used)
      findings.push_back({GroupLine(input, group.name), Severity::kNote, "empty-group",
                          "group " + Quoted(group.name) + " (number " +
                              std::to_string(group.number) + ") has no options",
                          ""});
  }
}

void CheckEarlyEnd(const LintInput &input, Findings &findings) {
  for (const Message &message : input.read_messages) {
    if (message.text.find("Remaining text ignored") == std::string::npos) continue;
    const size_t at = message.text.find("line ");
    const int line = at == std::string::npos ? 0 : std::atoi(message.text.c_str() + at + 5);
    const int rest = line > 0 ? static_cast<int>(input.text.lines.size()) - line + 1 : 0;
    findings.push_back({line, Severity::kError, "text-ignored",
                        "the definition ends here, and " + std::to_string(rest) +
                            " line(s) from here on are ignored: " + EarlyEndCause(input.text, line),
                        ""});
  }
}

}  // namespace optkw_tool
