// optkw help: the help listing of a definition, as the library renders it.
#include <cstdio>

#include "client.h"
#include "commands.h"

namespace optkw_tool {

int RunHelp(const HelpRequest &request) {
  Handle handle;
  optHandle_t h = handle.get();
  const int read = coptReadDefinition(h, request.definition.c_str());
  // Faults of the definition are worth knowing, but they aren't the help.
  for (const Message &message : MessagesFrom(h, 1))
    std::fprintf(stderr, "%s\n", message.text.c_str());
  if (read > 0) return kUsageOrFile;
  const int first = optMessageCount(h) + 1;
  coptShowHelp(h, request.request.c_str());
  for (const Message &message : MessagesFrom(h, first))
    std::printf("%s\n", message.text.c_str());
  std::fflush(stdout);
  return read < 0 ? kErrors : kClean;
}

}  // namespace optkw_tool
