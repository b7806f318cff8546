// Typed access by option number: what clients read and write once a definition
// and parameters are in. Readers never change an option; writers go through the
// rules of value assignment, so a value set here is stored and marked exactly
// like one read from parameter text.
#include <charconv>
#include <string_view>

#include "containers/ascii.h"
#include "database/operations.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

bool TwoValued(const toption &option) {
  return option.SubType == optsub2Values;
}

// The frame of every setter: CurrentName first (the option's display name, or
// "?" for a bad number), then the check that the setter applies, then the
// assignment. The result is 1 when the assignment added no error message.
template <class Applies, class Assign>
int32_t SetByNumber(tvlmoptions &db, int32_t nr, Applies applies, Assign assign) {
  toption *option = db.OptionByNumber(nr);
  if (!option) {
    db.CurrentName = "?";
    return 0;
  }
  db.CurrentName = db.DisplayName(*option);
  if (!applies(*option)) return 0;
  const int32_t before = db.StatementErrors();
  if (!assign(*option)) return 0;
  return db.StatementErrors() == before ? 1 : 0;
}

bool Always(const toption &) {
  return true;
}

}  // namespace

int32_t optCount(tvlmoptions &db) {
  return db.Count();
}

int32_t optGetInfoNr(tvlmoptions &db, int32_t nr, int32_t &defined, int32_t &definedR,
                     int32_t &refNr, int32_t &dataType, int32_t &optType, int32_t &subType) {
  const toption *option = db.OptionByNumber(nr);
  if (!option) {
    defined = definedR = refNr = 0;
    dataType = optType = subType = -1;
    return 0;
  }
  defined = option->Defined;
  definedR = option->DefinedR;
  refNr = option->RefNr;
  dataType = option->DataType();
  optType = option->OptType;
  subType = option->SubType;
  return 1;
}

int32_t optGetValuesNr(tvlmoptions &db, int32_t nr, ShortStr &name, int32_t &ival, double &dval,
                       ShortStr &sval) {
  name.Clear();
  ival = 0;
  dval = 0;
  sval.Clear();
  const toption *option = db.OptionByNumber(nr);
  if (!option) return 0;
  name = db.DisplayName(*option);
  if (option->OptType > optTypeEnumInt) return 0;
  sval = option->ValueText(false);
  option->GetInt(false, ival);
  option->GetDouble(false, dval);
  return 1;
}

int32_t optGetIntNr(tvlmoptions &db, int32_t nr, int32_t &ival) {
  const toption *option = db.OptionByNumber(nr);
  return option && option->GetInt(false, ival) ? 1 : 0;
}

int32_t optGetInt2Nr(tvlmoptions &db, int32_t nr, int32_t &ival) {
  const toption *option = db.OptionByNumber(nr);
  return option && TwoValued(*option) && option->GetInt(true, ival) ? 1 : 0;
}

int32_t optGetDblNr(tvlmoptions &db, int32_t nr, double &dval) {
  const toption *option = db.OptionByNumber(nr);
  return option && option->GetDouble(false, dval) ? 1 : 0;
}

int32_t optGetDbl2Nr(tvlmoptions &db, int32_t nr, double &dval) {
  const toption *option = db.OptionByNumber(nr);
  return option && TwoValued(*option) && option->GetDouble(true, dval) ? 1 : 0;
}

int32_t optGetStrNr(tvlmoptions &db, int32_t nr, ShortStr &sval) {
  const toption *option = db.OptionByNumber(nr);
  sval = option ? option->ValueText(false) : ShortStr();
  return option ? 1 : 0;
}

int32_t optGetStr2Nr(tvlmoptions &db, int32_t nr, ShortStr &sval) {
  const toption *option = db.OptionByNumber(nr);
  const bool applies = option && TwoValued(*option);
  sval = applies ? option->ValueText(true) : ShortStr();
  return applies ? 1 : 0;
}

int32_t optGetDefinedNr(tvlmoptions &db, int32_t nr, int32_t &defined) {
  const toption *option = db.OptionByNumber(nr);
  defined = option ? option->Defined : 0;
  return option ? 1 : 0;
}

int32_t optGetNameNr(tvlmoptions &db, int32_t nr, ShortStr &name) {
  const toption *option = db.OptionByNumber(nr);
  name = option ? db.DisplayName(db.Options.Key(nr - 1)) : ShortStr();
  return option ? 1 : 0;
}

int32_t optGetHelpNr(tvlmoptions &db, int32_t nr, ShortStr &name, ShortStr &help) {
  const toption *option = db.OptionByNumber(nr);
  name = option ? ShortStr(db.Options.Key(nr - 1)) : ShortStr();
  help = option ? option->HelpText.Get() : ShortStr();
  return option ? 1 : 0;
}

