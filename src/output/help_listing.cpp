#include "output/help_listing.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "containers/string_lists.h"
#include "database/operations.h"
#include "scanning/text_ops.h"
#include "scanning/value_text.h"

namespace optkw {
namespace {

constexpr int32_t kLabelWidth = 22;
constexpr int32_t kIndentWidth = 24;

constexpr int32_t kSummary = 1;
constexpr int32_t kAlphabetical = 2;
constexpr int32_t kRawList = 4;
constexpr int32_t kMarkDeprecated = 8;

// Options and synonyms shown in the listings; a synonym's entry has no option.
using SortedNames = tmysortstringlist<toption *>;

// Assembles help lines in one buffer and hands each finished line to the queue.
class HelpWriter {
 public:
  explicit HelpWriter(tvlmoptions &db) : db_(db) {}

  void Flush() {
    if (line_.empty()) return;
    db_.AddMessage(optMsgHelp, line_.view());
    line_.Clear();
  }
  // An empty text ends the line instead.
  void Write(std::string_view text) {
    if (text.empty()) {
      Flush();
    } else {
      line_ += text;
    }
  }
  void Append(std::string_view text) { line_ += text; }
  void BlankLine() { db_.AddMessage(optMsgHelp, ""); }
  int32_t LineLength() const { return line_.size(); }

