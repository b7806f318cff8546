// The table of the interface against the shared object: every row exported
// under both names, a C-string form exactly where the row passes counted
// strings, xcheck answering for every row, and nothing else exported.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "api/c_strings.h"
#include "api/interface_table.h"
#include "api/loaded_library.h"

namespace optkw::test {
namespace {

using CheckFn = int(const char *, int, const int *, char *);

// Every name the shared object should export: the frame and the rows, each
// under its own name and with "_", and the C-string forms where a row has one.
std::set<std::string> ExpectedExports() {
  std::istringstream frame(
      "xcreate optxcreate optcreate xfree optxfree optfree xapiversion optxapiversion cxapiversion "
      "xcheck optxcheck cxcheck optsetloadpath optgetloadpath coptsetloadpath coptgetloadpath");
  std::vector<std::string> names(std::istream_iterator<std::string>(frame), {});
  for (const InterfaceRow &row : InterfaceRows()) {
    names.emplace_back(row.lower);
    if (row.has_c_form) names.push_back("c" + std::string(row.lower));
  }
  std::set<std::string> both;
  for (const std::string &name : names)
    both.insert({name, name + "_"});
  return both;
}

TEST(InterfaceTable, HasTheRowsOfTheInterface) {
  ASSERT_EQ(InterfaceRows().size(), 90u);
  EXPECT_EQ(std::count_if(InterfaceRows().begin(), InterfaceRows().end(),
                          [](const InterfaceRow &row) { return row.has_c_form; }),
            53);
}

TEST(InterfaceTable, EveryRowIsExportedAndChecksItself) {
  LoadedLibrary library;
  ASSERT_TRUE(library.loaded());
  auto check = library.Function<CheckFn>("cxcheck");
  for (const InterfaceRow &row : InterfaceRows()) {
    const std::string lower(row.lower);
    SCOPED_TRACE(lower);
    EXPECT_NE(library.Find(lower), nullptr);
    EXPECT_EQ(library.Find(lower), library.Find(lower + "_")) << "both names lead to one function";
    EXPECT_EQ(library.Find("c" + lower) != nullptr, row.has_c_form);
    EXPECT_EQ(library.Find("c" + lower + "_") != nullptr, row.has_c_form);
    char message[256];
    EXPECT_EQ(check(std::string(row.name).c_str(), row.arg_count, row.codes.data(), message), 1);
    EXPECT_STREQ(message, "");
  }
}

TEST(InterfaceTable, ExportsNothingElse) {
  FILE *pipe = popen("nm -D --defined-only " OPTKW_LIBRARY, "r");
  ASSERT_NE(pipe, nullptr);
  std::set<std::string> exported;
  char line[512];
  while (std::fgets(line, sizeof line, pipe)) {
    char address[64], kind[8], name[256];
    if (std::sscanf(line, "%63s %7s %255s", address, kind, name) == 3) exported.insert(name);
  }
  ASSERT_EQ(pclose(pipe), 0);
  EXPECT_EQ(exported, ExpectedExports());
  EXPECT_EQ(exported.size(), 2u * (90 + 53 + 16));
}

struct CheckCase {
  std::string name;
  int arg_count;
  std::vector<int> codes;
  int result;
  std::string message;
};

TEST(SignatureCheck, SaysWhatIsWrong) {
  const CheckCase cases[] = {
      {"optGetIntNr",
       2,
       {3, 4, 3},
       0,
       "optkwlib: optGetIntNr has wrong argument type for argument 1,2"},
      {"optGetIntNr",
       2,
       {0, 3, 4},
       0,
       "optkwlib: optGetIntNr has wrong argument type for argument 0"},
      {"optCount",
       2,
       {3, 3, 3},
       0,
       "optkwlib: optCount has wrong number of arguments, the API expects 2 but it has 0 in the "
       "library."},
      {"optreadparameterfile",
       1,
       {3, 11},
       0,
       "optkwlib: optreadparameterfile cannot be found in the library."},
      {"optLookup", 1, {3, 11}, 0, "optkwlib: optLookup cannot be found in the library."},
      {"coptReadParameterFile",
       1,
       {3, 11},
       0,
       "optkwlib: coptReadParameterFile cannot be found in the library."},
      {"optLookUp", 1, {3, 11}, 1, ""},
      {"optEOLOnlySet", 1, {3, 3}, 1, ""},
      {"optEchoSet", 1, {0, 3}, 1, ""},
      {"optGetStrStr", 1, {12, 11}, 1, ""},
      {"optResetStr", 1, {15, 11}, 1, ""},
  };
  for (const CheckCase &c : cases) {
    ShortStr message("unchanged");
    EXPECT_EQ(CheckSignature(ShortStr(c.name), c.arg_count, c.codes.data(), message), c.result)
        << c.name;
    EXPECT_EQ(message.view(), c.message);
  }
}

TEST(SignatureCheck, CountedAndCStringForms) {
  LoadedLibrary library;
  ASSERT_TRUE(library.loaded());
  const int codes[] = {0, 11};
  char message[256];
  EXPECT_EQ(
      library.Function<CheckFn>("xcheck_")(Counted("optAddMessage").c_str(), 1, codes, message), 1);
  EXPECT_EQ(FromCounted(message), "");
  // A name of 255 bytes or more is checked as the overflow text.
  EXPECT_EQ(library.Function<CheckFn>("cxcheck")(std::string(300, 'a').c_str(), 1, codes, message),
            0);
  EXPECT_STREQ(message, "optkwlib: PCharToStr Overflow cannot be found in the library.");
}

TEST(CStrings, LongTextsAreReplacedNotCut) {
  EXPECT_EQ(StrFromC(std::string(254, 'x').c_str()).view(), std::string(254, 'x'));
  EXPECT_EQ(StrFromC(std::string(255, 'x').c_str()).view(), "PCharToStr Overflow");
  EXPECT_EQ(StrFromC(std::string(1000, 'x').c_str()).view(), "PCharToStr Overflow");
  EXPECT_EQ(StrFromC(nullptr).view(), "");
  char buffer[256];
  std::memset(buffer, '#', sizeof buffer);
  StrToC(buffer, ShortStr(std::string(255, 'y')));
  EXPECT_EQ(std::string(buffer), std::string(255, 'y'));
}

}  // namespace
}  // namespace optkw::test
