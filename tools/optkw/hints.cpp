#include "hints.h"

#include "optkw_suggest.hpp"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace optkw_tool {
namespace {

std::string Folded(const std::string &text) {
  std::string folded;
  for (char c : text)
    folded += c == ' ' ? '_' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return folded;
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

std::string DidYouMean(const std::string &typed, const std::vector<std::string> &candidates) {
  return optkw::DidYouMean(optkw::ClosestNames(typed, candidates));
}

}  // namespace

std::string NameHint(const std::string &name, const DefinitionModel &model) {
  return DidYouMean(name, NameCandidates(model));
}

void AddHints(std::vector<Diagnostic> &diagnostics, const DefinitionModel &model) {
  const std::vector<std::string> names = NameCandidates(model);
  for (Diagnostic &d : diagnostics) {
    if (d.follow_up) continue;
    const std::string bare = BareText(d.text, d.type);
    if (bare.rfind("Unknown option \"", 0) == 0) {
      d.hint = DidYouMean(d.option, names);
    } else if (bare.rfind("Unknown value for option \"", 0) == 0) {
      const OptionInfo *option = FindOption(model, d.option);
      if (option == nullptr) continue;
      std::vector<std::string> values;
      for (const EnumValue &value : option->values)
        values.push_back(value.value);
      d.hint = DidYouMean(Quoted(bare, "saw \""), values);
    }
  }
}

}  // namespace optkw_tool
