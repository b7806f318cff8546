// The C++ interface as a client uses it: a whole cycle through optkw::Options, and what
// the header promises about failures, long texts, files and ownership.
#include "optkw.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace {

namespace fs = std::filesystem;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStdout;

constexpr const char *kDefinition = R"(* Options of Heron, a small example program.
limits  group 1 1 Limits
output  group 2 1 Output
maxiter integer 1 1000 0 100000 1 1 Iteration limit
tol     double 2 1e-6 0 1 1 1 Tolerance
mode    enumstr 3 fast 1 1 Search mode
 fast 1 Quick and rough
 full 1 Thorough
level   enumint 4 1 1 2 Output level
 0 1 Silent
 1 1 Normal
 2 1 Verbose
logname string 5 "run.log" 1 2 Log file name
verbose boolean 6 0 1 2 Print progress
tags    strlist 7 1 2 A tag; repeat for more
window  double.TWO 8 0.5 0 1 1 1 Step window
note    immediate Message 1 2 Add a note
iters   synonym maxiter
)";

std::vector<std::string> Texts(const std::vector<optkw::Message> &messages) {
  std::vector<std::string> texts;
  for (const optkw::Message &m : messages)
    texts.push_back(m.text);
  return texts;
}

// A handle with the definition read from a file, in a directory of the test's own.
class Binding : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("optkw-cpp-" + std::to_string(std::random_device()()));
    fs::create_directories(dir);
    definition = Write("heron.def", kDefinition);
    ASSERT_TRUE(opts.read_definition(definition))
        << ::testing::PrintToString(Texts(opts.messages()));
  }
  void TearDown() override { fs::remove_all(dir); }

  std::string Write(const std::string &name, const std::string &content) const {
    std::ofstream(dir / name, std::ios::binary) << content;
    return (dir / name).string();
  }

  fs::path dir;
  std::string definition;
  optkw::Options opts;
};

TEST_F(Binding, WholeCycleThroughFileStringAndWriteBack) {
  EXPECT_TRUE(
      opts.read_parameter_file(Write("run.opt", "* a run\niters 50\nmode FULL\ntags first\n")));
  EXPECT_TRUE(opts.read_parameters(
      "tol 0.5\r\n\n* comment\nlogname first.log\r\ntags second one\nwindow 0.1 0.9"));
  EXPECT_EQ(opts.message_count(), 0);

  EXPECT_EQ(opts.find("ITERS"), 2);  // a synonym, in any case
  EXPECT_EQ(opts.get_int(std::string("maxiter")), 50);
  EXPECT_EQ(opts.get_int(2), 50);
  EXPECT_EQ(opts.get_double("tol"), 0.5);
  EXPECT_EQ(opts.get_string("mode"), "full");  // the definition's spelling
  EXPECT_EQ(opts.get_string("logname"), "first.log");
  EXPECT_EQ(opts.get_string("level"), std::nullopt);
  EXPECT_EQ(opts.get_int("level"), 1);  // the default
  EXPECT_EQ(opts.get_list("tags"), (std::vector<std::string>{"first", "second one"}));
  EXPECT_EQ(opts.get_text("window"), "0.1");

  EXPECT_TRUE(opts.set_double(3, 0.25));
  EXPECT_TRUE(opts.set_int("level", 2));
  EXPECT_TRUE(opts.set_text("verbose", "yes"));
  EXPECT_TRUE(opts.set_string("logname", "heron run.log"));

  const std::string written = (dir / "written.opt").string();
  opts.write_parameter_file(written);
  optkw::Options again;
  ASSERT_TRUE(again.read_definition(definition));
  EXPECT_TRUE(again.read_parameter_file(written))
      << ::testing::PrintToString(Texts(again.messages()));
  for (int nr = 1; nr <= opts.count(); ++nr) {
    SCOPED_TRACE(opts.info(nr)->name);
    EXPECT_EQ(again.get_text(nr), opts.get_text(nr));
    EXPECT_EQ(again.info(nr)->defined, opts.info(nr)->defined);
  }
  EXPECT_EQ(again.get_list("tags"), opts.get_list("tags"));
}

