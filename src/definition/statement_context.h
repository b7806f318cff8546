// What the statements of a definition text share while it is read.
#pragma once

#include <cstdint>

#include "containers/short_str.h"
#include "database/vlmoptions.h"
#include "scanning/miniparser.h"

namespace optkw {

// Default and bounds of a numeric option.
template <class T>
struct BoundedFields {
  T def = 0;
  T low = 0;
  T high = 0;
};

// The numeric fields of the statements. They live for the whole read, so a
// field that finds no token keeps the value of an earlier statement.
struct ClauseFields {
  int32_t usermap = 0;
  BoundedFields<int32_t> integer;  // also the default of booleans and enumerated integers
  BoundedFields<double> real;
  int32_t hc = 0;
  int32_t group = 0;
  int32_t group_number = 0;
};

// How the reader goes on after a statement.
enum class Continuation {
  kNextLine,  // the rest of the line is dropped; the next line is the next statement
  kSameLine,  // the scanner already stands at the start of the next statement
  kEnd,       // the text is used up
};

struct StatementContext {
  tvlmoptions &db;
  tminiparser &parser;
  ClauseFields fields;
  uint8_t modifier = optsubRequired;  // the type modifier, kept from statement to statement
  ShortStr name;                      // first token of the statement

  // Reports `what` for the statement's name unless `ok`.
  bool Check(bool ok, std::string_view what) { return db.CheckDefinition(ok, what, name.view()); }
  // A numeric field; a fault is reported as `fault`.
  bool ReadNumber(int32_t &value, std::string_view fault) {
    return Check(parser.ReadInteger(value), fault);
  }
  bool ReadNumber(double &value, std::string_view fault) {
    return Check(parser.ReadDouble(value), fault);
  }
  // HC and group, read by every statement that makes an option.
  void ReadHcAndGroup(std::string_view hc_fault) {
    ReadNumber(fields.hc, hc_fault);
    ReadNumber(fields.group, "Bad Group value");
  }
};

// The clauses of the options that carry a value.
Continuation ReadIntegerClause(StatementContext &ctx);
Continuation ReadDoubleClause(StatementContext &ctx);
Continuation ReadStringClause(StatementContext &ctx);
Continuation ReadBooleanClause(StatementContext &ctx);
Continuation ReadEnumStrClause(StatementContext &ctx);
Continuation ReadEnumIntClause(StatementContext &ctx);

// The other statements.
Continuation ReadMultiList(StatementContext &ctx);
Continuation ReadStrList(StatementContext &ctx);
Continuation ReadMacro(StatementContext &ctx);
Continuation ReadImmediate(StatementContext &ctx);
Continuation ReadSynonym(StatementContext &ctx);
Continuation ReadGroup(StatementContext &ctx);
Continuation ReadDeprecation(StatementContext &ctx, uint8_t option_flag);
Continuation ReadMapKeyword(StatementContext &ctx, uint8_t kind);
Continuation ReadLookup(StatementContext &ctx);
Continuation ReadEolComm(StatementContext &ctx);
Continuation ReadSeparator(StatementContext &ctx);
Continuation ReadStringQuote(StatementContext &ctx);

}  // namespace optkw
