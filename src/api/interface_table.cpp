#include "api/interface_table.h"

#include <initializer_list>

#define OPTKW_NO_MIXED_CASE
#include "optkw.h"
#include "scanning/value_text.h"

// The signature code of each kind of argument and result.
#define OPTKW_M_code_
#define OPTKW_M_code_optkw_int(x) , 3
#define OPTKW_M_code_optkw_int_out(x) , 4
#define OPTKW_M_code_optkw_pchar(x) , 10
#define OPTKW_M_code_optkw_str(x) , 11
#define OPTKW_M_code_optkw_str_out(x) , 12
#define OPTKW_M_code_optkw_dbl(x) , 13
#define OPTKW_M_code_optkw_dbl_out(x) , 14
#define OPTKW_RCODE_OPTKW_VOID 0
#define OPTKW_RCODE_OPTKW_INT 3
#define OPTKW_RCODE_OPTKW_SHORTSTR 12
#define OPTKW_RCODE_OPTKW_DOUBLE 13
#define OPTKW_RCODE_OPTKW_BOOL 15
#define OPTKW_HAS_C_FORM_OPTKW_CFORM true
#define OPTKW_HAS_C_FORM_OPTKW_NO_CFORM false

namespace optkw {
namespace {

constexpr InterfaceRow MakeRow(std::string_view name, std::string_view lower,
                               std::initializer_list<int32_t> codes, bool has_c_form) {
  InterfaceRow row{name, lower, static_cast<int32_t>(codes.size()) - 1, {}, has_c_form};
  row.codes.fill(-1);
  int32_t i = 0;
  for (int32_t code : codes)
    row.codes[static_cast<size_t>(i++)] = code;
  return row;
}

constexpr InterfaceRow kRows[] = {
#define OPTKW_ROW(Name, lower, R, CFORM, ARGS) \
  MakeRow(#Name, #lower, {OPTKW_RCODE_##R OPTKW_EACH(code, ARGS)}, OPTKW_HAS_C_FORM_##CFORM),
#include "optkw_table.def"
#undef OPTKW_ROW
};

// What the table promises, checked when the library is compiled: each export
// name is the row's name in lower case, and exactly the rows that pass counted
// strings have a C-string form.
constexpr bool RowIsConsistent(const InterfaceRow &row) {
  if (row.name.size() != row.lower.size()) return false;
  for (size_t i = 0; i < row.name.size(); ++i) {
    const char c = row.name[i];
    if ((c >= 'A' && c <= 'Z' ? c + 32 : c) != row.lower[i]) return false;
  }
  bool counted = false;
  for (int32_t i = 0; i <= row.arg_count; ++i)
    counted = counted || row.codes[i] == 11 || row.codes[i] == 12;
  return counted == row.has_c_form;
}

constexpr bool AllRowsConsistent() {
  for (const InterfaceRow &row : kRows) {
    if (!RowIsConsistent(row)) return false;
  }
  return true;
}
static_assert(AllRowsConsistent());

}  // namespace

std::span<const InterfaceRow> InterfaceRows() {
  return kRows;
}

int32_t CheckSignature(const ShortStr &name, int32_t arg_count, const int32_t *codes,
                       ShortStr &message) {
  const ShortStr prefix = ShortStr("optkwlib: ") + name;
  for (const InterfaceRow &row : kRows) {
    if (row.name != name.view()) continue;
    message.Clear();
    if (arg_count != row.arg_count) {
      message = prefix + " has wrong number of arguments, the API expects " +
                IntegerToText(arg_count) + " but it has " + IntegerToText(row.arg_count) +
                " in the library.";
      return 0;
    }
    // Every position is compared, so that the message lists every bad one.
    int32_t result = 1;
    for (int32_t i = 0; i <= row.arg_count; ++i) {
      if (codes != nullptr && codes[i] == row.codes[static_cast<size_t>(i)]) continue;
      message = result == 1 ? prefix + " has wrong argument type for argument " + IntegerToText(i)
                            : message + "," + IntegerToText(i);
      result = 0;
    }
    return result;
  }
  message = prefix + " cannot be found in the library.";
  return 0;
}

}  // namespace optkw
