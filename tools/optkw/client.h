// The optkw tool's view of the library: a handle that frees itself, and the
// few conversions the commands share. Everything goes through the public C
// interface, as any client's would.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "optkw.h"

namespace optkw_tool {

class Handle {
 public:
  Handle();
  ~Handle() { optFree(&handle_); }
  Handle(const Handle &) = delete;
  Handle &operator=(const Handle &) = delete;

  optHandle_t get() const { return handle_; }

 private:
  optHandle_t handle_ = nullptr;
};

struct Message {
  std::string text;  // decorated, as the library shows it
  int type;
};

// Messages from number `first` on.
std::vector<Message> MessagesFrom(optHandle_t h, int first);

// Reads a definition for a command that reports on it: what the library said
// about it goes to standard error, and the queue is emptied. Gives the
// library's result (0, -1, or the error code of a file that can't be opened).
int ReadDefinitionNoted(optHandle_t h, const std::string &definition);

}  // namespace optkw_tool
