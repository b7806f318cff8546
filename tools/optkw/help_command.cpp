// optkw help: the help listing of a definition, as the library renders it.
#include <cstdio>

#include "client.h"
#include "commands.h"

namespace optkw_tool {

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

}  // namespace optkw_tool
