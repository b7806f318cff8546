// The statements of parameter text, run from the transcripts under
// fixtures/parameters: plain, dot, indicator and definedvar statements, with
// what each says and leaves behind.
#include <cstdio>
#include <fstream>
#include <string>

#include "parameters/solver_handle.h"

namespace optkw::test {
namespace {

// Reads the lines "> text" (end-of-line flag off) and ">> text" (flag on) of a
// case on a fresh handle, each followed by what it said as "type text", and
// ends with the state the reads left.
Texts Transcript(std::string_view definition, const Texts &lines) {
  SolverHandle s(definition);
  Texts said;
  for (const std::string &line : lines) {
    if (!line.starts_with('>')) continue;
    said.push_back(line);
    const bool eol = line.starts_with(">>");
    std::string text = line.substr(eol ? 3 : 2);
    for (size_t at = 0; (at = text.find("\\t", at)) != std::string::npos;)
      text.replace(at, 2, "\t");
    optEOLOnlySet(s.db, eol ? 1 : 0);
    optClearMessages(s.db);
    optReadFromPChar(s.db, text.c_str());
    for (const Message &m : Messages(s.db)) {
      if (m.type == optMsgFileEnter || m.type == optMsgFileLeave) continue;
      said.push_back(Escaped(std::to_string(m.type) + (m.text.empty() ? "" : " " + m.text)));
    }
  }
  const Texts state = s.State();
  said.insert(said.end(), state.begin(), state.end());
  return said;
}

// Each case of the file runs up to a blank line; "#" starts a comment line.
void ExpectTranscripts(std::string_view definition, std::string_view cases) {
  std::ifstream in(Fixture(cases));
  ASSERT_TRUE(in) << cases;
  Texts expected;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && !line.starts_with('#')) expected.push_back(line);
    if (!line.empty() && in.peek() != EOF) continue;
    if (!expected.empty()) {
      EXPECT_EQ(Transcript(definition, expected), expected);
    }
    expected.clear();
  }
}

TEST(Statements, Solver) {
  ExpectTranscripts("parameters/solver.def", "parameters/solver.txt");
}

TEST(Statements, MinosJoinsTheWordsOfAKey) {
  ExpectTranscripts("parameters/minos.def", "parameters/minos.txt");
}

// A statement's errors count only while the queue can take them: at 4999
// messages the enter message makes 5000 and the error becomes the limit's entry;
// beyond the limit the faulty entry stays.
TEST(Statements, FaultyEntryStaysOnceTheQueueIsFull) {
  for (const int before : {4999, 5001}) {
    SolverHandle s;
    for (int k = 0; k < before; ++k)
      optAddMessage(s.db, ShortStr("filler"));
    optReadFromStr(s.db, ShortStr("indicator eq1(i) $ x1(k) 1"));
    EXPECT_EQ(s.State(),
              Texts{before < 5000 ? "dropped indicator 1" : "indicator eq1(i) $ x1(k) = 1"});
    EXPECT_EQ(optMessageCount(s.db), 5001);
  }
}

// The lines of the Help option count against the limit like any message.
TEST(Statements, HelpStopsAtTheLimitOfTheQueue) {
  SolverHandle s;
  for (int k = 0; k < 4998; ++k)
    optAddMessage(s.db, ShortStr("filler"));
  optReadFromStr(s.db, ShortStr("help maxiter"));
  EXPECT_EQ(optMessageCount(s.db), 5001);
  EXPECT_EQ(MessageTexts(s.db).back(), "Maximum of 5000 messages reached");
}

}  // namespace
}  // namespace optkw::test
