// Construction, reading and resetting of the option classes. How values are
// assigned is in value_assignment.cpp.
#include "database/options.h"

#include <unordered_set>
#include <vector>

#include "database/vlmoptions.h"
#include "scanning/value_text.h"

namespace optkw {

void toptionx::AddMoreHelp(std::string_view line) {
  if (!MoreHelp) MoreHelp = std::make_unique<txstrings>();
  MoreHelp->Add(line);
}

toption::toption(std::string_view name, tvlmoptions *owner, uint8_t opt_type, int32_t ref_nr,
                 int32_t hc, int32_t group, std::string_view help)
    : Owner(owner), Name(name), Group(group), RefNr(ref_nr), OptType(opt_type) {
  HC = hc;
  HelpText = help;
}

void toption::Reset() {
  Defined = 0;
  DefinedR = 0;
  DefinedM = 0;
}

void toption::MarkAssigned(bool second) {
  Defined |= ValueBit(second);
  if (Owner->RecentEnabled) DefinedR |= ValueBit(second);
}

void toption::MarkMended(bool second, bool mended) {
  if (mended) {
    DefinedM |= ValueBit(second);
  } else {
    DefinedM = 0;
  }
}

// ---- integer

tintoption::tintoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                       int32_t group, std::string_view help, int32_t def, int32_t lo, int32_t hi)
    : tvalueoption(name, owner, optTypeInteger, ref_nr, hc, group, help), LoValue(lo), HiValue(hi) {
  DefValue = def;
}

bool tintoption::GetInt(bool second, int32_t &value) const {
  value = Effective(second);
  return true;
}

ShortStr tintoption::ValueText(bool second) const {
  return IntegerToText(Effective(second));
}

bool tintoption::GetIntBounds(int32_t &lo, int32_t &hi, int32_t &def) const {
  lo = LoValue;
  hi = HiValue;
  def = DefValue;
  return true;
}

bool tintoption::GetIntDefault(int32_t &def) const {
  def = DefValue;
  return true;
}

// ---- double

tdbloption::tdbloption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                       int32_t group, std::string_view help, double def, double lo, double hi)
    : tvalueoption(name, owner, optTypeDouble, ref_nr, hc, group, help), LoValue(lo), HiValue(hi) {
  DefValue = def;
}

bool tdbloption::GetDouble(bool second, double &value) const {
  value = Effective(second);
  return true;
}

ShortStr tdbloption::ValueText(bool second) const {
  return DoubleToText(Effective(second));
}

bool tdbloption::GetDoubleBounds(double &lo, double &hi, double &def) const {
  lo = LoValue;
  hi = HiValue;
  def = DefValue;
  return true;
}

// ---- string

tstringoption::tstringoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                             int32_t group, std::string_view help, std::string_view def)
    : tvalueoption(name, owner, optTypeString, ref_nr, hc, group, help) {
  DefValue = def;
}

ShortStr tstringoption::ValueText(bool second) const {
  return Effective(second).Get();
}

bool tstringoption::GetTextDefault(ShortStr &def) const {
  def = DefValue.Get();
  return true;
}

// ---- boolean

tbooleanoption::tbooleanoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                               int32_t hc, int32_t group, std::string_view help, int32_t def)
    : tvalueoption(name, owner, optTypeBoolean, ref_nr, hc, group, help) {
  DefValue = def;
}

bool tbooleanoption::GetInt(bool second, int32_t &value) const {
  value = Effective(second);
  return true;
}

ShortStr tbooleanoption::ValueText(bool second) const {
  return IntegerToText(Effective(second));
}

bool tbooleanoption::GetIntDefault(int32_t &def) const {
  def = DefValue;
  return true;
}

// ---- enumerated string

tenumstroption::tenumstroption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                               int32_t hc, int32_t group, std::string_view help,
                               std::string_view def)
    : tvalueoption(name, owner, optTypeEnumStr, ref_nr, hc, group, help) {
  DefValue = def;
}

ShortStr tenumstroption::ValueText(bool second) const {
  return Effective(second).Get();
}

bool tenumstroption::GetTextDefault(ShortStr &def) const {
  def = DefValue.Get();
  return true;
}

EnumItem tenumstroption::GetEnumItem(int32_t k) const {
  return EnumItem{EnumList.GetObject(k), 0, EnumList.GetName(k)};
}

// ---- enumerated integer

tenumintoption::tenumintoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                               int32_t hc, int32_t group, std::string_view help, int32_t def)
    : tvalueoption(name, owner, optTypeEnumInt, ref_nr, hc, group, help) {
  DefValue = def;
}

bool tenumintoption::GetInt(bool second, int32_t &value) const {
  value = Effective(second);
  return true;
}

ShortStr tenumintoption::ValueText(bool second) const {
  return IntegerToText(Effective(second));
}

bool tenumintoption::GetIntDefault(int32_t &def) const {
  def = DefValue;
  return true;
}

EnumItem tenumintoption::GetEnumItem(int32_t k) const {
  const tlistoptionx *item = EnumList.Get(k);
  return EnumItem{item, item->Value, IntegerToText(item->Value)};
}

// ---- lists, macros, immediates

tmultilistoption::tmultilistoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                                   int32_t hc, int32_t group, std::string_view help)
    : toption(name, owner, optTypeMultiList, ref_nr, hc, group, help) {}

void tmultilistoption::Reset() {
  MemberList.Clear();
  toption::Reset();
}

tstrlistoption::tstrlistoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                               int32_t hc, int32_t group, std::string_view help)
    : toption(name, owner, optTypeStrList, ref_nr, hc, group, help) {}

void tstrlistoption::Reset() {
  StrList.Clear();
  toption::Reset();
}

tmacrooption::tmacrooption(std::string_view name, tvlmoptions *owner, int32_t hc, int32_t group,
                           std::string_view help)
    : toption(name, owner, optTypeMacro, -1, hc, group, help) {}

void tmacrooption::Reset() {
  // Resetting is the same however often and in whatever order it is done, so
  // each option reached is reset once, with a stack instead of recursion.
  std::vector<toption *> pending{this};
  std::unordered_set<toption *> reached{this};
  while (!pending.empty()) {
    toption *option = pending.back();
    pending.pop_back();
    option->ResetOwn();
    if (option->OptType != optTypeMacro) continue;
    for (toption *member : static_cast<tmacrooption *>(option)->MacroList) {
      if (reached.insert(member).second) pending.push_back(member);
    }
  }
}

timmediateoption::timmediateoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr,
                                   int32_t hc, int32_t group, std::string_view help,
                                   ImmediateAction kind)
    : toption(name, owner, optTypeImmediate, ref_nr, hc, group, help), ImmediateKind(kind) {}

}  // namespace optkw
