// The exported functions: every row of optkw_table.def under its lower-case
// name and the same with "_", its C-string form where it has one, and the frame
// (handles, version and signature checks, the load path). Nothing here but
// the conversion of arguments: each export forwards to the one operation.
#define OPTKW_NO_MIXED_CASE
#include "optkw.h"

#include <algorithm>
#include <string_view>

#include "api/boundary.h"
#include "api/c_strings.h"
#include "api/interface_table.h"
#include "api/library_frame.h"
#include "api/marshal.h"
#include "database/operations.h"
#include "definition/definition_reader.h"
#include "output/help_listing.h"
#include "output/parameter_writer.h"
#include "parameters/reading_driver.h"

#define OPTKW_EXPORT __attribute__((visibility("default")))

// Mode "arg": the adapter of each argument.
#define OPTKW_M_arg_
#define OPTKW_M_arg_optkw_int(x) \
  , optkw::api::InInt {          \
    x                            \
  }
#define OPTKW_M_arg_optkw_int_out(x) \
  , optkw::api::OutInt {             \
    x                                \
  }
#define OPTKW_M_arg_optkw_dbl(x) \
  , optkw::api::InDbl {          \
    x                            \
  }
#define OPTKW_M_arg_optkw_dbl_out(x) \
  , optkw::api::OutDbl {             \
    x                                \
  }
#define OPTKW_M_arg_optkw_pchar(x) \
  , optkw::api::InPChar {          \
    x                              \
  }
#define OPTKW_M_arg_optkw_str(x) \
  , optkw::api::InStr<Form> {    \
    x                            \
  }
#define OPTKW_M_arg_optkw_str_out(x) \
  , optkw::api::OutStr<Form> {       \
    x                                \
  }

// A string result travels as a further output argument into `result`.
#define OPTKW_RARG_OPTKW_VOID
#define OPTKW_RARG_OPTKW_INT
#define OPTKW_RARG_OPTKW_DOUBLE
#define OPTKW_RARG_OPTKW_BOOL
#define OPTKW_RARG_OPTKW_SHORTSTR \
  , optkw::api::OutStr<Form> {    \
    result                        \
  }
#define OPTKW_BODY_OPTKW_VOID(call) call;
#define OPTKW_BODY_OPTKW_INT(call) return call;
#define OPTKW_BODY_OPTKW_DOUBLE(call) return call;
#define OPTKW_BODY_OPTKW_BOOL(call) return (call) ? 1 : 0;
#define OPTKW_BODY_OPTKW_SHORTSTR(call) \
  call;                                 \
  return result;

// The buffer of a text result, for the failure value at the boundary.
#define OPTKW_TEXTRES_OPTKW_VOID nullptr
#define OPTKW_TEXTRES_OPTKW_INT nullptr
#define OPTKW_TEXTRES_OPTKW_DOUBLE nullptr
#define OPTKW_TEXTRES_OPTKW_BOOL nullptr
#define OPTKW_TEXTRES_OPTKW_SHORTSTR result

