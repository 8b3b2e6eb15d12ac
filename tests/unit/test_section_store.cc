#include "database/section_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessara {
namespace {

std::vector<std::string> LinesOf(const SectionStore& store, std::size_t k) {
  std::vector<std::string> lines;
  for (std::string_view line : store[k]) lines.emplace_back(line);
  return lines;
}

TEST(SectionStore, LinesArePlacesInTheAdoptedText) {
  SectionStore store;
  EXPECT_EQ(store.AdoptText("x=1\ny=2\n"), 0u);
  store.AddLine(3, 4, 3);
  store.AddLine(3, 0, 3);
  EXPECT_EQ(LinesOf(store, 3), (std::vector<std::string>{"y=2", "x=1"}));
  EXPECT_EQ(store.Count(3), 2u);
  EXPECT_TRUE(store[2].empty());
  // A place outside the text or a row past the last is no line.
  store.AddLine(3, 6, 5);
  store.AddLine(SectionStore::kRows, 0, 1);
  EXPECT_EQ(store.Count(3), 2u);
  EXPECT_EQ(store.Count(SectionStore::kRows), 0u);
}

TEST(SectionStore, RowsGrowInAnyOrderWithoutMixing) {
  SectionStore store;
  store.Assign(2, {"b1"});
  store.Assign(1, {"a1", "a2"});
  const std::size_t offset = store.AppendText("b2");
  store.AddLine(2, offset, 2);
  store.Assign(1, {"a3"});
  EXPECT_EQ(LinesOf(store, 1), (std::vector<std::string>{"a3"}));
  EXPECT_EQ(LinesOf(store, 2), (std::vector<std::string>{"b1", "b2"}));
}

TEST(SectionStore, ACopyKeepsItsOwnLines) {
  SectionStore store;
  store.Assign(1, {"Dialog=port"});
  SectionStore copy = store;
  store = SectionStore();
  store.Assign(1, {"other"});
  EXPECT_EQ(LinesOf(copy, 1), (std::vector<std::string>{"Dialog=port"}));
}

TEST(SectionStore, StoresCompareByTheirLines) {
  SectionStore adopted;
  adopted.AdoptText("pad a=1 b=2");
  adopted.AddLine(1, 4, 3);
  adopted.AddLine(1, 8, 3);
  SectionStore assigned;
  assigned.Assign(1, {"a=1", "b=2"});
  EXPECT_EQ(adopted, assigned);
  assigned.Assign(2, {"c=3"});
  EXPECT_FALSE(adopted == assigned);
}

}  // namespace
}  // namespace tessara
