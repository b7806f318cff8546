// The definition reader: the entry operations and the statement loop.
//
// A definition text is read in one pass. Each statement starts in column 1 with
// a name (a leading "." makes a dot option), then a type word, optionally with a
// modifier behind a dot ("double.OPT"), then the fields the keyword asks for.
// Faults are reported and reading goes on; only a line that can't start a
// statement ends the read ("Remaining text ignored").
#include <array>
#include <string_view>

#include "database/operations.h"
#include "database/parser_scope.h"
#include "database/source_fault.h"
#include "definition/definition_reader.h"
#include "definition/statement_context.h"
#include "scanning/system_error_text.h"
#include "scanning/text_ops.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

// The statement keywords behind the ten option types, by index.
enum Keyword : int32_t {
  kSynonym = 10,
  kGroup,
  kDeprecated,
  kObsolete,
  kIndicator,
  kDefinedVar,
  kLookup,
  kEolComm,
  kSeparator,
  kStringQuote,
  kKeywordCount
};

constexpr std::array<std::string_view, kKeywordCount - kSynonym> kStatementKeywords = {
    "synonym",    "group",  "deprecated", "obsolete",  "indicator",
    "definedvar", "lookup", "eolcomm",    "separator", "stringquote"};

int32_t KeywordIndex(std::string_view word) {
  for (int32_t type = 0; type < kSynonym; ++type) {
    if (SameText(word, TypeKeyword(type))) return type;
  }
  for (size_t k = 0; k < kStatementKeywords.size(); ++k) {
    if (SameText(word, kStatementKeywords[k])) return kSynonym + static_cast<int32_t>(k);
  }
  return -1;
}

// Splits the modifier off the type word. An unknown modifier is reported and
// leaves the modifier of the statement before.
void ReadTypeModifier(StatementContext &ctx, ShortStr &type_word) {
  const int32_t dot = LastCharPos('.', type_word.view());
  if (dot == 0) {
    ctx.modifier = optsubRequired;
    return;
  }
  const ShortStr modifier = UpperText(type_word.view().substr(static_cast<size_t>(dot)));
  type_word.Truncate(dot - 1);
  if (modifier == std::string_view("NV")) {
    ctx.modifier = optsubNoValue;
  } else if (modifier == std::string_view("OPT")) {
    ctx.modifier = optsubOptional;
  } else if (modifier == std::string_view("TWO")) {
    ctx.modifier = optsub2Values;
  } else {
    ctx.db.AddMessage(optMsgDefineError, ShortStr("Unknown type modifier = ") + modifier +
                                             " for option \"" + ctx.name + "\"");
  }
}

Continuation ReadStatement(StatementContext &ctx, int32_t keyword, const ShortStr &type_word) {
  switch (keyword) {
    case optTypeInteger:
      return ReadIntegerClause(ctx);
    case optTypeDouble:
      return ReadDoubleClause(ctx);
    case optTypeString:
      return ReadStringClause(ctx);
    case optTypeBoolean:
      return ReadBooleanClause(ctx);
    case optTypeEnumStr:
      return ReadEnumStrClause(ctx);
    case optTypeEnumInt:
      return ReadEnumIntClause(ctx);
    case optTypeMultiList:
      return ReadMultiList(ctx);
    case optTypeStrList:
      return ReadStrList(ctx);
    case optTypeMacro:
      return ReadMacro(ctx);
    case optTypeImmediate:
      return ReadImmediate(ctx);
    case kSynonym:
      return ReadSynonym(ctx);
    case kGroup:
      return ReadGroup(ctx);
    case kDeprecated:
      return ReadDeprecation(ctx, kOptionDeprecated);
    case kObsolete:
      return ReadDeprecation(ctx, kOptionObsolete);
    case kIndicator:
      return ReadMapKeyword(ctx, optmapIndicator);
    case kDefinedVar:
      return ReadMapKeyword(ctx, optmapDefinedvar);
    case kLookup:
      return ReadLookup(ctx);
    case kEolComm:
      return ReadEolComm(ctx);
    case kSeparator:
      return ReadSeparator(ctx);
    case kStringQuote:
      return ReadStringQuote(ctx);
    default:
      ctx.Check(false, ShortStr("Unknown option type \"") + type_word + "\"");
      return Continuation::kNextLine;
  }
}

