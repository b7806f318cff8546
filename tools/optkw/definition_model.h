// What a definition declares, gathered through the public interface: the one
// model that every export format is written from.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

struct EnumValue {
  std::string value;  // the text, or the integer's digits
  int help_context = 0;
  std::string help;
};

struct Deprecation {
  std::string kind;  // "deprecated" or "obsolete"
  std::string text;
};

struct SynonymInfo {
  std::string name;
  std::optional<Deprecation> deprecation;
};

struct OptionInfo {
  int number = 0;
  std::string name;  // as shown (blanks for "_" under the Minos lookup)
  std::string key;   // as defined
  int type = 0;
  int subtype = 0;
  int reference = 0;
  int help_context = 0;
  int group = 0;
  std::string help;
  std::vector<std::string> more_help;
  // Bounds and default as text, in the library's rendering ("maxint", "1E-6").
  std::optional<std::string> lower, upper, default_value;
  bool default_is_text = false;  // strings and enumerated strings
  std::vector<EnumValue> values;
  std::vector<SynonymInfo> synonyms;
  std::optional<Deprecation> deprecation;
  bool listed = false;  // shown in the help listings (help context and group above 0)
};

struct GroupInfo {
  std::string name;
  int number = 0;
  int help_context = 0;
  std::string help;
};

struct DefinitionModel {
  std::string file;
  std::vector<GroupInfo> groups;
  std::vector<OptionInfo> options;
};

// Describes the definition that `h` has read, which nothing has set values
// in yet. Leaves values set in `h`.
DefinitionModel DescribeDefinition(optHandle_t h);

std::string ExportJson(const DefinitionModel &model);
std::string ExportMarkdown(const DefinitionModel &model);
// `prefix` begins every constant, e.g. KESTREL.
std::string ExportCHeader(const DefinitionModel &model, const std::string &prefix);
std::string ExportJsonSchema(const DefinitionModel &model);
std::string ExportMan(const DefinitionModel &model);
std::string ExportRst(const DefinitionModel &model);

// A value as a definition writes it: the ends of the integer and double
// ranges as their keywords ("maxint"), texts in double quotes.
std::string ShownValue(const OptionInfo &option, const std::string &value);

// Whether a bound is an end of the integer or double range, i.e. no bound.
bool IsRangeEnd(const std::string &value);

const char *TypeName(int type);
const char *SubtypeName(int subtype);

}  // namespace optkw_tool
