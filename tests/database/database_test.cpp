// The option database on the options of an imaginary solver: message queue,
// value assignment, resets, access by number and name, queries and lookup.
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <random>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "database/operations.h"
#include "database/parser_scope.h"
#include "parameters/reading_driver.h"
#include "support/test_support.h"

namespace optkw::test {

void PrintTo(const Message &m, std::ostream *os) {
  *os << "{\"" << m.text << "\", " << m.type << "}";
}

namespace {

// The options from itex_limit to ITERLIM serve the name lookup.
constexpr std::string_view kSolverDefinition =
    R"(maxiter integer 1 1000 0 maxint 11 2 Iteration limit
tol double 2 1e-6 0 1 12 2 Tolerance
mode enumstr 4 Fast 13 2 Mode
 fast 14 Quick pass
 Full 15 Complete pass
level enumint 5 1 16 2 Level
 0 0 Off
 1 17 Low
logfile string 6 "solver.log" 0 3 Log file
scale boolean 7 1 0 3 Scaling
bounds integer.TWO 8 5 1 10 0 7 Two bounds
ml multilist 10 0 2 Limit pair
 maxiter tol
ext strlist 11 0 2 Extra settings
pre strlist 12 0 2 Presolve settings
itex_limit integer 1 0 0 9 0 0 A
iterations_limit integer 2 0 0 9 0 0 B
major_iterations_limit integer 3 0 0 9 0 0 C
ab_cde integer 4 0 0 9 0 0 D
ITERLIM integer 5 0 0 9 0 0 E
.prior double 13 0 0 100 0 2 Priority
it synonym maxiter
il synonym iterations_limit
limits group 2 20 Limit options
output group 3 21 Output options
)";

using Texts = std::vector<std::string>;

std::ostream &operator<<(std::ostream &os, const ShortStr &text) {
  return os << text.view();
}
// The outputs of a call as one text, "|" between them, so that a whole answer
// is one comparison and an empty output stays visible.
template <class... T>
std::string Join(const T &...values) {
  std::ostringstream out;
  ((out << values << '|'), ...);
  return out.str().substr(0, out.str().size() - 1);
}

class SolverDb : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(ReadDefinitionText(db, kSolverDefinition), 0); }

  static std::string VE(const std::string &text) { return "*** Value Error " + text; }
  static std::string W(const std::string &text) { return "*** Warning " + text; }
  static Texts Refused(const std::string &text) { return {VE(text), VE("   Option ignored")}; }
  // Number of an option by name; leaves CurrentName alone.
  int32_t Nr(std::string_view name) const { return db.LookUpPosition(name) + 1; }
  toption &Opt(std::string_view name) const { return *db.OptionByNumber(Nr(name)); }
  std::string Str(std::string_view name) {
    ShortStr sval;
    optGetStrNr(db, Nr(name), sval);
    return std::string(sval.view());
  }
  // Defined|DefinedR|DefinedM
  std::string Bits(std::string_view name) const {
    return Join(Opt(name).Defined, Opt(name).DefinedR, Opt(name).DefinedM);
  }
  // errors|warnings|StatementErrors
  std::string Counts() {
    int32_t errors = -1, warnings = -1;
    optErrorCount(db, errors, warnings);
    return Join(errors, warnings, db.StatementErrors());
  }

  Handle h;
  tvlmoptions &db = h.db;
};

using MessageQueue = SolverDb;
using ValueAssignment = SolverDb;
using Resets = SolverDb;
using AccessByNumber = SolverDb;
using AccessByName = SolverDb;
using Queries = SolverDb;