int32_t optGetBoundsInt(tvlmoptions &db, int32_t nr, int32_t &lower, int32_t &upper,
                        int32_t &defaultValue) {
  const toption *option = db.OptionByNumber(nr);
  return option && option->GetIntBounds(lower, upper, defaultValue) ? 1 : 0;
}

int32_t optGetBoundsDbl(tvlmoptions &db, int32_t nr, double &lower, double &upper,
                        double &defaultValue) {
  const toption *option = db.OptionByNumber(nr);
  return option && option->GetDoubleBounds(lower, upper, defaultValue) ? 1 : 0;
}

int32_t optGetDefaultStr(tvlmoptions &db, int32_t nr, ShortStr &sval) {
  // Plain strings only: an enumerated string's default isn't available here.
  const toption *option = db.OptionByNumber(nr);
  sval.Clear();
  return option && option->OptType == optTypeString && option->GetTextDefault(sval) ? 1 : 0;
}

int32_t optGetValStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval) {
  db.CurrentName = name;
  const toption *option = db.FindOptionOrSynonym(name.view());
  sval = option ? option->ValueText(false) : ShortStr();
  return option ? 1 : 0;
}

int32_t optGetVal2Str(tvlmoptions &db, const ShortStr &name, ShortStr &sval) {
  db.CurrentName = name;
  const toption *option = db.FindOptionOrSynonym(name.view());
  const bool applies = option && TwoValued(*option);
  sval = applies ? option->ValueText(true) : ShortStr();
  return applies ? 1 : 0;
}

int32_t optGetNameOpt(tvlmoptions &, const ShortStr &text, ShortStr &name, int32_t &nr) {
  const int32_t dot = CharPos('.', text.view());
  if (dot == 0) {
    name = text;
    nr = 0;
    return 1;
  }
  name = text.view().substr(0, static_cast<size_t>(dot - 1));
  const std::string_view digits = text.view().substr(static_cast<size_t>(dot));
  if (digits.empty()) return 1;
  for (char c : digits) {
    if (!IsDigit(c)) {
      nr = 0;
      return 0;
    }
  }
  // Only as many digits are read as the name has characters.
  const std::string_view taken = digits.substr(0, static_cast<size_t>(dot - 1));
  nr = 0;
  auto [end, ec] = std::from_chars(taken.data(), taken.data() + taken.size(), nr);
  if (ec == std::errc::result_out_of_range) nr = INT32_MAX;
  return 1;
}

int32_t optSetIntNr(tvlmoptions &db, int32_t nr, int32_t ival) {
  return SetByNumber(db, nr, Always, [&](toption &o) { return o.AssignInt(false, ival); });
}

int32_t optSetInt2Nr(tvlmoptions &db, int32_t nr, int32_t ival) {
  return SetByNumber(db, nr, TwoValued, [&](toption &o) { return o.AssignInt(true, ival); });
}

int32_t optSetDblNr(tvlmoptions &db, int32_t nr, double dval) {
  return SetByNumber(db, nr, Always, [&](toption &o) { return o.AssignDouble(false, dval); });
}

int32_t optSetDbl2Nr(tvlmoptions &db, int32_t nr, double dval) {
  return SetByNumber(db, nr, TwoValued, [&](toption &o) { return o.AssignDouble(true, dval); });
}

int32_t optSetStrNr(tvlmoptions &db, int32_t nr, const ShortStr &sval) {
  return SetByNumber(db, nr, Always, [&](toption &o) {
    SetFirstValue(o, sval);
    return true;
  });
}

int32_t optSetStr2Nr(tvlmoptions &db, int32_t nr, const ShortStr &sval) {
  return SetByNumber(db, nr, TwoValued, [&](toption &o) {
    SetSecondValue(o, sval);
    return true;
  });
}

int32_t optSetValuesNr(tvlmoptions &db, int32_t nr, int32_t ival, double dval,
                       const ShortStr &sval) {
  return SetByNumber(db, nr, Always,
                     [&](toption &o) { return o.AssignValues(false, ival, dval, sval); });
}

int32_t optSetValues2Nr(tvlmoptions &db, int32_t nr, int32_t ival, double dval,
                        const ShortStr &sval) {
  return SetByNumber(db, nr, TwoValued,
                     [&](toption &o) { return o.AssignValues(true, ival, dval, sval); });
}

int32_t optSetRefNr(tvlmoptions &db, int32_t nr, int32_t refNr) {
  return SetByNumber(db, nr, Always, [&](toption &o) {
    o.RefNr = refNr;
    return true;
  });
}

int32_t optSetRefNrStr(tvlmoptions &db, const ShortStr &name, int32_t refNr) {
  // By the lookup alone: no synonyms, and CurrentName stays.
  toption *option = db.OptionAt(db.LookUpPosition(name.view()));
  if (!option) return 0;
  option->RefNr = refNr;
  return 1;
}

}  // namespace optkw
