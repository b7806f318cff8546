#include "parameters/reading_driver.h"

#include "database/parser_scope.h"
#include "database/source_fault.h"
#include "parameters/statement_reader.h"
#include "scanning/system_error_text.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

constexpr int32_t kNestingLimit = 10;

// Counts a file as open for the length of its read.
class NestingLevel {
 public:
  explicit NestingLevel(tvlmoptions &db) : db_(db) { ++db_.NestedReads; }
  ~NestingLevel() { --db_.NestedReads; }
  NestingLevel(const NestingLevel &) = delete;
  NestingLevel &operator=(const NestingLevel &) = delete;

 private:
  tvlmoptions &db_;
};

// Reads a string source: it is one line, and never counts as a nesting level.
void ReadTextSource(tvlmoptions &db, std::string_view source_name, auto open) {
  ParserScope scope(db, db.EolCommChars);
  open(scope.parser());
  db.AddMessage(optMsgFileEnter, source_name);
  ReadParameters(db, db.EolOnly);
  db.AddMessage(optMsgFileLeave, source_name);
}

}  // namespace

int32_t ReadParameterFileSource(tvlmoptions &db, const ShortStr &fileName) {
  // The scanner stands before the open, so the messages of a failed open come
  // from a scanner at line 0: they carry no line prefix.
  ParserScope scope(db, db.EolCommChars);
  int32_t code = 0;
  if (!scope.parser().OpenFile(fileName.view(), code)) {
    db.AddMessage(optMsgUserError, ShortStr("Cannot open parameter file \"") + fileName + "\"");
    db.AddMessage(optMsgUserError,
                  ShortStr("Error code = ") + IntegerToText(code) + "; " + SystemErrorText(code));
    return code;
  }
  db.AddMessage(optMsgFileEnter, fileName.view());
  {
    NestingLevel level(db);
    if (db.NestedReads < kNestingLimit) {
      ReadParameters(db, db.EolOnly);
      code = ReportSourceFault(db, scope.parser(), "parameter file", fileName);
    } else {
      db.AddMessage(optMsgUserError, "File nesting level too deep; file ignored");
    }
    db.AddMessage(optMsgFileLeave, fileName.view());
  }
  return code;
}

int32_t optReadParameterFile(tvlmoptions &db, const ShortStr &fileName) {
  return ReadParameterFileSource(db, fileName);
}

void optReadFromStr(tvlmoptions &db, const ShortStr &text) {
  ReadTextSource(db, "string", [&](tminiparser &parser) { parser.OpenString(text); });
}

void optReadFromPChar(tvlmoptions &db, const char *text) {
  ReadTextSource(db, "pchar", [&](tminiparser &parser) { parser.OpenPChar(text); });
}

void optReadFromCmdLine(tvlmoptions &db, const char *text) {
  ReadTextSource(db, "command line", [&](tminiparser &parser) { parser.OpenPChar(text); });
}

}  // namespace optkw
