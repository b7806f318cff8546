// A handle that knows the options of an imaginary solver
// (fixtures/parameters/solver.def), and the state a read leaves in it as text.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "database/operations.h"
#include "definition/definition_reader.h"
#include "parameters/reading_driver.h"
#include "support/test_support.h"

namespace optkw::test {

using Texts = std::vector<std::string>;

// Line feeds and tabs as \n and \t, so that a message or value stays on one line.
inline std::string Escaped(std::string text) {
  for (size_t at = 0; (at = text.find_first_of("\n\t", at)) != std::string::npos; at += 2)
    text.replace(at, 1, text[at] == '\n' ? "\\n" : "\\t");
  return text;
}

inline std::string Str(const ShortStr &text) {
  return std::string(text.view());
}

class SolverHandle : public Handle {
 public:
  explicit SolverHandle(std::string_view definition = "parameters/solver.def") {
    EXPECT_EQ(optReadDefinition(db, ShortStr(Fixture(definition))), 0);
    optClearMessages(db);
  }

  // Each option that is set as "name = value", with "*" for a value of a pair
  // that isn't and " | " between the entries of a string list; then the records
  // in the form of the statements that made them, and the counts of those taken
  // back.
  Texts State() {
    Texts state;
    for (int32_t nr = 1; nr <= optCount(db); ++nr) {
      ShortStr name, value;
      int32_t defined = 0;
      optGetNameNr(db, nr, name);
      optGetDefinedNr(db, nr, defined);
      std::string line = std::string(name.view()) + " =";
      if (const txstrings *list = db.OptionAt(nr - 1)->StrListOrNull()) {
        if (list->Count() == 0) continue;
        for (int32_t k = 0; k < list->Count(); ++k)
          line += (k > 0 ? " | " : " ") + std::string(list->View(k));
      } else {
        if (defined == 0) continue;
        for (int32_t bit = 1; bit <= 2; ++bit) {
          if ((bit == 1 ? optGetStrNr : optGetStr2Nr)(db, nr, value) == 0) break;
          const std::string text = value.empty() ? "\"\"" : Str(value);
          line += " " + (defined & bit ? text : "*");
        }
      }
      state.push_back(Escaped(line));
    }
    int32_t dropped[3] = {0, 0, 0};
    for (int32_t nr = 1; nr <= optDotOptCount(db, dropped[0]); ++nr) {
      ShortStr key, option;
      int32_t option_nr = 0, dims = 0;
      double value = 0;
      optGetDotOptNr(db, nr, key, option_nr, dims, value);
      optGetNameNr(db, option_nr, option);
      std::ostringstream line;
      line << Indexed(Str(key) + Str(option), dims,
                      [&](int32_t dim, ShortStr &uel) { optGetDotOptUel(db, nr, dim, uel); })
           << " = " << value;
      state.push_back(line.str());
    }
    for (const int32_t kind : {optmapIndicator, optmapDefinedvar}) {
      for (int32_t nr = 1; nr <= optVarEquMapCount(db, kind, dropped[1 + kind]); ++nr) {
        ShortStr equ, var;
        int32_t equ_dims = 0, var_dims = 0, value = 0;
        optGetVarEquMapNr(db, kind, nr, equ, var, equ_dims, var_dims, value);
        const std::string equation = Indexed(Str(equ), equ_dims, [&](int32_t dim, ShortStr &uel) {
          optGetEquVarEquMapNr(db, kind, nr, dim, uel);
        });
        const std::string variable = Indexed(Str(var), var_dims, [&](int32_t dim, ShortStr &uel) {
          optGetVarVarEquMapNr(db, kind, nr, dim, uel);
        });
        state.push_back(kind == optmapIndicator ? "indicator " + equation + " $ " + variable +
                                                      " = " + std::to_string(value)
                                                : "definedvar " + variable + " " + equation);
      }
    }
    const char *stores[] = {"dot", "indicator", "definedvar"};
    for (int k = 0; k < 3; ++k)
      if (dropped[k] != 0)
        state.push_back("dropped " + std::string(stores[k]) + " " + std::to_string(dropped[k]));
    return state;
  }

 private:
  // The name and its elements in brackets, through the query `uel`.
  template <class Uel>
  static std::string Indexed(std::string text, int32_t dims, Uel uel) {
    for (int32_t dim = 1; dim <= dims; ++dim) {
      ShortStr element;
      uel(dim, element);
      text += (dim == 1 ? "(" : ",") + Str(element) + (dim == dims ? ")" : "");
    }
    return text;
  }
};

}  // namespace optkw::test