TEST_F(MessageQueue, DecorationLinePrefixAndCountsByType) {
  optAddMessage(db, "no scanner");
  ParserScope scope(db, EolCharSet());
  optAddMessage(db, "at line 0");
  scope.parser().FLineNr = 12;
  for (int32_t type = optMsgInputEcho; type <= optMsgUserError; ++type)
    db.AddMessage(type, std::to_string(type));
  optSetIntNr(db, Nr("maxiter"), -2);  // each line of a message has the prefix
  EXPECT_EQ(Messages(db),
            (std::vector<Message>{
                {"*** Error no scanner", 9},
                {"*** Error at line 0", 9},
                {">> 0", 0},
                {"1", 1},
                {"*** Definition Error line 12: 2", 2},
                {"*** Value Error line 12: 3", 3},
                {"*** Warning line 12: 4", 4},
                {"*** Warning line 12: 5", 5},
                {"Reading parameter(s) from \"6\"", 6},
                {"Finished reading from \"7\"", 7},
                {"8", 8},
                {"*** Error line 12: 9", 9},
                {VE("line 12: Value brought in range for option \"maxiter\" saw \"-2\""), 3},
                {VE("line 12:    Value set to 0"), 3},
            }));
  EXPECT_EQ(Counts(), "8|2|9");  // help counts as a statement error only
  ShortStr text;
  int32_t type = -5;
  optGetMessage(db, 0, text, type);
  EXPECT_EQ(Join(text, type), "Bad message number = -1|9");
  optGetMessage(db, 15, text, type);
  EXPECT_EQ(Join(text, type), "Bad message number = 14|9");
}

TEST_F(MessageQueue, FoldingTheLimitAndTheResultOfSettersAtIt) {
  // Only a leave right behind its enter, of the very same text, cancels both.
  db.AddMessage(optMsgFileEnter, "a.opt");
  db.AddMessage(optMsgFileLeave, "A.OPT");
  db.AddMessage(optMsgFileEnter, "b.opt");
  optAddMessage(db, "said something");
  db.AddMessage(optMsgFileLeave, "b.opt");
  for (int i = 0; i < 4994; ++i)
    optAddMessage(db, "filler");
  db.AddMessage(optMsgFileEnter, "quiet.opt");  // the 5000th, folded all the same
  db.AddMessage(optMsgFileLeave, "quiet.opt");
  optAddMessage(db, "the 5000th");
  // A setter's warning turns into the limit message, an error; later errors
  // are dropped and no longer count.
  optNoBoundsSet(db, 1);
  EXPECT_EQ(optSetIntNr(db, Nr("maxiter"), -1), 0);
  optNoBoundsSet(db, 0);
  EXPECT_EQ(optSetIntNr(db, Nr("maxiter"), -1), 1);
  EXPECT_EQ(Messages(db).back(), (Message{"Maximum of 5000 messages reached", 8}));
  EXPECT_EQ(Counts(), "4997|0|4997");
  db.Messages.EchoTarget().AddObject(" tol 1", optMsgInputEcho);  // echo ignores the limit
  EXPECT_EQ(Join(optMessageCount(db), Messages(db).back().text), "5002|>>  tol 1");
  optClearMessages(db);  // frees the limit
  optAddMessage(db, "fresh");
  EXPECT_EQ(optMessageCount(db), 1);
}

TEST_F(ValueAssignment, TextByOptionType) {
  const struct {
    const char *option, *text, *value;
    Texts messages;
  } cases[] = {
      {"maxiter", "1e3", "1000", {}},
      {"maxiter", "silent", "2", {}},
      {"maxiter", "12.5", "1000", Refused("Integer expected, for option \"maxiter\" saw \"12.5\"")},
      {"level", "1e0", "1", Refused("Integer expected, for option \"level\" saw \"1e0\"")},
      {"scale", "silent", "1",
       Refused("Boolean value expected for option \"scale\" saw \"silent\"")},
      {"mode", "FULL", "Full", {}},
      {"tol", "abc", "1E-6", Refused("Double expected for option \"tol\" saw \"abc\"")},
      {"logfile", "\"x\"", "solver.log", {VE("Bad double-quote in value. Option ignored")}},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(std::string(c.option) + " <- " + c.text);
    optResetAll(db);  // back to the defaults, and no messages
    optSetStrNr(db, Nr(c.option), c.text);
    EXPECT_EQ(Str(c.option), c.value);
    EXPECT_EQ(MessageTexts(db), c.messages);
  }
}

