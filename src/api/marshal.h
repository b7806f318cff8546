// How an exported function hands its C arguments to an operation.
//
// Each argument kind has an adapter: get() gives the operation its argument,
// Finish() writes an output back into the client's memory. Only the string
// adapters depend on the form: a plain export passes counted strings, a "c"
// export C strings. Invoke calls the operation and then finishes every
// argument in order, whatever the operation's result was.
#pragma once

#include <type_traits>
#include <utility>

#include "api/c_strings.h"
#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw::api {

// Plain form: counted strings (a length byte, then the text). An output starts
// from what the client's buffer holds, so that an output the operation leaves
// alone stays as the client had it.
struct Counted {
  static ShortStr In(const char *text) { return ShortStr::FromCounted(text); }
  static ShortStr Initial(const char *buffer) { return ShortStr::FromCounted(buffer); }
  static void Out(char *buffer, const ShortStr &text) { text.ToCounted(buffer); }
};

// "c" form: NUL-terminated C strings.
struct CString {
  static ShortStr In(const char *text) { return StrFromC(text); }
  static ShortStr Initial(const char *) { return {}; }
  static void Out(char *buffer, const ShortStr &text) { StrToC(buffer, text); }
};

template <class T>
struct InValue {
  T value;
  T get() const { return value; }
  void Finish() {}
};
template <class T>
struct OutValue {
  T *target;
  T &get() { return *target; }
  void Finish() {}
};
using InInt = InValue<int>;
using InDbl = InValue<double>;
using InPChar = InValue<const char *>;
using OutInt = OutValue<int>;
using OutDbl = OutValue<double>;

template <class Form>
struct InStr {
  explicit InStr(const char *text) : value(Form::In(text)) {}
  const ShortStr &get() const { return value; }
  void Finish() {}
  ShortStr value;
};

template <class Form>
struct OutStr {
  explicit OutStr(char *buffer) : buffer(buffer), value(Form::Initial(buffer)) {}
  ShortStr &get() { return value; }
  void Finish() { Form::Out(buffer, value); }
  char *buffer;
  ShortStr value;
};

template <class Operation, class... Args>
decltype(auto) Invoke(Operation operation, void *handle, Args &&...args) {
  tvlmoptions &db = *static_cast<tvlmoptions *>(handle);
  if constexpr (std::is_void_v<decltype(operation(db, args.get()...))>) {
    operation(db, args.get()...);
    (args.Finish(), ...);
  } else {
    auto result = operation(db, args.get()...);
    (args.Finish(), ...);
    return result;
  }
}

}  // namespace optkw::api
