// Access by name: the convenient form of access by number for small clients.
// These operations give no status; a mistake is written as a warning line to
// standard output. The string list operations only exist by name.
#include <cstdio>
#include <string_view>

#include "database/operations.h"

namespace optkw {
namespace {

// The first steps of every operation here: CurrentName is the name as the
// caller spelled it, then the lookup, then the synonyms. Gives the position or -1.
int32_t FindByName(tvlmoptions &db, const ShortStr &name) {
  db.CurrentName = name;
  return db.FindPosition(name.view());
}

void Warn(std::string_view first, const ShortStr &name, std::string_view last) {
  const ShortStr line = ShortStr(first) + name + last;
  std::fwrite(line.data(), 1, static_cast<size_t>(line.size()), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

void WarnNotFound(const ShortStr &name) {
  Warn("*** Warning: Option ", name, " not found!");
}

bool IsIntegerType(const toption &option) {
  return option.OptType == optTypeInteger || option.OptType == optTypeBoolean ||
         option.OptType == optTypeEnumInt;
}
bool IsStringType(const toption &option) {
  return option.OptType == optTypeString || option.OptType == optTypeEnumStr;
}

// Finds a string list option: 0 with `list` set, -1 for another type, -2 for no such name.
int32_t FindStrList(tvlmoptions &db, const ShortStr &name, txstrings *&list) {
  toption *option = db.OptionAt(FindByName(db, name));
  if (!option) return -2;
  list = option->StrListOrNull();
  return list ? 0 : -1;
}

// Takes the first entry of a list into `sval`.
void TakeFirst(txstrings &list, ShortStr &sval) {
  sval = list.GetName(0);
  list.Delete(0);
}

}  // namespace

int32_t optFindStr(tvlmoptions &db, const ShortStr &name, int32_t &nr, int32_t &refNr) {
  const int32_t position = FindByName(db, name);
  if (position < 0) {
    nr = refNr = -1;
    return 0;
  }
  nr = position + 1;
  refNr = db.OptionAt(position)->RefNr;
  return 1;
}

int32_t optGetIntStr(tvlmoptions &db, const ShortStr &name) {
  const toption *option = db.OptionAt(FindByName(db, name));
  if (!option) {
    WarnNotFound(name);
    return 0;
  }
  int32_t value = 0;
  if (!option->GetInt(false, value)) Warn("*** Warning: ", name, " is not an Integer Option!");
  return value;
}

double optGetDblStr(tvlmoptions &db, const ShortStr &name) {
  const toption *option = db.OptionAt(FindByName(db, name));
  if (!option) {
    WarnNotFound(name);
    return 0;
  }
  double value = 0;
  if (!option->GetDouble(false, value)) Warn("*** Warning: ", name, " is not a Double Option!");
  return value;
}

void optGetStrStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval) {
  const toption *option = db.OptionAt(FindByName(db, name));
  if (!option) {
    sval.Clear();
    WarnNotFound(name);
    return;
  }
  // Any option gives its value text; only the warning tells a wrong type.
  sval = option->ValueText(false);
  if (!IsStringType(*option)) Warn("*** Warning: ", name, " is not a String Option!");
}

void optSetIntStr(tvlmoptions &db, const ShortStr &name, int32_t ival) {
  const int32_t position = FindByName(db, name);
  const toption *option = db.OptionAt(position);
  if (!option) {
    WarnNotFound(name);
  } else if (IsIntegerType(*option)) {
    optSetIntNr(db, position + 1, ival);
  } else {
    Warn("*** Warning: ", name, " is not an Integer Option!");
  }
}

void optSetDblStr(tvlmoptions &db, const ShortStr &name, double dval) {
  const int32_t position = FindByName(db, name);
  const toption *option = db.OptionAt(position);
  if (!option) {
    WarnNotFound(name);
  } else if (option->OptType == optTypeDouble) {
    optSetDblNr(db, position + 1, dval);
  } else {
    Warn("*** Warning: ", name, " is not a Double Option!");
  }
}

void optSetStrStr(tvlmoptions &db, const ShortStr &name, const ShortStr &sval) {
  const int32_t position = FindByName(db, name);
  const toption *option = db.OptionAt(position);
  if (!option) {
    WarnNotFound(name);
    return;
  }
  // The value is assigned whatever the type; only the warning tells a wrong type.
  optSetStrNr(db, position + 1, sval);
  if (!IsStringType(*option)) Warn("*** Warning: ", name, " is not a String Option!");
}

bool optResetStr(tvlmoptions &db, const ShortStr &name) {
  toption *option = db.OptionAt(FindByName(db, name));
  if (option) option->Reset();
  return option != nullptr;
}

bool optGetDefinedStr(tvlmoptions &db, const ShortStr &name) {
  const toption *option = db.OptionAt(FindByName(db, name));
  return option && (option->Defined & kFirstBit) != 0;
}

int32_t optListCountStr(tvlmoptions &db, const ShortStr &name) {
  txstrings *list = nullptr;
  const int32_t found = FindStrList(db, name, list);
  return found < 0 ? found : list->Count();
}

int32_t optGetFromListStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval) {
  txstrings *list = nullptr;
  const int32_t found = FindStrList(db, name, list);
  sval.Clear();
  if (found < 0) return found;
  if (list->Count() == 0) return 0;
  TakeFirst(*list, sval);
  return 1;
}

int32_t optReadFromListStr(tvlmoptions &db, const ShortStr &name, int32_t index, ShortStr &sval) {
  txstrings *list = nullptr;
  const int32_t found = FindStrList(db, name, list);
  sval.Clear();
  if (found < 0) return found;
  if (index < 1 || index > list->Count()) return 0;
  sval = list->GetName(index - 1);
  return 1;
}

int32_t optGetFromAnyStrList(tvlmoptions &db, int32_t kind, ShortStr &name, ShortStr &sval) {
  for (int32_t i = 0; i < db.Options.Count(); ++i) {
    txstrings *list = db.Options.GetObject(i)->StrListOrNull();
    if (!list || list->Count() == 0) continue;
    const std::string_view key = db.Options.Key(i);
    name = key;
    // Lists whose key begins with "--" are the ones parameter text created.
    const bool created = key.substr(0, 2) == "--";
    if ((kind == 0) != created) {
      TakeFirst(*list, sval);
      return 1;
    }
  }
  return 0;
}

}  // namespace optkw