TEST_F(ValueAssignment, OutOfRangeIsKeptAndMarkedUnderNoBoundsAndRefusedOtherwise) {
  optNoBoundsSet(db, 1);
  EXPECT_EQ(optSetIntNr(db, Nr("scale"), 7), 1);
  EXPECT_EQ(optSetValues2Nr(db, Nr("bounds"), 50, 0, ""), 1);
  EXPECT_EQ(optSetIntNr(db, Nr("level"), 9), 1);
  EXPECT_EQ(optSetStrNr(db, Nr("mode"), "turbo"), 1);
  EXPECT_EQ(Messages(db), (std::vector<Message>{
                              {W("Boolean out of range for option \"scale\" saw \"7\""), 4},
                              {W("   Valid values are 0 or 1"), 4},
                              {W("Value brought in range for option \"bounds\" saw \"50\""), 4},
                              {W("   Value set to 10"), 4},
                              {W("Unknown value for option \"level\" saw \"9\""), 4},
                              {W("   Possible values are  0 1"), 4},
                              {W("Unknown value for option \"mode\" saw \"turbo\""), 4},
                              {W("   Possible values are  fast Full"), 4},
                          }));
  EXPECT_EQ(Join(Str("scale"), Str("level"), Bits("scale"), Bits("level"), Bits("mode")),
            "7|9|1|1|1|1|1|1|1|1|1");

  optNoBoundsSet(db, 0);
  optClearMessages(db);
  EXPECT_EQ(optSetIntNr(db, Nr("scale"), -1), 0);
  EXPECT_EQ(optSetIntNr(db, Nr("level"), 7), 0);
  EXPECT_EQ(optSetStrNr(db, Nr("mode"), "turbo"), 0);
  EXPECT_EQ(
      MessageTexts(db),
      (Texts{VE("Boolean out of range for option \"scale\" saw \"-1\""),
             VE("   Valid values are 0 or 1"), VE("   Option ignored"),
             VE("Unknown value for option \"level\" saw \"7\""), VE("   Possible values are  0 1"),
             VE("   Option ignored"), VE("Unknown value for option \"mode\" saw \"turbo\""),
             VE("   Possible values are  fast Full"), VE("   Option ignored")}));
  EXPECT_EQ(Join(Str("scale"), Str("level"), Bits("scale")), "7|9|1|1|1");  // as they were
}

TEST_F(ValueAssignment, MultiListSplitsOnColonAndNamesTheKeyInMessages) {
  const struct {
    const char *text, *values;  // maxiter|tol
    Texts messages;
  } cases[] = {
      {"5:", "5|1E-6", {}},
      {" 5 : 0.25", "1000|0.25", Refused("Integer expected, for option \"ml\" saw \"5 \"")},
      {":0.5", "1000|0.5", Refused("Integer expected, for option \"ml\" saw \"\"")},
      {"5:0.5:7", "5|0.5", {VE("Too many items for multilist \"ml\"")}},
  };
  for (const auto &c : cases) {
    optResetRecentChanges(db);  // not all: that would forget the members
    optClearMessages(db);
    optSetStrNr(db, Nr("ml"), c.text);
    EXPECT_EQ(Join(Str("maxiter"), Str("tol"), Opt("ml").Defined), Join(c.values, 0)) << c.text;
    EXPECT_EQ(MessageTexts(db), c.messages) << c.text;
  }
}

