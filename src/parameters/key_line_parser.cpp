// The statement loop of parameter text.
//
// A line holds any number of statements, each optionally behind a comma:
// key, separator ("=", ":=" or only blanks), value. A key may carry leading "-"
// or "/" characters, as on a command line; two or more make it a "--" key,
// whose values collect in a string list of that name. While the end-of-line
// flag is set a value runs to the end of its line, else it is one token.
#include <string_view>

#include "containers/ascii.h"
#include "database/operations.h"
#include "output/help_listing.h"
#include "parameters/reading_driver.h"
#include "parameters/statement_reader.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

bool AtLineEnd(char c) {
  return c == kLineEnd || c == kEndOfText;
}

bool StartsWithDashes(const ShortStr &key) {
  return key.view().substr(0, 2) == "--";
}

std::string_view TrimControls(const ShortStr &text) {
  return TrimText(text.view());
}

// A value that runs to the end of the line. An end-of-line comment ends it,
// except inside double quotes; a closing quote is removed, and a missing one is
// added back, so that assignment refuses the value.
bool ReadEndOfLineValue(ParameterRun &run, ShortStr &value) {
  tminiparser &p = run.parser;
  value.Clear();
  if (!p.SkipBlanks()) return false;
  const CharSet &comments = run.db.EolCommChars;
  if (p.FCh == '"') {
    p.NextCh();
    bool closed = false;
    while (!AtLineEnd(p.FCh)) {
      if (closed && comments.Has(p.FCh)) break;
      if (p.FCh == '"') closed = !closed;
      value.PushCapped(p.FCh);
      p.NextCh();
    }
    value = TrimControls(value);
    if (!value.empty()) {
      if (value.back() == '"') {
        value.Truncate(value.size() - 1);
      } else {
        value += '"';
      }
    }
    value = TrimControls(value);
  } else {
    // The run stays in the line buffer while the rest of the line is passed.
    ShortStr scratch;
    const std::string_view run_text = tminiparser::Capped(
        p.TakeWhile([&comments](char c) { return !AtLineEnd(c) && !comments.Has(c); }), scratch);
    p.SkipRestOfLine();
    value = TrimText(run_text);
    return true;
  }
  p.SkipRestOfLine();
  return true;
}

bool ReadValue(ParameterRun &run, ShortStr &value) {
  return run.eol_only ? ReadEndOfLineValue(run, value) : run.parser.ReadToken(value);
}

// Says so when a deprecated or obsolete option or synonym is used. Gives false
// when the value must not be applied (an obsolete name).
bool CheckDeprecated(tvlmoptions &db, const ShortStr &key, const toption &option) {
  const uint8_t flags = option.DeprecFlags;
  if (flags == 0) return true;
  // A key found through an abbreviation counts as a synonym here.
  const bool by_name = SameText(key.view(), option.Name.view());
  const uint8_t marked =
      by_name ? (kOptionDeprecated | kOptionObsolete) : (kSynonymDeprecated | kSynonymObsolete);
  if ((flags & marked) == 0) return true;
  const char *word = (flags & (kOptionDeprecated | kSynonymDeprecated)) ? "deprecated" : "obsolete";
  const HeapStr &text = by_name ? option.DeprecatedText : option.SynonymText;
  db.AddMessage(optMsgDeprecated, ShortStr(word) + (by_name ? " option " : " synonym ") +
                                      Quoted(key) + "; " + text.view());
  return (flags & (by_name ? kOptionObsolete : kSynonymObsolete)) == 0;
}

void ReadKeyValue(ParameterRun &run, toption &option, const ShortStr &key) {
  tvlmoptions &db = run.db;
  tminiparser &p = run.parser;
  if (option.SubType == optsubNoValue) {
    CheckDeprecated(db, key, option);
    option.AssignDefault();
    return;
  }
  if (!p.SkipBlanks() && option.SubType == optsubOptional) {
    CheckDeprecated(db, key, option);
    option.AssignDefault();
    return;
  }
  if (!p.SkipAssign()) {
    run.Report(ShortStr("Value expected for key ") + Quoted(db.DisplayName(option)));
    return;
  }
  if (option.SubType == optsub2Values) {
    // The first value is always one token; "*" keeps a value as it was, and
    // one value alone serves for both.
    ShortStr first;
    ShortStr second;
    const bool has_first = p.ReadToken(first);
    const bool has_second = p.SkipBlanks() && ReadValue(run, second);
    if (!CheckDeprecated(db, key, option)) return;
    if (has_first && first != std::string_view("*")) {
      SetFirstValue(option, first);
      if (!has_second) {
        SetSecondValue(option, first);
        return;
      }
    } else if (!has_second) {
      return;
    }
    if (second != std::string_view("*")) SetSecondValue(option, second);
    return;
  }
  ShortStr value;
  const bool has_value = ReadValue(run, value);
  // An unclosed quoted token vanishes here without a word.
  if (CheckDeprecated(db, key, option) && has_value) SetFirstValue(option, value);
}

