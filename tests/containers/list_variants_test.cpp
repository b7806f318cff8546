// The hashed, sorted and pooled string lists, the bit array and the C-string list.
#include <gtest/gtest.h>

#include <string>

#include "containers/bit_array.h"
#include "containers/hashed_lists.h"
#include "containers/pchar_list.h"
#include "containers/sorted_lists.h"

namespace optkw {
namespace {

TEST(HashedStringList, HashRuleAndFirstMatch) {
  // h = h * 211 + upper-cased byte, top bit cleared, modulo the table size.
  EXPECT_EQ(HashNoCase("ab", 1000), (65u * 211u + 66u) % 1000u);
  EXPECT_EQ(HashNoCase("ab", 97), HashNoCase("AB", 97));
  txhashedstringlist<int32_t> list;
  for (int32_t i = 0; i < 500; ++i)
    list.AddObject("key" + std::to_string(i), i);
  list.Add("KEY7");  // a duplicate key: the first entry is still found
  EXPECT_EQ(list.IndexOf("Key7"), 7);
  EXPECT_EQ(list.IndexOf("key499"), 499);
  EXPECT_EQ(list.IndexOf(""), -1);
  list.Delete(0);
  EXPECT_EQ(list.IndexOf("key7"), 6);
  list.Clear();
  EXPECT_EQ(list.IndexOf("key7"), -1);
}

TEST(StrPool, HashesWithoutCaseButKeepsCaseApart) {
  txstrpool pool;
  pool.Add("Abc");
  pool.Add("abc");
  EXPECT_EQ(pool.IndexOf("abc"), 1);  // builds the table, which Hash needs
  EXPECT_EQ(pool.Hash("Abc"), pool.Hash("abc"));
  EXPECT_EQ(pool.IndexOf("ABC"), -1);
  EXPECT_LT(pool.Compare(0, 1), 0) << "plain bytes: 'A' before 'a'";
}

TEST(SortedStringList, KeepsOrderAndFindsByHalving) {
  txstrstrlist list;
  for (const char *key : {"gamma", "Alpha", "beta", "alpha"})
    list.AddPair(key, std::string(key) + "!");
  ASSERT_EQ(list.Count(), 4);
  EXPECT_EQ(list.Key(0), "Alpha");  // equal keys keep the order of adding
  EXPECT_EQ(list.Key(1), "alpha");
  EXPECT_EQ(list.Key(3), "gamma");
  EXPECT_EQ(list.IndexOf("ALPHA"), 0);
  EXPECT_EQ(list.IndexOf("delta"), -1);
  EXPECT_EQ(list.Value(2), "beta!");
  EXPECT_EQ(list.StrMemory(), (6 + 6 + 6 + 5) + (7 + 7 + 7 + 6));
}

TEST(SmallContainers, BitArrayAndCStrings) {
  tbooleanbitarray bits;
  bits.SetBit(70, true);
  bits.SetBit(3, true);
  bits.SetBit(3, false);
  EXPECT_TRUE(bits.GetBit(70));
  EXPECT_FALSE(bits.GetBit(3));
  EXPECT_FALSE(bits.GetBit(1000));
  EXPECT_EQ(bits.Highest(), 70);
  txpcharlist texts;
  texts.Add("one");
  texts.Add("");
  EXPECT_STREQ(texts.Get(0), "one");
  EXPECT_STREQ(texts.Get(1), "");
  EXPECT_EQ(texts.StrMemory(), 5);
}

}  // namespace
}  // namespace optkw
