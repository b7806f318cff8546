#include "client.h"

#include <cstdio>
#include <new>

namespace optkw_tool {

Handle::Handle() {
  char message[OPTKW_STRBUF_SIZE];
  if (optCreate(&handle_, message, OPTKW_STRBUF_SIZE - 1) == 0) throw std::bad_alloc();
}

int ReadDefinitionNoted(optHandle_t h, const std::string &definition) {
  const int read = coptReadDefinition(h, definition.c_str());
  for (const Message &message : MessagesFrom(h, 1))
    std::fprintf(stderr, "%s\n", message.text.c_str());
  optClearMessages(h);
  return read;
}

std::vector<Message> MessagesFrom(optHandle_t h, int first) {
  std::vector<Message> messages;
  char text[OPTKW_STRBUF_SIZE];
  for (int nr = first; nr <= optMessageCount(h); ++nr) {
    int type = 0;
    coptGetMessage(h, nr, text, &type);
    messages.push_back({text, type});
  }
  return messages;
}

}  // namespace optkw_tool
