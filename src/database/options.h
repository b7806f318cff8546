// The option classes.
//
// toptionx is the head of everything that carries help; toption is the head of
// every option; one class per option type derives from it. What differs by type
// (how a value is read, rendered, assigned or reset) is a virtual operation of
// toption, so no caller ever casts an option to its class: a question that a
// type can't answer gets "doesn't apply" (false, -1 or nothing) from the base.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "containers/heap_str.h"
#include "containers/lists.h"
#include "containers/short_str.h"
#include "containers/string_lists.h"
#include "optkw_constants.h"

namespace optkw {

class tvlmoptions;

class toptionx {
 public:
  virtual ~toptionx() = default;

  // Appends a further help line, creating MoreHelp at the first one.
  void AddMoreHelp(std::string_view line);

  int32_t HC = 0;
  HeapStr HelpText;
  std::unique_ptr<txstrings> MoreHelp;  // nil until the first further line
};

class tgroupobj : public toptionx {
 public:
  int32_t GroupNr = 0;
};

// One value of an enumerated integer option.
class tlistoptionx : public toptionx {
 public:
  int32_t Value = 0;
};

// Bits of the state words Defined, DefinedR and DefinedM.
inline constexpr int32_t kFirstBit = 1;
inline constexpr int32_t kSecondBit = 2;
inline int32_t ValueBit(bool second) {
  return second ? kSecondBit : kFirstBit;
}

// Members of DeprecFlags.
inline constexpr uint8_t kOptionDeprecated = 1 << 0;
inline constexpr uint8_t kSynonymDeprecated = 1 << 1;
inline constexpr uint8_t kOptionObsolete = 1 << 2;
inline constexpr uint8_t kSynonymObsolete = 1 << 3;

// What an immediate option does when parameter text names it.
enum class ImmediateAction : uint8_t { kEolFlag, kReadFile, kMessage, kNoBounds, kHelp };

// One enumerated value as the queries see it, whatever the option's kind.
struct EnumItem {
  const toptionx *help = nullptr;  // HC and HelpText of the value
  int32_t number = 0;              // the value of an enumerated integer, else 0
  ShortStr text;                   // the key of an enumerated string, else the number's digits
};

class toption : public toptionx {
 public:
  toption(std::string_view name, tvlmoptions *owner, uint8_t opt_type, int32_t ref_nr, int32_t hc,
          int32_t group, std::string_view help);

  // Makes the option unset again: the state words become 0 and the stored
  // values stop counting (a few types also empty their lists).
  virtual void Reset();
  // What Reset does to this option itself, leaving any members alone.
  virtual void ResetOwn() { Reset(); }

  // ---- Reading; the effective value is Value when its bit of Defined is set,
  // ---- else DefValue.
  virtual int32_t DataType() const { return optDataNone; }
  virtual bool GetInt(bool /*second*/, int32_t & /*value*/) const { return false; }
  virtual bool GetDouble(bool /*second*/, double & /*value*/) const { return false; }
  // Text of the effective value; empty for the types without a value.
  virtual ShortStr ValueText(bool /*second*/) const { return {}; }
  virtual bool GetIntBounds(int32_t & /*lo*/, int32_t & /*hi*/, int32_t & /*def*/) const {
    return false;
  }
  virtual bool GetDoubleBounds(double & /*lo*/, double & /*hi*/, double & /*def*/) const {
    return false;
  }
  virtual bool GetIntDefault(int32_t & /*def*/) const { return false; }
  virtual bool GetTextDefault(ShortStr & /*def*/) const { return false; }
  // -1 for an option that isn't enumerated.
  virtual int32_t EnumCount() const { return -1; }
  // Entry `k` (from 0) of the enumerated values; k must be below EnumCount().
  virtual EnumItem GetEnumItem(int32_t /*k*/) const { return {}; }
  // The collected values of a string list option, else nil.
  virtual txstrings *StrListOrNull() { return nullptr; }
  // What an immediate option does; false for every other option.
  virtual bool GetImmediateKind(ImmediateAction & /*kind*/) const { return false; }

  // ---- Assignment, by the rules of value text (value_assignment.cpp).
  // The typed action for a value text, after the checks common to all types.
  virtual void AssignText(bool /*second*/, const ShortStr & /*text*/) {}
  // The integer, boolean and enumerated integer rules; false where they don't apply.
  virtual bool AssignInt(bool /*second*/, int32_t /*value*/) { return false; }
  // The double rule; false where it doesn't apply.
  virtual bool AssignDouble(bool /*second*/, double /*value*/) { return false; }
  // Takes whichever of the three fits the type; false where none does.
  virtual bool AssignValues(bool /*second*/, int32_t /*ival*/, double /*dval*/,
                            const ShortStr & /*sval*/) {
    return false;
  }
  // Gives the first value its default, as a statement without a value does.
  virtual void AssignDefault() {}

  // Sets the value's bit in Defined, and in DefinedR while recent values are tracked.
  void MarkAssigned(bool second);
  // After a clean assignment DefinedM is wiped as a whole; after a mended one
  // only the value's bit is set.
  void MarkMended(bool second, bool mended);

