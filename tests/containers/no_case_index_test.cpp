// The word-at-a-time key handling of NoCaseIndex against the byte-at-a-time
// rules it replaces, and the index against a walk of the list.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "containers/ascii.h"
#include "containers/heap_str.h"
#include "containers/no_case_index.h"

namespace optkw {
namespace {

TEST(NoCaseIndex, WordsAgreeWithTheByteRules) {
  // Every byte value in every lane, among neighbours that are letters, the
  // bytes next to the letters and bytes above 127.
  const unsigned char neighbours[8] = {'a', 'Z', '{', '`', 0xE1, 'z', '@', 'm'};
  for (int c = 0; c < 256; ++c) {
    for (int lane = 0; lane < 8; ++lane) {
      uint64_t word = 0;
      uint64_t want = 0;
      for (int i = 0; i < 8; ++i) {
        const unsigned char byte = i == lane ? static_cast<unsigned char>(c) : neighbours[i];
        word |= static_cast<uint64_t>(byte) << (8 * i);
        want |= static_cast<uint64_t>(UpCase(byte)) << (8 * i);
      }
      ASSERT_EQ(UpperCaseWord(word), want) << c << " in lane " << lane;
    }
  }
  // Tails of every length, at every offset, read no byte outside the text.
  const std::string text = "abcdefghijklmnopqrstu";
  for (size_t size = 0; size <= text.size(); ++size) {
    const std::string copy = text.substr(0, size);  // its own allocation, for ASan
    for (size_t offset = 0; offset < size; offset += 8) {
      uint64_t want = 0;
      for (size_t i = offset; i < size && i < offset + 8; ++i)
        want |= static_cast<uint64_t>(static_cast<unsigned char>(copy[i])) << (8 * (i - offset));
      EXPECT_EQ(LoadWord(copy, offset), want) << size << " at " << offset;
    }
  }
  EXPECT_TRUE(SameNoCase("Iteration_Limit_9", "iteration_limit_9"));
  EXPECT_FALSE(SameNoCase("iteration_limit_9", "iteration_limit_8"));
  EXPECT_FALSE(SameNoCase("a\xE4", "A\xC4"));  // bytes above 127 have no case
  EXPECT_FALSE(SameNoCase("[", "{"));          // 0x5B and 0x7B differ by 0x20, but aren't letters
  EXPECT_FALSE(SameNoCase("ab", std::string_view("ab\0", 3)));
}

TEST(NoCaseIndex, FindsTheFirstPositionAsAWalkDoes) {
  std::mt19937 random(7);
  const std::string letters = "aAbB_1z[{";
  for (int round = 0; round < 40; ++round) {
    std::vector<std::string> keys;
    NoCaseIndex index;
    const auto key_at = [&keys](int32_t i) { return std::string_view(keys[i]); };
    const auto make_key = [&] {
      std::string key(1 + random() % 12, ' ');
      for (char &c : key)
        c = letters[random() % letters.size()];
      return key;
    };
    const auto walk = [&keys](std::string_view key) {
      for (size_t i = 0; i < keys.size(); ++i) {
        if (EqualNoCase(keys[i], key)) return static_cast<int32_t>(i);
      }
      return int32_t{-1};
    };
    const int count = 1 + random() % 300;  // across several growths
    for (int i = 0; i < count; ++i) {
      keys.push_back(make_key());
      index.Insert(keys.back(), i, key_at);
    }
    for (int probe = 0; probe < 500; ++probe) {
      const std::string key = probe % 2 ? keys[random() % keys.size()] : make_key();
      ASSERT_EQ(index.Find(key, key_at), walk(key)) << key;
    }
  }
}

TEST(HeapStrBlocks, ReusedBlocksKeepTextLengthAndMemory) {
  HeapStr s("a longer value of text");
  s.Set(s.view().substr(2, 20));  // from its own block, into the same block size
  EXPECT_EQ(s.view(), "longer value of text");
  EXPECT_EQ(s.Memory(), 21);
  s.Set(s.view().substr(7));
  EXPECT_EQ(s.view(), "value of text");
  s.Set("");
  EXPECT_TRUE(s.IsNil());
  EXPECT_EQ(s.Memory(), 0);
}

}  // namespace
}  // namespace optkw
