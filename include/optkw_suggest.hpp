// optkw_suggest.hpp: "did you mean" for names that a definition doesn't know.
//
// Header-only and standard C++ only, so that the optkw tool, the C++ binding
// (optkw.hpp) and any client can offer the same suggestions. The Python
// binding (optkw.suggest) follows the same rules, which are:
//
//  - Texts are compared folded: ASCII letters in lower case, a blank as "_"
//    (under the Minos lookup a user writes the words of a name apart).
//  - The distance of a candidate is its edit distance from the typed text,
//    counting an exchange of two neighbouring characters as one edit; a typed
//    text whose words begin the candidate's words, word for word ("it_lim"
//    for "iteration_limit"), as the Path and Minos lookups allow, is at
//    distance 1.
//  - A candidate is offered when its distance is at most a third of the
//    typed text's length (at least 1) and below that length, and it isn't
//    the typed text itself but for case. So under Minos "major_iter_limit"
//    gets "major iter limit": the words are right, only written together. At most three are offered, the nearest first,
//    candidates at the same distance in the order they were given.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace optkw {

namespace suggest_detail {

inline std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char &c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

inline std::string Folded(std::string_view text) {
  std::string folded = Lower(text);
  std::replace(folded.begin(), folded.end(), ' ', '_');
  return folded;
}

// Edit distance in which exchanging two neighbours is one edit.
inline size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<size_t>> d(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i)
    d[i][0] = i;
  for (size_t j = 0; j <= b.size(); ++j)
    d[0][j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    for (size_t j = 1; j <= b.size(); ++j) {
      d[i][j] = std::min(
          {d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

inline std::vector<std::string_view> Words(std::string_view folded) {
  std::vector<std::string_view> words;
  size_t start = 0;
  for (size_t at = folded.find('_'); at != std::string_view::npos; at = folded.find('_', start)) {
    words.push_back(folded.substr(start, at - start));
    start = at + 1;
  }
  words.push_back(folded.substr(start));
  return words;
}

// Each word of `typed` begins the word of the same place in `candidate`.
inline bool Abbreviates(std::string_view typed, std::string_view candidate) {
  const auto short_words = Words(typed), long_words = Words(candidate);
  if (short_words.size() != long_words.size()) return false;
  for (size_t k = 0; k < short_words.size(); ++k) {
    if (short_words[k].empty() || long_words[k].substr(0, short_words[k].size()) != short_words[k])
      return false;
  }
  return true;
}

}  // namespace suggest_detail

// The candidates close enough to `typed` to be what was meant, nearest first.
inline std::vector<std::string> ClosestNames(std::string_view typed,
                                             const std::vector<std::string> &candidates,
                                             size_t most = 3) {
  using namespace suggest_detail;
  const std::string folded = Folded(typed);
  const size_t allowed = std::max<size_t>(1, folded.size() / 3);
  struct Near {
    size_t distance, order;
  };
  std::vector<Near> near;
  std::vector<std::string> seen;
  for (size_t k = 0; k < candidates.size(); ++k) {
    const std::string other = Folded(candidates[k]);
    if (std::find(seen.begin(), seen.end(), other) != seen.end()) continue;
    if (Lower(candidates[k]) == Lower(typed)) continue;  // the typed name itself
    seen.push_back(other);
    const size_t distance =
        Abbreviates(folded, other) ? size_t{1} : std::min(Distance(folded, other), allowed + 1);
    if (distance <= allowed && distance < folded.size()) near.push_back({distance, k});
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const Near &a, const Near &b) { return a.distance < b.distance; });
  std::vector<std::string> names;
  for (size_t k = 0; k < near.size() && k < most; ++k)
    names.push_back(candidates[near[k].order]);
  return names;
}

// `did you mean "a"?`, `did you mean "a" or "b"?`, `did you mean "a", "b" or
// "c"?`; empty for no names.
inline std::string DidYouMean(const std::vector<std::string> &names) {
  if (names.empty()) return {};
  std::string text = "did you mean ";
  for (size_t k = 0; k < names.size(); ++k) {
    if (k > 0) text += k + 1 == names.size() ? " or " : ", ";
    text += "\"" + names[k] + "\"";
  }
  return text + "?";
}

}  // namespace optkw
