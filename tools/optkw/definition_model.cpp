// Gathers a definition's options through the public interface. Most facts have
// a query of their own; the further help lines and the deprecation texts are
// what the library says about an option (its help entry, and the warning a
// parameter statement with that name gets), so they are taken from there.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "client.h"
#include "definition_model.h"

namespace optkw_tool {
namespace {

constexpr size_t kHelpIndent = 24;

std::string Buffer() {
  return std::string(OPTKW_STRBUF_SIZE, '\0');
}
std::string Trimmed(const std::string &buffer) {
  return buffer.substr(0, std::strlen(buffer.c_str()));
}

std::string IntText(int value) {
  return std::to_string(value);
}

std::string DoubleText(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.15g", value);
  return text;
}

// The further help lines of an option: its help entry holds them behind the
// type line, indented.
std::vector<std::string> MoreHelp(optHandle_t h, const OptionInfo &option) {
  std::vector<std::string> lines;
  if (option.type != optTypeInteger && option.type != optTypeDouble &&
      option.type != optTypeBoolean) {
    return lines;
  }
  // A name that the lookup leads elsewhere would bring another entry, or the
  // whole summary.
  int found = -1, reference = -1;
  coptFindStr(h, option.key.c_str(), &found, &reference);
  if (found != option.number) return lines;
  const int first = optMessageCount(h) + 1;
  coptShowHelp(h, option.key.c_str());
  std::vector<Message> entry = MessagesFrom(h, first);
  // An abbreviation or synonym line may come first; the entry itself starts
  // with the option's name.
  size_t start = 0;
  while (start < entry.size() && entry[start].text.rfind(option.name + ":", 0) != 0)
    ++start;
  for (size_t k = start + 2; k < entry.size(); ++k) {
    const std::string &text = entry[k].text;
    lines.push_back(text.size() > kHelpIndent ? text.substr(kHelpIndent) : std::string());
  }
  optClearMessages(h);
  return lines;
}

// What the library says when `name` is used in parameter text, if it warns.
std::optional<Deprecation> DeprecationOf(optHandle_t h, const std::string &name) {
  const int first = optMessageCount(h) + 1;
  coptReadFromStr(h, (name + " 0").c_str());
  std::optional<Deprecation> result;
  for (const Message &message : MessagesFrom(h, first)) {
    if (message.type != optMsgDeprecated) continue;
    // "*** Warning deprecated option \"name\"; text"
    const std::string &text = message.text;
    const size_t word = text.find("deprecated") == std::string::npos ? text.find("obsolete")
                                                                     : text.find("deprecated");
    const size_t separator = text.find("; ");
    if (word == std::string::npos || separator == std::string::npos) continue;
    result =
        Deprecation{text.substr(word, text.find(' ', word) - word), text.substr(separator + 2)};
  }
  optClearMessages(h);
  return result;
}

void DescribeValues(optHandle_t h, OptionInfo &option) {
  const int nr = option.number;
  int ival = 0;
  std::string text = Buffer();
  switch (option.type) {
    case optTypeInteger: {
      int lo, hi, def;
      optGetBoundsInt(h, nr, &lo, &hi, &def);
      option.lower = IntText(lo), option.upper = IntText(hi), option.default_value = IntText(def);
      break;
    }
    case optTypeDouble: {
      double lo, hi, def;
      optGetBoundsDbl(h, nr, &lo, &hi, &def);
      option.lower = DoubleText(lo), option.upper = DoubleText(hi),
      option.default_value = DoubleText(def);
      break;
    }
    case optTypeBoolean:
    case optTypeEnumInt:
      optGetIntNr(h, nr, &ival);
      option.default_value = IntText(ival);
      break;
    case optTypeString:
      coptGetDefaultStr(h, nr, text.data());
      option.default_value = Trimmed(text);
      option.default_is_text = true;
      break;
    case optTypeEnumStr:
      coptGetEnumStrNr(h, nr, text.data(), &ival);
      option.default_value = Trimmed(text);
      option.default_is_text = true;
      break;
    default:
      break;
  }
  int count = 0;
  if (optGetEnumCount(h, nr, &count) == 0) return;
  for (int k = 1; k <= count; ++k) {
    EnumValue value;
    coptGetEnumValue(h, nr, k, &ival, text.data());
    value.value = Trimmed(text);
    coptGetEnumHelp(h, nr, k, &value.help_context, text.data());
    value.help = Trimmed(text);
    option.values.push_back(value);
  }
}

}  // namespace

DefinitionModel DescribeDefinition(optHandle_t h) {
  DefinitionModel model;
  std::string name = Buffer(), help = Buffer(), key = Buffer();
  coptDefinitionFile(h, name.data());
  model.file = Trimmed(name);

  for (int pos = 1; pos <= optGroupCount(h); ++pos) {
    GroupInfo group;
    coptGetGroupNr(h, pos, name.data(), &group.number, &group.help_context, help.data());
    group.name = Trimmed(name);
    group.help = Trimmed(help);
    model.groups.push_back(group);
  }

  for (int nr = 1; nr <= optCount(h); ++nr) {
    OptionInfo option;
    option.number = nr;
    int defined, recent, data_type;
    optGetInfoNr(h, nr, &defined, &recent, &option.reference, &data_type, &option.type,
                 &option.subtype);
    coptGetNameNr(h, nr, name.data());
    coptGetHelpNr(h, nr, key.data(), help.data());
    option.name = Trimmed(name);
    option.key = Trimmed(key);
    option.help = Trimmed(help);
    coptGetOptHelpNr(h, nr, name.data(), &option.help_context, &option.group);
    option.listed = option.help_context > 0 && option.group > 0;
    DescribeValues(h, option);
    option.more_help = MoreHelp(h, option);
    model.options.push_back(option);
  }

  std::string synonym = Buffer();
  for (int pos = 1; pos <= optSynonymCount(h); ++pos) {
    coptGetSynonym(h, pos, synonym.data(), key.data());
    for (OptionInfo &option : model.options) {
      if (option.key != Trimmed(key)) continue;
      option.synonyms.push_back({Trimmed(synonym), std::nullopt});
      break;
    }
  }

  // Last, the statements that ask for deprecation warnings: they set values,
  // which have all been read by now. Immediates act when named, and dot
  // options can't be named alone.
  for (OptionInfo &option : model.options) {
    if (option.type != optTypeImmediate && option.key[0] != '.') {
      option.deprecation = DeprecationOf(h, option.name);
    }
    for (SynonymInfo &synonym : option.synonyms)
      synonym.deprecation = DeprecationOf(h, synonym.name);
  }
  return model;
}

std::string ShownValue(const OptionInfo &option, const std::string &value) {
  if (option.default_is_text) return "\"" + value + "\"";
  if (value == "2147483647") return "maxint";
  if (value == "-2147483648") return "minint";
  if (value == "1e+299") return "maxdouble";
  if (value == "-1e+299") return "mindouble";
  return value;
}

bool IsRangeEnd(const std::string &value) {
  return value == "2147483647" || value == "-2147483648" || value == "1e+299" || value == "-1e+299";
}

const char *TypeName(int type) {
  static const char *const kNames[] = {"integer", "double",    "string",  "boolean", "enumstr",
                                       "enumint", "multilist", "strlist", "macro",   "immediate"};
  return type >= 0 && type <= optTypeImmediate ? kNames[type] : "unknown";
}

const char *SubtypeName(int subtype) {
  static const char *const kNames[] = {"required", "novalue", "optional", "twovalues"};
  return subtype >= 0 && subtype <= optsub2Values ? kNames[subtype] : "unknown";
}

}  // namespace optkw_tool
