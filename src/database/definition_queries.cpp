// Read-only queries of what a definition declared: enumerated values, groups,
// synonyms and help numbers. None of them changes anything.
#include "database/operations.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

// The enumerated value `enum_nr` (from 1) of option `nr`, or nothing.
bool FindEnumItem(tvlmoptions &db, int32_t nr, int32_t enum_nr, EnumItem &item) {
  const toption *option = db.OptionByNumber(nr);
  if (!option || enum_nr < 1 || enum_nr > option->EnumCount()) return false;
  item = option->GetEnumItem(enum_nr - 1);
  return true;
}

}  // namespace

int32_t optGetEnumCount(tvlmoptions &db, int32_t nr, int32_t &count) {
  const toption *option = db.OptionByNumber(nr);
  count = option ? option->EnumCount() : -1;
  return count >= 0 ? 1 : 0;
}

int32_t optGetEnumStrNr(tvlmoptions &db, int32_t nr, ShortStr &sval, int32_t &enumNr) {
  sval.Clear();
  enumNr = -1;
  const toption *option = db.OptionByNumber(nr);
  if (!option || option->OptType != optTypeEnumStr) return 0;
  sval = option->ValueText(false);
  // Position of the value in the list, without regard to case; 0 if it isn't there.
  enumNr = 0;
  for (int32_t k = 0; k < option->EnumCount() && enumNr == 0; ++k) {
    if (SameText(option->GetEnumItem(k).text, sval)) enumNr = k + 1;
  }
  return 1;
}

int32_t optGetEnumValue(tvlmoptions &db, int32_t nr, int32_t enumNr, int32_t &ival,
                        ShortStr &sval) {
  ival = -1;
  sval.Clear();
  EnumItem item;
  if (!FindEnumItem(db, nr, enumNr, item)) return 0;
  ival = item.number;
  sval = item.text;
  return 1;
}

int32_t optGetEnumHelp(tvlmoptions &db, int32_t nr, int32_t enumNr, int32_t &hc, ShortStr &help) {
  hc = -1;
  help.Clear();
  EnumItem item;
  if (!FindEnumItem(db, nr, enumNr, item)) return 0;
  hc = item.help->HC;
  help = item.help->HelpText.Get();
  return 1;
}

int32_t optGetOptHelpNr(tvlmoptions &db, int32_t nr, ShortStr &name, int32_t &hc, int32_t &group) {
  const toption *option = db.OptionByNumber(nr);
  if (!option) {
    name.Clear();
    hc = group = -1;
    return 0;
  }
  name = db.DisplayName(db.Options.Key(nr - 1));
  hc = option->HC;
  group = option->Group;
  return 1;
}

int32_t optGroupCount(tvlmoptions &db) {
  return db.Groups.Count();
}

int32_t optGetGroupNr(tvlmoptions &db, int32_t pos, ShortStr &name, int32_t &groupNr, int32_t &hc,
                      ShortStr &help) {
  if (pos < 1 || pos > db.Groups.Count()) {
    name.Clear();
    groupNr = hc = 0;
    help.Clear();
    return 0;
  }
  const tgroupobj *group = db.Groups.GetObject(pos - 1);
  name = db.Groups.Key(pos - 1);
  groupNr = group->GroupNr;
  hc = group->HC;
  help = group->HelpText.Get();
  return 1;
}

int32_t optGetGroupGrpNr(tvlmoptions &db, int32_t groupNr) {
  for (int32_t i = 0; i < db.Groups.Count(); ++i) {
    if (db.Groups.GetObject(i)->GroupNr == groupNr) return i + 1;
  }
  return -1;
}

int32_t optGetOptGroupNr(tvlmoptions &db, int32_t nr) {
  const toption *option = db.OptionByNumber(nr);
  return option ? option->Group : -1;
}

int32_t optSynonymCount(tvlmoptions &db) {
  return db.Synonyms.Count();
}

int32_t optGetSynonym(tvlmoptions &db, int32_t pos, ShortStr &synonym, ShortStr &name) {
  synonym.Clear();
  name.Clear();
  if (pos < 1 || pos > db.Synonyms.Count()) return 0;
  synonym = db.Synonyms.Key(pos - 1);
  const int32_t target = db.Synonyms.GetObject(pos - 1);
  if (db.OptionAt(target)) name = db.Options.Key(target);
  return 1;
}

}  // namespace optkw