TEST_F(Resets, WhatEachResetReaches) {
  // tol and .prior set, a dot record, a message, a counter.
  optSetDblNr(db, Nr("tol"), 0.5);
  optReadFromStr(db, "x.prior 3");
  optAddMessage(db, "pending");
  db.DotOptionErrors = 2;
  // Defined of tol and .prior|dot records|messages|DotOptionErrors
  const auto state = [&] {
    int32_t errors = 0;
    return Join(Opt("tol").Defined, Opt(".prior").Defined, optDotOptCount(db, errors),
                optMessageCount(db), db.DotOptionErrors);
  };
  EXPECT_EQ(Join(optResetNr(db, optCount(db) + 1), optResetStr(db, "IT")), "0|1");
  EXPECT_EQ(state(), "1|1|1|1|2");  // a reset of one option touches nothing else
  optResetAllRecent(db);            // values stay, no longer recent; the dot record goes
  EXPECT_EQ(Join(state(), Bits("tol")), "1|1|0|1|2|1|0|0");

  optSetDblNr(db, Nr("tol"), 0.25);
  optRecentEnabledSet(db, 0);
  optSetIntNr(db, Nr("maxiter"), 7);
  optSetInt2Nr(db, Nr("bounds"), 8);
  optRecentEnabledSet(db, 1);
  optSetIntNr(db, Nr("bounds"), 2);
  // Recent values go back to the default, not to the older value, and take the
  // other value along; what was set untracked stays.
  optResetRecentChanges(db);
  EXPECT_EQ(Join(state(), Str("tol"), Str(".prior"), Str("maxiter"), Opt("bounds").Defined),
            "0|1|0|1|2|1E-6|3|7|0");

  optRecentEnabledSet(db, 0);
  optResetAll(db);
  EXPECT_EQ(Join(state(), optRecentEnabled(db)), "0|0|0|0|0|0");  // the switch stays
  EXPECT_EQ(optSetStrNr(db, Nr("ml"), "5:0.5"), 0);  // the members of a multi-list are gone
  EXPECT_EQ(MessageTexts(db), (Texts{VE("Too many items for multilist \"ml\"")}));
}

TEST_F(AccessByNumber, FailedReadersLeaveNumbersAloneButClearTexts) {
  optSetIntNr(db, Nr("maxiter"), 7);
  int32_t ival = 4711, lo = 1, hi = 2, def = 3, d = 9, r = 9, ref = 9, data = 9, type = 9, sub = 9;
  double dval = 47.11, dlo = 1, dhi = 2, ddef = 3;
  EXPECT_EQ(
      Join(optGetIntNr(db, Nr("logfile"), ival),
           optGetInt2Nr(db, Nr("maxiter"), ival),  // has a value, but only one
           optGetDblNr(db, Nr("maxiter"), dval), optGetDbl2Nr(db, Nr("tol"), dval),
           optGetBoundsInt(db, Nr("tol"), lo, hi, def), optGetBoundsDbl(db, 0, dlo, dhi, ddef)),
      "0|0|0|0|0|0");
  EXPECT_EQ(Join(ival, lo, hi, def, dval, dlo, dhi, ddef), "4711|1|2|3|47.11|1|2|3");

  ShortStr a("x"), b("x");
  EXPECT_EQ(Join(optGetInfoNr(db, 0, d, r, ref, data, type, sub), d, r, ref, data, type, sub),
            "0|0|0|0|-1|-1|-1");
  EXPECT_EQ(Join(optGetValuesNr(db, optCount(db) + 1, a, ival, dval, b), a, ival, dval, b),
            "0||0|0|");
  EXPECT_EQ(Join(optGetStrNr(db, optCount(db) + 1, a), a), "0|");
  EXPECT_EQ(Join(optGetStr2Nr(db, Nr("maxiter"), a = "x"), a), "0|");
  EXPECT_EQ(Join(optGetDefaultStr(db, Nr("mode"), a = "x"), a), "0|");  // plain strings only
  EXPECT_EQ(Join(optGetHelpNr(db, 0, a = "x", b = "x"), a, b), "0||");
}

