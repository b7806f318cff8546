// optkw export: a definition written out from its one model, as a reference
// (JSON, Markdown, reStructuredText, a man page section) or for a program's
// own code and tools (a C header, a JSON Schema of settings).
#include <cctype>
#include <cstdio>
#include <string>
#include <vector>

#include "client.h"
#include "commands.h"
#include "definition_model.h"

namespace optkw_tool {

namespace {

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

struct Format {
  const char *name;
  std::string (*write)(const DefinitionModel &model, const ExportRequest &request);
};

const Format kFormats[] = {
    {"json", [](const DefinitionModel &m, const ExportRequest &) { return ExportJson(m); }},
    {"markdown", [](const DefinitionModel &m, const ExportRequest &) { return ExportMarkdown(m); }},
    {"rst", [](const DefinitionModel &m, const ExportRequest &) { return ExportRst(m); }},
    {"man", [](const DefinitionModel &m, const ExportRequest &) { return ExportMan(m); }},
    {"c-header",
     [](const DefinitionModel &m, const ExportRequest &r) {
       return ExportCHeader(m, r.prefix.empty() ? DefaultPrefix(r.definition) : r.prefix);
     }},
    {"json-schema",
     [](const DefinitionModel &m, const ExportRequest &) { return ExportJsonSchema(m); }},
};

std::string Render(const ExportRequest &request, const DefinitionModel &model) {
  for (const Format &format : kFormats) {
    if (request.format == format.name) return format.write(model, request);
  }
  return "";  // the command line admits only the formats above
}

}  // namespace

std::vector<std::string> ExportFormatNames() {
  std::vector<std::string> names;
  for (const Format &format : kFormats)
    names.push_back(format.name);
  return names;
}

std::string CIdentifierFault(const std::string &text) {
  const bool starts_well =
      !text.empty() && (std::isalpha(static_cast<unsigned char>(text[0])) || text[0] == '_');
  for (unsigned char c : text) {
    if (!std::isalnum(c) && c != '_') return "not a C identifier: " + text;
  }
  return starts_well ? std::string() : "not a C identifier: " + text;
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

}  // namespace optkw_tool
