// optkw check: read a definition and parameter sources, report what the
// library said and what is set.
#include <cstdio>
#include <string>

#include "client.h"
#include "commands.h"

namespace optkw_tool {
namespace {

void ApplySettings(optHandle_t h, const Settings &settings) {
  if (settings.echo) optEchoSet(h, 1);
  if (settings.no_bounds) optNoBoundsSet(h, 1);
  if (settings.eol_only) optEOLOnlySet(h, *settings.eol_only);
}

// Reads one source; gives false when it was a file that couldn't be opened.
bool ReadSource(optHandle_t h, const Source &source) {
  switch (source.kind) {
    case Source::Kind::kFile:
      return coptReadParameterFile(h, source.text.c_str()) == 0;
    case Source::Kind::kString:
      if (source.text.size() <= 255) {
        // The counted form takes any 255 bytes as they stand.
        char counted[OPTKW_STRBUF_SIZE];
        counted[0] = static_cast<char>(source.text.size());
        source.text.copy(counted + 1, source.text.size());
        optReadFromStr(h, counted);
      } else {
        optReadFromPChar(h, source.text.c_str());
      }
      return true;
    case Source::Kind::kCommandLine:
      optReadFromCmdLine(h, source.text.c_str());
      return true;
  }
  return true;
}

// "name = value" for every option that is set, with both values of a
// two-valued option and every entry of a string list.
void PrintOptionsSet(optHandle_t h, std::FILE *out) {
  std::fputs("Options set:\n", out);
  int shown = 0;
  for (int nr = 1; nr <= optCount(h); ++nr) {
    int defined, recent, ref, data_type, type, subtype;
    optGetInfoNr(h, nr, &defined, &recent, &ref, &data_type, &type, &subtype);
    if (defined == 0) continue;
    char name[OPTKW_STRBUF_SIZE], key[OPTKW_STRBUF_SIZE], help[OPTKW_STRBUF_SIZE];
    char value[OPTKW_STRBUF_SIZE];
    coptGetNameNr(h, nr, name);
    ++shown;
    if (type == optTypeStrList) {
      coptGetHelpNr(h, nr, key, help);
      const int count = coptListCountStr(h, key);
      std::fprintf(out, "  %s =", name);
      for (int k = 1; k <= count; ++k) {
        coptReadFromListStr(h, key, k, value);
        std::fprintf(out, "%s \"%s\"", k > 1 ? "," : "", value);
      }
      std::fputc('\n', out);
    } else if (subtype == optsubNoValue) {
      std::fprintf(out, "  %s\n", name);
    } else {
      coptGetStrNr(h, nr, value);
      std::fprintf(out, "  %s = %s", name, value);
      if (subtype == optsub2Values) {
        coptGetStr2Nr(h, nr, value);
        std::fprintf(out, " %s", value);
      }
      std::fputc('\n', out);
    }
  }
  if (shown == 0) std::fputs("  (none)\n", out);
}

const char *Plural(int n, const char *one, const char *many) {
  return n == 1 ? one : many;
}

}  // namespace

int RunCheck(const CheckRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  ApplySettings(h, request.settings);
  const bool to_stdout = request.write_to == "-";
  // With the parameter text on standard output, the report goes to standard error.
  std::FILE *report = to_stdout ? stderr : stdout;

  bool all_opened = coptReadDefinition(h, request.definition.c_str()) <= 0;
  if (all_opened) {
    for (const Source &source : request.sources)
      all_opened = ReadSource(h, source) && all_opened;
  }
  if (all_opened && request.write_to) {
    all_opened = coptWriteParameterFile(h, to_stdout ? "" : request.write_to->c_str()) == 0;
  }

  for (const Message &message : MessagesFrom(h, 1))
    std::fprintf(report, "%s\n", message.text.c_str());
  PrintOptionsSet(h, report);
  int errors = 0, warnings = 0;
  optErrorCount(h, &errors, &warnings);
  std::fprintf(report, "%d %s, %d %s\n", errors, Plural(errors, "error", "errors"), warnings,
               Plural(warnings, "warning", "warnings"));
  std::fflush(report);
  if (!all_opened) return kUsageOrFile;
  return errors > 0 ? kErrors : kClean;
}

}  // namespace optkw_tool
