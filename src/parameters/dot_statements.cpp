// Dot option statements: key.suffix(elements) value. The key is a name the
// library doesn't know (a model variable, to the client); the suffix names a
// dot option, which takes the value in the ordinary way. Each statement leaves
// a record, unless it produced an error.
#include <memory>
#include <string_view>

#include "database/operations.h"
#include "parameters/statement_reader.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

constexpr int32_t kMaxKeyLength = 63;
constexpr int32_t kMaxElements = 20;

void ParseDotOption(ParameterRun &run, const ShortStr &key, int32_t position) {
  tvlmoptions &db = run.db;
  tminiparser &p = run.parser;
  const ShortStr for_key = ShortStr(".option ") + Quoted(key);
  if (key.size() > kMaxKeyLength) run.Report(ShortStr(".Option ID too long ") + Quoted(key));
  auto owned = std::make_unique<tdotobj>();
  tdotobj &record = *owned;
  record.OptNr = position;
  db.DotOptions.AddObject(key.view(), std::move(owned));

  char opening;
  if (p.AcceptCharInSet(OpeningBrackets(), opening)) {
    const char closing = ClosingBracket(opening);
    for (;;) {
      ShortStr element;
      if (!p.ReadElement(element)) {
        run.Report(ShortStr("Element expected for ") + for_key);
        return;
      }
      // Only "*" and quoted elements: a bare identifier would be a set name.
      if (element[0] != '*' && element[0] != '\'' && element[0] != '"') {
        run.Report(ShortStr("Set name not allowed ") + for_key);
        return;
      }
      const int32_t before = record.Uels.Count();
      record.Uels.Add(element.view());
      if (before >= kMaxElements) run.Report(ShortStr("Too many dimensions for ") + for_key);
      if (p.AcceptChar(',')) continue;
      if (p.FCh == closing) {
        p.NextCh();
      } else {
        run.Report(ShortStr("Closing bracket \"") + closing + "\" expected for " + for_key);
      }
      break;
    }
  }
  p.SkipAssign();
  ShortStr value;
  if (!p.ReadToken(value)) {
    run.Report(ShortStr("Value expected for ") + for_key);
    return;
  }
  toption &option = *db.OptionAt(record.OptNr);
  db.CurrentName = option.Name.view();
  SetFirstValue(option, value);
  // The record keeps the number the option holds now, after the range step.
  int32_t number = 0;
  if (option.GetInt(false, number)) {
    record.Value = number;
  } else {
    option.GetDouble(false, record.Value);
  }
}

}  // namespace

void ReadDotStatement(ParameterRun &run, const ShortStr &key) {
  tvlmoptions &db = run.db;
  tminiparser &p = run.parser;
  p.NextCh();  // the dot
  ShortStr suffix;
  if (!p.ReadIdent(suffix)) {
    run.Report(ShortStr(".suffix expected for key ") + Quoted(key));
    return;
  }
  suffix = ShortStr(".") + suffix;
  // Synonyms don't count for a suffix.
  const int32_t position = db.LookUpPosition(suffix.view());
  if (position < 0) {
    run.Report(ShortStr("unknown .suffix ") + Quoted(suffix) + " for key " + Quoted(key));
    return;
  }
  const int32_t errors = db.StatementErrors();
  const int32_t records = db.DotOptions.Count();
  ParseDotOption(run, key, position);
  if (db.StatementErrors() == errors) return;
  while (db.DotOptions.Count() > records) {
    db.DotOptions.Delete(db.DotOptions.Count() - 1);
    ++db.DotOptionErrors;
  }
}

}  // namespace optkw
