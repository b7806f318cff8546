// optkw export: a definition as JSON, or as a Markdown reference page grouped
// like the help summary.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string>

#include "client.h"
#include "commands.h"
#include "definition_model.h"

namespace optkw_tool {
namespace {

// ---- JSON

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

// ---- Markdown

// Numbers at the ends of the integer and double ranges read as the keywords
// that definitions use for them.
std::string Shown(const OptionInfo &option, const std::string &value) {
  if (option.default_is_text) return "\"" + value + "\"";
  if (value == "2147483647") return "maxint";
  if (value == "-2147483648") return "minint";
  if (value == "1e+299") return "maxdouble";
  if (value == "-1e+299") return "mindouble";
  return value;
}

// Markdown text that can't break a table or start markup of its own.
std::string Escaped(const std::string &text) {
  std::string out;
  for (char c : text) {
    if (c == '|' || c == '*' || c == '_' || c == '`' || c == '<' || c == '[' || c == ']')
      out += '\\';
    out += c;
  }
  return out;
}

// The order of the help listings: names that end in a number sort by its value.
bool NaturalLess(const std::string &a, const std::string &b) {
  auto split = [](const std::string &s) {
    size_t start = s.size();
    while (start > 0 && std::isdigit(static_cast<unsigned char>(s[start - 1])))
      --start;
    std::string stem = s.substr(0, start);
    for (char &c : stem)
      c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const std::string digits = s.substr(start);
    return std::make_pair(stem, digits.empty() ? 0.0 : std::stod(digits));
  };
  return split(a) < split(b);
}

void MarkdownOption(std::string &out, const OptionInfo &o) {
  out += "### `" + o.name + "`\n\n";
  if (!o.help.empty()) out += Escaped(o.help) + "\n";
  for (const std::string &line : o.more_help)
    out += Escaped(line) + "\n";
  out += "\n- Type: " + std::string(TypeName(o.type));
  if (o.subtype == optsubNoValue) out += ", takes no value";
  if (o.subtype == optsubOptional) out += ", value optional";
  if (o.subtype == optsub2Values) out += ", takes two values";
  out += "\n";
  if (o.lower) out += "- Range: " + Shown(o, *o.lower) + " to " + Shown(o, *o.upper) + "\n";
  if (o.default_value) out += "- Default: " + Escaped(Shown(o, *o.default_value)) + "\n";
  for (const SynonymInfo &synonym : o.synonyms) {
    out += "- Synonym: `" + synonym.name + "`";
    if (synonym.deprecation)
      out += " (" + synonym.deprecation->kind + ": " + Escaped(synonym.deprecation->text) + ")";
    out += "\n";
  }
  if (o.deprecation) {
    out += "- " + std::string(o.deprecation->kind == "obsolete" ? "Obsolete" : "Deprecated") +
           ": " + Escaped(o.deprecation->text) + "\n";
  }
  if (!o.values.empty()) {
    out += "\n| Value | Meaning |\n|---|---|\n";
    for (const EnumValue &v : o.values)
      out += "| `" + v.value + "` | " + Escaped(v.help) + " |\n";
  }
  out += "\n";
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

std::string ExportMarkdown(const DefinitionModel &model) {
  std::string out = "# Options of " + Escaped(model.file) + "\n";
  // Groups and their options as the help summary shows them: groups with a
  // help context, options with a help context and a group.
  for (const GroupInfo &group : model.groups) {
    if (group.help_context <= 0) continue;
    std::vector<const OptionInfo *> members;
    for (const OptionInfo &option : model.options) {
      if (option.listed && option.group == group.number) members.push_back(&option);
    }
    std::sort(members.begin(), members.end(),
              [](const OptionInfo *a, const OptionInfo *b) { return NaturalLess(a->key, b->key); });
    out += "\n## " + Escaped(group.help.empty() ? group.name : group.help) + "\n\n";
    if (members.empty()) {
      out += "No options.\n";
      continue;
    }
    out += "| Option | Type | Default | Description |\n|---|---|---|---|\n";
    for (const OptionInfo *o : members) {
      out += "| [`" + o->name + "`](#" + o->key + ") | " + TypeName(o->type) + " | " +
             (o->default_value ? Escaped(Shown(*o, *o->default_value)) : "") + " | " +
             Escaped(o->help) + " |\n";
    }
    out += "\n";
    for (const OptionInfo *o : members)
      MarkdownOption(out, *o);
  }
  return out;
}

namespace {

struct ExportRequest {
  std::string definition;
  std::string format;  // "json", "markdown", "c-header" or "json-schema"
  std::string prefix;  // of the C constants; from the definition's file name if empty
};

// KESTREL for ".../kestrel.def".
std::string DefaultPrefix(const std::string &definition) {
  std::string stem = definition.substr(definition.find_last_of('/') + 1);
  stem = stem.substr(0, stem.find('.'));
  std::string prefix;
  for (unsigned char c : stem)
    prefix += std::isalnum(c) ? static_cast<char>(std::toupper(c)) : '_';
  return prefix.empty() || std::isdigit(static_cast<unsigned char>(prefix[0])) ? "OPTIONS" + prefix
                                                                               : prefix;
}

std::string Render(const ExportRequest &request, const DefinitionModel &model) {
  if (request.format == "json") return ExportJson(model);
  if (request.format == "markdown") return ExportMarkdown(model);
  if (request.format == "json-schema") return ExportJsonSchema(model);
  return ExportCHeader(model,
                       request.prefix.empty() ? DefaultPrefix(request.definition) : request.prefix);
}

int RunExport(const ExportRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  const int read = ReadDefinitionNoted(h, request.definition);
  if (read > 0) return kUsageOrFile;
  const DefinitionModel model = DescribeDefinition(h);
  const std::string text = Render(request, model);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return read < 0 ? kErrors : kClean;
}

}  // namespace

void AddExportCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<ExportRequest>();
  CLI::App *command = app.add_subcommand(
      "export", "write a definition as a reference or for code (JSON, Markdown, C, JSON Schema)");
  command->footer(
      "Writes every option of the definition, with type, bounds, default, values, group, "
      "synonyms and deprecation, as JSON or as a Markdown page; or, for a program's own code "
      "and tools, a C header of option numbers and enumerated values, or a JSON Schema of a "
      "settings object.\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("--format", request->format, "the output format")
      ->required()
      ->check(CLI::IsMember({"json", "markdown", "c-header", "json-schema"}));
  command->add_option("--prefix", request->prefix,
                      "c-header: the prefix of the constants (default: the definition's file "
                      "name in upper case)");
  command->callback([request, &status] { status = RunExport(*request); });
}

}  // namespace optkw_tool
