// The words for a file source that ended early: a read error in the middle of
// the file, or a line that never ends. The scanner only records the fault; the
// reader that opened the source reports it, before the source's closing
// bracket, so that the messages stay balanced.
#pragma once

#include <string_view>

#include "database/vlmoptions.h"
#include "scanning/miniparser.h"
#include "scanning/system_error_text.h"
#include "scanning/value_text.h"

namespace optkw {

// Adds the messages for the fault of `parser`, if it has one; `what` names the
// kind of file ("parameter file"). Gives the system error code of a read
// error, and 0 otherwise.
inline int32_t ReportSourceFault(tvlmoptions &db, const tminiparser &parser, std::string_view what,
                                 const ShortStr &file) {
  switch (parser.Fault()) {
    case SourceFault::kNone:
      return 0;
    case SourceFault::kReadError: {
      const int32_t code = parser.FaultCode();
      db.AddMessage(optMsgUserError, ShortStr("Error reading ") + what + " \"" + file + "\"");
      db.AddMessage(optMsgUserError,
                    ShortStr("Error code = ") + IntegerToText(code) + "; " + SystemErrorText(code));
      return code;
    }
    case SourceFault::kEndlessLine:
      db.AddMessage(optMsgUserError,
                    ShortStr("Line longer than ") +
                        IntegerToText(static_cast<int32_t>(tminiparser::kMaxPhysicalLine)) +
                        " bytes in " + what + " \"" + file + "\"; rest of file ignored");
      return 0;
  }
  return 0;
}

}  // namespace optkw
