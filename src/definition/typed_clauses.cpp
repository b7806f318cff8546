// The clauses of the six option types that carry a value: default, bounds, HC,
// group, help, and for enumerated options the value lines below the statement.
// Every faulty field is reported, and the option is made with what the fields
// hold all the same.
#include <memory>
#include <string_view>

#include "definition/statement_context.h"

namespace optkw {
namespace {

// Further help lines: every line that begins with a blank.
Continuation ReadHelpLines(StatementContext &ctx, toption &option) {
  while (ctx.parser.NextLine()) {
    if (ctx.parser.FCh != ' ') return Continuation::kSameLine;
    option.AddMoreHelp(ctx.parser.ReadRestOfLine().view());
  }
  return Continuation::kEnd;
}

template <class Option>
Option &Add(StatementContext &ctx, std::unique_ptr<Option> option) {
  Option &added = *option;
  added.SubType = ctx.modifier;
  ctx.db.AddOption(std::move(option));
  return added;
}

}  // namespace

// Integers and doubles: default, low, high, HC, group, help. Only the default
// is checked against the bounds.
template <class Option, class T>
Continuation ReadBoundedClause(StatementContext &ctx, BoundedFields<T> &v,
                               std::string_view hc_fault) {
  ClauseFields &f = ctx.fields;
  ctx.ReadNumber(v.def, "Bad default value");
  ctx.ReadNumber(v.low, "Bad low value");
  ctx.ReadNumber(v.high, "Bad high value");
  ctx.ReadHcAndGroup(hc_fault);
  const ShortStr help = ctx.parser.ReadRestOfLine();
  ctx.Check(v.low <= v.def && v.def <= v.high, "Default not in range");
  auto &option = Add(ctx, std::make_unique<Option>(ctx.name.view(), &ctx.db, f.usermap, f.hc,
                                                   f.group, help.view(), v.def, v.low, v.high));
  return ReadHelpLines(ctx, option);
}

Continuation ReadIntegerClause(StatementContext &ctx) {
  return ReadBoundedClause<tintoption>(ctx, ctx.fields.integer, "Bad HC value");
}

Continuation ReadDoubleClause(StatementContext &ctx) {
  return ReadBoundedClause<tdbloption>(ctx, ctx.fields.real, "Bad HC");
}

Continuation ReadStringClause(StatementContext &ctx) {
  // An absent default is empty; an unterminated quote keeps what was read.
  ShortStr def;
  ctx.parser.ReadToken(def);
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  Add(ctx,
      std::make_unique<tstringoption>(ctx.name.view(), &ctx.db, ctx.fields.usermap, ctx.fields.hc,
                                      ctx.fields.group, help.view(), def.view()));
  return Continuation::kNextLine;
}

Continuation ReadBooleanClause(StatementContext &ctx) {
  ClauseFields &f = ctx.fields;
  ctx.ReadNumber(f.integer.def, "Bad default value");
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  auto &option =
      Add(ctx, std::make_unique<tbooleanoption>(ctx.name.view(), &ctx.db, f.usermap, f.hc, f.group,
                                                help.view(), f.integer.def));
  return ReadHelpLines(ctx, option);
}

Continuation ReadEnumStrClause(StatementContext &ctx) {
  ShortStr def;
  ctx.Check(ctx.parser.ReadToken(def), "Bad default string");
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  auto &option = Add(ctx, std::make_unique<tenumstroption>(
                              ctx.name.view(), &ctx.db, ctx.fields.usermap, ctx.fields.hc,
                              ctx.fields.group, help.view(), def.view()));
  // Value lines: " value HC help". Every line with a leading blank is a value.
  int32_t value_hc = 0;
  while (ctx.parser.NextLine() && ctx.parser.FCh == ' ') {
    ShortStr value;
    ctx.parser.ReadToken(value);
    if (value.empty()) break;
    ctx.ReadNumber(value_hc, "Bad HC");
    auto item = std::make_unique<toptionx>();
    item->HC = value_hc;
    item->HelpText = ctx.parser.ReadRestOfLine().view();
    option.EnumList.AddObject(value.view(), std::move(item));
  }
  ctx.Check(option.EnumList.IndexOf(def.view()) >= 0, "Default is undefined");
  return Continuation::kSameLine;
}

Continuation ReadEnumIntClause(StatementContext &ctx) {
  ClauseFields &f = ctx.fields;
  ctx.ReadNumber(f.integer.def, "Bad default value");
  ctx.ReadHcAndGroup("Bad HC");
  const ShortStr help = ctx.parser.ReadRestOfLine();
  auto option = std::make_unique<tenumintoption>(ctx.name.view(), &ctx.db, f.usermap, f.hc, f.group,
                                                 help.view(), f.integer.def);
  int32_t value = 0;
  int32_t value_hc = 0;
  while (ctx.parser.NextLine() && ctx.parser.FCh == ' ') {
    ctx.ReadNumber(value, "Bad integer enum");
    ctx.ReadNumber(value_hc, "Bad HC");
    auto item = std::make_unique<tlistoptionx>();
    item->HC = value_hc;
    item->HelpText = ctx.parser.ReadRestOfLine().view();
    item->Value = value;
    option->EnumList.Add(std::move(item));
  }
  bool listed = false;
  for (const auto &item : option->EnumList)
    listed = listed || item->Value == f.integer.def;
  ctx.Check(listed, "Default is undefined");
  Add(ctx, std::move(option));
  return Continuation::kSameLine;
}

}  // namespace optkw
