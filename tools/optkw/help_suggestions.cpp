// The names a definition knows, ranked by the shared "did you mean" rules.
#include "help_suggestions.h"

#include "optkw_suggest.hpp"

namespace optkw_tool {
namespace {

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

std::string SuggestNames(optHandle_t h, const std::string &name) {
  return optkw::DidYouMean(optkw::ClosestNames(name, KnownNames(h)));
}

}  // namespace optkw_tool