TEST_F(AccessByNumber, SecondValueAndTheMarksOfMendedValues) {
  int32_t ival = -1;
  EXPECT_EQ(optSetIntNr(db, Nr("bounds"), 50), 0);
  EXPECT_EQ(Join(optGetInt2Nr(db, Nr("bounds"), ival), ival), "1|5");  // not the first value
  optSetInt2Nr(db, Nr("bounds"), -50);
  EXPECT_EQ(Bits("bounds"), "3|3|3");                 // marked one value at a time
  EXPECT_EQ(optSetStr2Nr(db, Nr("bounds"), "6"), 1);  // a clean second value wipes both marks
  EXPECT_EQ(Join(Bits("bounds"), optGetInt2Nr(db, Nr("bounds"), ival), ival), "3|3|0|1|6");
  Opt("logfile").DefinedM = 1;  // strings leave the word alone, on either path
  optSetStrNr(db, Nr("logfile"), "run.log");
  EXPECT_EQ(optSetValuesNr(db, Nr("logfile"), 0, 0, "a\"b"), 1);  // no check on this path
  EXPECT_EQ(Join(Str("logfile"), Opt("logfile").DefinedM), "a\"b|1");
  optClearMessages(db);
  EXPECT_EQ(optSetValuesNr(db, Nr("tol"), 0, 1.5, "0.5"), 0);  // doubles take dval
  EXPECT_EQ(MessageTexts(db), (Texts{VE("Value brought in range for option \"tol\" saw \"1.5\""),
                                     VE("   Value set to 1")}));
}

TEST_F(AccessByNumber, FailedChecksGiveZeroWithoutMessageButSetCurrentName) {
  EXPECT_EQ(Join(optSetIntNr(db, Nr("tol"), 1), db.CurrentName), "0|tol");
  EXPECT_EQ(Join(optSetDblNr(db, Nr("maxiter"), 1), optSetInt2Nr(db, Nr("scale"), 1),
                 optSetDbl2Nr(db, Nr("tol"), 0.5), optSetStr2Nr(db, Nr("logfile"), "x"),
                 optSetValuesNr(db, Nr("ext"), 1, 1, "x")),
            "0|0|0|0|0");
  EXPECT_EQ(Join(optSetValues2Nr(db, Nr("mode"), 1, 1, "fast"), db.CurrentName), "0|mode");
  EXPECT_EQ(Join(optSetStrNr(db, optCount(db) + 1, "1"), db.CurrentName), "0|?");
  EXPECT_EQ(Join(optSetRefNr(db, 0, 1), db.CurrentName), "0|?");
  EXPECT_EQ(optMessageCount(db), 0);
  for (int32_t nr = 1; nr <= optCount(db); ++nr)
    EXPECT_EQ(db.OptionByNumber(nr)->Defined, 0) << nr;
}

TEST_F(AccessByName, WarningsGoToStandardOutputAndMessagesNameTheOption) {
  optSetIntStr(db, "IT", -3);
  ShortStr it("x"), gone("x");
  CaptureStdout out;
  Texts got;  // one call per statement: warnings come in order
  got.push_back(Join(optGetIntStr(db, "maxiter")));
  got.push_back(Join(optGetIntStr(db, "Scale")));
  got.push_back(Join(optGetIntStr(db, "Nothing")));
  got.push_back(Join(optGetIntStr(db, "tol")));
  got.push_back(Join(optGetDblStr(db, "MaxIter")));
  optGetStrStr(db, "it", it);
  optGetStrStr(db, "gone", gone);
  // The string setter assigns to any type, the others refuse.
  optSetStrStr(db, "maxiter", "7");
  optSetDblStr(db, "maxiter", 8.0);
  EXPECT_EQ(out.Finish(),
            "*** Warning: Option Nothing not found!\n"
            "*** Warning: tol is not an Integer Option!\n"
            "*** Warning: MaxIter is not a Double Option!\n"
            "*** Warning: it is not a String Option!\n"
            "*** Warning: Option gone not found!\n"
            "*** Warning: maxiter is not a String Option!\n"
            "*** Warning: maxiter is not a Double Option!\n");
  EXPECT_EQ(got, (Texts{"0", "1", "0", "0", "0"}));
  EXPECT_EQ(Join(it, gone, Str("maxiter")), "0||7");
  EXPECT_EQ(MessageTexts(db), (Texts{VE("Value brought in range for option \"maxiter\" saw \"-3\""),
                                     VE("   Value set to 0")}));
  optSetInt2Nr(db, Nr("bounds"), 3);  // defined means the first value, clipped or not
  EXPECT_EQ(Join(optGetDefinedStr(db, "it"), optGetDefinedStr(db, "bounds")), "1|0");
}

