#include "diagnostics.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace optkw_tool {
namespace {

const char *Decoration(int type) {
  switch (type) {
    case optMsgInputEcho:
      return ">> ";
    case optMsgDefineError:
      return "*** Definition Error ";
    case optMsgValueError:
      return "*** Value Error ";
    case optMsgValueWarning:
    case optMsgDeprecated:
      return "*** Warning ";
    case optMsgUserError:
      return "*** Error ";
    default:
      return "";
  }
}

bool HasLinePrefix(int type) {
  return type == optMsgDefineError || type == optMsgValueError || type == optMsgValueWarning ||
         type == optMsgDeprecated || type == optMsgUserError;
}

std::string_view Undecorated(const std::string &decorated, int type) {
  std::string_view text = decorated;
  const std::string_view decoration = Decoration(type);
  if (text.substr(0, decoration.size()) == decoration) text.remove_prefix(decoration.size());
  return text;
}

// The line of "line N: text", or 0; moves `text` behind the prefix.
int TakeLine(std::string_view &text) {
  if (text.substr(0, 5) != "line ") return 0;
  size_t end = 5;
  while (end < text.size() && text[end] >= '0' && text[end] <= '9')
    ++end;
  if (end == 5 || text.substr(end, 2) != ": ") return 0;
  const int line = std::atoi(std::string(text.substr(5, end - 5)).c_str());
  text.remove_prefix(end + 2);
  return line;
}

// The source name of a bracket message; the library cuts long texts, so the
// closing quote may be missing.
std::string BracketName(const std::string &text) {
  const size_t open = text.find('"');
  if (open == std::string::npos) return text;
  std::string name = text.substr(open + 1);
  if (!name.empty() && name.back() == '"') name.pop_back();
  return name;
}

// The option a message names: `option "X"`, `key "X"`, `multilist "X"`,
// `synonym "X"` (the name as the user wrote it).
std::string NamedOption(std::string_view text) {
  for (std::string_view marker : {"option \"", "key \"", "multilist \"", "synonym \""}) {
    const size_t at = text.find(marker);
    if (at == std::string_view::npos) continue;
    const size_t start = at + marker.size();
    const size_t end = text.find('"', start);
    if (end != std::string_view::npos) return std::string(text.substr(start, end - start));
  }
  return {};
}

bool IsFileSource(const std::string &name) {
  return name != "string" && name != "pchar" && name != "command line";
}

}  // namespace

MessageSeverity MessageSeverityOf(int type) {
  switch (type) {
    case optMsgDefineError:
    case optMsgValueError:
    case optMsgTooManyMsgs:
    case optMsgUserError:
      return MessageSeverity::kError;
    case optMsgValueWarning:
    case optMsgDeprecated:
      return MessageSeverity::kWarning;
    case optMsgHelp:
      return MessageSeverity::kNote;
    default:
      return MessageSeverity::kInfo;
  }
}

const char *MessageSeverityName(MessageSeverity severity) {
  static const char *const kNames[] = {"error", "warning", "note", "info"};
  return kNames[static_cast<int>(severity)];
}

const char *MessageTypeName(int type) {
  static const char *const kNames[] = {
      "optMsgInputEcho",    "optMsgHelp",       "optMsgDefineError", "optMsgValueError",
      "optMsgValueWarning", "optMsgDeprecated", "optMsgFileEnter",   "optMsgFileLeave",
      "optMsgTooManyMsgs",  "optMsgUserError"};
  return type >= 0 && type <= 9 ? kNames[type] : "unknown";
}

std::string BareText(const std::string &decorated, int type) {
  std::string_view text = Undecorated(decorated, type);
  if (HasLinePrefix(type)) TakeLine(text);
  return std::string(text);
}

namespace {

// Closes the file a leave message names, and any opened within it. A full
// queue may have dropped the matching enter; then the files open stay open.
void CloseSource(std::vector<std::string> &open_sources, const std::string &name) {
  const auto open = std::find(open_sources.rbegin(), open_sources.rend(), name);
  if (open != open_sources.rend()) open_sources.erase(std::next(open).base(), open_sources.end());
}

// A further line of the message before: it begins with three blanks, or it
// is the reason of a failed open.
bool IsFollowUp(std::string_view text, const std::vector<Diagnostic> &before) {
  if (text.substr(0, 3) == "   ") return true;
  return text.substr(0, 13) == "Error code = " && !before.empty() &&
         BareText(before.back().text, before.back().type).rfind("Cannot open parameter file", 0) ==
             0;
}

}  // namespace

std::vector<Diagnostic> Locate(const std::vector<Message> &messages, const std::string &fallback,
                               bool fallback_is_file) {
  std::vector<Diagnostic> located;
  std::vector<std::string> open_sources;
  std::string statement_option;  // carried from a message to its further lines
  for (const Message &message : messages) {
    Diagnostic d;
    d.text = message.text;
    d.type = message.type;
    if (message.type == optMsgFileEnter) open_sources.push_back(BracketName(message.text));
    d.source = open_sources.empty() ? fallback : open_sources.back();
    d.from_file = open_sources.empty() ? fallback_is_file : IsFileSource(d.source);
    if (message.type == optMsgFileLeave) {
      d.source = BracketName(message.text);
      d.from_file = IsFileSource(d.source);
      CloseSource(open_sources, d.source);
    }
    if (HasLinePrefix(message.type)) {
      std::string_view text = Undecorated(message.text, message.type);
      d.line = TakeLine(text);
      d.follow_up = IsFollowUp(text, located);
      if (!d.follow_up) statement_option = NamedOption(text);
      d.option = statement_option;
    }
    located.push_back(std::move(d));
  }
  return located;
}

bool IsMistake(const Diagnostic &diagnostic) {
  return !diagnostic.follow_up &&
         (diagnostic.type == optMsgDefineError || diagnostic.type == optMsgValueError ||
          diagnostic.type == optMsgUserError);
}

}  // namespace optkw_tool
