// optkw export: a definition written out from its one model, as a reference
// (JSON, Markdown, reStructuredText, a man page section) or for a program's
// own code and tools (a C header, a JSON Schema of settings).
#include <cctype>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "client.h"
#include "commands.h"
#include "definition_model.h"

namespace optkw_tool {

namespace {

struct ExportRequest {
  std::string definition;
  std::string format;  // a name of kFormats
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

// A prefix must begin the names of C macros as it stands.
CLI::Validator CIdentifier() {
  return CLI::Validator(
      [](const std::string &text) {
        const bool starts_well =
            !text.empty() && (std::isalpha(static_cast<unsigned char>(text[0])) || text[0] == '_');
        for (unsigned char c : text) {
          if (!std::isalnum(c) && c != '_') return std::string("not a C identifier: ") + text;
        }
        return starts_well ? std::string() : std::string("not a C identifier: ") + text;
      },
      "IDENTIFIER");
}

std::vector<std::string> FormatNames() {
  std::vector<std::string> names;
  for (const Format &format : kFormats)
    names.push_back(format.name);
  return names;
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
      "export",
      "write a definition as a reference or for code (JSON, Markdown, reStructuredText, man, C, "
      "JSON Schema)");
  command->footer(
      "Writes every option of the definition, with type, bounds, default, values, group, "
      "synonyms and deprecation: as JSON (json), as a reference page (markdown, rst) or the "
      "OPTIONS section of a manual page (man); or, for a program's own code and tools, a C "
      "header of option numbers and enumerated values (c-header) or a JSON Schema of a "
      "settings object (json-schema).\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("--format", request->format, "the output format")
      ->required()
      ->check(CLI::IsMember(FormatNames()));
  command
      ->add_option("--prefix", request->prefix,
                   "c-header: the prefix of the constants, a C identifier (default: the "
                   "definition's file name in upper case)")
      ->check(CIdentifier());
  command->callback([request, &status] { status = RunExport(*request); });
}

}  // namespace optkw_tool
