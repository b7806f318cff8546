// The library lives inside its client's process: whatever a definition, a
// parameter file or the disk does, every call returns with messages and leaves
// the handle usable. These cases used to crash, abort or hang the process;
// CTest's time limit turns a hang into a failure.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "optkw.h"
#include "support/test_support.h"

namespace optkw::test {
namespace {

class Client {
 public:
  Client() { xcreate(&h); }
  ~Client() { xfree(&h); }
  Client(const Client &) = delete;
  Client &operator=(const Client &) = delete;

  int Define(const std::string &text) { return optReadDefinitionFromPChar(h, text.c_str()); }
  int DefineFile(const std::string &path) { return coptReadDefinition(h, path.c_str()); }
  void Read(const std::string &text) { optReadFromPChar(h, text.c_str()); }
  int Int(const char *name) { return coptGetIntStr(h, name); }
  int Number(const char *name) {
    int nr = 0, ref = 0;
    coptFindStr(h, name, &nr, &ref);
    return nr;
  }
  std::vector<std::string> Messages() {
    std::vector<std::string> texts;
    char text[256];
    for (int nr = 1; nr <= optMessageCount(h); ++nr) {
      int type = 0;
      coptGetMessage(h, nr, text, &type);
      texts.emplace_back(text);
    }
    optClearMessages(h);
    return texts;
  }
  // Still answers after whatever came before.
  void ExpectUsable() {
    optClearMessages(h);
    Read("x 3");
    EXPECT_EQ(Int("x"), 3);
    EXPECT_EQ(optMessageCount(h), 0);
  }

