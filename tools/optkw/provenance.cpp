#include "provenance.h"

#include <fstream>

#include "client.h"

namespace optkw_tool {
namespace {

std::string Text(int (*get)(optHandle_t, int, char *), optHandle_t h, int nr) {
  char text[OPTKW_STRBUF_SIZE] = "";
  get(h, nr, text);
  return text;
}

// The library reads nine nested files at most.
constexpr int kMaxNesting = 9;

// Reads a statement line on its own, as a string source; gives the name of the
// first file that the line read in turn, if any.
std::string ReadLine(optHandle_t h, const std::string &line) {
  optReadFromPChar(h, line.c_str());
  std::string nested;
  for (const Message &message : MessagesFrom(h, 1)) {
    if (message.type != optMsgFileEnter || message.text == "Reading parameter(s) from \"pchar\"")
      continue;
    const size_t open = message.text.find('"');
    nested = message.text.substr(open + 1, message.text.size() - open - 2);
    break;
  }
  optClearMessages(h);
  return nested;
}

void Note(optHandle_t h, int nr, OptionState &state) {
  int ref, data_type, type, subtype;
  optGetInfoNr(h, nr, &state.defined, &state.defined_recent, &ref, &data_type, &type, &subtype);
  if (type == optTypeStrList) {
    char name[OPTKW_STRBUF_SIZE], key[OPTKW_STRBUF_SIZE];
    coptGetHelpNr(h, nr, key, name);
    state.entries = coptListCountStr(h, key);
  } else {
    state.first = Text(coptgetstrnr, h, nr);
    if (subtype == optsub2Values) state.second = Text(coptgetstr2nr, h, nr);
  }
}

bool SameState(const OptionState &a, const OptionState &b) {
  return a.defined == b.defined && a.defined_recent == b.defined_recent && a.first == b.first &&
         a.second == b.second && a.entries == b.entries;
}

}  // namespace

Snapshot TakeSnapshot(optHandle_t h, const std::vector<int> *only) {
  Snapshot snapshot;
  snapshot.count = optCount(h);
  if (only == nullptr) {
    for (int nr = 1; nr <= snapshot.count; ++nr)
      Note(h, nr, snapshot.by_number[nr]);
  } else {
    for (int nr : *only)
      if (nr <= snapshot.count) Note(h, nr, snapshot.by_number[nr]);
  }
  return snapshot;
}

std::vector<int> SetBetween(const Snapshot &before, const Snapshot &after) {
  std::vector<int> set;
  for (const auto &[nr, state] : after.by_number) {
    const auto earlier = before.by_number.find(nr);
    if (nr > before.count || earlier == before.by_number.end() ||
        !SameState(earlier->second, state)) {
      set.push_back(nr);
    }
  }
  return set;
}

std::map<int, Origin> AttributeLines(const std::string &file, const std::vector<int> &wanted,
                                     const std::function<void(optHandle_t)> &prepare, int depth) {
  std::map<int, Origin> origins;
  Handle shadow;
  prepare(shadow.get());
  optEchoSet(shadow.get(), 1);  // keeps the brackets of a nested file that says nothing
  std::ifstream in(file, std::ios::binary);
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    // The file reader passes over empty lines and comment lines.
    if (line.empty() || line[0] == '*') continue;
    const Snapshot before = TakeSnapshot(shadow.get(), &wanted);
    const std::string nested = ReadLine(shadow.get(), line);
    const std::vector<int> set = SetBetween(before, TakeSnapshot(shadow.get(), &wanted));
    std::map<int, Origin> inner;
    if (!nested.empty() && !set.empty() && depth < kMaxNesting)
      inner = AttributeLines(nested, set, prepare, depth + 1);
    for (int nr : set) {
      const auto found = inner.find(nr);
      origins[nr] = found != inner.end() ? found->second : Origin{file, number};
    }
  }
  return origins;
}

std::string ValueText(optHandle_t h, int nr) {
  int defined, recent, ref, data_type, type, subtype;
  optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
  if (type == optTypeStrList) {
    char key[OPTKW_STRBUF_SIZE], help[OPTKW_STRBUF_SIZE], entry[OPTKW_STRBUF_SIZE];
    coptGetHelpNr(h, nr, key, help);
    std::string text;
    for (int k = 1; k <= coptListCountStr(h, key); ++k) {
      coptReadFromListStr(h, key, k, entry);
      text += std::string(k > 1 ? ", " : "") + "\"" + entry + "\"";
    }
    return text;
  }
  std::string text = Text(coptgetstrnr, h, nr);
  if (subtype == optsub2Values) text += " " + Text(coptgetstr2nr, h, nr);
  return text;
}

OptionReport ReportOption(optHandle_t h, optHandle_t defaults, int nr,
                          const std::map<int, Origin> &origins) {
  OptionReport report;
  report.name = Text(coptgetnamenr, h, nr);
  report.value = ValueText(h, nr);
  // A string list made by a "--" key exists in `h` alone.
  report.default_value = nr <= optCount(defaults) ? ValueText(defaults, nr) : std::string();
  report.changed = report.value != report.default_value;
  if (auto origin = origins.find(nr); origin != origins.end())
    report.origin = origin->second.Text();
  return report;
}

}  // namespace optkw_tool
