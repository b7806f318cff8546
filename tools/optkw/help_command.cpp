// optkw help: the help listing of a definition, as the library renders it.
#include <cstdio>
#include <memory>
#include <string>

#include "client.h"
#include "commands.h"

namespace optkw_tool {
namespace {

struct HelpRequest {
  std::string definition;
  std::string request;  // an option name or a listing mode; empty for the summary
};

int RunHelp(const HelpRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  // Faults of the definition are worth knowing, but they aren't the help.
  const int read = ReadDefinitionNoted(h, request.definition);
  if (read > 0) return kUsageOrFile;
  coptShowHelp(h, request.request.c_str());
  for (const Message &message : MessagesFrom(h, 1))
    std::printf("%s\n", message.text.c_str());
  std::fflush(stdout);
  return read < 0 ? kErrors : kClean;
}

}  // namespace

void AddHelpCommand(CLI::App &app, int &status) {
  auto request = std::make_shared<HelpRequest>();
  CLI::App *command = app.add_subcommand("help", "show the help listing of a definition");
  command->footer(
      "Prints the help of the definition: the summary by group (no REQUEST), the entry of one "
      "option (an option name, a synonym or an abbreviation), or a listing mode: 1 summary, "
      "2 alphabetical list, 3 both, 4 the bare names, 8 added to 1 marks deprecated options.\n");
  command->add_option("DEF", request->definition, "the option definition file")->required();
  command->add_option("REQUEST", request->request, "an option name or a listing mode");
  command->callback([request, &status] { status = RunHelp(*request); });
}

}  // namespace optkw_tool
