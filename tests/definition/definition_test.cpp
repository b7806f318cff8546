// The definition reader: entry operations and their results, the statements
// with their faults, the typed clauses, and lookup by name.
#include <gtest/gtest.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "database/operations.h"
#include "definition/definition_reader.h"
#include "support/test_support.h"

namespace optkw::test {
namespace {

using Texts = std::vector<std::string>;

std::string DefError(size_t line, std::string_view text) {
  return "*** Definition Error line " + std::to_string(line) + ": " + std::string(text);
}

// The texts of the queue, each marked unless it is a definition error.
Texts DefinitionErrors(tvlmoptions &db) {
  Texts texts;
  for (const Message &m : Messages(db))
    texts.push_back(m.type == optMsgDefineError ? m.text : "(of another type) " + m.text);
  return texts;
}

// The first option of that name as its class.
template <class T = toption>
T &Named(tvlmoptions &db, std::string_view name) {
  auto *typed = dynamic_cast<T *>(db.OptionAt(db.Options.IndexOf(name)));
  if (typed == nullptr) throw std::runtime_error("no such option: " + std::string(name));
  return *typed;
}

std::vector<int32_t> Members(tvlmoptions &db, std::string_view multilist) {
  const auto &list = Named<tmultilistoption>(db, multilist).MemberList;
  return {list.begin(), list.end()};
}

struct Line {
  std::string text;
  std::string name = "";  // the option that the faults name, if any
  Texts faults = {};
};

// Reads the lines and one more statement behind them, which has to be read as
// well, and checks that each line gives the faults it lists.
void ExpectFaults(tvlmoptions &db, const std::vector<Line> &lines) {
  std::string text;
  Texts expected;
  for (size_t i = 0; i < lines.size(); ++i) {
    text += lines[i].text + "\n";
    const std::string suffix = lines[i].name.empty() ? "" : " for option \"" + lines[i].name + "\"";
    for (const std::string &fault : lines[i].faults)
      expected.push_back(DefError(i + 1, fault + suffix));
  }
  EXPECT_EQ(ReadDefinitionText(db, text + "last boolean 99 0 0 0 x\n"), expected.empty() ? 0 : -1);
  EXPECT_EQ(DefinitionErrors(db), expected);
  EXPECT_GE(db.Options.IndexOf("last"), 0);
}

TEST(DefinitionEntry, ResultCodesAndTheMissingFile) {
  Handle h;
  EXPECT_EQ(optReadDefinition(h.db, ShortStr(Fixture("definition/empty.def"))), 0);
  // A C string is one line, and a read adds to what earlier reads defined.
  EXPECT_EQ(optReadDefinitionFromPChar(h.db, "a integer 1 5 0 9 0 0 x\nb boolean 2 0 0 0 y"), 0);
  ASSERT_EQ(optReadDefinitionFromPChar(h.db, "a integer 1 5 0 9 0 0 x"), -1);
  EXPECT_EQ(optCount(h.db), 5);  // each read adds the built-in Help: Help, Help, a, Help, a
  EXPECT_EQ(DefinitionErrors(h.db)[0], "*** Definition Error Duplicate option for option \"a\"");
  ShortStr file;
  optDefinitionFile(h.db, file);
  EXPECT_EQ(file.view(), "empty.def");

  Handle missing;
  const std::string name = Fixture("definition/no_such_dir/missing.def");
  EXPECT_EQ(optReadDefinition(missing.db, ShortStr(name)), ENOENT);
  EXPECT_EQ(DefinitionErrors(missing.db),
            (Texts{"*** Definition Error Cannot open option definitions file \"" + name + "\"",
                   "*** Definition Error Error code = 2; No such file or directory"}));
  EXPECT_EQ(optCount(missing.db), 0);
  optDefinitionFile(missing.db, file);
  EXPECT_EQ(file.view(), "missing.def");

  // Any message in the queue gives -1: echo lines, or one from before the read.
  Handle echoing;
  optEchoSet(echoing.db, 1);
  EXPECT_EQ(optReadDefinition(echoing.db, ShortStr(Fixture("definition/limits_example.def"))), -1);
  Handle earlier;
  optAddMessage(earlier.db, "left from before");
  EXPECT_EQ(optReadDefinition(earlier.db, ShortStr(Fixture("definition/empty.def"))), -1);
}

TEST(DefinitionExample, EveryLineMakesItsObject) {
  Handle h;
  ASSERT_EQ(optReadDefinition(h.db, ShortStr(Fixture("definition/limits_example.def"))), 0);
  const std::vector<std::vector<int>> expected = {
      // type, subtype, number, HC, group
      {optTypeImmediate, optsubOptional, 0, 0, 0},   // Help
      {optTypeInteger, optsubRequired, 1, 11, 2},    // maxiter
      {optTypeDouble, optsubOptional, 2, 12, 2},     // tol
      {optTypeEnumStr, optsubRequired, 3, 13, 2},    // mode
      {optTypeMultiList, optsubRequired, 5, 22, 2},  // ml
      {optTypeImmediate, optsubRequired, -1, 30, 1}  // rf
  };
  std::vector<std::vector<int>> fields;
  for (int32_t i = 0; i < optCount(h.db); ++i) {
    const toption &o = *h.db.OptionAt(i);
    fields.push_back({o.OptType, o.SubType, o.RefNr, o.HC, o.Group});
  }
  EXPECT_EQ(fields, expected);
  EXPECT_EQ(Named<timmediateoption>(h.db, "Help").ImmediateKind, ImmediateAction::kHelp);
  EXPECT_EQ(Named<timmediateoption>(h.db, "rf").ImmediateKind, ImmediateAction::kReadFile);
  auto &tol = Named<tdbloption>(h.db, "tol");
  EXPECT_EQ(tol.DefValue, 1.0e-6);
  EXPECT_EQ(tol.HelpText.view(), "Tolerance");
  EXPECT_EQ(tol.DeprecatedText.view(), "Use maxiter");
  EXPECT_EQ(tol.DeprecFlags, kOptionDeprecated);
  auto &mode = Named<tenumstroption>(h.db, "mode");
  EXPECT_EQ(mode.DefValue.view(), "fast");
  EXPECT_EQ(mode.EnumList.IndexOf("full"), 1);
  EXPECT_EQ(Members(h.db, "ml"), (std::vector<int32_t>{1, 2}));
  ASSERT_EQ((std::pair{h.db.Groups.Count(), h.db.Synonyms.Count()}), (std::pair{1, 1}));
  EXPECT_EQ(h.db.Groups.GetObject(0)->GroupNr, 2);
  EXPECT_EQ(h.db.Synonyms.GetObject(0), 1);  // it
  EXPECT_TRUE(h.db.EolCommChars.Has('!'));
  EXPECT_EQ(h.db.LookupCode, LookupMethod::kPath);
}

TEST(StatementFaults, ReportedOnTheirLineAndReadingGoesOn) {
  const std::string N(64, 'n');  // one character too many for a name
  const std::vector<Line> lines = {
      {"abc", "abc", {"Bad usermap value", "Unknown option type \"\""}},
      {"a integer 1 5 0 9 0 0 x"},
      {"A integer 2 6 0 9 0 0 y", "A", {"Duplicate option"}},
      {"s synonym nothing", "", {"Unknown option for synonym \"s\""}},
      {"S synonym a", "", {"Duplicate synonym \"S\""}},
      {"s boolean 3 0 0 0 x", "s", {"Duplicate option"}},
      {"b INTEGER.tWo 4 5 0 9 0 0 x"},
      {"c integer.ZZ 5 5 0 9 0 0 x", "c", {"Unknown type modifier = ZZ"}},
      {"." + N.substr(1) + " double 6 0 0 1 0 0 x"},
      {"." + N + " double 7 0 0 1 0 0 y", N, {"Identifier too long"}},
      {"ml multilist 8 x y Both", "ml", {"Bad HC", "Bad Group value"}},
      {" a nothing", "ml", {"MultiList option \"nothing\" is undefined"}},
      {" a", "ml", {"Duplicate option used"}},
      {"l strlist.NV 9 x y z", "l", {"Type modifier not allowed", "Bad HC", "Bad Group value"}},
      {"m macro x y help", "m", {"Bad HC", "Bad Group value"}},
      {" a"},
      {"im immediate",
       "im",
       {"immediate type expected", "Bad HC", "Bad Group value", "Unknown immediate option"}},
      {"g group 1 10 x"},
      {"g group 2 20 y", "g", {"Duplicate group"}},
      {"h group 1 30 z", "h", {"Group number not unique"}},
      {"k group x y w", "k", {"Bad group number", "Bad HC"}},
      {"old deprecated"},
      {" nothing Gone", "old", {"Deprecated option \"nothing\" is undefined"}},
      {N + " indicator", N, {"Indicator \"" + N + "\" not a good identifier"}},
      {"ind indicator", "ind", {"Indicator redefined"}},
      {N + " definedvar", N, {"Definedvar \"" + N + "\" not a good identifier"}},
      {"dv definedvar", "dv", {"Definedvar redefined"}},
      {"Fuzzy lookup", "Fuzzy", {"Unknown lookup code \"Fuzzy\""}},
      // The duplicate test and all references follow the lookup method in force.
      {"Path lookup"},
      {"iterations_limit integer 10 5 0 9 0 0 x"},
      {"it synonym ite_lim"},
      {"ml2 multilist 11 0 0 members"},
      {" iter_limit"},
      {"mp macro 0 0 names are matched whole"},
      {" ite_lim", "mp", {"Unknown option \"ite_lim\" for macro \"mp\""}},
      {"iterx_limit integer 12 5 0 9 0 0 x", "iterx_limit", {"Duplicate option"}},
      {"Normal lookup"},
      {"t synonym ite_lim", "", {"Unknown option for synonym \"t\""}},
  };
  Handle h;
  ExpectFaults(h.db, lines);
  // The faulty statements made their objects all the same, the immediate ones apart.
  EXPECT_EQ(optCount(h.db), 16);
  EXPECT_EQ(Named(h.db, "c").SubType, optsub2Values);  // kept from the statement before
  EXPECT_EQ(Named<tstrlistoption>(h.db, "l").SubType, optsubRequired);
  EXPECT_EQ(Members(h.db, "ml"), (std::vector<int32_t>{1, -1, 1}));
  EXPECT_EQ(Members(h.db, "ml2"), std::vector<int32_t>{11});
  EXPECT_EQ(Named<tmacrooption>(h.db, "m").MacroList.Last(), h.db.OptionAt(1));
  ASSERT_EQ(h.db.Synonyms.Count(), 4);  // s, S, it, t
  EXPECT_EQ(h.db.Synonyms.GetObject(0), -1);
  EXPECT_EQ(h.db.Synonyms.GetObject(2), 11);
  EXPECT_EQ(optGroupCount(h.db), 4);
  EXPECT_EQ(h.db.IndicatorName.view(), "ind");
}

TEST(StatementFaults, OnlyRemainingTextIgnoredEndsTheRead) {
  // A blank where a statement should start: on line 1, or behind a string (it has no help lines).
  for (const auto &[fixture, line] :
       {std::pair{"leading_blank.def", 1}, std::pair{"string_help_line.def", 5}}) {
    Handle h;
    EXPECT_EQ(optReadDefinition(h.db, ShortStr(Fixture("definition/" + std::string(fixture)))), -1);
    EXPECT_EQ(DefinitionErrors(h.db), Texts{DefError(line, "Remaining text ignored \"\"")});
    EXPECT_EQ(optCount(h.db), line == 1 ? 1 : 2);
  }
  // "#" starts no comment; statements that look ahead find the end of a C string as a line end.
  for (const char *text : {"# x", "e enumstr 1 a 0 0 x", "e enumint 1 2 0 0 x", "m macro 0 0 x"}) {
    Handle h;
    ASSERT_EQ(optReadDefinitionFromPChar(h.db, text), -1) << text;
    EXPECT_EQ(DefinitionErrors(h.db).back(), "*** Definition Error Remaining text ignored \"\"");
  }
}

TEST(Statements, EachHandsOverToTheNextLine) {
  Handle h;
  ASSERT_EQ(ReadDefinitionText(h.db,
                               "a integer 1 5 0 9 0 0 x\n"
                               " more help of a\n"
                               "\n"
                               "m macro 0 0 one name per line\n"
                               " a ignored names\n"
                               "s synonym a\n"
                               "old obsolete anything here is ignored\n"
                               " a Gone\n"
                               " s Renamed\n"
                               "b boolean 2 0 0 0 y\n"
                               "ml multilist 4 0 0 members\n"
                               " a b\n"
                               "  m\n"
                               "y eolcomm $\n"
                               "x eolcomm #\xC8 !\n"
                               "sep separator \"\n"
                               "quo stringquote \"\n"),
            0);
  EXPECT_EQ(optCount(h.db), 5);
  const toption &a = Named(h.db, "a");
  EXPECT_EQ(a.MoreHelp ? a.MoreHelp->View(0) : "", "more help of a");
  EXPECT_EQ(Named<tmacrooption>(h.db, "m").MacroList.Count(), 1);
  EXPECT_EQ(a.DeprecFlags, kOptionObsolete | kSynonymObsolete);
  EXPECT_EQ(a.SynonymText.view(), "Renamed");
  EXPECT_EQ(Members(h.db, "ml"), (std::vector<int32_t>{1, 3, 2}));
  // The comment characters end at the first blank, quote, digit or letter.
  EXPECT_TRUE(h.db.EolCommChars.Has('#') && h.db.EolCommChars.Has('\xC8'));
  EXPECT_FALSE(h.db.EolCommChars.Has('$') || h.db.EolCommChars.Has('!'));
  EXPECT_EQ(h.db.Separator.view(), "");  // a lone quote is taken off here only
  EXPECT_EQ(h.db.FStringQuote.view(), "\"");
}

TEST(TypedClauses, FieldFaultsAndWhatFailedFieldsLeave) {
  // An enumerated default is checked on the line behind the values.
  const std::vector<Line> lines = {
      {"a integer 1 5 0 9 3 4 help"},
      {"b integer 2 6 1", "b", {"Bad high value", "Bad HC value", "Bad Group value"}},
      {"c double 3 2.5 1 3 7 8 x"},
      {"d double 4 2", "d", {"Bad low value", "Bad high value", "Bad HC", "Bad Group value"}},
      {"o string 6 \"open text 0 0 help", "o", {"Bad HC", "Bad Group value"}},
      {"t boolean 7 x w v help", "t", {"Bad default value", "Bad HC", "Bad Group value"}},
      {"e enumstr 8", "e", {"Bad default string", "Bad HC", "Bad Group value"}},
      {" one x first", "e", {"Bad HC"}},
      {"p boolean 9 7 0 0 not limited to 0 and 1", "e", {"Default is undefined"}},
      {"f enumint 10 x w v help", "f", {"Bad default value", "Bad HC", "Bad Group value"}},
      {" y z one", "f", {"Bad integer enum", "Bad HC"}},  // 0 is then listed
      {"g enumint 11 3 0 0 no values"},
      {"w string 12 \"two words\" 0 0 help", "g", {"Default is undefined"}},
      {"h enumstr 13 slow 0 0 help"},
      {" fast 1 Quick"},
      {"x enumstr 14 FAST 10 2 Speed", "h", {"Default is undefined"}},
      {" fast 11 Quick pass"},
  };
  Handle h;
  ExpectFaults(h.db, lines);
  EXPECT_EQ(optCount(h.db), 15);  // every faulty option is made
  // A field without a token keeps the value of the statement before.
  auto &b = Named<tintoption>(h.db, "b");
  EXPECT_EQ((std::vector<int32_t>{b.HiValue, b.HC, b.Group}), (std::vector<int32_t>{9, 3, 4}));
  EXPECT_EQ(Named<tdbloption>(h.db, "d").LoValue, 1);
  EXPECT_EQ(Named<tstringoption>(h.db, "o").DefValue.view(), "open text 0 0 help");
  EXPECT_EQ(Named<tbooleanoption>(h.db, "p").DefValue, 7);
  EXPECT_EQ(Named<tstringoption>(h.db, "w").DefValue.view(), "two words");
}

TEST(TypedClauses, NumericDefaultsAndTheirRange) {
  struct Case {
    const char *line;
    double def;
    Texts faults;  // of option a on line 1
  };
  const Case cases[] = {
      {"a integer 1 5 1 4 0 0 x", 5, {"Default not in range"}},
      {"a integer 1 0 1 0 0 0 x", 0, {"Default not in range"}},  // low above high: once
      {"a integer 1 1e2 0 maxint 0 0 x", 100, {}},
      {"a integer 1 2.5 0 9 0 0 x", 0, {"Bad default value"}},  // 0 then lies in range
      // A failed double keeps the number in front of the token.
      {"a double 1 12abc 0 10 0 0 x", 12, {"Bad default value", "Default not in range"}},
      {"a double 1 1.5 0 1.4 0 0 x", 1.5, {"Default not in range"}},
  };
  for (const Case &c : cases) {
    SCOPED_TRACE(c.line);
    Handle h;
    ExpectFaults(h.db, {{c.line, "a", c.faults}});
    const auto *integer = dynamic_cast<const tintoption *>(&Named(h.db, "a"));
    EXPECT_EQ(integer ? integer->DefValue : Named<tdbloption>(h.db, "a").DefValue, c.def);
  }
}

TEST(LookUp, FirstMatchInDefinitionOrder) {
  struct Case {
    const char *method;
    std::vector<const char *> names;  // defined in this order, behind Help
    const char *query, *found;        // "": nothing is found
  };
  const Case cases[] = {
      {"Normal", {"iterlim"}, "ITERLIM", "iterlim"},
      {"Normal", {"iterlim"}, "iter", ""},
      {"Path", {"iterations_limit"}, "ite_lim", "iterations_limit"},
      {"Path", {"iterations_limit"}, "ite", ""},
      {"Path", {"iterations_limit_max"}, "iter_limit", ""},
      {"Path", {"itex_limit", "iterations_limit"}, "iterations_limit", "itex_limit"},
      {"Path", {"ab_cde"}, "ab_cde", ""},  // a word of one or two letters never matches
      {"Path", {"a"}, "a", ""},
      {"Minos", {"major_iterations_limit"}, "maj_iter_limi", "major_iterations_limit"},
      {"Minos", {"major_iterations_limit"}, "maj_iter_lim", ""},
      {"MINOS", {"major_iterations"}, "maj_iter", "major_iterations"},
      {"Minos", {"major_iterations"}, "maj_ite", ""},
      {"Minos", {"iterations", "iterlimit"}, "iterlimit", "iterations"},
  };
  for (const Case &c : cases) {
    Handle h;
    std::string text;
    for (const char *name : c.names)
      text += std::string(name) + " boolean 1 0 0 0 x\n";
    ASSERT_EQ(ReadDefinitionText(h.db, text + c.method + " lookup\n"), 0);
    const int32_t position = optLookUp(h.db, c.query);
    EXPECT_EQ(position < 0 ? "" : h.db.Options.Key(position), c.found) << c.method << c.query;
    EXPECT_EQ(optLookUp(h.db, ""), -1);
    h.db.LookupCode = static_cast<LookupMethod>(3);  // no method: nothing is found
    EXPECT_EQ(optLookUp(h.db, c.names[0]), -1);
  }
}

}  // namespace
}  // namespace optkw::test