// The statement loop behind both reads; the scanner is open.
void ReadDefinitionBody(tvlmoptions &db) {
  auto help = std::make_unique<timmediateoption>("Help", &db, 0, 0, 0, "", ImmediateAction::kHelp);
  help->SubType = optsubOptional;
  db.AddOption(std::move(help));

  tminiparser &parser = *db.Parser;
  if (!parser.NextLine()) return;
  StatementContext ctx{db, parser, {}, optsubRequired, {}};
  for (;;) {
    const bool dot = parser.FCh == '.';
    if (dot) parser.NextCh();
    if (!parser.ReadName(ctx.name)) {
      // Nothing more is said at the end of the text.
      db.CheckDefinition(parser.FCh == kEndOfText, "Remaining text ignored", "");
      return;
    }
    if (dot) {
      ctx.Check(ctx.name.size() <= 63, "Identifier too long");
      ctx.name = ShortStr(".") + ctx.name;
    }
    ShortStr type_word;
    parser.ReadToken(type_word);
    ReadTypeModifier(ctx, type_word);
    const int32_t keyword = KeywordIndex(type_word.view());
    ctx.Check(keyword < optTypeMultiList || ctx.modifier == optsubRequired,
              "Type modifier not allowed");
    if (keyword < kSynonym) {
      db.CurrentName = ctx.name;
      const bool known =
          db.LookUpPosition(ctx.name.view()) >= 0 || db.Synonyms.IndexOf(ctx.name.view()) >= 0;
      ctx.Check(!known, "Duplicate option");
    }
    if (keyword < kSynonym && keyword != optTypeMacro && keyword != optTypeImmediate) {
      ctx.ReadNumber(ctx.fields.usermap, "Bad usermap value");
    } else {
      ctx.fields.usermap = -1;
    }
    switch (ReadStatement(ctx, keyword, type_word)) {
      case Continuation::kNextLine:
        if (!parser.NextLine()) return;
        break;
      case Continuation::kSameLine:
        break;
      case Continuation::kEnd:
        return;
    }
  }
}

// Gives the result of a read: faults and even echo lines make it -1.
int32_t ReadResult(const tvlmoptions &db, int32_t io_code) {
  return io_code == 0 && !db.Messages.empty() ? -1 : io_code;
}

}  // namespace

int32_t optReadDefinition(tvlmoptions &db, const ShortStr &fileName) {
  db.DefinitionFile = fileName.view();
  int32_t code = 0;
  {
    ParserScope scope(db, EolCharSet());
    if (scope.parser().OpenFile(fileName.view(), code)) {
      ReadDefinitionBody(db);
      code = ReportSourceFault(db, scope.parser(), "option definitions file", fileName);
    } else {
      db.AddMessage(optMsgDefineError,
                    ShortStr("Cannot open option definitions file \"") + fileName + "\"");
      db.AddMessage(optMsgDefineError,
                    ShortStr("Error code = ") + IntegerToText(code) + "; " + SystemErrorText(code));
    }
  }
  return ReadResult(db, code);
}

int32_t optReadDefinitionFromPChar(tvlmoptions &db, const char *text) {
  {
    ParserScope scope(db, EolCharSet());
    scope.parser().OpenPChar(text);
    ReadDefinitionBody(db);
  }
  return ReadResult(db, 0);
}

void optDefinitionFile(tvlmoptions &db, ShortStr &fileName) {
  const std::string_view path = db.DefinitionFile.view();
  fileName = path.substr(path.rfind('/') + 1);
}

}  // namespace optkw
