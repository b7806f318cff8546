// The scanner (lines of files and strings, their echo, the token readers) and the
// conversions between value text and numbers.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "containers/string_lists.h"
#include "scanning/char_set.h"
#include "scanning/miniparser.h"
#include "scanning/text_ops.h"
#include "scanning/value_text.h"
#include "support/test_support.h"

namespace optkw {
namespace {

using P = tminiparser;
using Reader = std::function<bool(P &, ShortStr &)>;
const std::string kMark = "\xBB";  // marks the pieces of a long echo line

class ScannerTest : public testing::Test {
 protected:
  P &Open(bool echo = false) {
    parser = std::make_unique<P>(&echo_lines, echo, EolCharSet{';'});
    return *parser;
  }
  P &OpenFile(const std::string &content, bool echo = false) {
    int32_t code = -1;
    EXPECT_TRUE(Open(echo).OpenFile(dir.Write("input.txt", content), code));
    return *parser;
  }
  // What NextCh delivers after the first NextLine: "|" for a line end, "$" for the end.
  std::string Walk() {
    std::string seen = parser->NextLine() ? "" : "<none>";
    for (; parser->FCh != kEndOfText && seen.size() < 5000; parser->NextCh())
      seen += parser->FCh == kLineEnd ? '|' : parser->FCh;
    return seen + "$";
  }

