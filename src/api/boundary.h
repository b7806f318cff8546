// The one place where a call leaves the library: nothing may escape into the
// client. The library lives inside its client's process, and an exception that
// crosses a C interface terminates that process.
//
// Running out of memory becomes the message "Out of memory" in the queue of the
// handle, where there is one; a system error that still arrives here becomes
// the messages of a failed read. The operations that give a system error code
// then give that code (ENOMEM for memory); all others give their plain failure
// value: 0, 0.0, or an empty text. A programming error is not caught: it still
// ends the process, as it should.
#pragma once

#include <cerrno>
#include <new>
#include <string_view>
#include <system_error>
#include <type_traits>

#include "database/vlmoptions.h"

namespace optkw::api {

// The operations whose int result is a system error code.
constexpr bool GivesErrorCode(std::string_view name) {
  return name == "optReadDefinition" || name == "optReadDefinitionFromPChar" ||
         name == "optReadParameterFile" || name == "optWriteParameterFile";
}

// Adds the message for a failure that came up to the boundary; never throws.
void ReportEscaped(void *handle, int code) noexcept;

template <class R>
R FailureResult(std::string_view name, int code, [[maybe_unused]] char *text_result) {
  if constexpr (std::is_same_v<R, int>) {
    return GivesErrorCode(name) ? code : 0;
  } else if constexpr (std::is_same_v<R, double>) {
    return 0.0;
  } else if constexpr (std::is_same_v<R, char *>) {
    if (text_result) text_result[0] = '\0';  // an empty text in both string forms
    return text_result;
  } else if constexpr (std::is_pointer_v<R>) {
    return nullptr;
  }
}

// Runs `body`, the whole work of one exported call, and keeps what it throws
// (but programming errors) inside. `text_result` is the buffer of a text
// result, or nil.
template <class R, class Body>
R Guarded(void *handle, std::string_view name, char *text_result, Body &&body) noexcept {
  int code = 0;
  try {
    return body();
  } catch (const std::bad_alloc &) {
    code = ENOMEM;
  } catch (const std::system_error &error) {
    code = error.code().value() != 0 ? error.code().value() : EIO;
  }
  ReportEscaped(handle, code);
  return FailureResult<R>(name, code, text_result);
}

}  // namespace optkw::api
