// tvlmoptions: the option database, one per handle.
//
// The handle owns everything below it: the options, synonyms, groups, the
// message queue and the stores of dot options, indicators and definedvars. The
// exported operations are free functions on a tvlmoptions, one header per
// subsystem; this class holds the data and the services they share: reporting
// into the message queue, finding options, and the names shown to people.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "containers/heap_str.h"
#include "containers/short_str.h"
#include "containers/string_lists.h"
#include "database/abbreviation_index.h"
#include "database/message_queue.h"
#include "database/options.h"
#include "database/stores.h"
#include "scanning/char_set.h"
#include "scanning/miniparser.h"

namespace optkw {

enum class LookupMethod : uint8_t { kNormal = 0, kPath = 1, kMinos = 2 };

class tvlmoptions : public toptionx {
 public:
  static constexpr int32_t kMaxMessages = 5000;

  // `message` is set to the empty text; creating a database can't fail otherwise.
  explicit tvlmoptions(ShortStr &message);
  ~tvlmoptions() override;
  tvlmoptions(const tvlmoptions &) = delete;
  tvlmoptions &operator=(const tvlmoptions &) = delete;

  // ---- Messages (messages.cpp)
  // Adds a message by the rules of the queue: a file-leave message right behind
  // its own file-enter message cancels it, the queue stops at its limit, and
  // the types that speak of input get the scanner's line in front.
  void AddMessage(int32_t type, std::string_view text);
  // Reports `what` for option `name` as a definition error unless `ok`; gives `ok`.
  bool CheckDefinition(bool ok, std::string_view what, std::string_view name);
  // Number of messages that count against a statement (all but echo, warning,
  // deprecation and file messages).
  int32_t StatementErrors() const;
  // "line N: " in front of `text` while a scanner stands on a line of a file.
  ShortStr WithLine(std::string_view text) const;

  // ---- Options
  int32_t Count() const { return Options.Count(); }
  // The option at a zero-based position, or nil when there is none.
  toption *OptionAt(int32_t position) const;
  // Appends an option under its own name; gives its position.
  int32_t AddOption(std::unique_ptr<toption> option);
  // Zero-based position of the option that `name` finds by the lookup method,
  // or else as a synonym; -1 when there is none.
  int32_t FindPosition(std::string_view name) const;
  toption *FindOptionOrSynonym(std::string_view name) const { return OptionAt(FindPosition(name)); }
  // The option of a client's number (from 1), or nil.
  toption *OptionByNumber(int32_t nr) const {
    return nr >= 1 && nr <= Options.Count() ? OptionAt(nr - 1) : nullptr;
  }
  // Zero-based position of the first option that `name` matches by the lookup
  // method alone (name_lookup.cpp), or -1.
  int32_t LookUpPosition(std::string_view name) const;
  // A name as shown to people: each "_" is a blank under the Minos lookup.
  ShortStr DisplayName(std::string_view name) const;
  ShortStr DisplayName(const toption &option) const { return DisplayName(option.Name.view()); }
  // The map store of a kind, or nil.
  tvarequmaplist *MapStore(int32_t kind) const;

  // ---- Fields
  HeapStr DefinitionFile;
  txstringlistobj<toption> Options;
  txstringlist<int32_t> Synonyms;  // companion: zero-based position in Options
  txstringlistobj<tgroupobj> Groups;
  tmessagequeue Messages;
  tminiparser *Parser = nullptr;  // the scanner of the read in progress, not owned
  bool EolOnly = true;
  ShortStr CurrentName;
  bool Echo = false;
  bool NoBounds = false;
  tdotobjlist DotOptions;
  HeapStr IndicatorName;
  std::unique_ptr<tvarequmaplist> Indicators;
  int32_t IndicatorErrors = 0;
  HeapStr DefinedVarName;
  std::unique_ptr<tvarequmaplist> DefinedVars;
  int32_t DefinedVarErrors = 0;
  int32_t NestedReads = 0;
  bool RecentEnabled = true;
  int32_t DotOptionErrors = 0;
  LookupMethod LookupCode = LookupMethod::kNormal;
  CharSet EolCommChars;
  ShortStr Separator{"="};
  ShortStr FStringQuote;

 private:
  // The candidates of an abbreviated name, so that Path and Minos lookups
  // don't walk every option; it catches up with Options as they grow.
  mutable AbbreviationIndex abbreviations_;
};

}  // namespace optkw