void RunImmediate(ParameterRun &run, ImmediateAction kind, const ShortStr &key) {
  tvlmoptions &db = run.db;
  run.parser.SkipAssign();
  ShortStr value;
  if (!run.parser.ReadToken(value) && kind != ImmediateAction::kHelp) {
    run.Report(ShortStr("Value expected for immediate option ") + Quoted(key));
    return;
  }
  switch (kind) {
    case ImmediateAction::kEolFlag:
      run.eol_only = ScanBoolean(value.view()) != Truth::kFalse;
      break;
    case ImmediateAction::kReadFile:
      ReadParameterFileSource(db, value);
      break;
    case ImmediateAction::kMessage:
      run.Report(value.view());
      break;
    case ImmediateAction::kNoBounds:
      db.NoBounds = ScanBoolean(value.view()) != Truth::kFalse;
      break;
    case ImmediateAction::kHelp:
      optShowHelp(db, value);
      break;
  }
}

// A "--" key: its values collect in a string list, taken as they stand.
void AppendToDashList(ParameterRun &run, toption &option) {
  tminiparser &p = run.parser;
  p.SkipAssign();
  ShortStr value;
  if (run.eol_only) {
    value = p.ReadRestOfLine();
    if (value.size() >= 2 && value[0] == '"' && value.back() == '"') {
      value = value.view().substr(1, static_cast<size_t>(value.size() - 2));
    }
  } else if (!p.ReadToken(value)) {
    return;
  }
  SetFirstValue(option, value);
}

// Under Minos the words of a key are written apart: join up to three further
// words with "_" until the name is found.
int32_t JoinMinosWords(ParameterRun &run, ShortStr &key, int32_t position) {
  tminiparser &p = run.parser;
  for (int words = 0; words < 3 && position < 0; ++words) {
    if (!p.SkipBlanks()) break;
    const char c = p.FCh;
    if (c == '=' || IsDigit(c) || c == '+' || c == '-' || c == '.') break;
    ShortStr word;
    p.ReadAlphaNum(word);
    key = key + "_" + word;
    run.db.CurrentName = key;
    position = run.db.FindPosition(key.view());
  }
  return position;
}

void ReadPlainStatement(ParameterRun &run, ShortStr &key, int32_t dashes) {
  tvlmoptions &db = run.db;
  if (dashes == 0 && SameText(key.view(), db.IndicatorName.view())) {
    ReadMapStatement(run, optmapIndicator);
    return;
  }
  if (dashes >= 2) key = ShortStr("--") + key;
  db.CurrentName = key;
  int32_t position = db.FindPosition(key.view());
  // The definedvar keyword is tested after the lookup, and shadows an option.
  if (dashes == 0 && SameText(key.view(), db.DefinedVarName.view())) {
    ReadMapStatement(run, optmapDefinedvar);
    return;
  }
  if (db.LookupCode == LookupMethod::kMinos) {
    // A "_" in the text is a mistake under Minos, even when the name exists.
    position = CharPos('_', key.view()) != 0 ? -1 : JoinMinosWords(run, key, position);
  }
  toption *option = db.OptionAt(position);
  if (!option) {
    if (StartsWithDashes(key)) {
      auto list = std::make_unique<tstrlistoption>(key.view(), &db, 0, 0, 0, "");
      toption &created = *list;
      db.AddOption(std::move(list));
      AppendToDashList(run, created);
      return;
    }
    run.Report(ShortStr("Unknown option ") + Quoted(key));
    // One value goes with the unknown key. The separator isn't skipped.
    ShortStr swallowed;
    if (run.eol_only) {
      run.parser.ReadRestOfLine();
    } else {
      run.parser.ReadToken(swallowed);
    }
    return;
  }
  if (StartsWithDashes(key)) {
    AppendToDashList(run, *option);
    return;
  }
  ImmediateAction kind;
  if (option->GetImmediateKind(kind)) {
    RunImmediate(run, kind, key);
    return;
  }
  ReadKeyValue(run, *option, key);
  if (run.eol_only && run.parser.SkipBlanks()) {
    run.Report("Remainder of line ignored");
    run.DropRestOfLine();
  }
}

// The statements of one line; gives when the line is done.
void ReadLine(ParameterRun &run) {
  tminiparser &p = run.parser;
  while (p.SkipBlanks()) {
    if (p.FCh == ',') {
      p.NextCh();
      p.SkipBlanks();
    }
    ShortStr key;
    int32_t dashes = 0;
    if (!p.ReadSwitch(key, dashes)) {
      run.Report(ShortStr("Option keyword expected, saw \"") + p.FCh + "\"");
      return;
    }
    const char c = p.FCh;
    if (c == '.' && dashes == 0) {
      ReadDotStatement(run, key);
    } else if (AtLineEnd(c) || c == ' ' || c == '\t' || c == '=' || c == '.') {
      ReadPlainStatement(run, key, dashes);
    } else {
      run.Report(ShortStr("Bad separator after key ") + Quoted(key));
      return;
    }
  }
}

}  // namespace

void ReadParameters(tvlmoptions &db, bool eol_only) {
  tminiparser &parser = *db.Parser;
  ParameterRun run{db, parser, eol_only};
  if (parser.FAtEnd) db.AddMessage(optMsgValueWarning, "Read from empty file or string");
  while (parser.NextLine())
    ReadLine(run);
}

}  // namespace optkw
