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

constexpr const char *kDefinition = R"(maxiter integer 1 1000 0 100000 1 1 Iteration limit
tol     double 2 1e-6 0 1 1 1 Tolerance
mode    enumstr 3 fast 1 1 Search mode
 fast 1 Quick and rough
 full 1 Thorough
level   enumint 4 1 1 1 Output level
 0 1 Silent
 1 1 Normal
logname string 5 "run.log" 1 1 Log file name
verbose boolean 6 0 1 1 Print progress
tags    strlist 7 1 1 A tag; repeat for more
iters   synonym maxiter
)";

// A handle with the definition read from a file, in a directory of the test's own.
class Binding : public ::testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(dir);
    ASSERT_TRUE(opts.read_definition(Write("heron.def", kDefinition)));
  }
  void TearDown() override { fs::remove_all(dir); }
  std::string Write(const std::string &name, const std::string &content) const {
    std::ofstream(dir / name, std::ios::binary) << content;
    return (dir / name).string();
  }

  const fs::path dir =
      fs::temp_directory_path() / ("optkw-cpp-" + std::to_string(std::random_device()()));
  optkw::Options opts;
};

TEST_F(Binding, WholeCycleThroughFileStringAndWriteBack) {
  EXPECT_TRUE(opts.read_parameter_file(Write("run.opt", "* a run\niters 50\nmode FULL\ntags a\n")));
  EXPECT_TRUE(opts.read_parameters("tol 0.5\n\n* note\ntags b c\r\n"));
  EXPECT_EQ(opts.message_count(), 0);
  EXPECT_EQ(opts.find("ITERS"), 2);  // a synonym, in any case
  EXPECT_EQ(opts.get_int(2), 50);
  EXPECT_EQ(opts.get_double("tol"), 0.5);
  EXPECT_EQ(opts.get_string("mode"), "full");  // the definition's spelling
  EXPECT_EQ(opts.get_list("tags"), (std::vector<std::string>{"a", "b c"}));
  EXPECT_TRUE(opts.set_double(3, 0.25));
  EXPECT_TRUE(opts.set_int("level", 0));
  EXPECT_TRUE(opts.set_text("verbose", "yes"));
  EXPECT_TRUE(opts.set_string("logname", "heron run.log"));
  EXPECT_EQ(opts.enum_values("level").at(1).help, "Normal");

  opts.write_parameter_file((dir / "written.opt").string());
  optkw::Options again;
  ASSERT_TRUE(again.read_definition_text(kDefinition));
  EXPECT_TRUE(again.read_parameter_file((dir / "written.opt").string()));
  for (int nr = 1; nr <= opts.count(); ++nr) {
    EXPECT_EQ(again.get_text(nr), opts.get_text(nr)) << nr;
    EXPECT_EQ(again.info(nr)->defined, opts.info(nr)->defined) << nr;
  }
  EXPECT_EQ(again.get_list("tags"), opts.get_list("tags"));
}

TEST_F(Binding, FailuresSurfaceOnlyThroughResults) {
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(opts.get_int("nosuch"), std::nullopt);
  EXPECT_EQ(opts.get_string("maxiter"), std::nullopt);
  EXPECT_FALSE(opts.set_string("maxiter", "5"));
  EXPECT_FALSE(opts.reset("nosuch"));
  EXPECT_EQ(opts.get_text(0), std::nullopt);
  EXPECT_FALSE(opts.set_text(opts.count() + 1, "1"));
  EXPECT_EQ(opts.message_count(), 0);

  // Values the library refuses: false, and the queue says why.
  EXPECT_FALSE(opts.set_string("mode", "slow"));
  EXPECT_FALSE(opts.read_parameters("iters 1000000\nbogus 1"));
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(opts.get_string("mode"), "fast");
  EXPECT_EQ(opts.get_int("maxiter"), 100000);                 // brought in range
  const std::vector<optkw::Message> read = opts.messages(4);  // behind the three for "slow"
  ASSERT_EQ(read.size(), 7u);  // each line read comes with enter and leave messages
  EXPECT_EQ(read[1].text,
            "*** Value Error Value brought in range for option \"iters\" saw \"1000000\"");
  EXPECT_TRUE(read[1].type == optkw::MessageType::ValueError && read[1].is_error());
  EXPECT_EQ(read[5].type, optkw::MessageType::UserError);
  EXPECT_EQ(opts.error_count(), 6);
}

TEST_F(Binding, LongTextsAreNeitherReplacedNorCut) {
  const std::string longest(255, 'x');
  EXPECT_TRUE(opts.set_string("logname", longest));
  EXPECT_FALSE(opts.set_string("logname", longest + "y"));
  EXPECT_FALSE(opts.set_text("tags", longest + "y"));
  EXPECT_EQ(opts.get_string("logname"), longest);
  EXPECT_EQ(opts.get_list("tags")->size(), 0u);
  EXPECT_EQ(opts.find(std::string(300, 'm')), std::nullopt);
  opts.add_message(std::string(300, 'n'));
  EXPECT_EQ(opts.messages().back().text.size(), 255u);  // cut, not replaced

  // Parameter text and command lines of any length are read whole.
  EXPECT_TRUE(opts.set_eol_only(false));
  std::string line;
  for (int k = 0; k < 40; ++k)
    line += "tol=0.25 ";
  EXPECT_TRUE(opts.read_parameters(line + "iters 77"));
  EXPECT_EQ(opts.get_int("maxiter"), 77);
  EXPECT_TRUE(opts.read_command_line(line + "maxiter=78"));
  EXPECT_EQ(opts.get_int("maxiter"), 78);
}

TEST_F(Binding, FilesThatCantBeOpenedThrow) {
  const std::string missing = (dir / "missing.def").string();
  try {
    opts.read_definition(missing);
    ADD_FAILURE() << "no exception";
  } catch (const optkw::FileError &e) {
    EXPECT_EQ(e.code(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(e.path(), missing);
  }
  EXPECT_EQ(opts.error_count(), 2);  // the library's own account stays in the queue
  EXPECT_THROW(opts.read_parameter_file((dir / "missing.opt").string()), optkw::FileError);
  EXPECT_THROW(opts.write_parameter_file((dir / "no" / "x.opt").string()), optkw::FileError);
  EXPECT_THROW(opts.read_parameter_file(std::string(300, 'p')), std::system_error);
}

TEST(OptionsOwnership, MovingTransfersTheHandle) {
  static_assert(!std::is_copy_constructible_v<optkw::Options>);
  static_assert(!std::is_copy_assignable_v<optkw::Options>);
  static_assert(std::is_nothrow_move_constructible_v<optkw::Options>);
  static_assert(std::is_nothrow_move_assignable_v<optkw::Options>);

  optkw::Options a;
  ASSERT_TRUE(a.read_definition_text("x integer 1 5 0 10 1 1 X\n"));
  const optHandle_t handle = a.handle();
  optkw::Options b(std::move(a));
  EXPECT_FALSE(a.valid());
  EXPECT_EQ(b.handle(), handle);
  optkw::Options c;  // its own handle is freed by the assignment
  c = std::move(b);
  EXPECT_FALSE(b.valid());
  EXPECT_EQ(c.get_int("x"), 5);
}

}  // namespace
