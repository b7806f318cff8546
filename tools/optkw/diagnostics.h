// The library's messages with what a reader of them wants to know besides the
// text: which file and line they belong to, which option they name, and how
// grave they are. The text itself stays exactly as the library gave it.
#pragma once

#include <string>
#include <vector>

#include "client.h"

namespace optkw_tool {

enum class MessageSeverity { kError, kWarning, kNote, kInfo };

struct Diagnostic {
  std::string text;  // decorated, exactly as optGetMessage gives it
  int type = 0;
  std::string source;  // the file (or "string", "command line") it belongs to
  bool from_file = false;
  int line = 0;            // 0 when the message has no line
  bool follow_up = false;  // a further line of the message before it
  std::string option;      // the option it names, if it names one
  std::string hint;        // a suggestion of ours, never part of the text
};

MessageSeverity MessageSeverityOf(int type);
const char *MessageSeverityName(MessageSeverity severity);
const char *MessageTypeName(int type);

// The text without its decoration and without the "line N: " prefix.
std::string BareText(const std::string &decorated, int type);

// Locates each message of one top-level source. `fallback` names the source
// for messages outside any bracket (a definition, a file that can't be
// opened, a queue that dropped its brackets); `fallback_is_file` tells whether
// it is a file.
std::vector<Diagnostic> Locate(const std::vector<Message> &messages, const std::string &fallback,
                               bool fallback_is_file);

// A mistake is a statement with a fault: the first line of a message of type
// 2, 3 or 9.
bool IsMistake(const Diagnostic &diagnostic);

}  // namespace optkw_tool
