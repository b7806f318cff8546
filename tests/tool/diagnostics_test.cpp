// The parts of optkw check that read the library's messages: where each one
// belongs, what it names, and the hints drawn from a definition.
#include <gtest/gtest.h>

#include "optkw_suggest.hpp"

#include "diagnostics.h"
#include "hints.h"

namespace optkw_tool {
namespace {

std::vector<Message> Queue(std::initializer_list<Message> messages) {
  return messages;
}

TEST(Locate, FollowsNestedFilesAndTheirLines) {
  const auto located =
      Locate(Queue({{"Reading parameter(s) from \"outer.opt\"", optMsgFileEnter},
                    {"Reading parameter(s) from \"inner.opt\"", optMsgFileEnter},
                    {"*** Value Error line 2: Double expected for option \"tol\" saw \"x\"", 3},
                    {"*** Value Error line 2:    Option ignored", 3},
                    {"Finished reading from \"inner.opt\"", optMsgFileLeave},
                    {"*** Error line 7: Unknown option \"thraeds\"", 9},
                    {"Finished reading from \"outer.opt\"", optMsgFileLeave}}),
             "outer.opt", true);
  ASSERT_EQ(located.size(), 7u);
  EXPECT_EQ(located[2].source, "inner.opt");
  EXPECT_EQ(located[2].line, 2);
  EXPECT_EQ(located[2].option, "tol");
  EXPECT_FALSE(located[2].follow_up);
  EXPECT_TRUE(located[3].follow_up);
  EXPECT_EQ(located[3].option, "tol");  // carried to the further line
  EXPECT_EQ(located[5].source, "outer.opt");
  EXPECT_EQ(located[5].line, 7);
  EXPECT_EQ(located[5].option, "thraeds");
  EXPECT_TRUE(IsMistake(located[2]));
  EXPECT_FALSE(IsMistake(located[3]));
}

TEST(Locate, SurvivesBracketsThatTheQueueDropped) {
  // The enter of c.opt was dropped; its leave must not close the files that
  // are still open.
  const auto located = Locate(Queue({{"Reading parameter(s) from \"a.opt\"", optMsgFileEnter},
                                     {"Reading parameter(s) from \"b.opt\"", optMsgFileEnter},
                                     {"Finished reading from \"c.opt\"", optMsgFileLeave},
                                     {"*** Error line 3: Unknown option \"x\"", 9},
                                     {"Finished reading from \"b.opt\"", optMsgFileLeave},
                                     {"*** Error line 5: Unknown option \"y\"", 9}}),
                              "a.opt", true);
  EXPECT_EQ(located[3].source, "b.opt");
  EXPECT_EQ(located[5].source, "a.opt");
  // Without any bracket a message belongs to the source read.
  const auto bare = Locate(Queue({{"*** Warning line 4: Value brought in range for option "
                                   "\"a\" saw \"9\"",
                                   optMsgValueWarning}}),
                           "string", false);
  EXPECT_EQ(bare[0].source, "string");
  EXPECT_FALSE(bare[0].from_file);
  EXPECT_FALSE(IsMistake(bare[0]));  // warnings are no mistakes
}

TEST(Locate, TakesAFailedOpenAsOneMistakeAndLeavesOddTextsAlone) {
  const auto located =
      Locate(Queue({{"*** Error Cannot open parameter file \"no.opt\"", 9},
                    {"*** Error Error code = 2; No such file or directory", 9},
                    {"*** Error line 12x: not a line prefix", 9},
                    {"Reading parameter(s) from \"cut-at-255-without-a-closing-quote", 6}}),
             "no.opt", true);
  EXPECT_TRUE(IsMistake(located[0]));
  EXPECT_TRUE(located[1].follow_up);
  EXPECT_EQ(located[2].line, 0);
  EXPECT_EQ(located[3].source, "cut-at-255-without-a-closing-quote");
  EXPECT_EQ(BareText(located[0].text, 9), "Cannot open parameter file \"no.opt\"");
}

TEST(ClosestNames, FindsSlipsAndAbbreviationsButNotStrangers) {
  const std::vector<std::string> names = {"threads", "iteration_limit", "major iter limit"};
  using List = std::vector<std::string>;
  EXPECT_EQ(optkw::ClosestNames("thraeds", names), List{"threads"});
  EXPECT_EQ(optkw::ClosestNames("THREADS", names), List{});  // the name itself
  EXPECT_EQ(optkw::ClosestNames("iteration_limt", names), List{"iteration_limit"});
  EXPECT_EQ(optkw::ClosestNames("it_lim", names), List{"iteration_limit"});
  EXPECT_EQ(optkw::ClosestNames("major_iter_limit", names), List{"major iter limit"});
  EXPECT_EQ(optkw::ClosestNames("seed", names), List{});
  EXPECT_EQ(optkw::ClosestNames("7", {"0", "1", "101"}), List{});
  // Nearest first, ties in the order given, three at most, no repeats.
  EXPECT_EQ(optkw::ClosestNames("tol", {"tolx", "TOL2", "tola", "tolb", "tolx"}),
            (List{"tolx", "TOL2", "tola"}));
  EXPECT_EQ(optkw::DidYouMean({"a", "b", "c"}), "did you mean \"a\", \"b\" or \"c\"?");
  EXPECT_EQ(optkw::DidYouMean({"a"}), "did you mean \"a\"?");
  EXPECT_EQ(optkw::DidYouMean({}), "");
}

TEST(AddHints, NamesAnOptionOrAValueAndNothingElse) {
  DefinitionModel model;
  OptionInfo method;
  method.name = method.key = "method";
  method.values = {{"auto", 1, ""}, {"barrier", 1, ""}};
  method.synonyms = {{"algorithm", std::nullopt}};
  model.options.push_back(method);
  auto located =
      Locate(Queue({{"*** Error Unknown option \"methd\"", 9},
                    {"*** Value Error Unknown value for option \"algorithm\" saw \"barier\"", 3},
                    {"*** Value Error    Possible values are  auto barrier", 3},
                    {"*** Error Option keyword expected, saw \"5\"", 9}}),
             "string", false);
  AddHints(located, model);
  EXPECT_EQ(located[0].hint, "did you mean \"method\"?");
  EXPECT_EQ(located[1].hint, "did you mean \"barrier\"?");  // found through the synonym
  EXPECT_EQ(located[2].hint, "");
  EXPECT_EQ(located[3].hint, "");
}

}  // namespace
}  // namespace optkw_tool
