// Ranks the names a definition knows by how little `name` has to change to
// become them (edits without regard to case), and takes names that begin with
// what was typed as near.
#include "help_suggestions.h"

#include <algorithm>
#include <utility>

#include "definition_text.h"

namespace optkw_tool {
namespace {

size_t EditDistance(const std::string &a, const std::string &b) {
  std::vector<size_t> row(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    size_t diagonal = row[0];
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] != b[j - 1])});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::vector<std::string> KnownNames(optHandle_t h) {
  std::vector<std::string> names;
  std::string name(OPTKW_STRBUF_SIZE, '\0'), target(OPTKW_STRBUF_SIZE, '\0');
  for (int nr = 2; nr <= optCount(h); ++nr) {  // the first is the built-in Help
    coptGetNameNr(h, nr, name.data());
    if (name[0] != '.') names.push_back(name.c_str());
  }
  for (int pos = 1; pos <= optSynonymCount(h); ++pos) {
    coptGetSynonym(h, pos, name.data(), target.data());
    names.push_back(name.c_str());
  }
  return names;
}

}  // namespace

std::vector<std::string> SuggestNames(optHandle_t h, const std::string &name) {
  const std::string wanted = Lower(name);
  std::vector<std::pair<size_t, std::string>> ranked;
  for (const std::string &known : KnownNames(h)) {
    const std::string lower = Lower(known);
    size_t distance = EditDistance(wanted, lower);
    if (lower.rfind(wanted, 0) == 0 && wanted.size() >= 3) distance = std::min<size_t>(distance, 1);
    if (distance <= std::max<size_t>(2, wanted.size() / 3)) ranked.push_back({distance, known});
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto &a, const auto &b) { return a.first < b.first; });
  std::vector<std::string> best;
  for (size_t k = 0; k < ranked.size() && k < 3; ++k)
    best.push_back(ranked[k].second);
  return best;
}

}  // namespace optkw_tool