TEST_F(AccessByName, StringListsCodesIndexAndConsumption) {
  std::string codes;  // count|take|read|taken|read
  for (const char *name : {"nosuch", "it", "ext"}) {
    ShortStr taken("x"), read("x");
    codes += Join(optListCountStr(db, name), optGetFromListStr(db, name, taken),
                  optReadFromListStr(db, name, 1, read), taken, read);
  }
  EXPECT_EQ(codes, "-2|-2|-2||-1|-1|-1||0|0|0||");
  for (const char *value : {"first", "", "third"})
    optSetStrNr(db, Nr("ext"), value);
  ShortStr sval("x");
  EXPECT_EQ(Join(optReadFromListStr(db, "ext", 0, sval), sval), "0|");
  EXPECT_EQ(Join(optReadFromListStr(db, "ext", 3, sval), sval), "1|third");
  Texts taken;  // reading didn't consume
  while (optGetFromListStr(db, "ext", sval) == 1)
    taken.push_back(Join(sval));
  EXPECT_EQ(taken, (Texts{"first", "", "third"}));
  EXPECT_EQ(Join(sval, optGetDefinedStr(db, "ext")), "|1");  // an emptied list stays defined
}

TEST_F(AccessByName, AnyStrListDrainsOneFamilyInDefinitionOrder) {
  optReadFromStr(db, "--gpu=on");
  optSetStrNr(db, Nr("pre"), "p1");
  optSetStrNr(db, Nr("ext"), "e1");
  optSetStrNr(db, Nr("ext"), "e2");
  Texts taken;
  ShortStr name, sval;
  while (optGetFromAnyStrList(db, 0, name, sval) == 1)
    taken.push_back(Join(name, sval));
  EXPECT_EQ(taken, (Texts{"ext|e1", "ext|e2", "pre|p1"}));
  EXPECT_EQ(name.view(), "--gpu");  // the last list looked at, though passed over
  EXPECT_EQ(Join(optGetFromAnyStrList(db, 5, name, sval), name, sval), "1|--gpu|on");
  EXPECT_EQ(Join(optGetFromAnyStrList(db, 5, name = "x", sval = "y"), name, sval), "0|x|y");
}

TEST_F(Queries, FailuresClearToMinusOneButGroupsToZero) {
  int32_t count = 0, k = 0, ival = 0, hc = 0, group = 0, nr = 0;
  ShortStr sval, name, help;
  EXPECT_EQ(Join(optGetEnumCount(db, Nr("maxiter"), count), count), "0|-1");
  EXPECT_EQ(Join(optGetEnumStrNr(db, Nr("mode"), sval, k), sval, k), "1|Fast|1");  // as "fast"
  EXPECT_EQ(Join(optGetEnumStrNr(db, Nr("level"), sval, k), sval, k), "0||-1");
  EXPECT_EQ(Join(optGetEnumValue(db, Nr("mode"), 2, ival, sval), ival, sval), "1|0|Full");
  EXPECT_EQ(Join(optGetEnumValue(db, Nr("level"), 2, ival, sval), ival, sval), "1|1|1");
  EXPECT_EQ(Join(optGetEnumValue(db, Nr("level"), 3, ival, sval), ival, sval), "0|-1|");
  EXPECT_EQ(Join(optGetEnumHelp(db, Nr("level"), 2, hc, sval), hc, sval), "1|17|Low");
  EXPECT_EQ(Join(optGetEnumHelp(db, Nr("mode"), 0, hc, sval), hc, sval), "0|-1|");
  optNoBoundsSet(db, 1);
  optSetStrNr(db, Nr("mode"), "turbo");
  EXPECT_EQ(Join(optGetEnumStrNr(db, Nr("mode"), sval, k), k), "1|0");  // not in the list
  EXPECT_EQ(Join(optGetGroupNr(db, 2, name, nr, hc, help), name, nr, hc, help),
            "1|output|3|21|Output options");
  EXPECT_EQ(Join(optGetOptHelpNr(db, 0, name, hc, group), name, hc, group), "0||-1|-1");
  EXPECT_EQ(Join(optGetGroupNr(db, 3, name = "x", nr, hc, help), name, nr, hc, help), "0||0|0|");
  EXPECT_EQ(Join(optGetGroupGrpNr(db, 3), optGetGroupGrpNr(db, 7)), "2|-1");
  EXPECT_EQ(Join(optGetOptGroupNr(db, Nr("bounds")), optGetOptGroupNr(db, 0)), "7|-1");
  EXPECT_EQ(Join(optGetSynonym(db, 2, sval, name), sval, name), "1|il|iterations_limit");
  EXPECT_EQ(Join(optGetSynonym(db, 3, sval, name), sval, name), "0||");
}

