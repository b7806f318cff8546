// The statement loop of parameter text and the statement forms it hands on to.
#pragma once

#include "containers/short_str.h"
#include "database/vlmoptions.h"
#include "scanning/miniparser.h"

namespace optkw {

// One run of the statement loop over one source.
struct ParameterRun {
  tvlmoptions &db;
  tminiparser &parser;
  bool eol_only;  // a value runs to the end of its line; the EolFlag immediate changes it

  void Report(std::string_view text) { db.AddMessage(optMsgUserError, text); }
  // Drops what is left of the current line.
  void DropRestOfLine() {
    parser.SkipToLineEnd();
    parser.NextCh();
  }
};

// The brackets around index lists: "(" with ")", "[" with "]", "{" with "}".
inline const CharSet &OpeningBrackets() {
  static const CharSet brackets{'(', '[', '{'};
  return brackets;
}
inline char ClosingBracket(char opening) {
  return opening == '(' ? ')' : opening == '[' ? ']' : '}';
}

// Reads statements until the source ends.
void ReadParameters(tvlmoptions &db, bool eol_only);

// key.suffix(elements) value
void ReadDotStatement(ParameterRun &run, const ShortStr &key);
// The statements of the indicator and definedvar keywords.
void ReadMapStatement(ParameterRun &run, uint8_t kind);

}  // namespace optkw
