// The exported operations of the option database, and the rules of value
// assignment and name lookup that the readers share with them.
//
// Every operation takes the database first; numbers that clients pass count
// from 1. Where an operation fails its outputs are cleared or left alone as its
// comment says, so that clients can rely on them.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"

namespace optkw {

// ---- Messages (messages.cpp)
void optAddMessage(tvlmoptions &db, const ShortStr &text);
void optGetMessage(tvlmoptions &db, int32_t nr, ShortStr &text, int32_t &type);
void optClearMessages(tvlmoptions &db);
int32_t optMessageCount(tvlmoptions &db);
void optErrorCount(tvlmoptions &db, int32_t &errors, int32_t &warnings);

// ---- Names of constants and option types (constant_names.cpp)
int32_t optGetConstName(tvlmoptions &db, int32_t cgroup, int32_t cindex, ShortStr &name);
int32_t optGetTypeName(tvlmoptions &db, int32_t type, ShortStr &name);
// The keyword of an option type, or the empty text.
ShortStr TypeKeyword(int32_t type);

// ---- Name lookup (name_lookup.cpp)
// Zero-based position of the first option that `name` matches by the handle's
// lookup method, or -1.
int32_t optLookUp(tvlmoptions &db, const ShortStr &name);
// Word by word, the first three letters of each word decide.
bool NameMatchPath(std::string_view wanted, std::string_view name);
// The first three letters, then the first four of each further word.
bool NameMatchMinos(std::string_view wanted, std::string_view name);

// ---- Value assignment (value_assignment.cpp)
void SetFirstValue(toption &option, const ShortStr &text);
void SetSecondValue(toption &option, const ShortStr &text);

// ---- Typed access by number (access_by_number.cpp)
int32_t optCount(tvlmoptions &db);
int32_t optGetInfoNr(tvlmoptions &db, int32_t nr, int32_t &defined, int32_t &definedR,
                     int32_t &refNr, int32_t &dataType, int32_t &optType, int32_t &subType);
int32_t optGetValuesNr(tvlmoptions &db, int32_t nr, ShortStr &name, int32_t &ival, double &dval,
                       ShortStr &sval);
int32_t optGetIntNr(tvlmoptions &db, int32_t nr, int32_t &ival);
int32_t optGetInt2Nr(tvlmoptions &db, int32_t nr, int32_t &ival);
int32_t optGetDblNr(tvlmoptions &db, int32_t nr, double &dval);
int32_t optGetDbl2Nr(tvlmoptions &db, int32_t nr, double &dval);
int32_t optGetStrNr(tvlmoptions &db, int32_t nr, ShortStr &sval);
int32_t optGetStr2Nr(tvlmoptions &db, int32_t nr, ShortStr &sval);
int32_t optGetDefinedNr(tvlmoptions &db, int32_t nr, int32_t &defined);
int32_t optGetNameNr(tvlmoptions &db, int32_t nr, ShortStr &name);
int32_t optGetHelpNr(tvlmoptions &db, int32_t nr, ShortStr &name, ShortStr &help);
int32_t optGetBoundsInt(tvlmoptions &db, int32_t nr, int32_t &lower, int32_t &upper,
                        int32_t &defaultValue);
int32_t optGetBoundsDbl(tvlmoptions &db, int32_t nr, double &lower, double &upper,
                        double &defaultValue);
int32_t optGetDefaultStr(tvlmoptions &db, int32_t nr, ShortStr &sval);
int32_t optGetValStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval);
int32_t optGetVal2Str(tvlmoptions &db, const ShortStr &name, ShortStr &sval);
int32_t optGetNameOpt(tvlmoptions &db, const ShortStr &text, ShortStr &name, int32_t &nr);
int32_t optSetIntNr(tvlmoptions &db, int32_t nr, int32_t ival);
int32_t optSetInt2Nr(tvlmoptions &db, int32_t nr, int32_t ival);
int32_t optSetDblNr(tvlmoptions &db, int32_t nr, double dval);
int32_t optSetDbl2Nr(tvlmoptions &db, int32_t nr, double dval);
int32_t optSetStrNr(tvlmoptions &db, int32_t nr, const ShortStr &sval);
int32_t optSetStr2Nr(tvlmoptions &db, int32_t nr, const ShortStr &sval);
int32_t optSetValuesNr(tvlmoptions &db, int32_t nr, int32_t ival, double dval,
                       const ShortStr &sval);
int32_t optSetValues2Nr(tvlmoptions &db, int32_t nr, int32_t ival, double dval,
                        const ShortStr &sval);
