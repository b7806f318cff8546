// Indicator and definedvar statements: they tie an equation of the client's
// model to a variable, each with its index elements.
//   indicator:  KEYWORD equ(i,j) $ var(i,'a') [=] yes
//   definedvar: KEYWORD var(i) equ(i)
// An unquoted index on the second identifier must stand among the indices of
// the first. A statement with any error leaves no entry.
#include <memory>
#include <string_view>

#include "parameters/statement_reader.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

constexpr int32_t kMaxIdentifier = 63;
constexpr int32_t kMaxIndices = 20;

enum class Side { kEquation, kVariable };

// Reads an identifier and its index list into the entry being filled. Gives
// false when the statement can't go on; a fault in the index list is reported
// and the statement goes on all the same.
bool ParseMapIdentifier(ParameterRun &run, Side side, ShortStr &id, tvarequmapitem &item) {
  tminiparser &p = run.parser;
  p.SkipBlanks();
  if (!p.ReadIdent(id)) {
    run.Report("Identifier expected.");
    return false;
  }
  if (id.size() > kMaxIdentifier) {
    run.Report(ShortStr("Identifier ") + Quoted(id) + " is not good.");
    return false;
  }
  const bool equation = side == Side::kEquation;
  HeapStr &name = equation ? item.EquName : item.VarName;
  const HeapStr &other_name = equation ? item.VarName : item.EquName;
  txstrings &indices = equation ? item.EquUels : item.VarUels;
  const txstrings &other_indices = equation ? item.VarUels : item.EquUels;
  const std::string_view what = equation ? "equation " : "variable ";
  name = id.view();

  char opening;
  if (!p.AcceptCharInSet(OpeningBrackets(), opening)) return true;
  const char closing = ClosingBracket(opening);
  do {
    ShortStr element;
    if (!p.ReadElement(element)) {
      run.Report(ShortStr("Unique element expected for indicator id ") + Quoted(id));
      return true;
    }
    if (element == std::string_view("*")) {
      run.Report(ShortStr("Universe not allowed for indicator id ") + Quoted(id));
      return true;
    }
    if (indices.Count() >= kMaxIndices) {
      run.Report(ShortStr("Too many dimensions for ") + what + Quoted(name.view()));
    }
    const bool quoted = element[0] == '\'' || element[0] == '"';
    if (element.size() >= (quoted ? 66 : 64)) {
      run.Report(ShortStr(equation ? "Bad Equation index = " : "Bad variable index = ") +
                 Quoted(name.view()));
    } else if (!quoted && !other_name.IsNil() && other_indices.IndexOf(element.view()) < 0) {
      run.Report(ShortStr("Index ") + Quoted(element) + " not controlled for " + what +
                 Quoted(name.view()));
    }
    indices.Add(element.view());
  } while (p.AcceptChar(','));
  if (p.FCh == closing) {
    p.NextCh();
  } else {
    run.Report(ShortStr("Closing bracket \"") + closing + "\" expected for id " + Quoted(id));
  }
  return true;
}

void ParseIndicator(ParameterRun &run, uint8_t kind, tvarequmaplist &store) {
  tminiparser &p = run.parser;
  p.SkipBlanks();
  auto owned = std::make_unique<tvarequmapitem>();
  tvarequmapitem &item = *owned;
  store.CurrentItem = &item;
  store.Add(std::move(owned));

  ShortStr equation;
  ShortStr variable;
  if (kind == optmapIndicator) {
    if (ParseMapIdentifier(run, Side::kEquation, equation, item)) {
      if (!p.AcceptChar('$')) {
        run.Report(ShortStr("$ expected after equation identifier ") + Quoted(equation));
      } else if (ParseMapIdentifier(run, Side::kVariable, variable, item)) {
        p.SkipAssign();
        ShortStr token;
        if (!p.ReadToken(token)) {
          run.Report(ShortStr("Boolean value expected for equation indicator ") + Quoted(equation));
        } else {
          const Truth truth = ScanBoolean(token.view());
          if (truth != Truth::kNeither) {
            item.MapValue = truth == Truth::kTrue ? 1 : 0;
            return;
          }
          run.Report(ShortStr("Boolean value expected for equation indicator ") + Quoted(equation) +
                     ", Saw " + Quoted(token));
        }
      }
    }
  } else if (ParseMapIdentifier(run, Side::kVariable, variable, item)) {
    p.SkipBlanks();
    if (ParseMapIdentifier(run, Side::kEquation, equation, item)) return;
  }
  p.ReadRestOfLine();
}

}  // namespace

void ReadMapStatement(ParameterRun &run, uint8_t kind) {
  tvlmoptions &db = run.db;
  tvarequmaplist *map = db.MapStore(kind);
  if (!map) return;  // the keyword and its store are made together
  tvarequmaplist &store = *map;
  const int32_t errors = db.StatementErrors();
  const int32_t entries = store.Count();
  ParseIndicator(run, kind, store);
  if (db.StatementErrors() == errors) return;
  int32_t &dropped = kind == optmapIndicator ? db.IndicatorErrors : db.DefinedVarErrors;
  while (store.Count() > entries) {
    store.Delete(store.Count() - 1);
    ++dropped;
  }
}

}  // namespace optkw