TEST_F(Binding, MessagesAndCounts) {
  EXPECT_FALSE(opts.read_parameters("iters 1000000\nbogus 1\nmode full"));
  EXPECT_EQ(opts.get_int("maxiter"), 100000);  // brought in range
  EXPECT_EQ(opts.get_string("mode"), "full");  // reading went on
  EXPECT_EQ(opts.error_count(), 3);
  const std::vector<optkw::Message> all = opts.messages();
  ASSERT_EQ(all.size(), 7u);  // each line in its own enter and leave messages
  EXPECT_EQ(all[1].text,
            "*** Value Error Value brought in range for option \"iters\" saw \"1000000\"");
  EXPECT_TRUE(all[1].type == optkw::MessageType::ValueError && all[1].is_error());
  EXPECT_EQ(all[5].type, optkw::MessageType::UserError);
  EXPECT_EQ(opts.messages(6).size(), 2u);

  opts.add_message(std::string(300, 'n'));
  const std::string added = opts.messages(8).at(0).text;  // cut, not replaced
  EXPECT_EQ(added.substr(0, 20), "*** Error nnnnnnnnnn");
  EXPECT_EQ(added.size(), 255u);
  opts.clear_messages();

  opts.set_no_bounds(true);
  EXPECT_TRUE(opts.read_parameters("iters -5"));
  EXPECT_EQ(opts.warning_count(), 2);
  EXPECT_TRUE(opts.messages().at(1).is_warning());
  EXPECT_TRUE(opts.set_int("verbose", 2));  // let through with warnings
}

TEST_F(Binding, FailuresSurfaceOnlyThroughResults) {
  CaptureStdout();
  EXPECT_EQ(opts.get_int("nosuch"), std::nullopt);
  EXPECT_EQ(opts.get_int("logname"), std::nullopt);
  EXPECT_EQ(opts.get_string("maxiter"), std::nullopt);
  EXPECT_EQ(opts.get_list("mode"), std::nullopt);
  EXPECT_FALSE(opts.set_int("logname", 3));
  EXPECT_FALSE(opts.set_double("maxiter", 2.0));
  EXPECT_FALSE(opts.set_string("maxiter", "5"));
  EXPECT_FALSE(opts.set_text("note", "hello"));  // immediates act in parameter text only
  EXPECT_FALSE(opts.reset("nosuch"));
  EXPECT_EQ(GetCapturedStdout(), "");
  EXPECT_EQ(opts.message_count(), 0);
  EXPECT_EQ(opts.get_int("maxiter"), 1000);

  for (int nr : {0, -1, opts.count() + 1}) {
    EXPECT_EQ(opts.get_text(nr), std::nullopt);
    EXPECT_FALSE(opts.set_text(nr, "1"));
  }

  // Values the library refuses: false, and the queue says why.
  EXPECT_FALSE(opts.set_string("mode", "slow"));
  EXPECT_FALSE(opts.set_int("verbose", 2));
  EXPECT_FALSE(opts.set_string("logname", "a\"b"));
  EXPECT_EQ(opts.get_string("mode"), "fast");
  EXPECT_EQ(opts.error_count(), 7);
}

TEST_F(Binding, LongTextsAreNeitherReplacedNorCut) {
  const std::string longest(255, 'x');
  EXPECT_TRUE(opts.set_string("logname", longest));
  EXPECT_EQ(opts.get_string("logname"), longest);
  EXPECT_FALSE(opts.set_string("logname", longest + "y"));
  EXPECT_FALSE(opts.set_text("tags", longest + "y"));
  EXPECT_EQ(opts.get_string("logname"), longest);
  EXPECT_EQ(opts.get_list("tags")->size(), 0u);
  EXPECT_EQ(opts.find(std::string(300, 'm')), std::nullopt);

  // Parameter text and command lines of any length are read whole.
  EXPECT_TRUE(opts.set_eol_only(false));
  std::string line, command;
  for (int k = 0; k < 40; ++k)
    line += "tol 0.25 ", command += "tol=0.5 ";
  EXPECT_TRUE(opts.read_parameters(line + "iters 77"));
  EXPECT_EQ(opts.get_int("maxiter"), 77);
  EXPECT_TRUE(opts.read_command_line(command + "maxiter=78"));
  EXPECT_EQ(opts.get_int("maxiter"), 78);
  EXPECT_EQ(opts.get_double("tol"), 0.5);
  EXPECT_FALSE(opts.set_eol_only(true));
}

