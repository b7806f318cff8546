// Value assignment: a value text, or a number from a client, applied to an
// option. Conversion, the range step, refusal and the state words are the same
// whichever road a value takes, so parameter text and the client's setters
// leave options stored and marked alike.
#include <string_view>
#include <utility>
#include <vector>

#include "database/list_separator.h"
#include "database/operations.h"
#include "scanning/text_ops.h"
#include "scanning/value_text.h"

namespace optkw {

char ListSeparatorChar = ListSeparatorFor(1);

namespace {

int32_t RangeMessageType(const tvlmoptions &db) {
  return db.NoBounds ? optMsgValueWarning : optMsgValueError;
}

void Ignored(tvlmoptions &db) {
  db.AddMessage(optMsgValueError, "   Option ignored");
}

// Reports a value text that the type can't take: `what` names the expected kind.
void Refused(tvlmoptions &db, std::string_view what, const ShortStr &text) {
  db.AddMessage(optMsgValueError, ShortStr(what) + Quoted(db.CurrentName) + " saw " + Quoted(text));
  Ignored(db);
}

// The words that integer options take beside numbers.
bool IntegerWord(std::string_view text, int32_t &value) {
  if (SameText(text, "off")) {
    value = 0;
  } else if (SameText(text, "on")) {
    value = 1;
  } else if (SameText(text, "silent")) {
    value = 2;
  } else {
    return false;
  }
  return true;
}

// A number, or one of the words integer options take, through `convert`;
// reports the text when it is neither.
bool IntegerFromText(tvlmoptions &db, const ShortStr &text,
                     bool (*convert)(std::string_view, int32_t &), int32_t &value) {
  if (convert(text.view(), value) || IntegerWord(text.view(), value)) return true;
  Refused(db, "Integer expected, for option ", text);
  return false;
}

// The range step: a number outside [lo, hi] becomes the bound it passed, with two
// messages that are errors, or warnings under NoBounds. Gives true when it mended.
template <class T, class Show, class ShowBound>
bool BringInRange(tvlmoptions &db, T &value, T lo, T hi, Show show, ShowBound show_bound) {
  T bound;
  if (value < lo) {
    bound = lo;
  } else if (value > hi) {
    bound = hi;
  } else {
    return false;
  }
  const int32_t type = RangeMessageType(db);
  db.AddMessage(type, ShortStr("Value brought in range for option ") + Quoted(db.CurrentName) +
                          " saw " + Quoted(show(value)));
  db.AddMessage(type, ShortStr("   Value set to ") + show_bound(bound));
  value = bound;
  return true;
}

// The text " a b c" of the values an enumerated option takes.
ShortStr PossibleValues(const toption &option) {
  ShortStr list;
  for (int32_t k = 0; k < option.EnumCount(); ++k)
    list += ShortStr(" ") + option.GetEnumItem(k).text;
  return list;
}

// A value outside the values an option takes: let through with warnings under
// NoBounds (true), else refused with errors (false).
bool OutOfList(tvlmoptions &db, std::string_view what, const ShortStr &seen,
               const ShortStr &follow_up) {
  const int32_t type = RangeMessageType(db);
  db.AddMessage(type, ShortStr(what) + Quoted(db.CurrentName) + " saw " + Quoted(seen));
  db.AddMessage(type, follow_up);
  if (db.NoBounds) return true;
  Ignored(db);
  return false;
}

bool OutOfEnumList(const toption &option, const ShortStr &seen) {
  return OutOfList(*option.Owner, "Unknown value for option ", seen,
                   ShortStr("   Possible values are ") + PossibleValues(option));
}

template <class V>
void StoreValue(tvalueoption<V> &option, bool second, V value, bool mended) {
  option.Slot(second) = std::move(value);
  option.MarkAssigned(second);
  option.MarkMended(second, mended);
}

// Splits a multi-list value at ListSeparatorChar. An item that begins with a
// quote may also end at the next quote; an empty item at the very end is dropped.
std::vector<std::string_view> SplitItems(std::string_view text) {
  std::vector<std::string_view> items;
  size_t i = 0;
  while (true) {
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
      ++i;
    if (i >= text.size()) break;
    const bool quoted = text[i] == '"';
    if (quoted) ++i;
    const size_t start = i;
    while (i < text.size() && text[i] != ListSeparatorChar && !(quoted && text[i] == '"'))
      ++i;
    const std::string_view item = text.substr(start, i - start);
    const bool stopped = i < text.size();
    if (!item.empty() || stopped) items.push_back(item);
    if (stopped) ++i;
  }
  return items;
}

}  // namespace

void SetFirstValue(toption &option, const ShortStr &text) {
  if (option.SubType == optsubNoValue) {
    option.MarkAssigned(false);
    return;
  }
  if (CharPos('"', text) != 0) {
    option.Owner->AddMessage(optMsgValueError, "Bad double-quote in value. Option ignored");
    return;
  }
  option.AssignText(false, text);
}

void SetSecondValue(toption &option, const ShortStr &text) {
  if (CharPos('"', text) != 0) {
    option.Owner->AddMessage(optMsgValueError, "Bad double-quote in value. Option ignored");
    return;
  }
  if (option.OptType <= optTypeEnumInt) option.AssignText(true, text);
}

// ---- integer

void tintoption::AssignText(bool second, const ShortStr &text) {
  int32_t value;
  if (IntegerFromText(*Owner, text, TextToIntegerLax, value)) AssignInt(second, value);
}

bool tintoption::AssignInt(bool second, int32_t value) {
  const bool mended = BringInRange(*Owner, value, LoValue, HiValue, IntegerToText, IntegerToText);
  StoreValue(*this, second, value, mended);
  return true;
}

bool tintoption::AssignValues(bool second, int32_t ival, double, const ShortStr &) {
  return AssignInt(second, ival);
}

// ---- double

void tdbloption::AssignText(bool second, const ShortStr &text) {
  double value;
  if (!TextToDouble(text.view(), value)) {
    Refused(*Owner, "Double expected for option ", text);
    return;
  }
  AssignDouble(second, value);
}

bool tdbloption::AssignDouble(bool second, double value) {
  const bool mended =
      BringInRange(*Owner, value, LoValue, HiValue, DoubleToText, DoubleToKeywordText);
  StoreValue(*this, second, value, mended);
  return true;
}

bool tdbloption::AssignValues(bool second, int32_t, double dval, const ShortStr &) {
  return AssignDouble(second, dval);
}

// ---- string: stored as it is; a string is never mended, so DefinedM stays.

void tstringoption::AssignText(bool second, const ShortStr &text) {
  Slot(second) = text.view();
  MarkAssigned(second);
}

bool tstringoption::AssignValues(bool second, int32_t, double, const ShortStr &sval) {
  AssignText(second, sval);
  return true;
}

// ---- boolean

void tbooleanoption::AssignText(bool second, const ShortStr &text) {
  switch (ScanBoolean(text.view())) {
    case Truth::kTrue:
      AssignInt(second, 1);
      break;
    case Truth::kFalse:
      AssignInt(second, 0);
      break;
    case Truth::kNeither:
      Refused(*Owner, "Boolean value expected for option ", text);
      break;
  }
}

bool tbooleanoption::AssignInt(bool second, int32_t value) {
  if (value == 0 || value == 1) {
    StoreValue(*this, second, value, false);
  } else if (OutOfList(*Owner, "Boolean out of range for option ", IntegerToText(value),
                       "   Valid values are 0 or 1")) {
    StoreValue(*this, second, value, true);
  }
  return true;
}

bool tbooleanoption::AssignValues(bool second, int32_t ival, double, const ShortStr &) {
  return AssignInt(second, ival);
}

// ---- enumerated string: the definition's spelling of the value is stored.

void tenumstroption::AssignText(bool second, const ShortStr &text) {
  const int32_t k = EnumList.IndexOf(text.view());
  if (k >= 0) {
    StoreValue(*this, second, HeapStr(EnumList.Key(k)), false);
  } else if (OutOfEnumList(*this, text)) {
    StoreValue(*this, second, HeapStr(text.view()), true);
  }
}

bool tenumstroption::AssignValues(bool second, int32_t, double, const ShortStr &sval) {
  AssignText(second, sval);
  return true;
}

// ---- enumerated integer: strict integers only, no double syntax as for integers.

void tenumintoption::AssignText(bool second, const ShortStr &text) {
  int32_t value;
  if (IntegerFromText(*Owner, text, TextToInteger, value)) AssignInt(second, value);
}

bool tenumintoption::AssignInt(bool second, int32_t value) {
  bool listed = false;
  for (const auto &item : EnumList)
    listed = listed || item->Value == value;
  if (listed) {
    StoreValue(*this, second, value, false);
  } else if (OutOfEnumList(*this, IntegerToText(value))) {
    StoreValue(*this, second, value, true);
  }
  return true;
}

bool tenumintoption::AssignValues(bool second, int32_t ival, double, const ShortStr &) {
  return AssignInt(second, ival);
}

// ---- options that pass their value on
//
// A multi-list hands item k of its value to member k, a macro its whole value
// to every member, and a member may be a multi-list or a macro in turn. The
// chain is walked with a stack of its own instead of the call stack, so that
// no chain is too long, in the same order as a nested walk would take.
//
// A multi-list may name itself (its members are looked up where they stand,
// and it stands there already). Handing an item back to it goes on while the
// item is shorter than the text it is handing on already: every such round
// takes a shorter text, so it ends, as it always did. An item as long as that
// text is that text again, and would be handed round for ever: the member
// that leads back takes nothing then, and the other members take their items.

namespace {

// One multi-list or macro in the middle of handing on its value.
struct HandOn {
  toption *source;
  ShortStr text;
  int32_t outer_length;  // the source's HandingOn before this round
  // A multi-list's items, as offset and length in `text`: the record moves as
  // the chain grows, and views into its own text would not move with it.
  std::vector<std::pair<size_t, size_t>> items;
  int32_t next = 0;

