#include "workloads.h"

#include <array>
#include <cstdio>
#include <random>
#include <string_view>
#include <vector>

namespace optkw::bench {
namespace {

constexpr std::array<std::string_view, 5> kWords = {"alpha", "limit", "tolerance", "scaling",
                                                    "iterations"};

// Distinct codes of three letters. None begins with "hel": under Path and
// Minos such a key would abbreviate the built-in option "Help".
std::vector<std::string> Codes(int32_t count) {
  std::vector<std::string> codes;
  for (char a = 'a'; a <= 'z'; ++a)
    for (char b = 'a'; b <= 'z'; ++b)
      for (char c = 'a'; c <= 'z'; ++c) {
        if (static_cast<int32_t>(codes.size()) == count) return codes;
        if (a == 'h' && b == 'e' && c == 'l') continue;
        codes.push_back({a, b, c});
      }
  return codes;
}

std::vector<std::string_view> Words(std::string_view name) {
  std::vector<std::string_view> words;
  for (size_t start = 0;;) {
    const size_t end = name.find('_', start);
    words.push_back(name.substr(start, end - start));
    if (end == std::string_view::npos) return words;
    start = end + 1;
  }
}

// The shortest key that finds `name` under `method`.
std::string Key(Method method, std::string_view name) {
  if (method == Method::kNormal) return std::string(name);
  std::string key;
  bool first = true;
  for (std::string_view word : Words(name)) {
    if (!first) key += method == Method::kMinos ? ' ' : '_';
    key += word.substr(0, first || method == Method::kPath ? 3 : 4);
    first = false;
  }
  return key;
}

std::string LookupName(const std::string &code, int32_t k) {
  return code + "x_" + std::string(kWords[static_cast<size_t>(k % 5)]) + "_" +
         std::string(kWords[static_cast<size_t>(k / 5 % 5)]);
}

const char *LookupLine(Method method) {
  switch (method) {
    case Method::kPath:
      return "Path lookup\n";
    case Method::kMinos:
      return "Minos lookup\n";
    case Method::kNormal:
      break;
  }
  return "";
}

// The statements "key = value" that set option i mod M in turn.
void AddStatements(Workload &w, const std::vector<std::string> &keys,
                   const std::vector<std::array<std::string, 4>> &values, int64_t statements) {
  const auto options = static_cast<int64_t>(keys.size());
  for (int64_t i = 0; i < statements; ++i) {
    const auto k = static_cast<size_t>(i % options);
    w.parameters += keys[k] + " = " + values[k][static_cast<size_t>(i / options % 4)] + "\n";
  }
  w.statements = statements;
}

}  // namespace

const char *MethodName(Method method) {
  switch (method) {
    case Method::kPath:
      return "path";
    case Method::kMinos:
      return "minos";
    case Method::kNormal:
      break;
  }
  return "normal";
}

Workload LookupWorkload(Method method, int32_t options, int64_t statements) {
  Workload w;
  w.definition = LookupLine(method);
  const std::vector<std::string> codes = Codes(options);
  std::vector<std::string> keys;
  std::vector<std::array<std::string, 4>> values;
  for (int32_t k = 0; k < options; ++k) {
    const std::string name = LookupName(codes[static_cast<size_t>(k)], k);
    w.definition +=
        name + " integer 1 0 0 maxint 0 1 Integer option " + std::to_string(k + 1) + "\n";
    keys.push_back(Key(method, name));
    values.push_back({std::to_string(k % 1000), std::to_string(k % 1000 + 1),
                      std::to_string(k % 1000 + 2), std::to_string(k % 1000 + 3)});
  }
  AddStatements(w, keys, values, statements);
  // The last statement names option (N - 1) mod M, with the value of its last round.
  if (statements > 0) {
    const auto k = static_cast<int32_t>((statements - 1) % options);
    w.probe_name = LookupName(codes[static_cast<size_t>(k)], k);
    w.probe_value = k % 1000 + static_cast<int32_t>((statements - 1) / options % 4);
  }
  return w;
}

Workload MixedWorkload(int32_t options, int64_t statements) {
  std::mt19937 random(1);
  auto below = [&](uint32_t n) { return random() % n; };
  Workload w;
  std::vector<std::string> names;
  std::vector<std::array<std::string, 4>> values;
  for (int32_t k = 1; k <= options; ++k) {
    const std::string name =
        "opt_" + std::to_string(k) + "_" + std::string(kWords[below(kWords.size())]);
    const std::string tail = " 0 1 Option " + std::to_string(k) + "\n";
    const std::string ref = " " + std::to_string(k);
    std::array<std::string, 4> v;
    const uint32_t kind = below(100);
    if (kind < 30) {
      w.definition += name + " integer" + ref + " 5 -1000 maxint" + tail;
      for (auto &text : v)
        text = std::to_string(static_cast<int32_t>(below(2000000)) - 1000);
    } else if (kind < 55) {
      w.definition += name + " double" + ref + " 0.5 0 1e6" + tail;
      for (auto &text : v) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.6g", below(1000000) / 997.0);
        text = digits;
      }
    } else if (kind < 70) {
      w.definition += name + " string" + ref + " none" + tail;
      for (auto &text : v)
        text = "file_" + std::to_string(below(10000)) + ".dat";
    } else if (kind < 85) {
      w.definition += name + " boolean" + ref + " 1" + tail;
      v = {"yes", "0", "off", "True"};
    } else {
      w.definition += name + " enumstr" + ref + " fast" + tail;
      v = {"fast", "Full", "auto", "none"};
      for (std::string_view value : {"fast", "full", "auto", "none"})
        w.definition += " " + std::string(value) + " 0 Value " + std::string(value) + "\n";
    }
    names.push_back(name);
    values.push_back(v);
  }
  AddStatements(w, names, values, statements);
  return w;
}

std::string UnknownNames(int64_t statements) {
  std::string text;
  for (int64_t i = 0; i < statements; ++i)
    text += "no_such_option_" + std::to_string(i) + " = 1\n";
  return text;
}

std::string SetterDefinition() {
  return "int_option integer 1 0 0 1000000 0 1 An integer\n"
         "dbl_option double 2 0 0 1e6 0 1 A double\n"
         "str_option string 3 none 0 1 A string\n";
}

}  // namespace optkw::bench
