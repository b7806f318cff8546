// The message queue's routines: adding with its rules, and what clients see.
#include <charconv>
#include <cstdint>
#include <string_view>

#include "database/operations.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

ShortStr LimitText() {
  return ShortStr("Maximum of ") + IntegerToText(tvlmoptions::kMaxMessages) + " messages reached";
}

// The types that speak of input carry the line they were found on.
bool TakesLinePrefix(int32_t type) {
  switch (type) {
    case optMsgInputEcho:
    case optMsgHelp:
    case optMsgFileEnter:
    case optMsgFileLeave:
    case optMsgTooManyMsgs:
      return false;
    default:
      return true;
  }
}

// Adds within the limit: the message that reaches the limit is replaced by the
// limit's own text, and every later one is dropped.
void AddWithinLimit(tvlmoptions &db, int32_t type, std::string_view text) {
  const int32_t count = db.Messages.Count();
  if (count == tvlmoptions::kMaxMessages) {
    db.Messages.Append(optMsgTooManyMsgs, LimitText().view());
  } else if (count < tvlmoptions::kMaxMessages) {
    db.Messages.Append(type, TakesLinePrefix(type) ? db.WithLine(text).view() : text);
  }
}

ShortStr Decorated(int32_t type, std::string_view text) {
  switch (type) {
    case optMsgInputEcho:
      return ShortStr(">> ") + text;
    case optMsgDefineError:
      return ShortStr("*** Definition Error ") + text;
    case optMsgValueError:
      return ShortStr("*** Value Error ") + text;
    case optMsgValueWarning:
    case optMsgDeprecated:
      return ShortStr("*** Warning ") + text;
    case optMsgFileEnter:
      return ShortStr("Reading parameter(s) from \"") + text + "\"";
    case optMsgFileLeave:
      return ShortStr("Finished reading from \"") + text + "\"";
    case optMsgUserError:
      return ShortStr("*** Error ") + text;
    default:  // help lines and the limit's text stand as they are
      return text;
  }
}

}  // namespace

ShortStr tvlmoptions::WithLine(std::string_view text) const {
  if (Parser == nullptr || Parser->FLineNr == 0) return text;
  return ShortStr("line ") + IntegerToText(Parser->FLineNr) + ": " + text;
}

void tvlmoptions::AddMessage(int32_t type, std::string_view text) {
  // A source that said nothing leaves no trace: its leave message cancels the
  // enter message it follows. This comes before the limit.
  if (type == optMsgFileLeave && !Messages.empty()) {
    const int32_t last = Messages.Count() - 1;
    if (Messages.Type(last) == optMsgFileEnter && Messages.Text(last) == text) {
      Messages.DeleteLast();
      return;
    }
  }
  AddWithinLimit(*this, type, text);
}

bool tvlmoptions::CheckDefinition(bool ok, std::string_view what, std::string_view name) {
  if (ok) return true;
  ShortStr text(what);
  if (!name.empty() && what.find("synonym") == std::string_view::npos) text += " for option";
  text += " \"";
  text += name;
  text += "\"";
  AddWithinLimit(*this, optMsgDefineError, text.view());
  return false;
}

int32_t tvlmoptions::StatementErrors() const {
  return Messages.CountOf(
      {optMsgHelp, optMsgDefineError, optMsgValueError, optMsgTooManyMsgs, optMsgUserError});
}

void optAddMessage(tvlmoptions &db, const ShortStr &text) {
  AddWithinLimit(db, optMsgUserError, text.view());
}

void optGetMessage(tvlmoptions &db, int32_t nr, ShortStr &text, int32_t &type) {
  if (nr < 1 || nr > db.Messages.Count()) {
    // The number shown is the zero-based one.
    char digits[24];
    auto [end, ec] = std::to_chars(digits, digits + sizeof digits, static_cast<int64_t>(nr) - 1);
    text = ShortStr("Bad message number = ") +
           std::string_view(digits, static_cast<size_t>(end - digits));
    type = optMsgUserError;
    return;
  }
  type = db.Messages.Type(nr - 1);
  text = Decorated(type, db.Messages.Text(nr - 1));
}

void optClearMessages(tvlmoptions &db) {
  db.Messages.Clear();
}

int32_t optMessageCount(tvlmoptions &db) {
  return db.Messages.Count();
}

void optErrorCount(tvlmoptions &db, int32_t &errors, int32_t &warnings) {
  errors = db.Messages.CountOf(
      {optMsgDefineError, optMsgValueError, optMsgTooManyMsgs, optMsgUserError});
  warnings = db.Messages.CountOf({optMsgValueWarning, optMsgDeprecated});
}

}  // namespace optkw