// One exported function under its two names. Its whole body runs inside the
// boundary guard, so that nothing it throws reaches the client.
#define OPTKW_DEFINE(symbol, Name, R, ARGS, form) OPTKW_DEFINE_I(symbol, Name, R, ARGS, form)
#define OPTKW_DEFINE_I(symbol, Name, R, ARGS, form)                                            \
  extern "C" OPTKW_EXPORT OPTKW_RTYPE_##R symbol OPTKW_PARAMS(R, ARGS) {                       \
    using Form [[maybe_unused]] = form;                                                        \
    return optkw::api::Guarded<OPTKW_RTYPE_##R>(                                               \
        h, #Name, OPTKW_TEXTRES_##R,                                                           \
        [&]() -> OPTKW_RTYPE_##R{OPTKW_BODY_##R(                                               \
                  optkw::api::Invoke(&optkw::Name, h OPTKW_EACH(arg, ARGS) OPTKW_RARG_##R))}); \
  }                                                                                            \
  extern "C" OPTKW_EXPORT OPTKW_RTYPE_##R symbol##_ OPTKW_PARAMS(R, ARGS)                      \
      __attribute__((alias(#symbol)));

#define OPTKW_DEFINE_CFORM_OPTKW_CFORM(Name, lower, R, ARGS) \
  OPTKW_DEFINE(OPTKW_CAT(c, lower), Name, R, ARGS, optkw::api::CString)
#define OPTKW_DEFINE_CFORM_OPTKW_NO_CFORM(Name, lower, R, ARGS)

#define OPTKW_ROW(Name, lower, R, CFORM, ARGS)            \
  OPTKW_DEFINE(lower, Name, R, ARGS, optkw::api::Counted) \
  OPTKW_DEFINE_CFORM_##CFORM(Name, lower, R, ARGS)
#include "optkw_table.def"
#undef OPTKW_ROW

// ---- The frame, written out: it isn't part of the table.

// A further name for a frame function: `name` leads to the function `target`.
#define OPTKW_ALIAS(R, name, target, params) \
  extern "C" OPTKW_EXPORT R name params __attribute__((alias(#target)));

extern "C" OPTKW_EXPORT void xcreate(optHandle_t *h) {
  // Out of memory here leaves no handle stored, and nowhere to tell of it.
  optkw::api::Guarded<void>(nullptr, "xcreate", nullptr, [&] { *h = optkw::CreateHandle(); });
}
OPTKW_ALIAS(void, xcreate_, xcreate, (optHandle_t * h))
OPTKW_ALIAS(void, optxcreate, xcreate, (optHandle_t * h))
OPTKW_ALIAS(void, optxcreate_, xcreate, (optHandle_t * h))

extern "C" OPTKW_EXPORT int optcreate(optHandle_t *h, char *msgBuf, int msgBufLen) {
  *h = optkw::api::Guarded<void *>(nullptr, "optCreate", nullptr,
                                   [] { return static_cast<void *>(optkw::CreateHandle()); });
  if (*h != nullptr) {
    msgBuf[0] = '\0';
    return 1;
  }
  // Running out of memory while creating the object ends up here.
  const std::string_view text = "Error while creating object";
  const size_t n = msgBufLen < 0 ? 0 : std::min(text.size(), static_cast<size_t>(msgBufLen));
  text.copy(msgBuf, n);
  msgBuf[n] = '\0';
  return 0;
}
OPTKW_ALIAS(int, optcreate_, optcreate, (optHandle_t * h, char *msgBuf, int msgBufLen))

extern "C" OPTKW_EXPORT void xfree(optHandle_t *h) {
  optkw::api::Guarded<void>(nullptr, "xfree", nullptr, [&] {
    if (*h != nullptr) optkw::FreeHandle(*h);
  });
}
OPTKW_ALIAS(void, xfree_, xfree, (optHandle_t * h))
OPTKW_ALIAS(void, optxfree, xfree, (optHandle_t * h))
OPTKW_ALIAS(void, optxfree_, xfree, (optHandle_t * h))

extern "C" OPTKW_EXPORT int optfree(optHandle_t *h) {
  xfree(h);
  return 1;
}
OPTKW_ALIAS(int, optfree_, optfree, (optHandle_t * h))

extern "C" OPTKW_EXPORT int xapiversion(int api, char *msg, int *status) {
  return optkw::api::Guarded<int>(nullptr, "xapiversion", nullptr, [&] {
    optkw::ShortStr text;
    const int result = optkw::CheckApiVersion(api, text, *status);
    text.ToCounted(msg);
    return result;
  });
}
OPTKW_ALIAS(int, xapiversion_, xapiversion, (int api, char *msg, int *status))
OPTKW_ALIAS(int, optxapiversion, xapiversion, (int api, char *msg, int *status))
OPTKW_ALIAS(int, optxapiversion_, xapiversion, (int api, char *msg, int *status))

extern "C" OPTKW_EXPORT int cxapiversion(int api, char *msg, int *status) {
  return optkw::api::Guarded<int>(nullptr, "cxapiversion", nullptr, [&] {
    optkw::ShortStr text;
    const int result = optkw::CheckApiVersion(api, text, *status);
    optkw::StrToC(msg, text);
    return result;
  });
}
OPTKW_ALIAS(int, cxapiversion_, cxapiversion, (int api, char *msg, int *status))

extern "C" OPTKW_EXPORT int xcheck(const char *funcName, int nArgs, const int *argTypes,
                                   char *msg) {
  return optkw::api::Guarded<int>(nullptr, "xcheck", nullptr, [&] {
    optkw::ShortStr text;
    const int result =
        optkw::CheckSignature(optkw::ShortStr::FromCounted(funcName), nArgs, argTypes, text);
    text.ToCounted(msg);
    return result;
  });
}
OPTKW_ALIAS(int, xcheck_, xcheck, (const char *funcName, int nArgs, const int *argTypes, char *msg))
OPTKW_ALIAS(int, optxcheck, xcheck,
            (const char *funcName, int nArgs, const int *argTypes, char *msg))
OPTKW_ALIAS(int, optxcheck_, xcheck,
            (const char *funcName, int nArgs, const int *argTypes, char *msg))

extern "C" OPTKW_EXPORT int cxcheck(const char *funcName, int nArgs, const int *argTypes,
                                    char *msg) {
  return optkw::api::Guarded<int>(nullptr, "cxcheck", nullptr, [&] {
    optkw::ShortStr text;
    const int result = optkw::CheckSignature(optkw::StrFromC(funcName), nArgs, argTypes, text);
    optkw::StrToC(msg, text);
    return result;
  });
}
OPTKW_ALIAS(int, cxcheck_, cxcheck,
            (const char *funcName, int nArgs, const int *argTypes, char *msg))

extern "C" OPTKW_EXPORT void optsetloadpath(const char *path) {
  optkw::LoadPath = optkw::ShortStr::FromCounted(path);
}
OPTKW_ALIAS(void, optsetloadpath_, optsetloadpath, (const char *path))
extern "C" OPTKW_EXPORT void optgetloadpath(char *path) {
  optkw::LoadPath.ToCounted(path);
}
OPTKW_ALIAS(void, optgetloadpath_, optgetloadpath, (char *path))
extern "C" OPTKW_EXPORT void coptsetloadpath(const char *path) {
  optkw::LoadPath = optkw::StrFromC(path);
}
OPTKW_ALIAS(void, coptsetloadpath_, coptsetloadpath, (const char *path))
extern "C" OPTKW_EXPORT void coptgetloadpath(char *path) {
  optkw::StrToC(path, optkw::LoadPath);
}
OPTKW_ALIAS(void, coptgetloadpath_, coptgetloadpath, (char *path))
