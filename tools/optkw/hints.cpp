#include "hints.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace optkw_tool {
namespace {

std::string Folded(const std::string &text) {
  std::string folded;
  for (char c : text)
    folded += c == ' ' ? '_' : static_cast<char>(std::tolower(c));
  return folded;
}

// Edit distance with transposition of neighbours, which is the commonest slip.
size_t Distance(const std::string &a, const std::string &b) {
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

std::vector<std::string> Words(const std::string &folded) {
  std::vector<std::string> words(1);
  for (char c : folded) {
    if (c == '_') {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

// "it_lim" abbreviates "iteration_limit": each word begins the word of the
// same place.
bool Abbreviates(const std::string &typed, const std::string &candidate) {
  const std::vector<std::string> short_words = Words(typed), long_words = Words(candidate);
  if (short_words.size() != long_words.size()) return false;
  for (size_t k = 0; k < short_words.size(); ++k) {
    if (short_words[k].empty() || long_words[k].rfind(short_words[k], 0) != 0) return false;
  }
  return true;
}

const OptionInfo *FindOption(const DefinitionModel &model, const std::string &name) {
  const std::string folded = Folded(name);
  for (const OptionInfo &option : model.options) {
    if (Folded(option.name) == folded || Folded(option.key) == folded) return &option;
    for (const SynonymInfo &synonym : option.synonyms)
      if (Folded(synonym.name) == folded) return &option;
  }
  return nullptr;
}

std::vector<std::string> NameCandidates(const DefinitionModel &model) {
  std::vector<std::string> names;
  for (const OptionInfo &option : model.options) {
    // Dot options can't be named alone.
    if (!option.key.empty() && option.key[0] == '.') continue;
    names.push_back(option.name);
    for (const SynonymInfo &synonym : option.synonyms)
      names.push_back(synonym.name);
  }
  return names;
}

// The quoted text behind `marker` in `text`.
std::string Quoted(const std::string &text, const std::string &marker) {
  const size_t at = text.find(marker);
  if (at == std::string::npos) return {};
  const size_t start = at + marker.size();
  const size_t end = text.find('"', start);
  return end == std::string::npos ? std::string() : text.substr(start, end - start);
}

std::string DidYouMean(const std::optional<std::string> &candidate) {
  return candidate ? "did you mean \"" + *candidate + "\"?" : std::string();
}

}  // namespace

std::optional<std::string> ClosestCandidate(const std::string &typed,
                                            const std::vector<std::string> &candidates) {
  const std::string folded = Folded(typed);
  const size_t allowed = std::max<size_t>(1, folded.size() / 3);
  std::optional<std::string> best;
  size_t best_distance = allowed + 1;
  for (const std::string &candidate : candidates) {
    const std::string other = Folded(candidate);
    // An abbreviation counts as one slip: a typo of the same length wins a tie
    // only by coming first in the definition.
    const size_t distance =
        std::min(Distance(folded, other), Abbreviates(folded, other) ? size_t{1} : SIZE_MAX);
    // A candidate that shares nothing with a short text is no slip of the keyboard.
    if (distance >= folded.size()) continue;
    if (distance < best_distance) best = candidate, best_distance = distance;
  }
  return best;
}

std::string NameHint(const std::string &name, const DefinitionModel &model) {
  return DidYouMean(ClosestCandidate(name, NameCandidates(model)));
}

void AddHints(std::vector<Diagnostic> &diagnostics, const DefinitionModel &model) {
  const std::vector<std::string> names = NameCandidates(model);
  for (Diagnostic &d : diagnostics) {
    if (d.follow_up) continue;
    const std::string bare = BareText(d.text, d.type);
    if (bare.rfind("Unknown option \"", 0) == 0) {
      d.hint = DidYouMean(ClosestCandidate(d.option, names));
    } else if (bare.rfind("Unknown value for option \"", 0) == 0) {
      const OptionInfo *option = FindOption(model, d.option);
      if (option == nullptr) continue;
      std::vector<std::string> values;
      for (const EnumValue &value : option->values)
        values.push_back(value.value);
      d.hint = DidYouMean(ClosestCandidate(Quoted(bare, "saw \""), values));
    }
  }
}

}  // namespace optkw_tool