  optHandle_t h = nullptr;
};

constexpr const char *kTarget = "x integer 1 0 0 100 1 1 the option at the end of every chain\n";

std::string Error(int code) {
  return "*** Error Error code = " + std::to_string(code) + "; " + std::strerror(code);
}

TEST(HostSafety, MemberChainsThatComeBackStopThere) {
  Client c;
  ASSERT_EQ(c.DefineFile(TempDir().Write("self.def", std::string(kTarget) +
                                                         "m multilist 1 1 1 names itself\n"
                                                         " m x\n"
                                                         "k macro 1 1 a macro over m\n"
                                                         " m\n")),
            0);
  c.Read("m 1");  // m hands 1 to itself: skipped, and 1 goes no further
  c.Read("m 9:4");
  EXPECT_EQ(c.Int("x"), 4);
  EXPECT_EQ(coptSetStrNr(c.h, c.Number("m"), "7:5"), 1);
  EXPECT_EQ(c.Int("x"), 5);
  c.Read("k 6:2");
  EXPECT_EQ(c.Int("x"), 2);
  EXPECT_TRUE(c.Messages().empty());
  c.ExpectUsable();
  // A shorter item handed back is split and handed on again, as it always was.
  Client n;
  ASSERT_EQ(n.DefineFile(TempDir().Write("back.def", std::string(kTarget) +
                                                         "n multilist 1 1 1 x first, then itself\n"
                                                         " x n\n")),
            0);
  n.Read("n 3:4:5");
  EXPECT_EQ(n.Int("x"), 4);
  EXPECT_EQ(n.Messages(),
            (std::vector<std::string>{"Reading parameter(s) from \"pchar\"",
                                      "*** Value Error Too many items for multilist \"n\"",
                                      "Finished reading from \"pchar\""}));
}

TEST(HostSafety, ListsInsideListsKeepTheOuterItems) {
  // The outer list's items outlive the walk through its first member.
  Client c;
  ASSERT_EQ(c.DefineFile(TempDir().Write("nest.def",
                                         "p integer 1 0 0 100 1 1 h\n"
                                         "q integer 1 0 0 100 1 1 h\n"
                                         "r integer 1 0 0 100 1 1 h\n"
                                         "b multilist 1 1 1 inner\n p\n"
                                         "a multilist 1 1 1 outer\n b\n q\n r\n")),
            0);
  c.Read("a 11:22:33");
  EXPECT_TRUE(c.Messages().empty());
  EXPECT_EQ(std::vector<int>({c.Int("p"), c.Int("q"), c.Int("r")}), std::vector<int>({11, 22, 33}));
}

TEST(HostSafety, LongMemberChainsReachTheEnd) {
  TempDir dir;
  std::string lists = kTarget, macros = kTarget;
  for (int k = 0; k < 10000; ++k) {
    const std::string below = k == 0 ? "x" : "m" + std::to_string(k - 1);
    lists += "m" + std::to_string(k) + " multilist 1 1 1 h\n " + below + "\n";
  }
  for (int k = 0; k < 400000; ++k) {
    const std::string below = k == 0 ? "x" : "k" + std::to_string(k - 1);
    macros += "k" + std::to_string(k) + " macro 1 1 h\n " + below + "\n";
  }
  Client chain;
  ASSERT_EQ(chain.DefineFile(dir.Write("lists.def", lists)), 0);
  chain.Read("m9999 42");
  EXPECT_EQ(chain.Int("x"), 42);
  Client nested;
  ASSERT_EQ(nested.DefineFile(dir.Write("macros.def", macros)), 0);
  nested.Read("k399999 17");
  EXPECT_EQ(nested.Int("x"), 17);
  // Resetting the outermost macro reaches the end of the chain, too.
  EXPECT_EQ(optResetNr(nested.h, nested.Number("k399999")), 1);
  int defined = -1;
  optGetDefinedNr(nested.h, nested.Number("x"), &defined);
  EXPECT_EQ(defined, 0);
  // Resetting everything costs a pass over the options, not one per macro.
  nested.Read("k399999 5");
  const auto start = std::chrono::steady_clock::now();
  optResetAll(nested.h);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  EXPECT_EQ(nested.Int("x"), 0);
  nested.ExpectUsable();
}

TEST(HostSafety, WriteErrorsAfterTheOpenAreMessages) {
  if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
  Client c;
  ASSERT_EQ(c.Define(kTarget), 0);
  c.Read("x 5");
  EXPECT_EQ(coptWriteParameterFile(c.h, "/dev/full"), ENOSPC);
  EXPECT_EQ(c.Messages(),
            (std::vector<std::string>{"*** Error Cannot write parameter file \"/dev/full\"",
                                      "*** Error    " + Error(ENOSPC).substr(10)}));
  c.ExpectUsable();
}

TEST(HostSafety, ReadErrorsInMidFileEndTheSource) {
  if (access("/proc/self/mem", R_OK) != 0) GTEST_SKIP() << "no /proc/self/mem";
  // The process's memory file opens, and its first read fails with EIO.
  Client c;
  ASSERT_EQ(c.DefineFile(TempDir().Write(
                "rf.def", std::string(kTarget) + "rf immediate ReadFile 1 1 read a file\n")),
            0);
  // Nothing could be read before the error: to the reader the file was empty.
  EXPECT_EQ(coptReadParameterFile(c.h, "/proc/self/mem"), EIO);
  EXPECT_EQ(c.Messages(),
            (std::vector<std::string>{"Reading parameter(s) from \"/proc/self/mem\"",
                                      "*** Warning Read from empty file or string",
                                      "*** Error Error reading parameter file \"/proc/self/mem\"",
                                      Error(EIO), "Finished reading from \"/proc/self/mem\""}));
  // From parameter text, the nested read ends and the outer one goes on.
  c.Read("rf /proc/self/mem x 9");
  EXPECT_EQ(c.Int("x"), 9);
  EXPECT_EQ(
      c.Messages(),
      (std::vector<std::string>{
          "Reading parameter(s) from \"pchar\"", "Reading parameter(s) from \"/proc/self/mem\"",
          "*** Warning Read from empty file or string",
          "*** Error Error reading parameter file \"/proc/self/mem\"", Error(EIO),
          "Finished reading from \"/proc/self/mem\"", "Finished reading from \"pchar\""}));
  Client d;
  EXPECT_EQ(coptReadDefinition(d.h, "/proc/self/mem"), EIO);
  c.ExpectUsable();
}

TEST(HostSafety, ALineThatNeverEndsEndsItsSource) {
  Client c;
  ASSERT_EQ(c.DefineFile(TempDir().Write(
                "rf.def", std::string(kTarget) + "rf immediate ReadFile 1 1 read a file\n")),
            0);
  c.Read("rf /dev/zero x 8");
  EXPECT_EQ(c.Int("x"), 8);
  const std::vector<std::string> messages = c.Messages();
  ASSERT_EQ(messages.size(), 6u);
  EXPECT_EQ(messages[1], "Reading parameter(s) from \"/dev/zero\"");
  EXPECT_EQ(messages[2].rfind("*** Error line 1: Option keyword expected", 0), 0u);
  EXPECT_EQ(messages[3],
            "*** Error line 1: Line longer than 1048576 bytes in parameter file "
            "\"/dev/zero\"; rest of file ignored");
  EXPECT_EQ(messages[4], "Finished reading from \"/dev/zero\"");
  EXPECT_EQ(messages[5], "Finished reading from \"pchar\"");
  c.ExpectUsable();
}

TEST(HostSafety, PipesWithoutAWriterReadAsEmpty) {
  TempDir dir;
  const std::string fifo = (dir.path() / "fifo").string();
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  Client c;
  ASSERT_EQ(c.Define(kTarget), 0);
  EXPECT_EQ(coptReadParameterFile(c.h, fifo.c_str()), 0);
  EXPECT_EQ(c.Messages(), (std::vector<std::string>{"Reading parameter(s) from \"" + fifo + "\"",
                                                    "*** Warning Read from empty file or string",
                                                    "Finished reading from \"" + fifo + "\""}));
  c.ExpectUsable();
}

TEST(HostSafety, PipesWithASlowWriterAreReadAsTheyCome) {
  // As process substitution hands a pipe over: /dev/fd/N of an open pipe.
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t writer = fork();
  ASSERT_GE(writer, 0);
  if (writer == 0) {
    close(ends[0]);
    usleep(200 * 1000);
    const char text[] = "x 12\n";
    _exit(write(ends[1], text, sizeof text - 1) == sizeof text - 1 ? 0 : 1);
  }
  close(ends[1]);
  Client c;
  ASSERT_EQ(c.Define(kTarget), 0);
  const std::string name = "/dev/fd/" + std::to_string(ends[0]);
  EXPECT_EQ(coptReadParameterFile(c.h, name.c_str()), 0);
  EXPECT_EQ(c.Int("x"), 12);
  EXPECT_TRUE(c.Messages().empty());
  close(ends[0]);
  int status = 0;
  waitpid(writer, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST(HostSafety, AMultiListNamingItselfReturns) {
  // The definition as it came in the report: the only member is the list itself.
  Client c;
  ASSERT_EQ(c.DefineFile(TempDir().Write("m.def", "m multilist 1 1 1 h\n m\n")), 0);
  EXPECT_TRUE(c.Messages().empty());
  c.Read("m 1");
  EXPECT_EQ(coptSetStrNr(c.h, c.Number("m"), "1"), 1);
  EXPECT_TRUE(c.Messages().empty());
  int defined = -1;
  optGetDefinedNr(c.h, c.Number("m"), &defined);
  EXPECT_EQ(defined, 0);  // the list takes nothing from itself
  ASSERT_EQ(c.Define(kTarget), 0);
  c.ExpectUsable();
}

TEST(HostSafety, DirectoriesAreRefusedAtTheOpen) {
  TempDir dir;
  Client c;
  ASSERT_EQ(c.DefineFile(dir.Write(
                "rf.def", std::string(kTarget) + "rf immediate ReadFile 1 1 read a file\n")),
            0);
  const std::string name = dir.path().string();
  EXPECT_EQ(coptReadParameterFile(c.h, name.c_str()), EISDIR);
  EXPECT_EQ(c.Messages().back(), Error(EISDIR));
  c.Read("rf " + name + " x 6");
  EXPECT_EQ(c.Int("x"), 6);
  EXPECT_EQ(c.Messages(),
            (std::vector<std::string>{"Reading parameter(s) from \"pchar\"",
                                      "*** Error Cannot open parameter file \"" + name + "\"",
                                      Error(EISDIR), "Finished reading from \"pchar\""}));
  EXPECT_EQ(coptReadDefinition(c.h, name.c_str()), EISDIR);
  c.ExpectUsable();
}

}  // namespace
}  // namespace optkw::test
