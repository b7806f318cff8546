// Lint: multilists and macros whose members lead back to themselves. The C
// interface doesn't tell an option's members, so they are read from the member
// lines of the definition text, and each member word is resolved as the reader
// resolved it where it stood: a multilist member by the lookup method (it can
// only find options defined above it, or the multilist itself), a macro member
// by its whole name among the options above the macro.
#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "lint_findings.h"

namespace optkw_tool {
namespace {

using MemberGraph = std::map<int, std::vector<int>>;

int MultilistMember(const LintInput &input, const std::string &word, int own_number) {
  int number = -1, reference = -1;
  coptFindStr(input.handle, word.c_str(), &number, &reference);
  // A later option wasn't there yet when the member was read.
  return number >= 1 && number <= own_number ? number : -1;
}

int MacroMember(const LintInput &input, const std::string &word, int own_number) {
  for (const OptionInfo &option : input.model.options)
    if (option.number < own_number && SameText(option.key, word)) return option.number;
  return -1;
}

MemberGraph MembersOf(const LintInput &input) {
  MemberGraph graph;
  for (const OptionInfo &option : input.model.options) {
    if (option.type != optTypeMultiList && option.type != optTypeMacro) continue;
    const Statement *statement = OptionStatement(input, option.number);
    if (!statement) continue;
    for (const TextLine &line : statement->continuation) {
      std::vector<std::string> words = Words(line.text);
      if (option.type == optTypeMacro && words.size() > 1) words.resize(1);  // one name a line
      for (const std::string &word : words) {
        const int member = option.type == optTypeMacro
                               ? MacroMember(input, word, option.number)
                               : MultilistMember(input, word, option.number);
        if (member >= 1) graph[option.number].push_back(member);
      }
    }
  }
  return graph;
}

// Each cycle once, as the path from its first option back to it.
std::vector<std::vector<int>> CyclesOf(const MemberGraph &graph) {
  std::vector<std::vector<int>> cycles;
  std::set<std::set<int>> seen;
  std::map<int, int> state;  // 1 on the path, 2 done
  std::vector<int> path;
  std::function<void(int)> visit = [&](int node) {
    state[node] = 1;
    path.push_back(node);
    auto edges = graph.find(node);
    if (edges != graph.end()) {
      for (int next : edges->second) {
        if (state[next] == 1) {
          std::vector<int> cycle(std::find(path.begin(), path.end(), next), path.end());
          cycle.push_back(next);
          if (seen.insert(std::set<int>(cycle.begin(), cycle.end())).second)
            cycles.push_back(cycle);
        } else if (state[next] == 0) {
          visit(next);
        }
      }
    }
    path.pop_back();
    state[node] = 2;
  };
  for (const auto &[node, edges] : graph)
    if (state[node] == 0) visit(node);
  return cycles;
}

}  // namespace

void CheckMemberCycles(const LintInput &input, Findings &findings) {
  for (const std::vector<int> &cycle : CyclesOf(MembersOf(input))) {
    const OptionInfo &first = input.model.options[cycle.front() - 1];
    std::string path;
    for (int number : cycle)
      path += (path.empty() ? "" : " -> ") + input.model.options[number - 1].key;
    findings.push_back(
        {OptionLine(input, first.number), Severity::kError, "member-cycle",
         std::string(TypeName(first.type)) + " \"" + first.key +
             "\" reaches itself through its members: " + path +
             (cycle.size() == 2 ? " (a multilist's members are looked up where they stand, "
                                  "and the multilist itself is already defined there)"
                                : ""),
         first.key});
  }
}

}  // namespace optkw_tool
