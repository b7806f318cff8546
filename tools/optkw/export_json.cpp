// optkw export --format json: everything the model holds about a definition,
// for programs that read it.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "definition_model.h"

namespace optkw_tool {
namespace {

bool IsValidUtf8(const std::string &text) {
  size_t i = 0;
  while (i < text.size()) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const size_t length = c < 0x80         ? 1
                          : (c >> 5) == 6  ? 2
                          : (c >> 4) == 14 ? 3
                          : (c >> 3) == 30 ? 4
                                           : 0;
    if (length == 0 || i + length > text.size()) return false;
    for (size_t k = 1; k < length; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) >> 6) != 2) return false;
    }
    i += length;
  }
  return true;
}

// Texts are bytes: valid UTF-8 passes as it is, any other byte above 127 is
// taken as the Latin-1 character of that number.
std::string JsonString(const std::string &text) {
  const bool utf8 = IsValidUtf8(text);
  std::string out = "\"";
  for (char ch : text) {
    const unsigned char c = static_cast<unsigned char>(ch);
    char escaped[8];
    if (c == '"' || c == '\\') {
      out += '\\';
      out += ch;
    } else if (c < 0x20 || (c >= 0x80 && !utf8)) {
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else {
      out += ch;
    }
  }
  return out + "\"";
}

// A number as JSON has it; a value that is no finite number becomes null.
std::string JsonNumber(const std::string &text) {
  char *end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || value != value || value > 1.7e308 || value < -1.7e308)
    return "null";
  return text;
}

std::string JsonValue(const OptionInfo &option, const std::optional<std::string> &value) {
  if (!value) return "null";
  return option.default_is_text ? JsonString(*value) : JsonNumber(*value);
}

std::string JsonDeprecation(const std::optional<Deprecation> &deprecation) {
  if (!deprecation) return "null";
  return "{\"kind\": " + JsonString(deprecation->kind) +
         ", \"text\": " + JsonString(deprecation->text) + "}";
}

template <class T, class Render>
std::string JsonList(const std::vector<T> &items, const std::string &indent, Render render) {
  if (items.empty()) return "[]";
  std::string out = "[\n";
  for (size_t k = 0; k < items.size(); ++k) {
    out += indent + "  " + render(items[k]) + (k + 1 < items.size() ? ",\n" : "\n");
  }
  return out + indent + "]";
}

std::string JsonOption(const OptionInfo &o) {
  const std::string in = "      ";
  std::string out = "{\n";
  auto field = [&](const std::string &name, const std::string &value, bool last = false) {
    out += in + JsonString(name) + ": " + value + (last ? "\n" : ",\n");
  };
  field("number", std::to_string(o.number));
  field("name", JsonString(o.name));
  field("type", JsonString(TypeName(o.type)));
  field("subtype", JsonString(SubtypeName(o.subtype)));
  field("reference", std::to_string(o.reference));
  field("help_context", std::to_string(o.help_context));
  field("group", std::to_string(o.group));
  field("listed", o.listed ? "true" : "false");
  field("help", JsonString(o.help));
  field("more_help", JsonList(o.more_help, in, JsonString));
  field("default", JsonValue(o, o.default_value));
  field("lower", o.lower ? JsonNumber(*o.lower) : "null");
  field("upper", o.upper ? JsonNumber(*o.upper) : "null");
  field("values", JsonList(o.values, in, [&](const EnumValue &v) {
          return "{\"value\": " + (o.type == optTypeEnumInt ? v.value : JsonString(v.value)) +
                 ", \"help_context\": " + std::to_string(v.help_context) +
                 ", \"help\": " + JsonString(v.help) + "}";
        }));
  field("synonyms", JsonList(o.synonyms, in, [](const SynonymInfo &s) {
          return "{\"name\": " + JsonString(s.name) +
                 ", \"deprecation\": " + JsonDeprecation(s.deprecation) + "}";
        }));
  field("deprecation", JsonDeprecation(o.deprecation), true);
  return out + "    }";
}

}  // namespace

std::string ExportJson(const DefinitionModel &model) {
  std::string out = "{\n  \"file\": " + JsonString(model.file) + ",\n  \"groups\": ";
  out += JsonList(model.groups, "  ", [](const GroupInfo &g) {
    return "{\"name\": " + JsonString(g.name) + ", \"number\": " + std::to_string(g.number) +
           ", \"help_context\": " + std::to_string(g.help_context) +
           ", \"help\": " + JsonString(g.help) + "}";
  });
  out += ",\n  \"options\": [\n";
  for (size_t k = 0; k < model.options.size(); ++k) {
    out += "    " + JsonOption(model.options[k]) + (k + 1 < model.options.size() ? ",\n" : "\n");
  }
  return out + "  ]\n}\n";
}

}  // namespace optkw_tool
