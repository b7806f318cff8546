// The benchmark's texts: the keys each lookup method is given, and the same
// bytes for the same sizes. Whether the library reads them cleanly is checked
// by the smoke run, which reads every workload through the library.
#include "workloads.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace optkw::bench {
namespace {

std::vector<std::string> Lines(const std::string &text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

TEST(LookupWorkload, KeysAreAsShortAsEachMethodAllows) {
  EXPECT_EQ(Lines(LookupWorkload(Method::kNormal, 9, 9).parameters)[8], "aaix_scaling_limit = 8");
  EXPECT_EQ(Lines(LookupWorkload(Method::kPath, 9, 9).parameters)[8], "aai_sca_lim = 8");
  EXPECT_EQ(Lines(LookupWorkload(Method::kMinos, 9, 9).parameters)[8], "aai scal limi = 8");
}

TEST(LookupWorkload, DefinitionStartsWithItsMethodAndNamesEveryOptionOnce) {
  // 5,000 codes run past "hel", which must be left out.
  const std::vector<std::string> lines = Lines(LookupWorkload(Method::kPath, 5000, 0).definition);
  ASSERT_EQ(lines.size(), 5001u);
  EXPECT_EQ(lines[0], "Path lookup");
  EXPECT_EQ(lines[1], "aaax_alpha_alpha integer 1 0 0 maxint 0 1 Integer option 1");
  std::set<std::string> codes;
  for (size_t k = 1; k < lines.size(); ++k) {
    const std::string code = lines[k].substr(0, 3);
    EXPECT_NE(code, "hel") << "abbreviates the built-in Help";
    codes.insert(code);
  }
  EXPECT_EQ(codes.size(), 5000u);
  EXPECT_EQ(Lines(LookupWorkload(Method::kNormal, 3, 0).definition)[0].substr(0, 4), "aaax");
  EXPECT_EQ(Lines(LookupWorkload(Method::kMinos, 3, 0).definition)[0], "Minos lookup");
}

TEST(LookupWorkload, ProbeIsTheLastStatement) {
  // 18 statements over 5 options: the last sets option 2 (from 0) in round 3.
  const Workload w = LookupWorkload(Method::kNormal, 5, 18);
  EXPECT_EQ(w.statements, 18);
  EXPECT_EQ(Lines(w.parameters).back(), w.probe_name + " = " + std::to_string(w.probe_value));
  EXPECT_EQ(w.probe_value, 2 + 3);
  EXPECT_TRUE(LookupWorkload(Method::kNormal, 5, 0).probe_name.empty());
}

TEST(Workloads, TheSameSizesGiveTheSameBytes) {
  const Workload a = MixedWorkload(200, 1000), b = MixedWorkload(200, 1000);
  EXPECT_EQ(a.definition, b.definition);
  EXPECT_EQ(a.parameters, b.parameters);
  EXPECT_EQ(LookupWorkload(Method::kMinos, 50, 300).parameters,
            LookupWorkload(Method::kMinos, 50, 300).parameters);
}

TEST(Workloads, MixedHoldsEveryValuedType) {
  const std::string definition = MixedWorkload(200, 0).definition;
  for (const char *type : {" integer ", " double ", " string ", " boolean ", " enumstr "})
    EXPECT_NE(definition.find(type), std::string::npos) << type;
  EXPECT_EQ(Lines(MixedWorkload(200, 1234).parameters).size(), 1234u);
}

TEST(Workloads, UnknownNamesAreAllDifferent) {
  const std::vector<std::string> lines = Lines(UnknownNames(5000));
  EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), 5000u);
}

}  // namespace
}  // namespace optkw::bench
