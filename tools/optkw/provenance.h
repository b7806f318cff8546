// Which source set each option, for --explain and --changed. A source set an
// option when the option's state differs after the source from before it:
// its Defined and DefinedR bits, its value texts, and for a string list its
// number of entries. The resets of the library are no help here: they also
// empty the records of dot options and indicators.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

struct OptionState {
  int defined = 0, defined_recent = 0;
  std::string first, second;
  int entries = 0;
};
struct Snapshot {
  int count = 0;                         // options in the handle
  std::map<int, OptionState> by_number;  // those noted
};

// Notes every option, or only those of `only` when it is given (a long file
// of a catalog of thousands of options is read line by line).
Snapshot TakeSnapshot(optHandle_t h, const std::vector<int> *only = nullptr);

// The numbers of the noted options whose state differs; options that `after`
// has and `before` hasn't (string lists made by "--" keys) count as set.
std::vector<int> SetBetween(const Snapshot &before, const Snapshot &after);

struct Origin {
  std::string source;  // a file name, "-s" or "-c"
  int line = 0;        // within a file, when found
  std::string Text() const { return line > 0 ? source + ":" + std::to_string(line) : source; }
};

// The line that set each option last, found by reading the statement lines of
// `file` one at a time into a handle that `prepare` makes ready. A line that
// reads a further file (an immediate ReadFile option) hands its options to
// the lines of that file. Each line is a source of its own there, so an
// EolFlag statement acts on its own line only.
// Only the options of `wanted` are followed.
std::map<int, Origin> AttributeLines(const std::string &file, const std::vector<int> &wanted,
                                     const std::function<void(optHandle_t)> &prepare,
                                     int depth = 0);

// The effective value of option `nr` as text: both values of a two-valued
// option, every entry of a string list.
std::string ValueText(optHandle_t h, int nr);

struct OptionReport {
  std::string name;
  std::string value, default_value;
  bool changed = false;  // the effective value differs from the default
  std::string origin;    // empty when no source set it
};

// `h` holds the run's state, `defaults` the same definition with nothing set.
OptionReport ReportOption(optHandle_t h, optHandle_t defaults, int nr,
                          const std::map<int, Origin> &origins);

}  // namespace optkw_tool