// The positions that `names` find under `method`: itex_limit 11, iterations_limit 12,
// major_iterations_limit 13, ab_cde 14, ITERLIM 15.
std::string Found(tvlmoptions &db, LookupMethod method, std::initializer_list<const char *> names) {
  db.LookupCode = method;
  std::string result;
  for (const char *name : names)
    result += std::to_string(optLookUp(db, name)) + " ";
  return result;
}

TEST_F(Queries, LookupByMethodTheFirstMatchWins) {
  EXPECT_EQ(Found(db, LookupMethod::kNormal, {"iterlim", "iter", "ab_cde", ""}), "15 -1 14 -1 ");
  // Three letters a word decide, an exact name has no priority, two letters never match.
  EXPECT_EQ(Found(db, LookupMethod::kPath,
                  {"ite_lim", "iterations_limit", "iteryz_limxyz", "maj_ite_lim", "maj_ite",
                   "iterlimits", "ite", "it_lim", "iter_limit_x", "ab_cde", ""}),
            "11 11 11 13 -1 15 15 -1 -1 -1 -1 ");
  // Three letters, then four of each further word, of equal length.
  EXPECT_EQ(Found(db, LookupMethod::kMinos,
                  {"maj_iter_limi", "maj_iter_lim", "ITE_LIMI", "iter_lim", "ab_cde", "ab", ""}),
            "13 -1 11 -1 14 -1 -1 ");
  ShortStr name;  // and shows the words apart
  EXPECT_EQ(Join(optGetNameNr(db, 14, name), name), "1|major iterations limit");
  EXPECT_EQ(Found(db, static_cast<LookupMethod>(3), {"ITERLIM"}), "-1 ");
}

TEST_F(Queries, LookupOfSynonymsByWholeNameUnderEveryMethod) {
  for (LookupMethod method : {LookupMethod::kNormal, LookupMethod::kPath, LookupMethod::kMinos}) {
    db.LookupCode = method;
    int32_t nr = 0, refNr = 0;
    ShortStr sval;
    EXPECT_EQ(Join(optFindStr(db, "IL", nr, refNr), nr, refNr, db.CurrentName), "1|13|2|IL");
    EXPECT_EQ(Join(optFindStr(db, "ILX", nr, refNr), nr, refNr), "0|-1|-1");
    EXPECT_EQ(Join(optGetValStr(db, "Il", sval), sval), "1|0");
  }
}

}  // namespace
}  // namespace optkw::test

