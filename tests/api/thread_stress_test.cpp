// Handles share nothing: eight threads, each with handles of its own, run
// whole cycles at once (create, read, query, write, read back, reset, free)
// and must all get the answers one thread alone gets. Built with
// ThreadSanitizer in CI, where any shared state would show as a race.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "optkw.h"
#include "support/test_support.h"

namespace optkw::test {
namespace {

constexpr const char *kDefinition =
    "maxiter integer 1 100 1 10000 1 1 Iteration limit\n"
    "tol double 2 1e-6 0 1 1 1 Tolerance\n"
    "mode enumstr 3 fast 1 1 Search mode\n"
    " fast 1 Quick\n"
    " full 1 Thorough\n"
    "tags strlist 4 1 1 Tags\n"
    "both multilist 5 1 1 maxiter and tol\n"
    " maxiter tol\n"
    "rf immediate ReadFile 1 1 Read a file\n"
    "iters synonym maxiter\n";

// One whole cycle; gives what it saw, for comparison across threads.
std::string Cycle(const std::string &definition, const std::string &parameters,
                  const std::string &written, int round) {
  optHandle_t h = nullptr, copy = nullptr;
  xcreate(&h);
  std::string seen;
  seen += std::to_string(coptReadDefinition(h, definition.c_str()));
  seen += std::to_string(coptReadParameterFile(h, parameters.c_str()));
  const std::string line = "iters " + std::to_string(round % 50 + 1) + " both 7:0.5 mode=FULL";
  optReadFromCmdLine(h, line.c_str());
  optReadFromPChar(h, "nosuch 1");
  optShowHelp(h,
              "\003"
              "all");
  char text[256];
  for (int nr = 1; nr <= optMessageCount(h); ++nr) {
    int type = 0;
    coptGetMessage(h, nr, text, &type);
    seen += std::string("|") + text;
  }
  seen += "|" + std::to_string(coptGetIntStr(h, "maxiter")) + "|" + coptGetStrStr(h, "mode", text);
  seen += "|" + std::to_string(coptWriteParameterFile(h, written.c_str()));
  xcreate(&copy);
  coptReadDefinition(copy, definition.c_str());
  coptReadParameterFile(copy, written.c_str());
  seen += "|" + std::to_string(coptGetIntStr(copy, "maxiter"));
  optResetRecentChanges(h);
  optResetAll(h);
  seen += "|" + std::to_string(optMessageCount(h));
  xfree(&copy);
  xfree(&h);
  return seen;
}

TEST(ThreadStress, HandlesInThreadsShareNothing) {
  TempDir dir;
  const std::string definition = dir.Write("stress.def", kDefinition);
  const std::string parameters =
      dir.Write("stress.opt", "tol 1e-8\ntags a\ntags b\nmaxiter 20000\n* note\n");
  constexpr int kThreads = 8, kRounds = 40;
  std::vector<std::string> expected(kRounds);
  for (int round = 0; round < kRounds; ++round)
    expected[round] = Cycle(definition, parameters, dir.path() / "alone.opt", round);
  std::vector<int> mismatches(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      const std::string written = (dir.path() / ("t" + std::to_string(t) + ".opt")).string();
      for (int round = 0; round < kRounds; ++round) {
        if (Cycle(definition, parameters, written, round) != expected[round]) ++mismatches[t];
      }
    });
  }
  for (std::thread &thread : threads)
    thread.join();
  EXPECT_EQ(mismatches, std::vector<int>(kThreads, 0));
}

}  // namespace
}  // namespace optkw::test
