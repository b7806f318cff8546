// Names of the numeric constants and the keywords of the option types.
#include <array>
#include <string_view>

#include "database/operations.h"

namespace optkw {
namespace {

#define OPTKW_NAME_OF(name, value) #name,
constexpr std::string_view kDataTypes[] = {OPTKW_DATA_TYPES(OPTKW_NAME_OF)};
constexpr std::string_view kOptionTypes[] = {OPTKW_OPTION_TYPES(OPTKW_NAME_OF)};
constexpr std::string_view kSubTypes[] = {OPTKW_SUBTYPES(OPTKW_NAME_OF)};
constexpr std::string_view kMessageTypes[] = {OPTKW_MESSAGE_TYPES(OPTKW_NAME_OF)};
constexpr std::string_view kMapKinds[] = {OPTKW_MAP_KINDS(OPTKW_NAME_OF)};
#undef OPTKW_NAME_OF

// Each list is written in the order of its values, so that a value is an index.
template <size_t N>
constexpr bool InOrder(const int (&values)[N]) {
  for (size_t i = 0; i < N; ++i) {
    if (values[i] != static_cast<int>(i)) return false;
  }
  return true;
}
#define OPTKW_VALUE_OF(name, value) value,
constexpr int kDataTypeValues[] = {OPTKW_DATA_TYPES(OPTKW_VALUE_OF)};
constexpr int kOptionTypeValues[] = {OPTKW_OPTION_TYPES(OPTKW_VALUE_OF)};
constexpr int kSubTypeValues[] = {OPTKW_SUBTYPES(OPTKW_VALUE_OF)};
constexpr int kMessageTypeValues[] = {OPTKW_MESSAGE_TYPES(OPTKW_VALUE_OF)};
constexpr int kMapKindValues[] = {OPTKW_MAP_KINDS(OPTKW_VALUE_OF)};
#undef OPTKW_VALUE_OF
static_assert(InOrder(kDataTypeValues) && InOrder(kOptionTypeValues) && InOrder(kSubTypeValues) &&
              InOrder(kMessageTypeValues) && InOrder(kMapKindValues));

struct ConstantFamily {
  const std::string_view *names;
  int32_t last;  // the highest index that has a name
};

// The message types stop at optMsgTooManyMsgs: optMsgUserError has no name here.
constexpr std::array<ConstantFamily, 5> kFamilies = {{
    {kDataTypes, optDataStrList},
    {kOptionTypes, optTypeImmediate},
    {kSubTypes, optsub2Values},
    {kMessageTypes, optMsgTooManyMsgs},
    {kMapKinds, optmapDefinedvar},
}};

constexpr std::string_view kTypeKeywords[] = {"integer", "double",   "string",    "boolean",
                                              "enumstr", "enumint",  "multilist", "strlist",
                                              "macro",   "immediate"};

}  // namespace

ShortStr TypeKeyword(int32_t type) {
  if (type < 0 || type > optTypeImmediate) return {};
  return kTypeKeywords[type];
}

int32_t optGetConstName(tvlmoptions &, int32_t cgroup, int32_t cindex, ShortStr &name) {
  name.Clear();
  if (cgroup < 1 || cgroup > static_cast<int32_t>(kFamilies.size())) return 0;
  const ConstantFamily &family = kFamilies[static_cast<size_t>(cgroup - 1)];
  if (cindex < 0 || cindex > family.last) return 0;
  name = family.names[cindex];
  return 1;
}

int32_t optGetTypeName(tvlmoptions &, int32_t type, ShortStr &name) {
  name = TypeKeyword(type);
  return name.empty() ? 0 : 1;
}

}  // namespace optkw
