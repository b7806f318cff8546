#include "client.h"

#include <new>

namespace optkw_tool {

Handle::Handle() {
  char message[OPTKW_STRBUF_SIZE];
  if (optCreate(&handle_, message, OPTKW_STRBUF_SIZE - 1) == 0) throw std::bad_alloc();
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
