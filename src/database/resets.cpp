// The three resets of different reach, the reset of one option, and the
// switches of a handle.
#include "database/operations.h"

namespace optkw {
namespace {

// Dot, indicator and definedvar records carry no recent mark: no reset keeps them.
void EmptyStores(tvlmoptions &db) {
  db.DotOptions.Clear();
  if (db.Indicators) db.Indicators->Clear();
  if (db.DefinedVars) db.DefinedVars->Clear();
}

}  // namespace

void optResetAll(tvlmoptions &db) {
  // Every option is reset here anyway, so a macro need not reset its members:
  // that keeps nested macros linear.
  for (const auto &entry : db.Options)
    entry.FObject->ResetOwn();
  EmptyStores(db);
  db.Messages.Clear();
  db.IndicatorErrors = 0;
  db.DefinedVarErrors = 0;
  db.DotOptionErrors = 0;
}

void optResetAllRecent(tvlmoptions &db) {
  for (const auto &entry : db.Options)
    entry.FObject->DefinedR = 0;
  EmptyStores(db);
}

void optResetRecentChanges(tvlmoptions &db) {
  // An option with a recent value drops back to unset, both values with it.
  for (const auto &entry : db.Options) {
    if (entry.FObject->DefinedR != 0) entry.FObject->Reset();
  }
  EmptyStores(db);
}

int32_t optResetNr(tvlmoptions &db, int32_t nr) {
  toption *option = db.OptionByNumber(nr);
  if (!option) return 0;
  option->Reset();
  return 1;
}

int32_t optRecentEnabled(tvlmoptions &db) {
  return db.RecentEnabled ? 1 : 0;
}

void optRecentEnabledSet(tvlmoptions &db, int32_t flag) {
  db.RecentEnabled = flag != 0;
}

void optEchoSet(tvlmoptions &db, int32_t flag) {
  db.Echo = flag != 0;
  if (db.Parser) db.Parser->FEcho = db.Echo;  // a read under way echoes from its next line
}

int32_t optEOLOnlySet(tvlmoptions &db, int32_t flag) {
  const bool former = db.EolOnly;
  db.EolOnly = flag != 0;
  return former ? 1 : 0;
}

void optNoBoundsSet(tvlmoptions &db, int32_t flag) {
  db.NoBounds = flag != 0;
}

}  // namespace optkw
