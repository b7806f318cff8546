// The reading driver: the sources and the messages that bracket them, files
// nested through the ReadFile option, and the end-of-line flag of a source.
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "parameters/solver_handle.h"

namespace optkw::test {
namespace {

using Said = std::vector<Message>;
Message Enter(const std::string &name) {
  return {"Reading parameter(s) from \"" + name + "\"", optMsgFileEnter};
}
Message Leave(const std::string &name) {
  return {"Finished reading from \"" + name + "\"", optMsgFileLeave};
}
Message Error(const std::string &text) {
  return {"*** Error " + text, optMsgUserError};
}
const Message kEmpty{"*** Warning Read from empty file or string", optMsgValueWarning};

// A source that says nothing leaves no trace; a text is one line.
TEST(ReadingDriver, SourcesAreNamedAndFoldedWhenSilent) {
  struct Source {
    std::string name;
    void (*read)(tvlmoptions &, const char *);
  };
  const Source sources[] = {
      {"string", [](tvlmoptions &db, const char *t) { optReadFromStr(db, ShortStr(t)); }},
      {"pchar", optReadFromPChar},
      {"command line", optReadFromCmdLine},
  };
  for (const Source &source : sources) {
    SolverHandle s;
    optAddMessage(s.db, ShortStr("earlier"));
    source.read(s.db, "maxiter 7\nzz 1");
    source.read(s.db, "zz 1");
    source.read(s.db, "");
    // A counted string stops at 255 bytes; a C string has no limit.
    source.read(s.db, (std::string(300, ' ') + "maxiter 8").c_str());
    EXPECT_EQ(s.State(), Texts{source.name == "string" ? "maxiter = 7" : "maxiter = 8"});
    EXPECT_EQ(Messages(s.db),
              (Said{Error("earlier"), Enter(source.name), Error("Unknown option \"zz\""),
                    Leave(source.name), Enter(source.name), kEmpty, Leave(source.name)}))
        << source.name;
  }
}

// A file's messages carry their line, but help lines don't. A file that can't
// be opened gives two messages and no bracket; named by a ReadFile option, it
// is the inner scanner, still on its line 0, that reports them.
TEST(ReadingDriver, Files) {
  SolverHandle s;
  TempDir dir;
  const std::string missing = (dir.path() / "missing.opt").string();
  const std::string run =
      dir.Write("run.opt", "* limits\n\nmaxiter 5\n rf " + missing + "\nzz 1\nhelp\n");
  const std::string empty = dir.Write("empty.opt", "");
  const std::string echoed = dir.Write("echoed.opt", "maxiter 7\n");
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(missing)), ENOENT);
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(run)), 0);
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(dir.Write("comments.opt", "* only this\n\n"))), 0);
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(empty)), 0);
  optEchoSet(s.db, 1);  // the echo keeps the bracket
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(echoed)), 0);
  const Message cannot = Error("Cannot open parameter file \"" + missing + "\"");
  const Message code = Error("Error code = " + std::to_string(ENOENT) + "; " + strerror(ENOENT));
  const Message help("", optMsgHelp), echo(">>  maxiter 7", optMsgInputEcho);
  EXPECT_EQ(
      Messages(s.db),
      (Said{cannot, code, Enter(run), cannot, code, Error("line 5: Unknown option \"zz\""), help,
            Leave(run), Enter(empty), kEmpty, Leave(empty), Enter(echoed), echo, Leave(echoed)}));
  EXPECT_EQ(s.State(), Texts{"maxiter = 7"});
  EXPECT_EQ(s.db.NestedReads, 0);
  EXPECT_EQ(s.db.Parser, nullptr);
}

// Each file sets maxiter to its level and reads the next one; a read that
// begins with a string is no level.
TEST(ReadingDriver, NinthNestedFileIsReadAndTheTenthRefused) {
  for (const bool from_string : {false, true}) {
    SolverHandle s;
    TempDir dir;
    std::vector<std::string> files(12);
    for (int level = 10; level >= 1; --level) {
      const std::string text = "maxiter " + std::to_string(level) + "\nrf " + files[level + 1];
      files[level] = dir.Write("level" + std::to_string(level) + ".opt", text);
    }
    Said expected;
    for (int level = 1; level <= 10; ++level)
      expected.push_back(Enter(files[level]));
    expected.push_back(Error("File nesting level too deep; file ignored"));
    for (int level = 10; level >= 1; --level)
      expected.push_back(Leave(files[level]));
    if (from_string) {
      optReadFromStr(s.db, ShortStr("rf " + files[1]));
      expected.insert(expected.begin(), Enter("string"));
      expected.push_back(Leave("string"));
    } else {
      EXPECT_EQ(optReadParameterFile(s.db, ShortStr(files[1])), 0);
    }
    EXPECT_EQ(Messages(s.db), expected) << "from a string: " << from_string;
    EXPECT_EQ(s.State(), Texts{"maxiter = 9"});
    EXPECT_EQ(s.db.NestedReads, 0);
  }
}

// The end-of-line flag is a copy of EolOnly for each source: a nested file and a
// later read start from EolOnly again, and the outer file keeps its own flag.
TEST(ReadingDriver, EolFlagBelongsToOneSource) {
  SolverHandle s;
  TempDir dir;
  const std::string inner = dir.Write("inner.opt", "cuts x y\n");
  const std::string outer = dir.Write("outer.opt", "eol no\nrf " + inner + "\ncuts p q\n");
  ASSERT_TRUE(s.db.EolOnly);
  EXPECT_EQ(optReadParameterFile(s.db, ShortStr(outer)), 0);
  optReadFromStr(s.db, ShortStr("cuts r s"));
  EXPECT_EQ(s.State(), Texts{"cuts = x y | p | r s"});
}

}  // namespace
}  // namespace optkw::test