int32_t optSetRefNr(tvlmoptions &db, int32_t nr, int32_t refNr);
int32_t optSetRefNrStr(tvlmoptions &db, const ShortStr &name, int32_t refNr);

// ---- Access by name (access_by_name.cpp); misuse is reported on standard output.
int32_t optFindStr(tvlmoptions &db, const ShortStr &name, int32_t &nr, int32_t &refNr);
int32_t optGetIntStr(tvlmoptions &db, const ShortStr &name);
double optGetDblStr(tvlmoptions &db, const ShortStr &name);
void optGetStrStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval);
void optSetIntStr(tvlmoptions &db, const ShortStr &name, int32_t ival);
void optSetDblStr(tvlmoptions &db, const ShortStr &name, double dval);
void optSetStrStr(tvlmoptions &db, const ShortStr &name, const ShortStr &sval);
bool optResetStr(tvlmoptions &db, const ShortStr &name);
bool optGetDefinedStr(tvlmoptions &db, const ShortStr &name);
int32_t optListCountStr(tvlmoptions &db, const ShortStr &name);
int32_t optGetFromListStr(tvlmoptions &db, const ShortStr &name, ShortStr &sval);
int32_t optReadFromListStr(tvlmoptions &db, const ShortStr &name, int32_t index, ShortStr &sval);
int32_t optGetFromAnyStrList(tvlmoptions &db, int32_t kind, ShortStr &name, ShortStr &sval);

// ---- Enumerations, groups, synonyms (definition_queries.cpp)
int32_t optGetEnumCount(tvlmoptions &db, int32_t nr, int32_t &count);
int32_t optGetEnumStrNr(tvlmoptions &db, int32_t nr, ShortStr &sval, int32_t &enumNr);
int32_t optGetEnumValue(tvlmoptions &db, int32_t nr, int32_t enumNr, int32_t &ival, ShortStr &sval);
int32_t optGetEnumHelp(tvlmoptions &db, int32_t nr, int32_t enumNr, int32_t &hc, ShortStr &help);
int32_t optGetOptHelpNr(tvlmoptions &db, int32_t nr, ShortStr &name, int32_t &hc, int32_t &group);
int32_t optGroupCount(tvlmoptions &db);
int32_t optGetGroupNr(tvlmoptions &db, int32_t pos, ShortStr &name, int32_t &groupNr, int32_t &hc,
                      ShortStr &help);
int32_t optGetGroupGrpNr(tvlmoptions &db, int32_t groupNr);
int32_t optGetOptGroupNr(tvlmoptions &db, int32_t nr);
int32_t optSynonymCount(tvlmoptions &db);
int32_t optGetSynonym(tvlmoptions &db, int32_t pos, ShortStr &synonym, ShortStr &name);

// ---- Resets and switches (resets.cpp)
void optResetAll(tvlmoptions &db);
void optResetAllRecent(tvlmoptions &db);
void optResetRecentChanges(tvlmoptions &db);
int32_t optResetNr(tvlmoptions &db, int32_t nr);
int32_t optRecentEnabled(tvlmoptions &db);
void optRecentEnabledSet(tvlmoptions &db, int32_t flag);
void optEchoSet(tvlmoptions &db, int32_t flag);
int32_t optEOLOnlySet(tvlmoptions &db, int32_t flag);
void optNoBoundsSet(tvlmoptions &db, int32_t flag);

// ---- Dot options, indicators and maps (store_queries.cpp)
int32_t optDotOptCount(tvlmoptions &db, int32_t &errors);
int32_t optGetDotOptNr(tvlmoptions &db, int32_t nr, ShortStr &varName, int32_t &objNr,
                       int32_t &dimension, double &value);
int32_t optGetDotOptUel(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel);
int32_t optVarEquMapCount(tvlmoptions &db, int32_t kind, int32_t &errors);
int32_t optGetVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, ShortStr &equName,
                          ShortStr &varName, int32_t &equDim, int32_t &varDim, int32_t &mapValue);
int32_t optGetEquVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, int32_t dim, ShortStr &uel);
int32_t optGetVarVarEquMapNr(tvlmoptions &db, int32_t kind, int32_t nr, int32_t dim, ShortStr &uel);
int32_t optIndicatorCount(tvlmoptions &db, int32_t &errors);
int32_t optGetIndicatorNr(tvlmoptions &db, int32_t nr, ShortStr &equName, ShortStr &varName,
                          int32_t &equDim, int32_t &varDim, int32_t &mapValue);
int32_t optGetEquIndicatorNr(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel);
int32_t optGetVarIndicatorNr(tvlmoptions &db, int32_t nr, int32_t dim, ShortStr &uel);

}  // namespace optkw
