// Lint: names that the lookup method in force can't reach. Reachability is
// asked of the library itself (its own lookup on each name must give that
// option back); the text here only explains why it doesn't.
#include <algorithm>
#include <optional>
#include <string>

#include "lint_findings.h"

namespace optkw_tool {
namespace {

const char *const kMethodNames[] = {"Normal", "Path", "Minos"};

int FindNumber(optHandle_t h, const std::string &name) {
  int number = -1, reference = -1;
  coptFindStr(h, name.c_str(), &number, &reference);
  return number;
}

// The first word (between underscores) with fewer than 3 characters, if any.
std::optional<std::string> ShortWord(const std::string &name) {
  size_t start = 0;
  while (true) {
    const size_t end = std::min(name.find('_', start), name.size());
    if (end - start < 3) return name.substr(start, end - start);
    if (end == name.size()) return std::nullopt;
    start = end + 1;
  }
}

std::string HowNamesMatch(int lookup) {
  return lookup == 1 ? "under Path two names are the same when they have as many words and "
                       "agree in the first 3 letters of each word"
                     : "under Minos two names are the same when they have as many words and "
                       "agree in the first 3 letters of the first word and 4 of each further one";
}

Finding ShadowedBy(const LintInput &input, const OptionInfo &option, int found) {
  const int lookup = input.text.lookup_code;
  const std::string name = Quoted(option.key);
  if (found == 1)
    return {0, Severity::kError, "shadowed-by-help",
            "option " + name +
                " can never be found: the built-in option \"Help\" comes first "
                "and the " +
                kMethodNames[lookup] + " lookup matches it",
            option.key};
  const OptionInfo &first = input.model.options[found - 1];
  const std::string where = " (line " + std::to_string(OptionLine(input, found)) + ")";
  if (SameText(first.key, option.key))
    return {0, Severity::kError, "duplicate-name",
            "option " + name + " is defined twice: every lookup finds the first one" + where,
            option.key};
  std::string message = "option " + name + " can never be found: the " + kMethodNames[lookup] +
                        " lookup finds " + Quoted(first.key) + where + " first, and " +
                        HowNamesMatch(lookup);
  if (option.key.find('/') != std::string::npos || first.key.find('/') != std::string::npos)
    message += "; \"/\" doesn't separate words, so a name with \"/\" is one word";
  return {0, Severity::kError, "lookup-duplicate", message, option.key};
}

Finding Unreachable(const LintInput &input, const OptionInfo &option, int found) {
  const int lookup = input.text.lookup_code;
  const std::optional<std::string> word = ShortWord(option.key);
  if (lookup == 1 && word)
    return {0, Severity::kError, "short-word",
            "option " + Quoted(option.key) +
                " can never be found under the Path lookup: its word " + Quoted(*word) +
                " has fewer than 3 letters, and every word must match in 3",
            option.key};
  if (found >= 1 && found < option.number) return ShadowedBy(input, option, found);
  return {0, Severity::kError, "unreachable",
          "option " + Quoted(option.key) + " can't be found by its own name under the " +
              kMethodNames[lookup] + " lookup",
          option.key};
}

}  // namespace

void CheckNameReachability(const LintInput &input, Findings &findings) {
  for (const OptionInfo &option : input.model.options) {
    // The first option is the built-in Help; dot options are never named alone.
    if (option.number == 1 || option.key.empty() || option.key[0] == '.') continue;
    const int found = FindNumber(input.handle, option.key);
    if (found == option.number) continue;
    Finding finding = Unreachable(input, option, found);
    finding.line = OptionLine(input, option.number);
    findings.push_back(finding);
  }
}

void CheckSynonyms(const LintInput &input, Findings &findings) {
  std::string synonym(OPTKW_STRBUF_SIZE, '\0'), target(OPTKW_STRBUF_SIZE, '\0');
  for (int pos = 1; pos <= optSynonymCount(input.handle); ++pos) {
    coptGetSynonym(input.handle, pos, synonym.data(), target.data());
    const std::string name = synonym.c_str(), target_key = target.c_str();
    if (target_key.empty()) continue;  // the library has said so
    int target_number = -1;
    for (const OptionInfo &option : input.model.options)
      if (option.key == target_key && target_number < 0) target_number = option.number;
    const int found = FindNumber(input.handle, name);
    if (found == target_number || found < 1) continue;
    const OptionInfo &other = input.model.options[found - 1];
    Finding finding{0, Severity::kWarning, "synonym-shadowed", "", name};
    finding.message =
        SameText(other.key, name)
            ? "synonym " + Quoted(name) + " is also the name of option " + Quoted(other.key) +
                  ": options are looked up first, so the synonym never reaches " +
                  Quoted(target_key)
            : "synonym " + Quoted(name) + " matches option " + Quoted(other.key) + " under the " +
                  kMethodNames[input.text.lookup_code] +
                  " lookup, which is asked first: the synonym never reaches " + Quoted(target_key);
    for (const Statement &statement : input.text.statements)
      if (statement.type_word == "synonym" && SameText(statement.name, name))
        finding.line = statement.line;
    findings.push_back(finding);
  }
}

}  // namespace optkw_tool
