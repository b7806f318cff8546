// The containers: growth, lookup, ownership, and the sorts that all lists share.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "containers/lists.h"
#include "containers/quicksort.h"
#include "containers/string_lists.h"

namespace optkw {
namespace {

// An owned object that logs its own destruction.
struct Tracked {
  Tracked(std::vector<int> *log, int id) : log(log), id(id) {}
  ~Tracked() { log->push_back(id); }
  std::vector<int> *log;
  int id;
};

TEST(ListTest, GrowthAndSearchByPosition) {
  // Capacity, count, and the capacity after growth: eightfold, or a quarter more from 1048576.
  const int32_t steps[][3] = {
      {0, 0, 16},     {16, 16, 128}, {1048575, 1048575, 8388600}, {1048576, 1048576, 1310720},
      {16, 500, 500},
  };
  for (const auto &s : steps)
    EXPECT_EQ(GrownCapacity(s[0], s[1]), s[2]) << s[0];
  txlist<int32_t> list;
  EXPECT_EQ(list.Last(), 0);  // nil for an empty list
  for (int32_t v : {5, 6, 5, 7})
    list.Add(v);
  EXPECT_EQ(list.IndexOf(5), 0);  // the first match
  EXPECT_EQ(list.Remove(5), 2);   // the last match
  EXPECT_EQ(list.Remove(42), -1);
  list.Delete(0);
  EXPECT_EQ(std::vector<int32_t>(list.begin(), list.end()), (std::vector<int32_t>{6, 7}));
  for (int32_t i = 0; i < 15; ++i)
    list.Add(i);
  list.Delete(0);  // 16 entries in 128 places: storage is kept
  EXPECT_EQ(list.Capacity(), 128);
  list.Clear();
  list.Add(7);  // a cleared list starts over
  EXPECT_EQ(list.Capacity(), 16);
}

TEST(ListTest, OwningListsFreeWhatTheyDropAndClearFromTheBack) {
  std::vector<int> freed;
  Tracked foreign(&freed, 0);
  txstringlist<Tracked *> plain;  // owns its keys only
  plain.AddObject("x", &foreign);
  plain.Clear();
  txlistobj<Tracked> list;
  txstringlistobj<Tracked> owning;
  for (int id = 1; id <= 3; ++id) {
    list.Add(std::make_unique<Tracked>(&freed, id));
    owning.AddObject("k", std::make_unique<Tracked>(&freed, id + 10));
  }
  list.Add(nullptr);  // a nil entry is accepted
  owning.AddObject("nil", nullptr);
  list.Delete(0);
  EXPECT_EQ(list.Remove(list.Get(1)), 1);
  owning.Delete(0);
  list.Clear();
  owning.Clear();
  EXPECT_EQ(freed, (std::vector<int>{1, 3, 11, 2, 13, 12}));
}

// Lookups must give the same answers with and without the hash index.
class StringListLookupTest : public testing::TestWithParam<bool> {};

TEST_P(StringListLookupTest, FirstOfEqualKeysWinsAndCaseFoldsAsciiOnly) {
  txstringlist<int32_t> list;
  if (GetParam()) list.EnableIndex();
  const std::pair<const char *, int32_t> entries[] = {
      {"abc", 10}, {"aBc", 11}, {"", 12}, {"\xE4x", 13}};
  for (const auto &[key, value] : entries)
    list.AddObject(key, value);
  EXPECT_EQ(list.IndexOf("ABC"), 0);
  EXPECT_EQ(list.IndexOf(""), -1);       // an empty key is nil
  EXPECT_EQ(list.IndexOf("\xC4X"), -1);  // 228 and 196 differ
  EXPECT_EQ(list.IndexOf("\xE4X"), 3);
  list.Exchange(0, 1);
  EXPECT_EQ(list.GetObject(list.IndexOf("abc")), 11);
  list.Delete(0);
  list.AddObject("ABC", 14);  // a duplicate is accepted
  EXPECT_EQ(list.GetObject(list.IndexOf("abc")), 10);
  list.Delete(0);
  EXPECT_EQ(list.IndexOf("abc"), 2);
  EXPECT_EQ(list.IndexOfObject(12), 0);
  EXPECT_EQ(list.StrMemory(), 3 + 4);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutIndex, StringListLookupTest, testing::Bool());

// Sorts integers and records every exchange.
struct RecordingSort : tquicksortclass {
  explicit RecordingSort(std::vector<int> items) : items(std::move(items)) {}
  int32_t Compare(int32_t i, int32_t j) override {
    ++compares;
    return items[i] - items[j];
  }
  void Exchange(int32_t i, int32_t j) override {
    exchanges.emplace_back(i, j);
    std::swap(items[i], items[j]);
  }
  std::vector<int> items;
  std::vector<std::pair<int32_t, int32_t>> exchanges;
  int compares = 0;
};

TEST(QuickSortTest, PivotIsAPositionThatFollowsItsEntry) {
  RecordingSort untouched({2, 1});
  untouched.SortN(0);
  untouched.SortN(1);
  EXPECT_EQ(untouched.compares + untouched.exchanges.size(), 0u);
  RecordingSort sort({0, 3, 2, 1, -5});
  sort.SortN(4);  // the last entry lies beyond the count and stays put
  // The pivot moves from 1 to 3 with the first exchange; left behind it would give (0, 0), (2, 2).
  EXPECT_EQ(sort.exchanges, (std::vector<std::pair<int32_t, int32_t>>{{1, 3}, {1, 1}}));
  EXPECT_EQ(sort.items, (std::vector<int>{0, 1, 2, 3, -5}));
}

// Every Compare and Exchange, in order: 'c' or 'x' and the two positions.
struct TracingSort : tquicksortclass {
  explicit TracingSort(std::vector<int> items) : items(std::move(items)) {}
  int32_t Compare(int32_t i, int32_t j) override {
    trace.push_back({'c', i, j});
    return items[i] - items[j];
  }
  void Exchange(int32_t i, int32_t j) override {
    trace.push_back({'x', i, j});
    std::swap(items[i], items[j]);
  }
  std::vector<int> items;
  std::vector<std::tuple<char, int32_t, int32_t>> trace;
};

// The sort in its plain form, recursing on the left part: the order of calls
// that the sort without recursion must keep, since the result of an unstable
// sort shows it.
void RecursiveQuickSort(tquicksortclass &sort, int32_t lo, int32_t hi) {
  for (;;) {
    int32_t p = (lo + hi) >> 1, i = lo, j = hi;
    do {
      while (sort.Compare(i, p) < 0)
        ++i;
      while (sort.Compare(j, p) > 0)
        --j;
      if (i <= j) {
        sort.Exchange(i, j);
        p = p == i ? j : p == j ? i : p;
        ++i;
        --j;
      }
    } while (i <= j);
    if (lo < j) RecursiveQuickSort(sort, lo, j);
    lo = i;
    if (i >= hi) return;
  }
}

TEST(QuickSortTest, CallsComeInTheOrderOfTheRecursiveForm) {
  std::mt19937 random(7);
  for (int size : {2, 3, 10, 100, 1000, 5000}) {
    for (int spread : {2, 10, 1000000}) {  // many equal keys, some, hardly any
      std::vector<int> items(static_cast<size_t>(size));
      for (int &item : items)
        item = static_cast<int>(random() % static_cast<unsigned>(spread));
      TracingSort iterative(items), recursive(items);
      iterative.SortN(size);
      RecursiveQuickSort(recursive, 0, size - 1);
      ASSERT_EQ(iterative.trace, recursive.trace) << size << " " << spread;
      EXPECT_TRUE(std::is_sorted(iterative.items.begin(), iterative.items.end()));
    }
  }
}

std::vector<std::string> SortedKeys(txstringlist<int32_t> &list) {
  list.SortN(list.Count());
  std::vector<std::string> keys;
  for (const auto &entry : list)
    keys.emplace_back(entry.FString.view());
  return keys;
}

TEST(StringListSortTest, CaseBlindWithEmptyKeysFirst) {
  txstringlist<int32_t> list;
  const char *keys[] = {"b", "b_", "", "A", "ab", "\xE4", "bz"};
  for (int32_t i = 0; i < 7; ++i)
    list.AddObject(keys[i], i);
  // "z" compares as "Z" (90), so it comes before "_" (95); byte 228 stays as it is.
  EXPECT_EQ(SortedKeys(list), (std::vector<std::string>{"", "A", "ab", "b", "bz", "b_", "\xE4"}));
  EXPECT_EQ(list.GetObject(0), 2);  // the companion travels with its key
  txstrings strings;
  for (const char *s : {"b", "", "A"})
    strings.Add(s);
  strings.SortN(3);
  EXPECT_EQ(strings.View(0), "");
}

TEST(StringListSortTest, NaturalOrderComparesTrailingDigitsAsNumber) {
  const std::pair<const char *, const char *> ordered[] = {
      {"file2", "file10"}, {"x", "x1"},  {"X1", "x2"}, {"9", "10"},
      {"a10b", "a9b"},     {"a9", "b1"}, {"9", "a"}};
  for (const auto &[a, b] : ordered)
    EXPECT_LT(CompareNatural(a, b), 0) << a << " vs " << b;
  EXPECT_EQ(CompareNatural("Abc", "abc0"), 0);
  tmysortstringlist<int32_t> list;
  for (const char *key : {"x10", "Y", "x2", "X1", "x", "y05"})
    list.Add(key);
  EXPECT_EQ(SortedKeys(list), (std::vector<std::string>{"x", "X1", "x2", "x10", "Y", "y05"}));
}

}  // namespace
}  // namespace optkw