namespace optkw::test {
namespace {

TEST(DatabaseCore, ConstantNamesNameNumberTextsAndMacros) {
  Handle h;
  ShortStr name;
  EXPECT_EQ(optGetConstName(h.db, 4, 8, name), 1);
  EXPECT_EQ(name.view(), "optMsgTooManyMsgs");
  // The message types stop at 8: optMsgUserError has no name here.
  for (auto [group, index] : {std::pair{4, 9}, {0, 0}, {6, 0}, {2, 10}}) {
    EXPECT_EQ(optGetConstName(h.db, group, index, name), 0);
    EXPECT_TRUE(name.empty());
  }
  EXPECT_EQ(optGetTypeName(h.db, 9, name), 1);
  EXPECT_EQ(name.view(), "immediate");
  EXPECT_EQ(optGetTypeName(h.db, 10, name), 0);

  // NAME.NUMBER reads no more digits than the name has characters.
  int32_t nr = -7;
  EXPECT_EQ(optGetNameOpt(h.db, "ab.123", name, nr), 1);
  EXPECT_EQ(nr, 12);
  EXPECT_EQ(optGetNameOpt(h.db, "abc.", name, nr), 1);
  EXPECT_EQ(nr, 12) << "nothing behind the dot leaves the number as it was";
  EXPECT_EQ(optGetNameOpt(h.db, "abc.1x", name, nr), 0);
  EXPECT_EQ(nr, 0);
  EXPECT_EQ(name.view(), "abc");

  // A macro passes its value on, also through a macro among its members, and
  // a reset reaches the members of both.
  ASSERT_EQ(ReadDefinitionText(h.db,
                               "a integer 1 0 0 9 0 0 x\nb integer 2 0 0 9 0 0 x\n"
                               "inner macro 0 0 x\n a\nouter macro 0 0 x\n inner\n b\n"),
            0);
  optReadFromStr(h.db, "outer 4");
  int32_t a = 0, b = 0, defined = -1;
  EXPECT_TRUE(optGetIntNr(h.db, 2, a) && optGetIntNr(h.db, 3, b));
  EXPECT_EQ(a * 10 + b, 44);
  EXPECT_TRUE(optResetStr(h.db, "outer"));
  optGetDefinedNr(h.db, 2, defined);
  EXPECT_EQ(defined, 0);
}

}  // namespace
}  // namespace optkw::test

namespace optkw::test {
namespace {

// The abbreviation index gives the position that a walk over every option
// gives, for random names over a small alphabet (short words, "_", case), as
// options are added, and whichever of the two methods is in force.
TEST(AbbreviationIndex, AgreesWithAWalkOverEveryOption) {
  std::mt19937 random(7);
  const std::string letters = "abAB_c";
  auto name = [&](int most) {
    std::string text;
    for (int k = static_cast<int>(random() % most); k > 0; --k)
      text += letters[random() % letters.size()];
    return text;
  };
  long compared = 0;
  for (int round = 0; round < 40; ++round) {
    ShortStr message;
    tvlmoptions db(message);
    for (int k = 0; k < 60; ++k) {
      db.AddOption(std::make_unique<tstrlistoption>(name(9), &db, 0, 0, 0, ""));
      for (int ask = 0; ask < 40; ++ask) {
        std::string wanted = name(9);
        if (random() % 2 && db.Options.Count() > 0) {  // a variant of a name that exists
          wanted = std::string(db.Options.Key(static_cast<int32_t>(random() % db.Options.Count())));
          for (char &c : wanted)
            if (random() % 4 == 0) c = letters[random() % letters.size()];
        }
        for (auto method : {LookupMethod::kPath, LookupMethod::kMinos}) {
          db.LookupCode = method;
          const auto matches = method == LookupMethod::kPath ? NameMatchPath : NameMatchMinos;
          int32_t walked = -1;
          for (int32_t i = 0; i < db.Options.Count() && walked < 0; ++i)
            if (matches(wanted, db.Options.Key(i))) walked = i;
          ASSERT_EQ(db.LookUpPosition(wanted), walked) << wanted;
          ++compared;
        }
      }
    }
  }
  EXPECT_EQ(compared, 40 * 60 * 40 * 2);
}

}  // namespace
}  // namespace optkw::test
