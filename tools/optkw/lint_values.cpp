// Lint: defaults, bounds and enumerated values that the reader takes without a
// word. Range faults of defaults are the library's to report; what it accepts
// silently is a boolean default other than 0 or 1, a number that didn't
// survive conversion (an integer beyond 32 bits saturates, a double beyond
// 1e299 exceeds "maxdouble"), and enumerated values that a parameter can't tell
// apart.
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "lint_findings.h"

namespace optkw_tool {
namespace {

constexpr double kMaxDouble = 1.0e299;

// The value of an integer written in digits (decimal, or hexadecimal behind
// "$" or "0x"), before the reader squeezes it into 32 bits; nothing for
// keywords and for what the reader refuses, which it reports itself.
std::optional<double> WrittenInteger(const std::string &token) {
  size_t at = token.size() > 0 && (token[0] == '+' || token[0] == '-') ? 1 : 0;
  int base = 10;
  if (token.compare(at, 1, "$") == 0) {
    base = 16, at += 1;
  } else if (token.compare(at, 2, "0x") == 0 || token.compare(at, 2, "0X") == 0) {
    base = 16, at += 2;
  }
  if (at == token.size()) return std::nullopt;
  double value = 0;
  for (; at < token.size(); ++at) {
    const char c = static_cast<char>(std::tolower(static_cast<unsigned char>(token[at])));
    const int digit = c >= '0' && c <= '9'                 ? c - '0'
                      : base == 16 && c >= 'a' && c <= 'f' ? c - 'a' + 10
                                                           : -1;
    if (digit < 0) return std::nullopt;
    value = value * base + digit;
  }
  return token[0] == '-' ? -value : value;
}

bool Fits32Bits(double value) {
  return value >= -2147483648.0 && value <= 2147483647.0;
}

// What went wrong with an integer token, if anything.
std::optional<std::string> IntegerProblem(const std::string &token, int stored) {
  const std::optional<double> value = WrittenInteger(token);
  if (!value || Fits32Bits(*value)) return std::nullopt;
  return Quoted(token) + " is beyond 32 bits and is stored as " + std::to_string(stored) +
         (stored > 0 ? " (maxint)" : " (minint)");
}

std::optional<std::string> DoubleProblem(std::string token, double stored) {
  const std::string lower = Lower(token);
  if (lower == "maxdouble" || lower == "mindouble" || lower == "eps") return std::nullopt;
  for (char &c : token)
    if (c == 'd' || c == 'D') c = 'e';
  char *end = nullptr;
  const double value = std::strtod(token.c_str(), &end);
  if (token.empty() || *end != '\0' || !std::isfinite(value)) return std::nullopt;
  if (std::fabs(value) > kMaxDouble)
    return Quoted(token) + " is beyond " + (value > 0 ? "maxdouble" : "mindouble") +
           " (1e299), the largest number the library knows; write " +
           (value > 0 ? "maxdouble" : "mindouble") + " for no bound";
  if (value != 0 && stored == 0) return Quoted(token) + " is too small and is stored as 0";
  return std::nullopt;
}

void NumberFindings(const LintInput &input, const OptionInfo &option, Findings &findings) {
  const Statement *statement = OptionStatement(input, option.number);
  if (!statement) return;
  static const char *const kFields[] = {"default", "lower bound", "upper bound"};
  const std::vector<std::string> &fields = statement->fields;
  for (size_t k = 0; k < 3 && k + 1 < fields.size(); ++k) {
    std::optional<std::string> problem;
    if (option.type == optTypeInteger) {
      int lo, hi, def;
      optGetBoundsInt(input.handle, option.number, &lo, &hi, &def);
      const int stored[] = {def, lo, hi};
      problem = IntegerProblem(fields[k + 1], stored[k]);
    } else {
      double lo, hi, def;
      optGetBoundsDbl(input.handle, option.number, &lo, &hi, &def);
      const double stored[] = {def, lo, hi};
      problem = DoubleProblem(fields[k + 1], stored[k]);
    }
    if (problem)
      findings.push_back(
          {statement->line, Severity::kWarning, "number-not-kept",
           std::string("the ") + kFields[k] + " of option " + Quoted(option.key) + ": " + *problem,
           option.key});
  }
}

void EnumIntFindings(const LintInput &input, const OptionInfo &option, Findings &findings) {
  const Statement *statement = OptionStatement(input, option.number);
  if (!statement) return;
  std::vector<std::pair<int, std::string>> tokens;  // line, token
  if (statement->fields.size() > 1) tokens.push_back({statement->line, statement->fields[1]});
  for (const TextLine &line : statement->continuation) {
    const std::vector<std::string> words = Words(line.text);
    if (!words.empty()) tokens.push_back({line.number, words[0]});
  }
  for (const auto &[line, token] : tokens) {
    const std::optional<double> written = WrittenInteger(token);
    if (!written || Fits32Bits(*written)) continue;
    const double value = *written;
    findings.push_back({line, Severity::kWarning, "number-not-kept",
                        "a value of option " + Quoted(option.key) + ": " + Quoted(token) +
                            " is beyond 32 bits and is stored as " +
                            (value > 0 ? "maxint" : "minint"),
                        option.key});
  }
}

int ValueLine(const LintInput &input, const OptionInfo &option, size_t index) {
  const Statement *statement = OptionStatement(input, option.number);
  if (!statement || index >= statement->continuation.size()) return 0;
  return statement->continuation[index].number;
}

}  // namespace

void CheckDefaultsAndBounds(const LintInput &input, Findings &findings) {
  for (const OptionInfo &option : input.model.options) {
    if (option.type == optTypeInteger || option.type == optTypeDouble)
      NumberFindings(input, option, findings);
    if (option.type == optTypeEnumInt) EnumIntFindings(input, option, findings);
    const std::string default_value = option.default_value.value_or("");
    if (option.type == optTypeBoolean && default_value != "0" && default_value != "1")
      findings.push_back({OptionLine(input, option.number), Severity::kWarning, "boolean-default",
                          "boolean option " + Quoted(option.key) + " has the default " +
                              default_value +
                              ", which the library keeps as it is: a boolean is 0 or 1",
                          option.key});
  }
}

// An enumerated default is checked without regard to case, and kept as written.
void DefaultCaseFinding(const LintInput &input, const OptionInfo &option, Findings &findings) {
  const std::string default_value = option.default_value.value_or("");
  for (const EnumValue &value : option.values) {
    if (value.value == default_value) return;
    if (!SameText(value.value, default_value)) continue;
    findings.push_back({OptionLine(input, option.number), Severity::kNote, "default-case",
                        "the default " + Quoted(default_value) + " of option " +
                            Quoted(option.key) + " is the value " + Quoted(value.value) +
                            " only without regard to case; a client reading the default gets " +
                            Quoted(default_value),
                        option.key});
    return;
  }
}

void CheckEnumeratedValues(const LintInput &input, Findings &findings) {
  for (const OptionInfo &option : input.model.options) {
    if (option.type == optTypeEnumStr) DefaultCaseFinding(input, option, findings);
    const std::vector<EnumValue> &values = option.values;
    for (size_t later = 1; later < values.size(); ++later) {
      for (size_t first = 0; first < later; ++first) {
        const std::string &a = values[first].value, &b = values[later].value;
        if (!SameText(a, b)) continue;
        Finding finding{ValueLine(input, option, later), Severity::kWarning, "", "", option.key};
        if (a == b) {
          finding.code = "enum-duplicate";
          finding.message =
              "option " + Quoted(option.key) + " lists the value " + Quoted(b) + " twice";
        } else {
          finding.code = "enum-case-duplicate";
          finding.message = "values " + Quoted(a) + " and " + Quoted(b) + " of option " +
                            Quoted(option.key) +
                            " differ only in case: values match without regard to case, so " +
                            Quoted(b) + " in parameter text selects " + Quoted(a);
        }
        findings.push_back(finding);
        break;
      }
    }
  }
}

}  // namespace optkw_tool
