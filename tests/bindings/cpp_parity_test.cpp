// What the C++ interface adds for users beside the library's own answers:
// suggestions, both values of a two-valued option, what differs from the
// defaults, command lines of several options, and types that print by name.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "optkw.hpp"

namespace {

constexpr const char *kDefinition = R"(threads integer 1 1 1 64 1 1 Worker threads
cfl double 2 0.5 0 10 1 1 Courant number
window integer.TWO 3 10 0 100 1 1 A window, lower and upper
span double.TWO 4 1.5 0 9 1 1 A span
label string.TWO 5 "a" 1 1 Two labels
method enumstr 6 auto 1 1 Solution method
 auto 1 Let the solver choose
 barrier 1 Interior point
 simplex 1 Simplex
tags strlist 7 1 1 A tag; repeat for more
workers synonym threads
)";

std::vector<std::string> Split(const std::string &text) {
  std::vector<std::string> parts;
  std::stringstream in(text);
  for (std::string part; std::getline(in, part, ',');)
    parts.push_back(part);
  return parts;
}

TEST(Suggestions, AgreeWithTheSharedTable) {
  std::ifstream cases(OPTKW_FIXTURES "/bindings/suggestions.txt");
  int checked = 0;
  for (std::string line; std::getline(cases, line);) {
    if (line.empty() || line[0] == '#') continue;
    const size_t a = line.find('|'), b = line.find('|', a + 1);
    const std::string typed = line.substr(0, a);
    EXPECT_EQ(optkw::ClosestNames(typed, Split(line.substr(a + 1, b - a - 1))),
              Split(line.substr(b + 1)))
        << typed;
    ++checked;
  }
  EXPECT_GT(checked, 10);
}

class Parity : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(options.read_definition_text(kDefinition)); }
  optkw::Options options;
};

TEST_F(Parity, SuggestsNamesSynonymsAndValues) {
  EXPECT_EQ(options.suggest("thraeds"), std::vector<std::string>{"threads"});
  EXPECT_EQ(options.suggest("workrs"), std::vector<std::string>{"workers"});
  EXPECT_EQ(options.suggest("nothing_like_it"), std::vector<std::string>{});
  EXPECT_EQ(options.suggest_value("method", "simplx"), std::vector<std::string>{"simplex"});
  EXPECT_EQ(options.suggest_value("threads", "4"), std::vector<std::string>{});
}

TEST_F(Parity, BothValuesOfTwoValuedOptions) {
  EXPECT_EQ(options.get_int_pair("window"), std::pair(10, 10));
  EXPECT_TRUE(options.set_int_pair("window", 3, 7));
  EXPECT_EQ(options.get_int_pair("window"), std::pair(3, 7));
  EXPECT_FALSE(options.set_int_pair("window", 3, 700));  // brought in range: an error
  EXPECT_EQ(options.get_int_pair("window"), std::pair(3, 100));
  EXPECT_TRUE(options.set_double_pair("span", 0.25, 2));
  EXPECT_EQ(options.get_double_pair("span"), std::pair(0.25, 2.0));
  EXPECT_TRUE(options.set_text_pair("label", "x", "y z"));
  EXPECT_EQ(options.get_text_pair("label"), std::pair(std::string("x"), std::string("y z")));
  // One-valued options have no pair.
  EXPECT_EQ(options.get_int_pair("threads"), std::nullopt);
  EXPECT_FALSE(options.set_int_pair("threads", 1, 2));
  EXPECT_EQ(options.get_int("threads"), 1);
}

TEST_F(Parity, ChangedMeansDifferentFromTheDefault) {
  EXPECT_TRUE(options.changed().empty());
  options.read_command_line("threads=1 cfl=2 --tag x");
  // threads was set to its default: assigned, yet not changed. The "--tag" list that the
  // command line made holds an entry.
  const int tag_list = *options.find("--tag");
  EXPECT_EQ(options.changed(), (std::vector<int>{*options.find("cfl"), tag_list}));
  options.read_command_line("tags a window=10 20");
  EXPECT_EQ(options.changed(), (std::vector<int>{*options.find("cfl"), *options.find("window"),
                                                 *options.find("tags"), tag_list}));
}

TEST_F(Parity, ACommandLineHoldsManyOptionsWhateverEolOnlySays) {
  EXPECT_TRUE(options.set_eol_only(true));
  EXPECT_TRUE(options.read_command_line("threads=4 cfl=2 label=\"p q\" r"));
  EXPECT_EQ(options.get_int("threads"), 4);
  EXPECT_EQ(options.get_double("cfl"), 2.0);
  EXPECT_EQ(options.get_text_pair("label"), std::pair(std::string("p q"), std::string("r")));
  // The switch is the client's again afterwards, and a "--" key collects a list.
  EXPECT_TRUE(options.set_eol_only(true));
  options.read_command_line("--tag first --tag second");
  EXPECT_EQ(options.get_list("--tag"), (std::vector<std::string>{"first", "second"}));
}

TEST_F(Parity, TypesPrintByName) {
  EXPECT_EQ(options.option_type("span"), optkw::OptionType::Double);
  EXPECT_EQ(options.option_type("nosuch"), std::nullopt);
  std::ostringstream out;
  out << *options.option_type("method") << ' ' << optkw::MessageType::ValueError;
  EXPECT_EQ(out.str(), "enumstr optMsgValueError");
  options.read_command_line("threads=x");
  ASSERT_FALSE(options.messages().empty());
  EXPECT_STREQ(optkw::to_string(options.messages()[1].type), "optMsgValueError");
}

}  // namespace