  tvlmoptions *Owner;
  HeapStr Name;
  HeapStr DeprecatedText;
  HeapStr SynonymText;
  uint8_t DeprecFlags = 0;
  int32_t Group;
  int32_t RefNr;
  uint8_t OptType;
  int32_t Defined = 0;
  int32_t DefinedR = 0;
  int32_t DefinedM = 0;
  uint8_t SubType = optsubRequired;
  // While this multi-list or macro hands a value on to its members: the
  // length of the text it hands on in its innermost round; else above any.
  int32_t HandingOn = kNotHandingOn;
  static constexpr int32_t kNotHandingOn = 1 << 30;
};

// Hands a value text on from a multi-list or macro to its members, and on
// through members that hand on in turn (value_assignment.cpp).
void HandOnValue(toption &start, const ShortStr &text);

// The common shape of the six types that hold a first and a second value.
template <class V>
class tvalueoption : public toption {
 public:
  using toption::toption;

  const V &Effective(bool second) const {
    if (Defined & ValueBit(second)) return second ? Value2 : Value;
    return DefValue;
  }
  V &Slot(bool second) { return second ? Value2 : Value; }

  void AssignDefault() override {
    Value = DefValue;
    MarkAssigned(false);
  }

  V DefValue{};
  V Value{};
  V Value2{};
};

class tintoption : public tvalueoption<int32_t> {
 public:
  tintoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc, int32_t group,
             std::string_view help, int32_t def, int32_t lo, int32_t hi);
  int32_t DataType() const override { return optDataInteger; }
  bool GetInt(bool second, int32_t &value) const override;
  ShortStr ValueText(bool second) const override;
  bool GetIntBounds(int32_t &lo, int32_t &hi, int32_t &def) const override;
  bool GetIntDefault(int32_t &def) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignInt(bool second, int32_t value) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;

  int32_t LoValue;
  int32_t HiValue;
};

class tdbloption : public tvalueoption<double> {
 public:
  tdbloption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc, int32_t group,
             std::string_view help, double def, double lo, double hi);
  int32_t DataType() const override { return optDataDouble; }
  bool GetDouble(bool second, double &value) const override;
  ShortStr ValueText(bool second) const override;
  bool GetDoubleBounds(double &lo, double &hi, double &def) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignDouble(bool second, double value) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;

  double LoValue;
  double HiValue;
};

class tstringoption : public tvalueoption<HeapStr> {
 public:
  tstringoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                int32_t group, std::string_view help, std::string_view def);
  int32_t DataType() const override { return optDataString; }
  ShortStr ValueText(bool second) const override;
  bool GetTextDefault(ShortStr &def) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;
};

class tbooleanoption : public tvalueoption<int32_t> {
 public:
  tbooleanoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                 int32_t group, std::string_view help, int32_t def);
  int32_t DataType() const override { return optDataInteger; }
  bool GetInt(bool second, int32_t &value) const override;
  ShortStr ValueText(bool second) const override;
  bool GetIntDefault(int32_t &def) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignInt(bool second, int32_t value) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;
};

class tenumstroption : public tvalueoption<HeapStr> {
 public:
  tenumstroption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                 int32_t group, std::string_view help, std::string_view def);
  int32_t DataType() const override { return optDataString; }
  ShortStr ValueText(bool second) const override;
  bool GetTextDefault(ShortStr &def) const override;
  int32_t EnumCount() const override { return EnumList.Count(); }
  EnumItem GetEnumItem(int32_t k) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;

  // Key: the value as the definition wrote it; companion: its help.
  txstringlistobj<toptionx> EnumList;
};

class tenumintoption : public tvalueoption<int32_t> {
 public:
  tenumintoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                 int32_t group, std::string_view help, int32_t def);
  int32_t DataType() const override { return optDataInteger; }
  bool GetInt(bool second, int32_t &value) const override;
  ShortStr ValueText(bool second) const override;
  bool GetIntDefault(int32_t &def) const override;
  int32_t EnumCount() const override { return EnumList.Count(); }
  EnumItem GetEnumItem(int32_t k) const override;
  void AssignText(bool second, const ShortStr &text) override;
  bool AssignInt(bool second, int32_t value) override;
  bool AssignValues(bool second, int32_t ival, double dval, const ShortStr &sval) override;

  txlistobj<tlistoptionx> EnumList;
};

// Passes each item of a value on to one of its members.
class tmultilistoption : public toption {
 public:
  tmultilistoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                   int32_t group, std::string_view help);
  // Also forgets the members: they are not restored from the definition.
  void Reset() override;
  void AssignText(bool second, const ShortStr &text) override;

  txlist<int32_t> MemberList;  // zero-based positions in Options (-1: undefined)
};

// Collects every value it is given.
class tstrlistoption : public toption {
 public:
  tstrlistoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                 int32_t group, std::string_view help);
  void Reset() override;
  int32_t DataType() const override { return optDataStrList; }
  txstrings *StrListOrNull() override { return &StrList; }
  void AssignText(bool second, const ShortStr &text) override;

  txstrings StrList;
};

// Passes a value on to every member.
class tmacrooption : public toption {
 public:
  tmacrooption(std::string_view name, tvlmoptions *owner, int32_t hc, int32_t group,
               std::string_view help);
  // Resets the members too, and theirs, however deep macros nest.
  void Reset() override;
  // Only this option's own state: a reset of every option needs no more.
  void ResetOwn() override { toption::Reset(); }
  void AssignText(bool second, const ShortStr &text) override;

  txlist<toption *> MacroList;  // not owned
};

// Acts when it is read; holds no value.
class timmediateoption : public toption {
 public:
  timmediateoption(std::string_view name, tvlmoptions *owner, int32_t ref_nr, int32_t hc,
                   int32_t group, std::string_view help, ImmediateAction kind);
  bool GetImmediateKind(ImmediateAction &kind) const override {
    kind = ImmediateKind;
    return true;
  }

  ImmediateAction ImmediateKind;
};

}  // namespace optkw
