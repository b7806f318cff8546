// Token readers of tminiparser. There is no tokenizer: the reader above knows
// what it expects next and calls the operation for it. Every reader writes
// character by character into the caller's ShortStr, so none allocates.
#include "containers/ascii.h"
#include "scanning/miniparser.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

bool IsWordChar(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_' || c == '/';
}
bool IsTokenEnd(char c) {
  return c == kLineEnd || c == kEndOfText || c == ' ' || c == '\t' || c == ',';
}
bool IsBlankOrComma(char c) {
  return c == ' ' || c == '\t' || c == ',';
}

}  // namespace

bool tminiparser::ReadToken(ShortStr &result) {
  result.Clear();
  if (!SkipBlanks()) return false;
  if (FCh != '"') {
    // A plain word; a "," ends it and stays in FCh.
    while (!IsTokenEnd(FCh)) {
      result.PushCapped(FCh);
      NextCh();
    }
    return true;
  }
  NextCh();  // the opening quote
  if (AtTokenEnd()) return false;
  // Only a quote in an odd place behind the opening one can close the text in
  // mid-line; at the end of the line a final quote in any place closes it.
  bool odd = false;
  while (!AtTokenEnd()) {
    const char c = FCh;
    result.PushCapped(c);
    NextCh();
    if (c == '"') {
      odd = !odd;
      if (odd && IsBlankOrComma(FCh)) break;
    }
  }
  if (!result.empty() && result.back() == '"') {
    result.Truncate(result.size() - 1);
    return true;
  }
  return false;
}

bool tminiparser::ReadIdent(ShortStr &result) {
  result.Clear();
  if (!IsLetter(FCh)) return false;
  while (IsWordChar(FCh)) {
    result.PushCapped(FCh);
    NextCh();
  }
  return true;
}

bool tminiparser::ReadAlphaNum(ShortStr &result) {
  result.Clear();
  if (!IsLetter(FCh)) return false;
  while (IsLetter(FCh) || IsDigit(FCh)) {
    result.PushCapped(FCh);
    NextCh();
  }
  return true;
}

bool tminiparser::ReadName(ShortStr &result) {
  result.Clear();
  if (!IsLetter(FCh) && !IsDigit(FCh)) return false;
  while (IsWordChar(FCh)) {
    result.PushCapped(FCh);
    NextCh();
  }
  return true;
}

bool tminiparser::ReadSwitch(ShortStr &result, int32_t &count) {
  count = 0;
  while (FCh == '-' || FCh == '/') {
    if (count < INT32_MAX) ++count;
    NextCh();
  }
  return ReadIdent(result);
}

ShortStr tminiparser::ReadRestOfLine() {
  ShortStr result;
  if (!SkipBlanks()) return result;
  while (!AtTokenEnd()) {
    result.PushCapped(FCh);
    NextCh();
  }
  int n = result.size();
  while (n > 0 && (result[n - 1] == ' ' || result[n - 1] == '\t'))
    --n;
  result.Truncate(n);
  return result;
}

bool tminiparser::ReadInteger(int32_t &value) {
  ShortStr token;
  if (!ReadToken(token)) return false;
  return TextToIntegerLax(token.view(), value);
}

bool tminiparser::ReadDouble(double &value) {
  ShortStr token;
  if (!ReadToken(token)) return false;
  return TextToDouble(token.view(), value);
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
  while (FCh != quote && !AtTokenEnd()) {
    result.PushCapped(FCh);
    NextCh();
  }
  if (FCh != kEndOfText) NextCh();
  int n = result.size();
  while (n > 0 && static_cast<unsigned char>(result[n - 1]) <= ' ')
    --n;
  result.Truncate(n);
  result = ShortStr(std::string_view(&quote, 1)) + result.view() + std::string_view(&quote, 1);
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
