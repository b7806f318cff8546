#include "api/boundary.h"

#include "scanning/system_error_text.h"
#include "scanning/value_text.h"

namespace optkw::api {

void ReportEscaped(void *handle, int code) noexcept {
  if (!handle) return;
  tvlmoptions &db = *static_cast<tvlmoptions *>(handle);
  try {
    if (code == ENOMEM) {
      db.AddMessage(optMsgUserError, "Out of memory");
    } else {
      db.AddMessage(optMsgUserError,
                    ShortStr("Error code = ") + IntegerToText(code) + "; " + SystemErrorText(code));
    }
  } catch (...) {
    // Nothing more can be said without memory.
  }
}

}  // namespace optkw::api
