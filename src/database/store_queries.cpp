// Reading back the records of dot option, indicator and definedvar statements,
// by position, in the order they were read.
#include "database/operations.h"

namespace optkw {
namespace {

const tdotobj *DotRecord(tvlmoptions &db, int32_t nr) {
  return nr >= 1 && nr <= db.DotOptions.Count() ? db.DotOptions.GetObject(nr - 1) : nullptr;
}

const tvarequmapitem *MapEntry(tvlmoptions &db, int32_t kind, int32_t nr) {
  const tvarequmaplist *store = db.MapStore(kind);
  return store && nr >= 1 && nr <= store->Count() ? store->Get(nr - 1) : nullptr;
}

// Element `dim` (from 1) of a list, as stored, or the empty text with 0.
int32_t Element(const txstrings &list, int32_t dim, ShortStr &uel) {
  if (dim < 1 || dim > list.Count()) {
    uel.Clear();
    return 0;
  }
  uel = list.GetName(dim - 1);
  return 1;
}

// Element `dim` of the equation's or the variable's list of map entry `nr`.
int32_t MapElement(tvlmoptions &db, int32_t kind, int32_t nr, int32_t dim,
                   txstrings tvarequmapitem::*elements, ShortStr &uel) {
  const tvarequmapitem *entry = MapEntry(db, kind, nr);
  if (!entry) {
    uel.Clear();
    return 0;
  }
  return Element(entry->*elements, dim, uel);
}

}  // namespace

int32_t optDotOptCount(tvlmoptions &db, int32_t &errors) {
  errors = db.DotOptionErrors;
  return db.DotOptions.Count();
}

int32_t optGetDotOptNr(tvlmoptions &db, int32_t nr, ShortStr &varName, int32_t &objNr,
                       int32_t &dimension, double &value) {
  const tdotobj *record = DotRecord(db, nr);
  if (!record) {
    varName.Clear();
    objNr = dimension = 0;
    value = 0;
    return 0;
  }
  varName = db.DotOptions.Key(nr - 1);
  objNr = record->OptNr + 1;
  dimension = record->Uels.Count();
  value = record->Value;
  return 1;
}

int32_t optGetDotOptUel(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel) {
  const tdotobj *record = DotRecord(db, nr);
  if (!record || Element(record->Uels, dim, uel) == 0) {
    uel.Clear();
    return 0;
  }
  // Elements are stored with their quotes; "*" stands as it is.
  if (uel == std::string_view("*")) return 1;
  uel = uel.size() < 3 ? ShortStr()
                       : ShortStr(uel.view().substr(1, static_cast<size_t>(uel.size() - 2)));
  return 1;
}

int32_t optVarEquMapCount(tvlmoptions &db, int32_t kind, int32_t &errors) {
  const int32_t store_kind = kind & 0xFF;
  if (store_kind == optmapIndicator) {
    errors = db.IndicatorErrors;
  } else if (store_kind == optmapDefinedvar) {
    errors = db.DefinedVarErrors;
  } else {
    return 0;
  }
  const tvarequmaplist *store = db.MapStore(store_kind);
  return store ? store->Count() : 0;
}

int32_t optGetVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, ShortStr &equName,
                          ShortStr &varName, int32_t &equDim, int32_t &varDim, int32_t &mapValue) {
  const tvarequmapitem *entry = MapEntry(db, kind, nr);
  if (!entry) {
    equName.Clear();
    varName.Clear();
    equDim = varDim = mapValue = 0;
    return 0;
  }
  equName = entry->EquName.Get();
  varName = entry->VarName.Get();
  equDim = entry->EquUels.Count();
  varDim = entry->VarUels.Count();
  mapValue = entry->MapValue;
  return 1;
}

int32_t optGetEquVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, int32_t dim,
                             ShortStr &uel) {
  return MapElement(db, kind, nr, dim, &tvarequmapitem::EquUels, uel);
}

int32_t optGetVarVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, int32_t dim,
                             ShortStr &uel) {
  return MapElement(db, kind, nr, dim, &tvarequmapitem::VarUels, uel);
}

int32_t optIndicatorCount(tvlmoptions &db, int32_t &errors) {
  return optVarEquMapCount(db, optmapIndicator, errors);
}

int32_t optGetIndicatorNr(tvlmoptions &db, int32_t nr, ShortStr &equName, ShortStr &varName,
                          int32_t &equDim, int32_t &varDim, int32_t &mapValue) {
  return optGetVarEquMapNr(db, optmapIndicator, nr, equName, varName, equDim, varDim, mapValue);
}

int32_t optGetEquIndicatorNr(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel) {
  return optGetEquVarEquMapNr(db, optmapIndicator, nr, dim, uel);
}

int32_t optGetVarIndicatorNr(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel) {
  return optGetVarVarEquMapNr(db, optmapIndicator, nr, dim, uel);
}

}  // namespace optkw
