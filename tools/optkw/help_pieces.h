// The pieces that a whole help listing is put together from (help_listing.h).
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "client.h"
#include "definition_text.h"

namespace optkw_tool {

// One name of the library's sorted list: an option's, or a synonym's.
struct SortedEntry {
  std::string key;
  bool synonym = false;
  int number = 0;  // the option it stands for, once known
};

// The library's line buffer of help text: text is appended until a flush
// makes it a line, and a line holds at most 255 bytes.
class HelpLineWriter {
 public:
  explicit HelpLineWriter(std::vector<std::string> &lines) : lines_(lines) {}
  void Write(const std::string &text);  // appends; the empty text flushes
  void Flush();
  void BlankLine() { lines_.push_back(""); }
  void Line(const std::string &text) { lines_.push_back(text); }  // a line as the library made it
  size_t Pending() const { return line_.size(); }

 private:
  std::vector<std::string> &lines_;
  std::string line_;
};

class HelpPieces {
 public:
  HelpPieces(optHandle_t h, const std::string &file, std::vector<SortedEntry> sorted);

  void Summary(HelpLineWriter &writer, bool marks, std::vector<std::string> &problems);
  void Alphabetical(HelpLineWriter &writer, std::vector<std::string> &problems);

 private:
  struct OptionFacts {
    std::string key, display, help;
    int help_context = 0, group = 0;
    std::string mark;  // " (Deprecated)", " (Obsolete)" or empty
  };
  void LoadFacts();
  void LoadMarks();
  void ResolveEntries();
  void OrderOfEqualNames(const std::map<std::string, int> &first_of_key);
  std::string Label(const SortedEntry &entry, bool marks) const;
  bool DetailEntry(int number, std::vector<std::string> &lines);
  bool DetailEntryAlone(int number, std::vector<std::string> &lines);

  optHandle_t h_;
  std::string file_;
  std::optional<DefinitionText> text_;
  int lookup_code_ = 0;
  std::vector<SortedEntry> sorted_;
  std::vector<OptionFacts> options_;                           // by option number - 1
  std::vector<std::pair<std::string, std::string>> synonyms_;  // synonym, target key
  bool marks_loaded_ = false;
};

}  // namespace optkw_tool
