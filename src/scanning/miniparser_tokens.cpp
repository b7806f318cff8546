// Token readers of tminiparser. There is no tokenizer: the reader above knows
// what it expects next and calls the operation for it. Each reader finds its
// token as a run of the line (TakeWhile) and copies it at most once, into the
// caller's ShortStr, so none allocates.
#include <array>

#include "containers/ascii.h"
#include "scanning/miniparser.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

// Letters, digits, "_" and "/", looked up rather than compared: keys are read
// a character at a time.
constexpr auto kWordChars = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[c] =
        IsLetter(static_cast<char>(c)) || IsDigit(static_cast<char>(c)) || c == '_' || c == '/';
  return table;
}();
bool IsWordChar(char c) {
  return kWordChars[static_cast<unsigned char>(c)];
}
bool IsLetterOrDigit(char c) {
  return IsLetter(c) || IsDigit(c);
}
bool IsTokenEnd(char c) {
  return c == kLineEnd || c == kEndOfText || c == ' ' || c == '\t' || c == ',';
}
bool IsBlankOrComma(char c) {
  return c == ' ' || c == '\t' || c == ',';
}

// The text of a quoted token behind its opening quote, closing quote included.
// Only a quote in an odd place behind the opening one can close it in
// mid-line, and only when a blank, tab or comma follows.
class QuotedText {
 public:
  bool operator()(char c) {
    if (!tminiparser::IsLineContent(c) || (closes_ && IsBlankOrComma(c))) return false;
    if (c == '"') odd_ = !odd_;
    closes_ = c == '"' && odd_;
    return true;
  }

 private:
  bool odd_ = false;
  bool closes_ = false;  // the last character taken closes the text if a separator follows
};

// A run of the line into `result`, cut as every reader cuts.
template <class Keep>
bool TakeInto(tminiparser &parser, ShortStr &result, Keep keep) {
  ShortStr scratch;
  result = tminiparser::Capped(parser.TakeWhile(keep), scratch);
  return true;
}

constexpr auto kWordChar = [](char c) { return IsWordChar(c); };

}  // namespace

std::string_view tminiparser::Capped(std::string_view run, ShortStr &scratch) {
  if (run.size() <= static_cast<size_t>(ShortStr::kMaxLength)) return run;
  scratch = run.substr(0, ShortStr::kMaxLength - 1);
  scratch += run.back();
  return scratch.view();
}

bool tminiparser::ReadTokenView(std::string_view &result, ShortStr &scratch) {
  result = {};
  if (!SkipBlanks()) return false;
  if (FCh != '"') {
    // A plain word; a "," ends it and stays in FCh.
    result = Capped(TakeWhile([](char c) { return !IsTokenEnd(c); }), scratch);
    return true;
  }
  NextCh();  // the opening quote
  if (AtTokenEnd()) return false;
  result = Capped(TakeWhile(QuotedText()), scratch);
  if (!result.empty() && result.back() == '"') {
    result.remove_suffix(1);
    return true;
  }
  return false;
}

bool tminiparser::ReadToken(ShortStr &result) {
  std::string_view token;
  const bool ok = ReadTokenView(token, result);
  result = token;
  return ok;
}

bool tminiparser::ReadIdent(ShortStr &result) {
  result.Clear();
  return IsLetter(FCh) && TakeInto(*this, result, kWordChar);
}

bool tminiparser::ReadAlphaNum(ShortStr &result) {
  result.Clear();
  return IsLetter(FCh) && TakeInto(*this, result, [](char c) { return IsLetterOrDigit(c); });
}

bool tminiparser::ReadName(ShortStr &result) {
  result.Clear();
  return IsLetterOrDigit(FCh) && TakeInto(*this, result, kWordChar);
}

bool tminiparser::ReadSwitch(ShortStr &result, int32_t &count) {
  const size_t switches = TakeWhile([](char c) { return c == '-' || c == '/'; }).size();
  count = switches < INT32_MAX ? static_cast<int32_t>(switches) : INT32_MAX;
  return ReadIdent(result);
}

ShortStr tminiparser::ReadRestOfLine() {
  ShortStr result;
  if (!SkipBlanks()) return result;
  TakeInto(*this, result, [](char c) { return tminiparser::IsLineContent(c); });
  int n = result.size();
  while (n > 0 && (result[n - 1] == ' ' || result[n - 1] == '\t'))
    --n;
  result.Truncate(n);
  return result;
}

bool tminiparser::ReadInteger(int32_t &value) {
  std::string_view token;
  ShortStr scratch;
  if (!ReadTokenView(token, scratch)) return false;
  return TextToIntegerLax(token, value);
}

bool tminiparser::ReadDouble(double &value) {
  std::string_view token;
  ShortStr scratch;
  if (!ReadTokenView(token, scratch)) return false;
  return TextToDouble(token, value);
}

bool tminiparser::ReadElement(ShortStr &result) {
  result.Clear();
  if (!SkipBlanks()) return false;
  if (IsLetter(FCh)) return ReadIdent(result);
  if (FCh == '*') {
    result = "*";
    NextCh();
    return true;
  }
  if (FCh != '"' && FCh != '\'') return false;
  // A quoted element: the first matching quote ends it, and it comes back with
  // its quotes so that the reader above can tell it from an identifier.
  const char quote = FCh;
  NextCh();
  ShortStr text;
  TakeInto(*this, text, [quote](char c) { return c != quote && tminiparser::IsLineContent(c); });
  if (FCh != kEndOfText) NextCh();
  int n = text.size();
  while (n > 0 && static_cast<unsigned char>(text[n - 1]) <= ' ')
    --n;
  text.Truncate(n);
  result = ShortStr(std::string_view(&quote, 1)) + text.view() + std::string_view(&quote, 1);
  return true;
}

bool tminiparser::AcceptChar(char expected) {
  SkipBlanks();
  if (FCh != expected) return false;
  if (FCh != kEndOfText) NextCh();
  return true;
}

bool tminiparser::AcceptCharInSet(const CharSet &set, char &seen) {
  SkipBlanks();
  seen = FCh;
  if (!set.Has(FCh)) return false;
  if (FCh != kEndOfText) NextCh();
  return true;
}

bool tminiparser::SkipAssign() {
  const bool more = SkipBlanks();
  if (FCh == '=') {
    NextCh();
    return SkipBlanks();
  }
  if (FCh == ':') {
    NextCh();
    if (FCh != '=') return false;
    NextCh();
    return SkipBlanks();
  }
  return more;
}

}  // namespace optkw