  // The next member and the text it takes; false when there is no more. A
  // member that the definition couldn't resolve is nil and takes nothing.
  bool Next(toption *&member, ShortStr &value) const {
    if (source->OptType == optTypeMacro) {
      const auto &macro = static_cast<const tmacrooption &>(*source);
      if (next >= macro.MacroList.Count()) return false;
      member = macro.MacroList.GetItem(next);
      value = text;
      return true;
    }
    if (next >= static_cast<int32_t>(items.size())) return false;
    const auto &list = static_cast<const tmultilistoption &>(*source);
    if (next >= list.MemberList.Count()) {
      source->Owner->AddMessage(optMsgValueError, ShortStr("Too many items for multilist ") +
                                                      Quoted(source->Owner->CurrentName));
      return false;
    }
    member = source->Owner->OptionAt(list.MemberList.GetItem(next));
    const auto [offset, length] = items[static_cast<size_t>(next)];
    value = text.view().substr(offset, length);
    return true;
  }
};

bool HandsOn(const toption &option) {
  return option.OptType == optTypeMultiList || option.OptType == optTypeMacro;
}

}  // namespace

void tmultilistoption::AssignText(bool second, const ShortStr &text) {
  if (!second) HandOnValue(*this, text);
}

void tmacrooption::AssignText(bool second, const ShortStr &text) {
  if (!second) HandOnValue(*this, text);
}

namespace {

// The options of a chain that are handing on; out of memory on the way must
// not leave one marked, or it would take no value ever after.
struct Chain : std::vector<HandOn> {
  Chain() = default;
  Chain(const Chain &) = delete;
  Chain &operator=(const Chain &) = delete;
  ~Chain() {
    for (auto link = rbegin(); link != rend(); ++link)
      link->source->HandingOn = link->outer_length;
  }
};

}  // namespace

void HandOnValue(toption &start, const ShortStr &text) {
  Chain chain;
  auto begin = [&chain](toption &source, const ShortStr &value) {
    chain.push_back({&source, value, source.HandingOn, {}, 0});
    HandOn &top = chain.back();
    if (source.OptType == optTypeMultiList) {
      const std::string_view all = top.text.view();
      for (std::string_view item : SplitItems(all))
        top.items.emplace_back(static_cast<size_t>(item.data() - all.data()), item.size());
    }
    source.HandingOn = value.size();
  };
  begin(start, text);
  while (!chain.empty()) {
    HandOn &top = chain.back();
    toption *member = nullptr;
    ShortStr value;
    if (!top.Next(member, value)) {
      top.source->HandingOn = top.outer_length;
      chain.pop_back();
      continue;
    }
    ++top.next;
    if (!member || value.size() >= member->HandingOn) continue;
    if (HandsOn(*member) && member->SubType != optsubNoValue && CharPos('"', value) == 0) {
      begin(*member, value);  // `top` may move: it isn't used again in this pass
    } else {
      SetFirstValue(*member, value);
    }
  }
}

void tstrlistoption::AssignText(bool second, const ShortStr &text) {
  if (second) return;
  StrList.Add(text.view());
  MarkAssigned(false);
}

}  // namespace optkw
