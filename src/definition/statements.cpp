// The statements of a definition text that make no valued option: lists,
// macros, immediates, synonyms, groups, deprecation blocks, the map keywords and
// the settings of the handle. A name that such a statement refers to has to be
// defined above it.
#include <array>
#include <memory>
#include <string_view>

#include "database/operations.h"
#include "definition/statement_context.h"
#include "scanning/text_ops.h"

namespace optkw {
namespace {

// Characters that can't start an end-of-line comment: controls, the blank,
// quotes, signs, the dot, digits and letters. The first of them ends the list.
CharSet RejectEolChars() {
  CharSet set{' ', '"', '\'', '+', '-', '.'};
  set.AddRange(0, 31);
  set.AddRange('0', '9');
  set.AddRange('A', 'Z');
  set.AddRange('a', 'z');
  return set;
}

// Removes a pair of double quotes around a text.
ShortStr Unquoted(const ShortStr &text) {
  if (text.size() >= 2 && text[0] == '"' && text.back() == '"') {
    return text.view().substr(1, static_cast<size_t>(text.size() - 2));
  }
  return text;
}

}  // namespace

Continuation ReadMultiList(StatementContext &ctx) {
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  auto option = std::make_unique<tmultilistoption>(ctx.name.view(), &ctx.db, ctx.fields.usermap,
                                                   ctx.fields.hc, ctx.fields.group, help.view());
  txlist<int32_t> &members = option->MemberList;
  ctx.db.AddOption(std::move(option));
  // Member lines: any number of option names on each line with a leading blank.
  while (ctx.parser.NextLine()) {
    if (ctx.parser.FCh != ' ') return Continuation::kSameLine;
    ShortStr word;
    while (ctx.parser.ReadToken(word)) {
      if (word.empty() && ctx.parser.FCh == ',') {
        ctx.parser.NextCh();  // a comma between names separates them
        continue;
      }
      const int32_t position = ctx.db.LookUpPosition(word.view());
      ctx.Check(position >= 0, ShortStr("MultiList option ") + Quoted(word) + " is undefined");
      ctx.Check(members.IndexOf(position) < 0, "Duplicate option used");
      members.Add(position);
    }
  }
  return Continuation::kNextLine;
}

Continuation ReadStrList(StatementContext &ctx) {
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  ctx.db.AddOption(std::make_unique<tstrlistoption>(ctx.name.view(), &ctx.db, ctx.fields.usermap,
                                                    ctx.fields.hc, ctx.fields.group, help.view()));
  return Continuation::kNextLine;
}

Continuation ReadMacro(StatementContext &ctx) {
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  auto macro = std::make_unique<tmacrooption>(ctx.name.view(), &ctx.db, ctx.fields.hc,
                                              ctx.fields.group, help.view());
  // One option name on each line with a leading blank; the macro joins Options
  // only afterwards, so it can't name itself.
  ShortStr word;
  while (ctx.parser.NextLine() && ctx.parser.FCh == ' ' && ctx.parser.ReadToken(word)) {
    const int32_t position = ctx.db.Options.IndexOf(word.view());
    if (ctx.Check(position >= 0,
                  ShortStr("Unknown option ") + Quoted(word) + " for macro " + Quoted(ctx.name))) {
      macro->MacroList.Add(ctx.db.Options.GetObject(position));
    }
  }
  ctx.db.AddOption(std::move(macro));
  return Continuation::kSameLine;
}

Continuation ReadImmediate(StatementContext &ctx) {
  ShortStr kind_word;
  ctx.Check(ctx.parser.ReadToken(kind_word), "immediate type expected");
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  static constexpr std::array<std::string_view, 5> kKinds = {"EolFlag", "ReadFile", "Message",
                                                             "NoBounds", "Help"};
  for (size_t k = 0; k < kKinds.size(); ++k) {
    if (SameText(kind_word.view(), kKinds[k])) {
      ctx.db.AddOption(std::make_unique<timmediateoption>(
          ctx.name.view(), &ctx.db, -1, ctx.fields.hc, ctx.fields.group, help.view(),
          static_cast<ImmediateAction>(k)));
      return Continuation::kNextLine;
    }
  }
  ctx.Check(false, "Unknown immediate option");
  return Continuation::kNextLine;
}

Continuation ReadSynonym(StatementContext &ctx) {
  ShortStr target;
  ctx.parser.ReadToken(target);
  ctx.Check(ctx.db.Synonyms.IndexOf(ctx.name.view()) < 0, "Duplicate synonym");
  const int32_t position = ctx.db.LookUpPosition(target.view());
  ctx.Check(position >= 0, "Unknown option for synonym");
  ctx.db.Synonyms.AddObject(ctx.name.view(), position);
  return Continuation::kNextLine;
}

Continuation ReadGroup(StatementContext &ctx) {
  ClauseFields &f = ctx.fields;
  ctx.Check(ctx.db.Groups.IndexOf(ctx.name.view()) < 0, "Duplicate group");
  ctx.ReadNumber(f.group_number, "Bad group number");
  ctx.ReadNumber(f.hc, "Bad HC");
  ctx.Check(optGetGroupGrpNr(ctx.db, f.group_number) < 0, "Group number not unique");
  auto group = std::make_unique<tgroupobj>();
  group->HC = f.hc;
  group->HelpText = ctx.parser.ReadRestOfLine().view();
  group->GroupNr = f.group_number;
  ctx.db.Groups.AddObject(ctx.name.view(), std::move(group));
  return Continuation::kNextLine;
}

Continuation ReadDeprecation(StatementContext &ctx, uint8_t option_flag) {
  ctx.parser.ReadRestOfLine();
  // Lines with a leading blank: an option or synonym name, then the text shown.
  while (ctx.parser.NextLine()) {
    if (ctx.parser.FCh != ' ') return Continuation::kSameLine;
    ShortStr word;
    if (!ctx.parser.ReadToken(word)) break;
    if (toption *option = ctx.db.OptionAt(ctx.db.Options.IndexOf(word.view()))) {
      option->DeprecatedText = ctx.parser.ReadRestOfLine().view();
      option->DeprecFlags |= option_flag;
      continue;
    }
    const int32_t synonym = ctx.db.Synonyms.IndexOf(word.view());
    if (!ctx.Check(synonym >= 0, ShortStr("Deprecated option ") + Quoted(word) + " is undefined")) {
      continue;
    }
    if (toption *option = ctx.db.OptionAt(ctx.db.Synonyms.GetObject(synonym))) {
      // The synonym's bit stands right above the option's.
      option->SynonymText = ctx.parser.ReadRestOfLine().view();
      option->DeprecFlags |= static_cast<uint8_t>(option_flag << 1);
    }
  }
  return Continuation::kNextLine;
}

Continuation ReadMapKeyword(StatementContext &ctx, uint8_t kind) {
  ctx.parser.ReadRestOfLine();
  const bool indicator = kind == optmapIndicator;
  HeapStr &keyword = indicator ? ctx.db.IndicatorName : ctx.db.DefinedVarName;
  ctx.Check(keyword.IsNil(), indicator ? "Indicator redefined" : "Definedvar redefined");
  ctx.Check(ctx.name.size() <= 63, ShortStr(indicator ? "Indicator " : "Definedvar ") +
                                       Quoted(ctx.name) + " not a good identifier");
  keyword = ctx.name.view();
  (indicator ? ctx.db.Indicators : ctx.db.DefinedVars) = std::make_unique<tvarequmaplist>(kind);
  return Continuation::kNextLine;
}

Continuation ReadLookup(StatementContext &ctx) {
  ctx.parser.ReadRestOfLine();
  static constexpr std::array<std::string_view, 3> kMethods = {"Normal", "Path", "Minos"};
  for (size_t k = 0; k < kMethods.size(); ++k) {
    if (SameText(ctx.name.view(), kMethods[k])) {
      ctx.db.LookupCode = static_cast<LookupMethod>(k);
      return Continuation::kNextLine;
    }
  }
  ctx.Check(false, ShortStr("Unknown lookup code ") + Quoted(ctx.name));
  return Continuation::kNextLine;
}

Continuation ReadEolComm(StatementContext &ctx) {
  static const CharSet kReject = RejectEolChars();
  const ShortStr text = ctx.parser.ReadRestOfLine();
  ctx.db.EolCommChars.Clear();
  for (char c : text.view()) {
    if (kReject.Has(c)) break;
    ctx.db.EolCommChars.Add(c);
  }
  return Continuation::kNextLine;
}

Continuation ReadSeparator(StatementContext &ctx) {
  const ShortStr text = ctx.parser.ReadRestOfLine();
  // A single double quote counts as a pair around nothing.
  ctx.db.Separator = text == std::string_view("\"") ? ShortStr() : Unquoted(text);
  return Continuation::kNextLine;
}

Continuation ReadStringQuote(StatementContext &ctx) {
  ctx.db.FStringQuote = Unquoted(ctx.parser.ReadRestOfLine());
  return Continuation::kNextLine;
}

}  // namespace optkw
