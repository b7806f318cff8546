// optkw export --format json-schema: a JSON Schema (draft 2020-12) of a
// settings object with one property per option, so that wrappers and editors
// can check and complete settings before a program ever reads them.
#include <cstdlib>
#include <string>

#include <nlohmann/json.hpp>

#include "definition_model.h"

namespace optkw_tool {
namespace {

using nlohmann::ordered_json;

// A number of the model as a JSON number.
ordered_json Number(const std::string &text, bool integer) {
  if (integer) return std::strtoll(text.c_str(), nullptr, 10);
  return std::strtod(text.c_str(), nullptr);
}

// The schema of one value of an option.
ordered_json ValueSchema(const OptionInfo &o) {
  ordered_json schema;
  const bool integer = o.type == optTypeInteger || o.type == optTypeEnumInt;
  switch (o.type) {
    case optTypeInteger:
    case optTypeDouble:
      schema["type"] = integer ? "integer" : "number";
      if (o.lower && !IsRangeEnd(*o.lower)) schema["minimum"] = Number(*o.lower, integer);
      if (o.upper && !IsRangeEnd(*o.upper)) schema["maximum"] = Number(*o.upper, integer);
      break;
    case optTypeBoolean:
      schema["type"] = "boolean";
      break;
    case optTypeEnumStr:
    case optTypeEnumInt: {
      schema["type"] = integer ? "integer" : "string";
      ordered_json choices = ordered_json::array();
      for (const EnumValue &value : o.values) {
        ordered_json choice;
        choice["const"] = integer ? Number(value.value, true) : ordered_json(value.value);
        if (!value.help.empty()) choice["description"] = value.help;
        choices.push_back(choice);
      }
      schema["oneOf"] = choices;
      break;
    }
    default:
      schema["type"] = "string";
  }
  return schema;
}

ordered_json DefaultValue(const OptionInfo &o) {
  const std::string &text = *o.default_value;
  switch (o.type) {
    case optTypeInteger:
    case optTypeEnumInt:
      return Number(text, true);
    case optTypeDouble:
      return Number(text, false);
    case optTypeBoolean:
      return text != "0";
    default:
      return text;
  }
}

}  // namespace

std::string ExportJsonSchema(const DefinitionModel &model) {
  ordered_json schema;
  schema["$schema"] = "https://json-schema.org/draft/2020-12/schema";
  schema["title"] = "Options of " + model.file;
  schema["type"] = "object";
  ordered_json properties = ordered_json::object();
  for (const OptionInfo &o : model.options) {
    const bool holds_value = o.type <= optTypeEnumInt || o.type == optTypeStrList;
    if (!holds_value || o.key.empty() || o.key[0] == '.' || o.subtype == optsubNoValue) continue;
    ordered_json property;
    if (o.type == optTypeStrList) {
      property["type"] = "array";
      property["items"] = {{"type", "string"}};
    } else if (o.subtype == optsub2Values) {
      const ordered_json item = ValueSchema(o);
      property["type"] = "array";
      property["prefixItems"] = {item, item};
      property["minItems"] = 2;
      property["items"] = false;
    } else {
      property = ValueSchema(o);
    }
    if (!o.help.empty()) property["description"] = o.help;
    if (o.default_value && o.type != optTypeStrList) {
      const ordered_json value = DefaultValue(o);
      property["default"] = o.subtype == optsub2Values ? ordered_json{value, value} : value;
    }
    if (o.deprecation) property["deprecated"] = true;
    properties[o.key] = property;
  }
  schema["properties"] = properties;
  schema["additionalProperties"] = false;
  return schema.dump(2) + "\n";
}

}  // namespace optkw_tool