TEST_F(Binding, FilesThatCantBeOpenedThrow) {
  const std::string missing = (dir / "missing.def").string();
  optkw::Options fresh;
  try {
    fresh.read_definition(missing);
    ADD_FAILURE() << "no exception";
  } catch (const optkw::FileError &e) {
    EXPECT_EQ(e.code(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(e.path(), missing);
  }
  EXPECT_EQ(fresh.error_count(), 2);  // the library's own account stays in the queue
  EXPECT_THROW(opts.read_parameter_file((dir / "missing.opt").string()), optkw::FileError);
  EXPECT_THROW(opts.write_parameter_file((dir / "no" / "x.opt").string()), optkw::FileError);
  try {
    opts.read_parameter_file(std::string(300, 'p'));
    ADD_FAILURE() << "no exception";
  } catch (const std::system_error &e) {
    EXPECT_EQ(e.code(), std::errc::filename_too_long);
  }
}

TEST_F(Binding, DefinitionFromText) {
  optkw::Options fresh;
  EXPECT_TRUE(fresh.read_definition_text(kDefinition));
  EXPECT_EQ(fresh.count(), opts.count());
  EXPECT_EQ(fresh.enum_values("mode").size(), 2u);  // continuation lines count

  optkw::Options faulty;
  EXPECT_FALSE(faulty.read_definition_text("a integer 1 5 0 10 1 1 A\nb integre 2 1 1 B\n"));
  EXPECT_NE(faulty.messages().at(0).text.find("line 2"), std::string::npos);
  EXPECT_EQ(faulty.get_int("a"), 5);
}

TEST_F(Binding, MetadataAndState) {
  EXPECT_EQ(opts.count(), 10);  // "Help" is number 1
  const std::optional<optkw::OptionInfo> iters = opts.info("iters");
  ASSERT_TRUE(iters);
  EXPECT_EQ(iters->name, "maxiter");
  EXPECT_EQ(iters->type, optkw::OptionType::Integer);
  EXPECT_EQ(iters->ref_nr, 1);
  EXPECT_EQ(iters->group, 1);
  EXPECT_EQ(iters->help, "Iteration limit");
  EXPECT_TRUE(opts.info("window")->two_values);
  EXPECT_EQ(opts.info("tags")->type, optkw::OptionType::StrList);

  EXPECT_EQ(opts.int_bounds("maxiter")->upper, 100000);
  EXPECT_EQ(opts.int_bounds("tol"), std::nullopt);
  EXPECT_EQ(opts.double_bounds("tol")->default_value, 1e-6);
  EXPECT_EQ(opts.string_default("logname"), "run.log");
  const std::vector<optkw::EnumValue> levels = opts.enum_values("level");
  ASSERT_EQ(levels.size(), 3u);
  EXPECT_TRUE(levels[2].text == "2" && levels[2].number == 2 && levels[2].help == "Verbose");
  EXPECT_EQ(opts.enum_values("mode").at(1).text, "full");
  EXPECT_TRUE(opts.enum_values("maxiter").empty());

  const std::vector<std::string> help = opts.help("mode");
  ASSERT_EQ(help.size(), 4u);
  EXPECT_EQ(help[0], "mode: Search mode");
  EXPECT_EQ(opts.messages().back().type, optkw::MessageType::Help);

  // Set, recent, and the resets.
  opts.set_int("maxiter", 5);
  EXPECT_TRUE(opts.info("maxiter")->defined && opts.info("maxiter")->recent);
  opts.reset_all_recent();
  EXPECT_TRUE(opts.info("maxiter")->defined);
  EXPECT_FALSE(opts.info("maxiter")->recent);
  opts.set_int("level", 0);
  opts.reset_recent_changes();
  EXPECT_EQ(opts.get_int("level"), 1);
  EXPECT_EQ(opts.get_int("maxiter"), 5);
  EXPECT_TRUE(opts.reset("iters"));
  EXPECT_EQ(opts.get_int("maxiter"), 1000);
  opts.set_double("tol", 0.5);
  opts.reset_all();
  EXPECT_EQ(opts.get_double("tol"), 1e-6);
  EXPECT_EQ(opts.message_count(), 0);  // the help lines went too
}

TEST(OptionsOwnership, MovingTransfersTheHandle) {
  static_assert(!std::is_copy_constructible_v<optkw::Options>);
  static_assert(!std::is_copy_assignable_v<optkw::Options>);
  static_assert(std::is_nothrow_move_constructible_v<optkw::Options>);
  static_assert(std::is_nothrow_move_assignable_v<optkw::Options>);

  optkw::Options a;
  ASSERT_TRUE(a.read_definition_text("x integer 1 5 0 10 1 1 X\n"));
  ASSERT_TRUE(a.set_int("x", 7));
  const optHandle_t handle = a.handle();
  optkw::Options b(std::move(a));
  EXPECT_FALSE(a.valid());
  EXPECT_EQ(b.handle(), handle);
  EXPECT_EQ(b.get_int("x"), 7);

  optkw::Options c;  // its own handle is freed by the assignment
  c = std::move(b);
  EXPECT_FALSE(b.valid());
  EXPECT_EQ(c.get_int("x"), 7);
}

}  // namespace
