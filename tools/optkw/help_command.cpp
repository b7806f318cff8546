// optkw help: the help listing of a definition, as the library renders it, for
// any number of options; the entry of one option with what value it takes; and
// suggestions for a name that the definition doesn't know.
#include <cstdio>
#include <string>

#include "client.h"
#include "commands.h"
#include "help_listing.h"
#include "help_suggestions.h"

namespace optkw_tool {
namespace {

// What value option `nr` takes in parameter text, in words.
std::string ValueKind(optHandle_t h, int nr) {
  int defined, recent, reference, data_type, type, subtype;
  optGetInfoNr(h, nr, &defined, &recent, &reference, &data_type, &type, &subtype);
  switch (type) {
    case optTypeStrList:
      return "a list: repeat the option to add entries";
    case optTypeMultiList:
      return "a multilist: one statement sets the options it lists";
    case optTypeMacro:
      return "a macro: naming it sets the options it lists";
    case optTypeImmediate:
      return "acts at once where parameter text names it";
    default:
      break;
  }
  switch (subtype) {
    case optsubNoValue:
      return "takes no value";
    case optsubOptional:
      return "value optional";
    case optsub2Values:
      return "takes two values";
    default:
      return "takes one value";
  }
}

int OptionEntry(optHandle_t h, const HelpRequest &request, int nr) {
  coptShowHelp(h, request.request.c_str());
  for (const Message &message : MessagesFrom(h, 1))
    std::printf("%s\n", message.text.c_str());
  // The tool's own line, apart from the library's entry.
  std::printf("\nvalue: %s\n", ValueKind(h, nr).c_str());
  std::fflush(stdout);
  return kClean;
}

int UnknownName(optHandle_t h, const HelpRequest &request) {
  std::fprintf(stderr, "optkw: %s defines no option or synonym \"%s\"\n",
               request.definition.c_str(), request.request.c_str());
  const std::string hint = SuggestNames(h, request.request);
  if (!hint.empty()) std::fprintf(stderr, "hint: %s\n", hint.c_str());
  return kErrors;
}

int PrintListing(optHandle_t h, const HelpRequest &request, int read) {
  const struct Listing listing =
      RenderListing(h, request.definition, request.request, request.piecewise);
  for (const std::string &line : listing.lines)
    std::printf("%s\n", line.c_str());
  std::fflush(stdout);
  for (const std::string &problem : listing.problems)
    std::fprintf(stderr, "optkw: %s\n", problem.c_str());
  return read < 0 || !listing.problems.empty() ? kErrors : kClean;
}

}  // namespace

int RunHelp(const HelpRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  // Faults of the definition are worth knowing, but they aren't the help.
  const int read = ReadDefinitionNoted(h, request.definition);
  if (read > 0) return kUsageOrFile;
  int mode = 0;
  if (request.request.empty() || ListingMode(request.request, mode))
    return PrintListing(h, request, read);
  std::string name = request.request;
  for (char &c : name)
    if (c == ' ') c = '_';
  int nr = -1, reference = -1;
  coptFindStr(h, name.c_str(), &nr, &reference);
  if (nr < 1) return UnknownName(h, request);
  const int status = OptionEntry(h, request, nr);
  return read < 0 ? kErrors : status;
}

}  // namespace optkw_tool