 private:
  tvlmoptions &db_;
  ShortStr line_;
};

const ShortStr &Indent() {
  static const ShortStr indent = BlankText(kIndentWidth);
  return indent;
}

// The option a listing entry stands for: its own, or the synonym's target.
toption *EntryOption(const tvlmoptions &db, const SortedNames &names, int32_t k) {
  if (toption *option = names.GetObject(k)) return option;
  const int32_t synonym = db.Synonyms.IndexOf(names.Key(k));
  return synonym < 0 ? nullptr : db.OptionAt(db.Synonyms.GetObject(synonym));
}

bool Listed(const toption *option) {
  return option && option->HC > 0 && option->Group > 0;
}

SortedNames BuildSortedNames(const tvlmoptions &db) {
  SortedNames names;
  for (const auto &entry : db.Options) {
    if (Listed(entry.FObject.get())) names.AddObject(entry.FString.view(), entry.FObject.get());
  }
  for (const auto &entry : db.Synonyms) {
    if (Listed(db.OptionAt(entry.FObject))) names.AddObject(entry.FString.view(), nullptr);
  }
  names.SortN(names.Count());
  return names;
}

void WriteSummaryLabel(HelpWriter &out, const tvlmoptions &db, const SortedNames &names, int32_t k,
                       const toption &option, int32_t mode) {
  ShortStr label = db.DisplayName(names.Key(k));
  if (names.GetObject(k) == nullptr)
    label += ShortStr(" (Synonym for ") + db.DisplayName(option) + ")";
  if ((mode & kMarkDeprecated) && option.DeprecFlags != 0) {
    if (option.DeprecFlags & (kOptionDeprecated | kSynonymDeprecated)) {
      label += " (Deprecated)";
    } else if (option.DeprecFlags & (kOptionObsolete | kSynonymObsolete)) {
      label += " (Obsolete)";
    }
  }
  out.Write(label.view());
  // A label longer than the column stands on a line of its own.
  if (label.size() > kLabelWidth) {
    out.Flush();
    out.Append(BlankText(kLabelWidth).view());
  } else {
    out.Append(BlankText(kLabelWidth - label.size()).view());
  }
  out.Append(": ");
}

void WriteSummary(HelpWriter &out, const tvlmoptions &db, const SortedNames &names, int32_t mode) {
  out.Flush();
  out.BlankLine();
  // The title comes out with the first group; without one it waits in the buffer.
  out.Write("Options summary by group");
  for (const auto &group_entry : db.Groups) {
    const tgroupobj &group = *group_entry.FObject;
    if (group.HC <= 0) continue;
    out.Flush();
    out.BlankLine();
    out.Write(group.HelpText.view());
    out.Flush();
    for (int32_t k = 0; k < names.Count(); ++k) {
      const toption *option = EntryOption(db, names, k);
      if (!option || option->Group != group.GroupNr) continue;
      WriteSummaryLabel(out, db, names, k, *option, mode);
      out.Write(option->HelpText.view());
      out.Flush();
    }
  }
}

void WriteFurtherLine(HelpWriter &out, std::string_view text) {
  out.Flush();
  out.Write((Indent() + text).view());
}

void WriteMoreHelp(HelpWriter &out, const toption &option) {
  if (!option.MoreHelp) return;
  for (const HeapStr &line : *option.MoreHelp)
    WriteFurtherLine(out, line.view());
}

void WriteEnumLines(HelpWriter &out, const toption &option) {
  const int32_t count = option.EnumCount();
  if (option.OptType == optTypeEnumStr) {
    int32_t longest = 0;
    for (int32_t k = 0; k < count; ++k)
      longest = std::max(longest, option.GetEnumItem(k).text.size());
    for (int32_t k = 0; k < count; ++k) {
      const EnumItem item = option.GetEnumItem(k);
      WriteFurtherLine(out, (ShortStr("   ") + PadRightText(item.text.view(), longest + 1) + " " +
                             item.help->HelpText.view())
                                .view());
    }
    return;
  }
  int32_t largest = 0;
  for (int32_t k = 0; k < count; ++k)
    largest = std::max(largest, option.GetEnumItem(k).number);
  const int32_t width = largest >= 100 ? 3 : 2;
  for (int32_t k = 0; k < count; ++k) {
    const EnumItem item = option.GetEnumItem(k);
    WriteFurtherLine(out, (ShortStr("    ") + IntegerToWidthText(item.number, width) + " " +
                           item.help->HelpText.view())
                              .view());
  }
}

// The entry of one option: name and help, then type, range and default, then
// further help lines or the enumerated values.
void WriteDetail(HelpWriter &out, const tvlmoptions &db, const toption &option) {
  out.Write(db.DisplayName(option).view());
  out.Append(": ");
  out.Write(option.HelpText.view());
  out.Flush();
  out.Write(Indent().view());
  out.Write(TypeKeyword(option.OptType).view());
  out.Write(", ");
  int32_t ilo, ihi, idef;
  double dlo, dhi, ddef;
  ShortStr text;
  switch (option.OptType) {
    case optTypeInteger:
      option.GetIntBounds(ilo, ihi, idef);
      out.Write((ShortStr(" range: ") + IntegerToKeywordText(ilo) + " to " +
                 IntegerToKeywordText(ihi) + " default: " + IntegerToKeywordText(idef))
                    .view());
      WriteMoreHelp(out, option);
      break;
    case optTypeDouble:
      option.GetDoubleBounds(dlo, dhi, ddef);
      out.Write((ShortStr(" range: ") + DoubleToKeywordText(dlo) + " to " +
                 DoubleToKeywordText(dhi) + " default: " + DoubleToKeywordText(ddef))
                    .view());
      WriteMoreHelp(out, option);
      break;
    case optTypeString:
      option.GetTextDefault(text);
      out.Write((ShortStr(" default: \"") + text + "\"").view());
      break;
    case optTypeBoolean:
      option.GetIntDefault(idef);
      out.Write((ShortStr(" default: ") + IntegerToText(idef)).view());
      WriteMoreHelp(out, option);
      break;
    case optTypeEnumStr:
      option.GetTextDefault(text);
      out.Write((ShortStr(" default: \"") + text + "\"").view());
      WriteEnumLines(out, option);
      break;
    case optTypeEnumInt:
      option.GetIntDefault(idef);
      out.Write((ShortStr(" default: ") + IntegerToKeywordText(idef)).view());
      WriteEnumLines(out, option);
      break;
    default:
      break;
  }
  out.Flush();
}

void WriteAlphabetical(HelpWriter &out, const tvlmoptions &db, const SortedNames &names) {
  out.Flush();
  out.BlankLine();
  out.Write("Options in alphabetical order");
  out.Flush();
  out.BlankLine();
  for (int32_t k = 0; k < names.Count(); ++k) {
    if (const toption *option = names.GetObject(k)) WriteDetail(out, db, *option);
  }
}

void WriteRawList(const SortedNames &names) {
  std::fputc('\n', stdout);
  for (int32_t k = 0; k < names.Count(); ++k) {
    const std::string_view key = names.Key(k);
    std::fwrite(key.data(), 1, key.size(), stdout);
    std::fputs(names.GetObject(k) ? " \n" : " *****Nil = Syn\n", stdout);
  }
  std::fflush(stdout);
}

}  // namespace

void optShowHelp(tvlmoptions &db, const ShortStr &request) {
  HelpWriter out(db);
  const ShortStr wanted = ReplaceCharsInSet(request.view(), CharSet{' '}, '_');
  int32_t position = 0;
  int32_t mode = ValInteger(wanted.view(), position);
  if (position != 0) {
    db.CurrentName = wanted;
    if (const toption *option = db.FindOptionOrSynonym(wanted.view())) {
      // An abbreviation or a synonym says what it stands for.
      const ShortStr name = db.DisplayName(*option);
      if (!SameText(request.view(), name.view())) {
        out.Write((request + " is a synonym for " + name).view());
        out.Flush();
      }
      WriteDetail(out, db, *option);
      return;
    }
    mode = kSummary;
  }
  if (mode <= 0) mode = kSummary | kAlphabetical;

  const SortedNames names = BuildSortedNames(db);
  if (mode & kSummary) WriteSummary(out, db, names, mode);
  if (mode & kAlphabetical) WriteAlphabetical(out, db, names);
  if (mode & kRawList) WriteRawList(names);
}

}  // namespace optkw
