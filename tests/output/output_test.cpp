// The parameter file writer and the help listing, against files in fixtures/output.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "database/list_separator.h"
#include "database/operations.h"
#include "output/help_listing.h"
#include "output/parameter_writer.h"
#include "parameters/reading_driver.h"
#include "scanning/miniparser.h"
#include "support/test_support.h"

namespace optkw::test {
namespace {

std::string FileText(const std::string &name) {
  std::ifstream in(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
std::string FixtureText(std::string_view name) {
  return FileText(Fixture("output/" + std::string(name)));
}

// A handle of an imaginary solver, and what the writer and the help make of it.
class FerroHandle : public Handle {
 public:
  explicit FerroHandle(std::string_view definition) {
    EXPECT_EQ(ReadDefinitionText(db, definition), 0) << ::testing::PrintToString(MessageTexts(db));
  }

  int32_t Nr(std::string_view name) { return optLookUp(db, ShortStr(name)) + 1; }
  void Read(std::initializer_list<std::string_view> statements) {
    for (std::string_view statement : statements)
      optReadFromPChar(db, std::string(statement).c_str());
  }
  std::string Written(std::string_view old = {}) {
    TempDir dir;
    const std::string file = dir.Write("written.txt", old);
    EXPECT_EQ(optWriteParameterFile(db, ShortStr(file)), 0);
    return FileText(file);
  }
  // Help lines stand undecorated.
  std::string Help(std::string_view request) {
    optClearMessages(db);
    optShowHelp(db, ShortStr(request));
    std::string lines;
    for (const Message &m : Messages(db))
      lines += (m.type == optMsgHelp ? "" : "not help: ") + m.text + "\n";
    return lines;
  }
};

// The first of the two NoBounds switches at the end is the one used.
const std::string kFerro = FixtureText("writer.def");

// The multi-list, the macro, the immediate, the emptied list and the dot option
// write no line of their own; a quoted value is cut at 255 bytes.
TEST(ParameterWriter, EveryOptionLineForm) {
  FerroHandle h(kFerro);
  EXPECT_EQ(h.Written("maxiter=1\n"), "");  // nothing set, and the old file is replaced
  h.Read({"MAXITER 250", "tol 1e-7", "logfile ferro run.log", "title \"\"", "method PRIMAL",
          "window 3 4", "band * 2.5", "labels \"row a\" cols", "presolve", "crash",
          "paths /opt/ferro", "paths C:\\Ferro Lib", "paths a,b", "extras gone", "quiet 0",
          "x.scale 2.5"});
  for (const std::string &path : {std::string("tab\there"), std::string("semi;colon!#*='x'"),
                                  "x " + std::string(253, 'y'), std::string(255, 'z')})
    ASSERT_EQ(optSetStrNr(h.db, h.Nr("paths"), ShortStr(path)), 1);
  ASSERT_EQ(optSetStrNr(h.db, h.Nr("limits"), ShortStr("60") + ListSeparatorChar + "500"), 1);
  ShortStr taken;
  ASSERT_EQ(optGetFromListStr(h.db, "extras", taken), 1);
  ASSERT_EQ(MessageTexts(h.db), std::vector<std::string>{});
  EXPECT_EQ(h.Written(), FixtureText("all_forms.txt"));
}

// Values not taken as given stand between the lines of the first NoBounds
// switch, if any; a clean second value clears the mark of a clipped first one.
TEST(ParameterWriter, BracketsValuesNotTakenAsGiven) {
  for (const bool with_switch : {true, false}) {
    FerroHandle h(with_switch ? kFerro : kFerro.substr(0, kFerro.find("NoBnd")));
    h.Read({"maxiter 0", "tol 5", "window 50 3", "band 5 500", "crash 3"});
    optNoBoundsSet(h.db, 1);
    EXPECT_EQ(optSetIntNr(h.db, h.Nr("scaling"), 7), 1);
    h.Read({"method turbo", "verbosity 4", "x.scale 5000"});
    EXPECT_EQ(h.Written(), FixtureText(with_switch ? "bounds.txt" : "bounds_no_switch.txt"));
  }
}

// Sections in a fixed order; separator and quote change option lines alone; under
// Minos only option lines show the display name.
TEST(ParameterWriter, SectionsSeparatorsAndNames) {
  FerroHandle stores(kFerro);
  stores.Read({"defvar x2('b',k) eq2(k)", "defvar x3 eq3", "indic eq1(i,'a') $ x1(i) = no",
               "indic eq4 $ x4 yes", "flow.scale('a',*) 1e-5", "flow.scale[\"b\"] = 2.5",
               "z.SCALE 7", "maxiter 20"});
  EXPECT_EQ(stores.Written(), FixtureText("stores.txt"));
  FerroHandle custom(kFerro + "sep separator \" := \"\nq stringquote '\n");
  custom.Read({"maxiter 250", "title \"\"", "logfile ferro run.log", "window 3 4", "presolve",
               "paths /opt", "nodelim -1", "x.scale 2", "indic eq1 $ x1 yes"});
  EXPECT_EQ(custom.Written(), FixtureText("custom_separator.txt"));
  FerroHandle minos(FixtureText("minos.def"));
  minos.Read({"max iter limit 200000", "use presolve", "search paths /opt/ferro"});
  EXPECT_EQ(minos.Written(), FixtureText("minos.txt"));
}

// An empty name is standard output, flushed and left open. A write that fails
// after the open is told as a failed open is, with the system's code.
TEST(ParameterWriter, WhereTheTextGoes) {
  FerroHandle h(kFerro);
  h.Read({"maxiter 250", "logfile ferro run.log"});
  CaptureStdout capture;
  EXPECT_EQ(optWriteParameterFile(h.db, ""), 0);
  EXPECT_EQ(write(fileno(stdout), "unbuffered\n", 11), 11);
  EXPECT_GE(std::fputs("still open\n", stdout), 0);
  EXPECT_EQ(capture.Finish(), "maxiter=250\nlogfile=\"ferro run.log\"\nunbuffered\nstill open\n");
  TempDir dir;
  const std::string name = (dir.path() / "no_such_dir" / "out.txt").string();
  EXPECT_EQ(optWriteParameterFile(h.db, ShortStr(name)), ENOENT);
  EXPECT_EQ(Messages(h.db),
            (std::vector<Message>{
                {"*** Error Cannot write parameter file \"" + name + "\"", optMsgUserError},
                {"*** Error    Error code = " + std::to_string(ENOENT) + "; " + strerror(ENOENT),
                 optMsgUserError}}));
  if (!std::filesystem::exists("/dev/full")) return;
  optClearMessages(h.db);
  // A device that takes nothing: the open succeeds, the writes fail later.
  optSetIntNr(h.db, 2, 5);
  EXPECT_EQ(optWriteParameterFile(h.db, "/dev/full"), ENOSPC);
  EXPECT_EQ(Messages(h.db),
            (std::vector<Message>{
                {"*** Error Cannot write parameter file \"/dev/full\"", optMsgUserError},
                {"*** Error    Error code = " + std::to_string(ENOSPC) + "; " + strerror(ENOSPC),
                 optMsgUserError}}));
}

// Value texts of every kind; the fixed seed makes every run check the same states.
struct Generator {
  uint32_t Pick(uint32_t n) { return engine() % n; }
  bool Chance(uint32_t percent) { return Pick(100) < percent; }
  std::string From(std::initializer_list<std::string> choices) {
    return choices.begin()[Pick(static_cast<uint32_t>(choices.size()))];
  }
  // Numbers in and beyond the bounds, decimals that 15 digits carry, words off
  // the lists.
  std::string Value(int32_t type) {
    const std::string decimal = std::to_string(Chance(50) ? Pick(1000) : Pick(1000000000)) + "e-" +
                                std::to_string(Pick(13));
    const std::vector<std::string> choices[] = {
        {std::to_string(Pick(12)), "-" + std::to_string(Pick(150)), std::to_string(Pick(200000)),
         "maxint"},
        {decimal, "-" + decimal, "1e299", "-1e299"},
        {Text()},
        {"0", "1", "yes", "OFF"},
        {"AUTO", "primal", "barrier", "turbo", "fast mode"},
        {"0", "1", "100", "7", "-3"},
        {},
        {Text()}};
    return choices[type][Pick(static_cast<uint32_t>(choices[type].size()))];
  }
  // No double quote, which has no escape. The reader trims blanks at the ends,
  // and a bare value ends at "!": a text with "!" gets a blank and so quotes.
  std::string Text() {
    static constexpr std::string_view kChars = "abcXYZ0189,!#;*'()=$-./: \t";  // blanks last
    if (Chance(8)) return "";
    std::string text(1, kChars[Pick(kChars.size() - 2)]);
    for (uint32_t k = Chance(10) ? Pick(249) : Pick(12); k > 0; --k)
      text += kChars[Pick(kChars.size())];
    text += kChars[Pick(kChars.size() - 2)];
    return text.find('!') == std::string::npos ? text : "x " + text;
  }

  std::mt19937 engine{20261121};
};

void Fill(FerroHandle &h, Generator &g) {
  for (int32_t nr = 1; nr <= optCount(h.db); ++nr) {
    ShortStr name;
    int32_t defined = 0, recent = 0, ref = 0, data = 0, type = 0, sub = 0;
    optGetNameNr(h.db, nr, name);
    optGetInfoNr(h.db, nr, defined, recent, ref, data, type, sub);
    optNoBoundsSet(h.db, g.Chance(30));  // lets values outside the lists in
    if (name.view()[0] == '.' || type > optTypeStrList || g.Chance(40)) continue;
    if (sub == optsubNoValue || (sub == optsubOptional && g.Chance(30))) {
      h.Read({name.view()});  // the default, by the key alone
      continue;
    }
    for (uint32_t k = type == optTypeStrList ? g.Pick(4) : 1; k > 0; --k)
      optSetStrNr(h.db, nr, ShortStr(g.Value(type)));
    // Both values of a pair, as a written line always gives both.
    if (sub == optsub2Values) optSetStr2Nr(h.db, nr, ShortStr(g.Value(type)));
  }
  if (g.Chance(20)) h.Read({"--extra " + g.Text()});
  // A dot value brought in range without NoBounds would leave no record but
  // change the dot option; a wrong index leaves no record at all.
  for (uint32_t k = g.Pick(5); k > 0; --k) {
    const bool beyond = g.Chance(30);
    optNoBoundsSet(h.db, beyond);
    const std::string equ = g.From({"eq1", "supply(i)", "b_2[i,'a']", "cap{j,\"c\",i}"});
    const std::string var = g.From({"x", "ship(i)", "x('b1',i)", "ship[j]"});
    h.Read(
        {g.From({"flow", "x_1", "Ship2"}) + g.From({".scale", ".prior"}) +
             g.From({"", "(*)", "['a',\"c\"]", "{'b1',*,'a'}"}) + g.From({" ", " = ", "="}) +
             (beyond ? g.From({"-5", "2500.5", "1e299", "11"}) : g.From({"1", "7", "10", "2.5"})),
         "indic " + equ + " $ " + var + " = " + g.From({"yes", "no", "1", "0", "off"}),
         "defvar " + var + " " + equ});
  }
  optNoBoundsSet(h.db, 0);
}

// Each option's Defined word, value texts and exact numbers.
std::string Values(tvlmoptions &db) {
  std::ostringstream values;
  values << std::hexfloat;
  for (int32_t nr = 1; nr <= optCount(db); ++nr) {
    ShortStr text, text2;
    int32_t defined = 0;
    double number = 0, number2 = 0;
    optGetDefinedNr(db, nr, defined);
    optGetStrNr(db, nr, text);
    optGetStr2Nr(db, nr, text2);
    optGetDblNr(db, nr, number);
    optGetDbl2Nr(db, nr, number2);
    values << defined << " [" << text.view() << "] [" << text2.view() << "] " << number << ' '
           << number2 << '\n';
  }
  return values.str();
}

// A value read back at its bound is taken as given, and isn't bracketed again.
std::string Unbracketed(std::string text) {
  for (size_t at; (at = text.find("\nnb ")) != std::string::npos;)
    text.erase(at + 1, 5);
  return text;
}

TEST(RoundTrip, WrittenStateReadsBackAsItWas) {
  const std::string definition = FixtureText("round_trip.def");
  Generator g;
  for (int trial = 0; trial < 300 && !::testing::Test::HasFailure(); ++trial) {
    FerroHandle original(definition);
    Fill(original, g);
    const std::string written = original.Written();
    SCOPED_TRACE("trial " + std::to_string(trial) + ", file:\n" + written);
    TempDir dir;
    FerroHandle copy(definition);
    EXPECT_EQ(optReadParameterFile(copy.db, ShortStr(dir.Write("state.txt", written))), 0);
    EXPECT_EQ(Values(copy.db), Values(original.db));
    EXPECT_EQ(Unbracketed("\n" + copy.Written()), Unbracketed("\n" + written));
  }
}

// Anything but a name or a whole number is the summary; a blank becomes "_"
// before the number is read. The raw list goes to standard output only.
TEST(HelpListing, ModesByRequest) {
  FerroHandle h(FixtureText("help.def"));
  const std::string summary = FixtureText("summary.txt");
  const std::string alphabetical = FixtureText("alphabetical.txt");
  const std::string marked = FixtureText("marked_summary.txt");
  for (const char *request : {"", "1", "nosuchoption", " 3", "3 "})
    EXPECT_EQ(h.Help(request), summary) << '"' << request << '"';
  for (const char *request : {"3", "0", "-1", "$3", "0x3"})
    EXPECT_EQ(h.Help(request), summary + alphabetical) << request;
  EXPECT_EQ(h.Help("2"), alphabetical);
  EXPECT_EQ(h.Help("9"), marked);
  EXPECT_EQ(h.Help("11"), marked + alphabetical);
  EXPECT_EQ(h.Help("8"), "");
  CaptureStdout capture;
  EXPECT_EQ(h.Help("4"), "");
  EXPECT_EQ(h.Help("6"), alphabetical);
  EXPECT_EQ(capture.Finish(), FixtureText("raw_list.txt") + FixtureText("raw_list.txt"));
}

// Any spelling beyond a change of case names the option first. Without a group
// shown, the summary's title waits for the alphabetical list, or is lost.
TEST(HelpListing, EntriesAndOtherDefinitions) {
  const char *cases[][4] = {
      {"help.def", "iterlim", "MaxIter", "entry_synonym.txt"},
      {"help.def", "hidesyn", "secret", "hidden_entry.txt"},
      {"path.def", "ite_lim", "iteration_limit", "path_entry.txt"},
      {"minos_help.def", "maj iter", "Major Iterations", "minos_entry.txt"},
  };
  for (const auto &[definition, synonym, name, expected] : cases) {
    FerroHandle h(FixtureText(definition));
    const std::string entry = FixtureText(expected);
    EXPECT_EQ(h.Help(synonym), entry);
    EXPECT_EQ(h.Help(name), entry.substr(entry.find('\n') + 1));
  }
  EXPECT_EQ(FerroHandle(FixtureText("minos_help.def")).Help("3"), FixtureText("minos_listing.txt"));
  FerroHandle lone("maxiter integer 1 1000 0 maxint 10 1 Iteration limit\n");
  EXPECT_EQ(lone.Help("1"), "\n");
  EXPECT_EQ(lone.Help("3"), FixtureText("no_group.txt"));
}

}  // namespace
}  // namespace optkw::test
