#include "database/vlmoptions.h"

#include "database/operations.h"

namespace optkw {

tvlmoptions::tvlmoptions(ShortStr &message) {
  message.Clear();
  // Keys and synonyms are searched by name at every statement; keep them indexed.
  Options.EnableIndex();
  Synonyms.EnableIndex();
}

tvlmoptions::~tvlmoptions() = default;

toption *tvlmoptions::OptionAt(int32_t position) const {
  if (position < 0 || position >= Options.Count()) return nullptr;
  return Options.GetObject(position);
}

int32_t tvlmoptions::AddOption(std::unique_ptr<toption> option) {
  const ShortStr name = option->Name.Get();
  return Options.AddObject(name.view(), std::move(option));
}

int32_t tvlmoptions::FindPosition(std::string_view name) const {
  const int32_t position = LookUpPosition(name);
  if (position >= 0) return position;
  const int32_t synonym = Synonyms.IndexOf(name);
  if (synonym < 0) return -1;
  const int32_t target = Synonyms.GetObject(synonym);
  return OptionAt(target) ? target : -1;
}

ShortStr tvlmoptions::DisplayName(std::string_view name) const {
  ShortStr result(name);
  if (LookupCode == LookupMethod::kMinos) {
    for (int i = 0; i < result.size(); ++i) {
      if (result[i] == '_') result.SetAt(i, ' ');
    }
  }
  return result;
}

tvarequmaplist *tvlmoptions::MapStore(int32_t kind) const {
  if (kind == optmapIndicator) return Indicators.get();
  if (kind == optmapDefinedvar) return DefinedVars.get();
  return nullptr;
}

}  // namespace optkw
