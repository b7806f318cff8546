// The pieces of a whole help listing. The detail entry of each option is the
// library's own, asked for by the option's name; the summary is written here by
// the library's rules (label, padding, long labels on a line of their own,
// lines cut at 255 bytes), and the tests compare it with the library's text on
// every definition small enough for the library to list whole.
#include "help_pieces.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <optional>

namespace optkw_tool {
namespace {

constexpr size_t kLineLimit = 255;
constexpr size_t kLabelWidth = 22;

std::string Text(const std::string &buffer) {
  return buffer.c_str();
}

// What a detail entry shows of an option, to tell whether an option read on
// its own is the same as in the whole definition.
std::string Fingerprint(optHandle_t h, int nr) {
  int defined, recent, reference, data_type, type, subtype;
  optGetInfoNr(h, nr, &defined, &recent, &reference, &data_type, &type, &subtype);
  std::string key(OPTKW_STRBUF_SIZE, '\0'), text(OPTKW_STRBUF_SIZE, '\0');
  coptGetHelpNr(h, nr, key.data(), text.data());
  std::string print =
      std::to_string(type) + "/" + std::to_string(subtype) + "/" + Text(key) + "/" + Text(text);
  char number[128];
  if (type == optTypeInteger) {
    int lo, hi, def;
    optGetBoundsInt(h, nr, &lo, &hi, &def);
    std::snprintf(number, sizeof number, "/%d/%d/%d", lo, hi, def);
    print += number;
  } else if (type == optTypeDouble) {
    double lo, hi, def;
    optGetBoundsDbl(h, nr, &lo, &hi, &def);
    std::snprintf(number, sizeof number, "/%a/%a/%a", lo, hi, def);
    print += number;
  } else if (type == optTypeString || type == optTypeEnumStr) {
    coptGetDefaultStr(h, nr, text.data());
    print += "/" + Text(text);
  } else if (type == optTypeBoolean || type == optTypeEnumInt) {
    int value = 0;
    optGetIntNr(h, nr, &value);
    print += "/" + std::to_string(value);
  }
  int count = 0;
  if (optGetEnumCount(h, nr, &count) == 0) return print;
  for (int k = 1; k <= count; ++k) {
    int ival = 0, context = 0;
    coptGetEnumValue(h, nr, k, &ival, text.data());
    print += "/" + Text(text);
    coptGetEnumHelp(h, nr, k, &context, text.data());
    print += ":" + std::to_string(context) + ":" + Text(text);
  }
  return print;
}

bool HasContinuationLines(const std::string &type_word) {
  for (const char *word : {"integer", "double", "boolean", "enumstr", "enumint"})
    if (type_word == word) return true;
  return false;
}

// The detail entry of `request` in `h`, or nothing if the library had no room.
std::optional<std::vector<std::string>> LibraryEntry(optHandle_t h, const std::string &request) {
  optClearMessages(h);
  coptShowHelp(h, request.c_str());
  std::vector<std::string> lines;
  for (const Message &message : MessagesFrom(h, 1)) {
    if (message.type != optMsgHelp) return std::nullopt;
    lines.push_back(message.text);
  }
  optClearMessages(h);
  if (lines.empty()) return std::nullopt;
  return lines;
}

int UpperAscii(char c) {
  const int byte = static_cast<unsigned char>(c);
  return byte >= 'a' && byte <= 'z' ? byte - 32 : byte;
}

// The library's order of names: the trailing digits of a name compare as a
// number (a run too long for 32 bits as the largest), the rest as text without
// regard to case.
int CompareNatural(const std::string &a, const std::string &b) {
  auto split = [](const std::string &key, std::string &stem) {
    size_t start = key.size();
    while (start > 0 && key[start - 1] >= '0' && key[start - 1] <= '9')
      --start;
    stem = key.substr(0, start);
    const std::string digits = key.substr(start);
    if (digits.empty()) return 0LL;
    return digits.size() > 10 ? 2147483647LL : std::min(std::stoll(digits), 2147483647LL);
  };
  std::string stem_a, stem_b;
  const long long number_a = split(a, stem_a), number_b = split(b, stem_b);
  for (size_t k = 0; k < stem_a.size() && k < stem_b.size(); ++k) {
    const int a_char = UpperAscii(stem_a[k]), b_char = UpperAscii(stem_b[k]);
    if (a_char != b_char) return a_char - b_char;
  }
  if (stem_a.size() != stem_b.size())
    return static_cast<int>(stem_a.size()) - static_cast<int>(stem_b.size());
  return static_cast<int>(number_a - number_b);
}

// The library's sort, step for step, so that names that compare equal end up
// in the order it leaves them in: a quicksort whose pivot is a position.
void QuickSort(std::vector<SortedEntry> &entries, int lo, int hi) {
  auto compare = [&](int i, int j) { return CompareNatural(entries[i].key, entries[j].key); };
  for (;;) {
    int p = (lo + hi) >> 1, i = lo, j = hi;
    do {
      while (compare(i, p) < 0)
        ++i;
      while (compare(j, p) > 0)
        --j;
      if (i <= j) {
        std::swap(entries[i], entries[j]);
        if (p == i) {
          p = j;
        } else if (p == j) {
          p = i;
        }
        ++i;
        --j;
      }
    } while (i <= j);
    if (lo < j) QuickSort(entries, lo, j);
    lo = i;
    if (i >= hi) return;
  }
}

bool SameNames(const std::vector<SortedEntry> &a, const std::vector<SortedEntry> &b) {
  if (a.size() != b.size()) return false;
  for (size_t k = 0; k < a.size(); ++k)
    if (a[k].key != b[k].key || a[k].synonym != b[k].synonym) return false;
  return true;
}

}  // namespace

void HelpLineWriter::Write(const std::string &text) {
  if (text.empty()) return Flush();
  line_ += text;
  if (line_.size() > kLineLimit) line_.resize(kLineLimit);
}

void HelpLineWriter::Flush() {
  if (line_.empty()) return;
  lines_.push_back(line_);
  line_.clear();
}

HelpPieces::HelpPieces(optHandle_t h, const std::string &file, std::vector<SortedEntry> sorted)
    : h_(h), file_(file), sorted_(std::move(sorted)) {
  text_ = ReadDefinitionText(file);
  if (text_) lookup_code_ = text_->lookup_code;
  LoadFacts();
  ResolveEntries();
}

void HelpPieces::LoadFacts() {
  std::string name(OPTKW_STRBUF_SIZE, '\0'), key(OPTKW_STRBUF_SIZE, '\0'),
      help(OPTKW_STRBUF_SIZE, '\0');
  for (int nr = 1; nr <= optCount(h_); ++nr) {
    OptionFacts facts;
    coptGetNameNr(h_, nr, name.data());
    coptGetHelpNr(h_, nr, key.data(), help.data());
    facts.display = Text(name), facts.key = Text(key), facts.help = Text(help);
    coptGetOptHelpNr(h_, nr, name.data(), &facts.help_context, &facts.group);
    options_.push_back(facts);
  }
  for (int pos = 1; pos <= optSynonymCount(h_); ++pos) {
    coptGetSynonym(h_, pos, name.data(), key.data());
    synonyms_.push_back({Text(name), Text(key)});
  }
}

// Which option each sorted name stands for. Options with the same name come in
// the order of definition; a synonym stands for the target of the first
// synonym of that name, as the library looks it up.
void HelpPieces::ResolveEntries() {
  std::map<std::string, std::deque<int>> listed;
  std::map<std::string, int> first_of_key;
  for (size_t k = 0; k < options_.size(); ++k) {
    const OptionFacts &facts = options_[k];
    first_of_key.emplace(facts.key, static_cast<int>(k) + 1);
    if (facts.help_context > 0 && facts.group > 0)
      listed[facts.key].push_back(static_cast<int>(k) + 1);
  }
  OrderOfEqualNames(first_of_key);
  for (SortedEntry &entry : sorted_) {
    if (entry.number > 0) continue;
    if (!entry.synonym) {
      std::deque<int> &numbers = listed[entry.key];
      if (!numbers.empty()) entry.number = numbers.front(), numbers.pop_front();
      continue;
    }
    for (const auto &[synonym, target] : synonyms_) {
      if (!SameText(synonym, entry.key)) continue;
      auto found = first_of_key.find(target);
      if (found != first_of_key.end()) entry.number = found->second;
      break;
    }
  }
}

// Options that share a name exactly come out of the library's sort in an
// order that only the sort itself tells: repeat it, and take its numbers if it
// gives the very names the library listed.
void HelpPieces::OrderOfEqualNames(const std::map<std::string, int> &first_of_key) {
  std::vector<SortedEntry> entries;
  for (size_t k = 0; k < options_.size(); ++k)
    if (options_[k].help_context > 0 && options_[k].group > 0)
      entries.push_back({options_[k].key, false, static_cast<int>(k) + 1});
  for (const auto &[synonym, target] : synonyms_) {
    auto found = first_of_key.find(target);
    if (found == first_of_key.end()) continue;
    const OptionFacts &option = options_[found->second - 1];
    if (option.help_context > 0 && option.group > 0) entries.push_back({synonym, true, 0});
  }
  if (entries.size() > 1) QuickSort(entries, 0, static_cast<int>(entries.size()) - 1);
  if (!SameNames(entries, sorted_)) return;
  for (size_t k = 0; k < entries.size(); ++k)
    if (!entries[k].synonym) sorted_[k].number = entries[k].number;
}

// The marks of deprecated and obsolete options. Parameter text warns about
// neither immediate options nor names that the lookup leads elsewhere, so the
// marks come from the deprecated and obsolete blocks of the text, read as the
// reader reads them: a line names an option by its whole name, or else a
// synonym, among those defined above it.
void HelpPieces::LoadMarks() {
  marks_loaded_ = true;
  if (!text_) return;
  std::vector<int> option_lines(options_.size(), 0);  // the built-in Help stands before all
  for (size_t k = 1; k < options_.size(); ++k) {
    int occurrence = 0;
    for (size_t j = 0; j < k; ++j)
      occurrence += options_[j].key == options_[k].key;
    const Statement *statement = FindStatement(*text_, options_[k].key, occurrence);
    option_lines[k] = statement ? statement->line : 0;
  }
  std::vector<int> synonym_lines;
  for (const Statement &statement : text_->statements)
    if (statement.type_word == "synonym") synonym_lines.push_back(statement.line);
  auto option_named = [&](const std::string &word, int line) {
    for (size_t k = 0; k < options_.size(); ++k)
      if (option_lines[k] < line && SameText(options_[k].key, word)) return static_cast<int>(k) + 1;
    return 0;
  };
  std::map<int, bool> deprecated;  // option -> deprecated (else obsolete)
  for (const Statement &block : text_->statements) {
    if (block.type_word != "deprecated" && block.type_word != "obsolete") continue;
    for (const TextLine &line : block.continuation) {
      const std::vector<std::string> words = Words(line.text);
      if (words.empty()) continue;
      int number = option_named(words[0], line.number);
      for (size_t k = 0; number == 0 && k < synonyms_.size() && k < synonym_lines.size() &&
                         synonym_lines[k] < line.number;
           ++k) {
        if (!SameText(synonyms_[k].first, words[0])) continue;
        for (size_t j = 0; j < options_.size() && number == 0; ++j)
          if (options_[j].key == synonyms_[k].second) number = static_cast<int>(j) + 1;
        break;
      }
      if (number < 1) continue;
      deprecated[number] = deprecated[number] || block.type_word == "deprecated";
    }
  }
  for (const auto &[number, is_deprecated] : deprecated)
    options_[number - 1].mark = is_deprecated ? " (Deprecated)" : " (Obsolete)";
}

std::string HelpPieces::Label(const SortedEntry &entry, bool marks) const {
  std::string label = entry.key;
  if (lookup_code_ == 2)
    for (char &c : label)
      if (c == '_') c = ' ';
  const OptionFacts &option = options_[entry.number - 1];
  if (entry.synonym) label += " (Synonym for " + option.display + ")";
  if (marks) label += option.mark;
  return label;
}

void HelpPieces::Summary(HelpLineWriter &writer, bool marks, std::vector<std::string> &problems) {
  if (marks && !marks_loaded_) LoadMarks();
  writer.Flush();
  writer.BlankLine();
  writer.Write("Options summary by group");
  std::string name(OPTKW_STRBUF_SIZE, '\0'), help(OPTKW_STRBUF_SIZE, '\0');
  for (int pos = 1; pos <= optGroupCount(h_); ++pos) {
    int number = 0, context = 0;
    coptGetGroupNr(h_, pos, name.data(), &number, &context, help.data());
    if (context <= 0) continue;
    writer.Flush();
    writer.BlankLine();
    writer.Write(Text(help));
    writer.Flush();
    for (const SortedEntry &entry : sorted_) {
      if (entry.number < 1) {
        if (pos == 1)
          problems.push_back("no option found for the listed name \"" + entry.key + "\"");
        continue;
      }
      const OptionFacts &option = options_[entry.number - 1];
      if (option.group != number) continue;
      const std::string label = Label(entry, marks);
      writer.Write(label);
      if (label.size() < kLabelWidth) {
        writer.Write(std::string(kLabelWidth - label.size(), ' '));
      } else if (label.size() > kLabelWidth) {
        writer.Flush();
        writer.Write(std::string(kLabelWidth, ' '));
      }
      writer.Write(": ");
      writer.Write(option.help);
      writer.Flush();
    }
  }
}

void HelpPieces::Alphabetical(HelpLineWriter &writer, std::vector<std::string> &problems) {
  writer.Flush();
  writer.BlankLine();
  writer.Write("Options in alphabetical order");
  writer.Flush();
  writer.BlankLine();
  for (const SortedEntry &entry : sorted_) {
    if (entry.synonym) continue;
    std::vector<std::string> lines;
    if (entry.number < 1 || !DetailEntry(entry.number, lines)) {
      problems.push_back("the entry of option \"" + entry.key + "\" couldn't be rendered");
      continue;
    }
    for (const std::string &line : lines)
      writer.Line(line);
  }
}

// The library's entry of one option, asked for by the option's display name;
// when that name leads elsewhere (another option comes first under the lookup
// method, or a word is too short for it), the option is read on its own.
bool HelpPieces::DetailEntry(int number, std::vector<std::string> &lines) {
  const OptionFacts &option = options_[number - 1];
  int found = -1, reference = -1;
  coptFindStr(h_, option.key.c_str(), &found, &reference);
  if (found == number) {
    std::optional<std::vector<std::string>> entry = LibraryEntry(h_, option.display);
    if (!entry) return false;
    lines = *entry;
    return true;
  }
  return DetailEntryAlone(number, lines);
}

// Reads the option's statement (and its continuation lines) into a handle of
// its own, and takes the entry from there if the option came out the same.
bool HelpPieces::DetailEntryAlone(int number, std::vector<std::string> &lines) {
  const OptionFacts &option = options_[number - 1];
  const std::optional<DefinitionText> &text = text_;
  if (!text) return false;
  int occurrence = 0;
  for (int k = 1; k < number; ++k)
    occurrence += options_[k - 1].key == option.key;
  const Statement *statement = FindStatement(*text, option.key, occurrence);
  if (!statement) return false;
  std::string alone;
  if (lookup_code_ == 2 && option.key.find('_') != std::string::npos) alone = "Minos lookup\n";
  alone += text->lines[statement->line - 1].text + "\n";
  if (HasContinuationLines(statement->type_word))
    for (const TextLine &line : statement->continuation)
      alone += line.text + "\n";

  const char *directory = std::getenv("TMPDIR");
  std::string path =
      std::string(directory && *directory ? directory : "/tmp") + "/optkw-entry-XXXXXX";
  const int fd = mkstemp(path.data());
  if (fd < 0) return false;
  const bool written = write(fd, alone.data(), alone.size()) == static_cast<ssize_t>(alone.size());
  close(fd);
  Handle single;
  if (written) coptReadDefinition(single.get(), path.c_str());
  std::remove(path.c_str());
  optClearMessages(single.get());
  int found = -1, reference = -1;
  coptFindStr(single.get(), option.key.c_str(), &found, &reference);
  if (!written || found != 2 || Fingerprint(single.get(), 2) != Fingerprint(h_, number))
    return false;
  std::optional<std::vector<std::string>> entry = LibraryEntry(single.get(), option.display);
  if (!entry) return false;
  lines = *entry;
  return true;
}

}  // namespace optkw_tool
