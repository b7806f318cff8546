// Name lookup: which option a name stands for, under the handle's method.
//
// Normal asks for the whole name. Path and Minos let a user abbreviate the
// words of a name (the pieces between "_"): Path by the first three letters of
// every word, Minos by the first three of the first word and the first four of
// each further one. The first option in definition order that matches wins.
#include <string_view>

#include "containers/ascii.h"
#include "database/operations.h"
#include "scanning/text_ops.h"

namespace optkw {

bool NameMatchPath(std::string_view wanted, std::string_view name) {
  const size_t la = wanted.size();
  const size_t lb = name.size();
  if (la == 0) return false;
  // i and j count the characters taken (so wanted[i - 1] is the current one),
  // m the characters of the current word that agreed.
  size_t i = 0;
  size_t j = 0;
  int m = 0;
  auto to_word_end = [](std::string_view s, size_t &k) {
    while (k < s.size() && s[k - 1] != '_')
      ++k;
  };
  bool name_used_up = false;
  while (i < la) {
    if (j >= lb) {
      name_used_up = true;
      break;
    }
    ++i;
    ++j;
    const char a = wanted[i - 1];
    const char b = name[j - 1];
    if (a == '_' || b == '_') {
      // A word ends for both at the first "_" in either.
      if (m < 3) return false;
      to_word_end(wanted, i);
      to_word_end(name, j);
      m = 0;
    } else if (UpCase(a) == UpCase(b)) {
      ++m;
    } else if (m < 3) {
      return false;  // after three letters a difference no longer counts
    }
  }
  if (m < 3) return false;
  if (name_used_up) to_word_end(wanted, i);
  const char c = wanted[i - 1];
  if (j < lb) to_word_end(name, j);
  if (c == '_') return false;  // the wanted name has more words
  return name[j - 1] != '_';   // and so has the option's
}

bool NameMatchMinos(std::string_view wanted, std::string_view name) {
  if (!SameText(wanted.substr(0, 3), name.substr(0, 3))) return false;
  auto piece = [](std::string_view s, size_t underscore) {
    std::string_view p = s.substr(underscore + 1, 4);
    return p.substr(0, p.find('_'));
  };
  size_t from_a = 0;  // where the search for the next "_" begins
  size_t from_b = 0;
  for (;;) {
    const size_t a = wanted.find('_', from_a);
    const size_t b = name.find('_', from_b);
    const bool a_more = a != std::string_view::npos;
    const bool b_more = b != std::string_view::npos;
    if (a_more != b_more) return false;  // different numbers of words
    if (!a_more) return true;
    if (!SameText(piece(wanted, a), piece(name, b))) return false;
    from_a = a + 1;
    from_b = b + 1;
  }
}

int32_t tvlmoptions::LookUpPosition(std::string_view name) const {
  switch (LookupCode) {
    case LookupMethod::kNormal:
      return Options.IndexOf(name);
    case LookupMethod::kPath:
      return abbreviations_.Find(Options, name, NameMatchPath);
    case LookupMethod::kMinos:
      return abbreviations_.Find(Options, name, NameMatchMinos);
  }
  return -1;  // an unknown method finds nothing
}

int32_t optLookUp(tvlmoptions &db, const ShortStr &name) {
  return db.LookUpPosition(name.view());
}

}  // namespace optkw