  test::TempDir dir;
  txstringlist<int32_t> echo_lines;
  std::unique_ptr<P> parser;
};

TEST_F(ScannerTest, FileLines) {
  // The file; FAtEnd; what the first NextLine and NextCh deliver; the lines counted.
  const std::tuple<std::string, bool, std::string, int32_t> cases[] = {
      {"", true, "<none>$", 0},
      {"* one\n\n*\n", false, "<none>$", 3},
      {"*a\n*b\n\n  x*\n", false, "  x*|$", 4},          // "*" counts in column 1 only
      {"ab\r\ncd\r\r\n\r\nb", false, "ab|cd\r|b|$", 4},  // one carriage return goes
      {std::string(1020, 'a') + "bc\nnext", false, std::string(1020, 'a') + "|next|$", 2},
      // The carriage return is the last byte of the first 64 KiB read.
      {"*" + std::string(65531, 'c') + "\nab\r\n", false, "ab|$", 2},
  };
  for (const auto &[content, at_end, walk, lines] : cases) {
    OpenFile(content);
    EXPECT_EQ(Walk(), walk) << content.substr(0, 20);
    EXPECT_EQ(parser->FLineNr, lines) << content.substr(0, 20);
    EXPECT_EQ(parser->FAtEnd, at_end) << content.substr(0, 20);  // set by the opening only
  }
}

TEST_F(ScannerTest, FilesThatCantBeOpenedOrRead) {
  int32_t code = -1;
  EXPECT_FALSE(Open().OpenFile((dir.path() / "absent").string(), code));
  parser->NextCh();
  EXPECT_EQ(parser->FCh, kEndOfText);  // the end is sticky
  // The process's memory file opens, but reading it at address 0 fails: the
  // source ends there, and the fault is kept for the reader to report.
  if (access("/proc/self/mem", R_OK) != 0) GTEST_SKIP() << "no /proc/self/mem";
  EXPECT_TRUE(Open().OpenFile("/proc/self/mem", code));
  EXPECT_EQ(code, 0);
  EXPECT_FALSE(parser->NextLine());
  EXPECT_EQ(parser->Fault(), SourceFault::kReadError);
  EXPECT_EQ(parser->FaultCode(), EIO);
}

TEST_F(ScannerTest, ALineThatNeverEndsEndsTheSource) {
  // Just under the limit the line is cut at 1020 and the next line follows;
  // past it, the source ends after the cut line.
  const size_t limit = tminiparser::kMaxPhysicalLine;
  OpenFile(std::string(limit, 'a') + "\nnext\n");
  EXPECT_EQ(Walk(), std::string(1020, 'a') + "|next|$");
  EXPECT_EQ(parser->Fault(), SourceFault::kNone);
  OpenFile(std::string(limit + 70000, 'a') + "\nnext\n");
  EXPECT_EQ(Walk(), std::string(1020, 'a') + "|$");
  EXPECT_EQ(parser->Fault(), SourceFault::kEndlessLine);
}

TEST_F(ScannerTest, EchoOfEveryLineInPiecesOf130) {
  OpenFile("* one\n\nx\n", true).NextLine();
  for (int length : {0, 130, 131, 132})
    Open(true).OpenString(ShortStr(std::string(length, 'a')));
  std::vector<std::string> echoed;
  for (const auto &entry : echo_lines)
    echoed.emplace_back(entry.FString.view());
  const std::string a130(130, 'a');
  EXPECT_EQ(echoed, (std::vector<std::string>{" * one", "", " x", "", " " + a130, kMark + a130,
                                              kMark + "a", kMark + a130 + kMark, kMark + "aa"}));
}

TEST_F(ScannerTest, StringSourcesAreOneLine) {
  Open().OpenString("");
  EXPECT_TRUE(parser->FAtEnd);
  EXPECT_FALSE(parser->NextLine());
  const std::string text = "*" + std::string(3000, 'p') + "\nb";  // no length limit
  Open().OpenPChar(text.c_str());
  EXPECT_EQ(Walk(), "*" + std::string(3000, 'p') + "|b|$");
  EXPECT_EQ(parser->FLineNr, 0);
  Open().OpenPChar("a\nb");
  ASSERT_TRUE(parser->NextLine());
  parser->NextCh();
  EXPECT_FALSE(parser->NextLine());  // a second call ends the source anywhere
  parser->NextCh();
  EXPECT_EQ(parser->FCh, kEndOfText);
}

TEST_F(ScannerTest, TokenReaders) {
  const std::string w254(254, 'w'), word = w254 + std::string(45, 'x') + "Z";
  const auto skip_assign = [](P &p, ShortStr &s) { return (s = "", p.SkipAssign()); };
  const auto rest = [](P &p, ShortStr &s) { return (s = p.ReadRestOfLine(), true); };
  // The reader, the line, then the text it gives, its answer and the FCh behind.
  const std::tuple<Reader, std::string, std::string, bool, char> cases[] = {
      {&P::ReadToken, " a,b", "a", true, ','},
      {&P::ReadToken, ",b", "", true, ','},  // a comma is never consumed
      {&P::ReadToken, "   ", "", false, kLineEnd},
      {&P::ReadToken, "a;b c", "a;b", true, ' '},  // no comment inside a token
      {&P::ReadToken, "\"\" x", "", true, ' '},
      {&P::ReadToken, "\"ab\"\tx", "ab", true, '\t'},
      {&P::ReadToken, "\"a\"b\"", "a\"b", true, kLineEnd},
      {&P::ReadToken, "\"a\"b\" c\"", "a\"b\" c", true, kLineEnd},  // even quotes don't close
      {&P::ReadToken, "\"a\"\"b\"", "a\"\"b", true, kLineEnd},
      {&P::ReadToken, "\"ab", "ab", false, kLineEnd},
      {&P::ReadToken, "\"", "", false, kLineEnd},
      {&P::ReadIdent, "abc/def_1,x", "abc/def_1", true, ','},
      {&P::ReadIdent, "9Lives", "", false, '9'},
      {&P::ReadIdent, "ab\xE4z", "ab", true, '\xE4'},  // a byte above 127 is no letter
      {&P::ReadAlphaNum, "abc/def_1,x", "abc", true, '/'},
      {&P::ReadName, "9Lives_x", "9Lives_x", true, kLineEnd},
      {rest, "  text \t ", "text", true, kLineEnd},
      {rest, "a ; b", "a ; b", true, kLineEnd},
      {rest, "  ; note", "", true, kLineEnd},
      {&P::ReadElement, "  abc.x", "abc", true, '.'},
      {&P::ReadElement, "*,", "*", true, ','},
      {&P::ReadElement, "1abc", "", false, '1'},
      {&P::ReadElement, "'a b  ' x", "'a b'", true, ' '},
      {&P::ReadElement, "\"q\"r\"", "\"q\"", true, 'r'},  // no parity here
      {&P::ReadElement, "'open  ", "'open'", true, kEndOfText},
      {skip_assign, "5", "", true, '5'},
      {skip_assign, ":=5", "", true, '5'},
      {skip_assign, ":5", "", false, '5'},
      {skip_assign, " := ", "", false, kLineEnd},
      {skip_assign, "= ;x", "", false, kLineEnd},
      // Past 255 characters each further one takes the last place.
      {&P::ReadToken, word + " x", w254 + "Z", true, ' '},
      {&P::ReadToken, "\"" + word + "\" x", w254, true, ' '},
      {&P::ReadElement, "'" + word + "' x", "'" + w254, true, ' '},
      {rest, word, w254 + "Z", true, kLineEnd},
  };
  for (const auto &[reader, line, text, answer, after] : cases) {
    Open().OpenPChar(line.c_str());
    ASSERT_TRUE(parser->NextLine());
    ShortStr result("junk");
    EXPECT_EQ(reader(*parser, result), answer) << line;
    EXPECT_EQ(result.view(), text) << line;
    EXPECT_EQ(parser->FCh, after) << line;
  }
}

TEST_F(ScannerTest, SwitchesAndUnclosedElementOnAFileLine) {
  ShortStr result;
  int32_t count = -1;
  Open().OpenPChar("--/abc x");
  EXPECT_TRUE(parser->NextLine() && parser->ReadSwitch(result, count));
  EXPECT_EQ(result.view(), "abc");
  EXPECT_EQ(count, 3);
  Open().OpenPChar("-");
  EXPECT_FALSE(parser->NextLine() && parser->ReadSwitch(result, count));
  EXPECT_EQ(count, 1);
  // The step over the line end lands on the next line that is delivered.
  ASSERT_TRUE(OpenFile("'abc\n* note\nnext\n").NextLine());
  EXPECT_TRUE(parser->ReadElement(result));
  EXPECT_EQ(result.view(), "'abc'");
  EXPECT_EQ(parser->FCh, 'n');
}

constexpr int32_t kMaxInt = std::numeric_limits<int32_t>::max();
constexpr int32_t kMinInt = std::numeric_limits<int32_t>::min();

TEST(ValueTextTest, TextToNumbers) {
  // The text; then answer and value of TextToInteger, TextToIntegerLax and TextToDouble.
  const std::tuple<const char *, bool, int32_t, bool, int32_t, bool, double> cases[] = {
      {"  +12", true, 12, true, 12, true, 12},
      {"$ff", true, 255, true, 255, false, 0},
      {"0x1F", true, 31, true, 31, false, 0},
      {"2147483648", true, kMaxInt, true, kMaxInt, true, 2147483648.0},  // saturates
      {"-99999999999", true, kMinInt, true, kMinInt, true, -99999999999.0},
      {"MaxInt", true, kMaxInt, true, kMaxInt, false, 0},
      {"1D3", false, 1, true, 1000, true, 1000},
      {"2147483647.0", false, kMaxInt, true, kMaxInt, true, 2147483647.0},
      {"2147483648.0", false, kMaxInt, false, 0, true, 2147483648.0},
      {"EPS", false, 0, false, 0, true, 1e-20},
      {"MaxDouble", false, 0, false, 0, true, 1e299},
      {".", false, 0, true, 0, true, 0},
      {"4.9406564584124654d-324", false, 4, false, 0, true, 4.9406564584124654e-324},
      {"", false, 0, false, 0, false, 0},
      {"7 ", false, 7, false, 0, false, 7},
      {"12abc", false, 12, false, 0, false, 12},
      {"1e999", false, 1, false, 0, false, HUGE_VAL},
      {"inf", false, 0, false, 0, false, 0},
  };
  for (const auto &[text, strict, strict_value, lax, lax_value, real, real_value] : cases) {
    int32_t value = -1;
    EXPECT_EQ(TextToInteger(text, value), strict) << text;
    EXPECT_EQ(value, strict_value) << text;
    value = -1;
    EXPECT_EQ(TextToIntegerLax(text, value), lax) << text;
    EXPECT_EQ(value, lax_value) << text;
    double number = -1;
    EXPECT_EQ(TextToDouble(text, number), real) << text;
    EXPECT_EQ(number, real_value) << text;  // on failure, what ValDouble left
  }
}

TEST(ValueTextTest, PositionOfTheFirstCharacterNotTaken) {
  // The text; then value and position of ValInteger and of ValDouble.
  const std::tuple<const char *, int32_t, int32_t, double, int32_t> cases[] = {
      {"12 ", 12, 3, 12, 3},   {"", 0, 1, 0, 1},    {"- 5", 0, 2, 0, 2},
      {"1.5.2", 1, 2, 1.5, 4}, {".e5", 0, 1, 0, 0}, {"-.25", 0, 2, -0.25, 0},
  };
  for (const auto &[text, value, position, real, real_position] : cases) {
    int32_t at = -1;
    EXPECT_EQ(ValInteger(text, at), value) << text;
    EXPECT_EQ(at, position) << text;
    double number = -1;
    ValDouble(text, number, at);
    EXPECT_EQ(number, real) << text;
    EXPECT_EQ(at, real_position) << text;
  }
}

TEST(ValueTextTest, DoubleToText) {
  const std::pair<double, const char *> cases[] = {
      {0, "0"},
      {0.0001, "0.0001"},
      {1e14, "100000000000000"},
      {1e15, "1E15"},
      {-2.5e20, "-2.5E20"},
      {1.1 + 2.2, "3.3"},
      {-123456789012345678.0, "-1.23456789012346E17"},
      {std::nextafter(0.0001, 0.0), "1E-4"},
      {std::nextafter(1e15, 0.0), "1000000000000000"},  // rounds up, yet stays plain
  };
  for (const auto &[value, text] : cases)
    EXPECT_EQ(DoubleToText(value).view(), text) << text;
  EXPECT_EQ(DoubleToSciText(1.5).view(), " 1.50000000000000E+0000");
  EXPECT_EQ(DoubleToSciText(-2.0 / 3e20).view(), "-6.66666666666667E-0021");
  EXPECT_EQ(DoubleToSciText(-std::numeric_limits<double>::infinity()).size(), 23);
}

TEST(ValueTextTest, KeywordTextsAndBooleans) {
  EXPECT_EQ(IntegerToKeywordText(kMaxInt).view(), "maxint");
  EXPECT_EQ(IntegerToKeywordText(-2147483647).view(), "-2147483647");
  EXPECT_EQ(DoubleToKeywordText(1e299).view(), "maxdouble");
  EXPECT_EQ(DoubleToKeywordText(1e-20).view(), "1E-20");
  for (const char *word : {"1", "y", "Yes", "ON", "true", "t"})
    EXPECT_EQ(ScanBoolean(word), Truth::kTrue) << word;
  for (const char *word : {"0", "n", "No", "off", "FALSE", "f"})
    EXPECT_EQ(ScanBoolean(word), Truth::kFalse) << word;
  for (const char *word : {"", "2", "yes ", "tru"})
    EXPECT_EQ(ScanBoolean(word), Truth::kNeither) << word;
}

}  // namespace
}  // namespace optkw
