#include "database/section_store.h"

#include <gtest/gtest.h>

#include <memory>
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
  EXPECT_EQ(store.AdoptText(TextBuffer("x=1\ny=2\n")), 0u);
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

TEST(SectionStore, PendingRowsAreCutWhenFirstRead) {
  SectionStore store;
  store.AdoptText(TextBuffer("[S]\nx=1\n//c\n\r\ny=2\r\nz\n[T]\n"));
  store.Assign(1, {"other"});
  store.AddPendingRow(2, 4, 21, 3);
  const SectionStore::Row other = store[1];
  EXPECT_EQ(store.Count(2), 3u);
  EXPECT_EQ(LinesOf(store, 2), (std::vector<std::string>{"x=1", "y=2", "z"}));
  // Cutting fills the room made beforehand: the other row's view still reads.
  EXPECT_EQ(other[0], "other");
  // A copy made before the cut cuts its own lines; both compare alike.
  SectionStore pending;
  pending.AdoptText(TextBuffer("[S]\nx=1\n//c\n\r\ny=2\r\nz\n[T]\n"));
  pending.Assign(1, {"other"});
  pending.AddPendingRow(2, 4, 21, 3);
  SectionStore copy = pending;
  EXPECT_TRUE(copy == store);
  EXPECT_EQ(LinesOf(pending, 2), LinesOf(copy, 2));
  // A row that grows after being pending keeps its cut lines ahead of the new one.
  pending.AddLine(2, 4, 1);
  EXPECT_EQ(LinesOf(pending, 2), (std::vector<std::string>{"x=1", "y=2", "z", "x"}));
}

TEST(SectionStore, APendingRowTakesNoMoreThanItsRoom) {
  SectionStore store;
  store.AdoptText(TextBuffer("a\nb\nc\n//d\n"));
  store.AddPendingRow(1, 0, 6, 2);
  EXPECT_EQ(LinesOf(store, 1), (std::vector<std::string>{"a", "b"}));
  // Room for every line of the range, comments too, holds just the stored ones.
  store.AddPendingRow(3, 0, 10, 4);
  EXPECT_EQ(LinesOf(store, 3), (std::vector<std::string>{"a", "b", "c"}));
  // A place outside the text is refused.
  store.AddPendingRow(2, 0, 99, 1);
  EXPECT_TRUE(store[2].empty());
}

TEST(SectionStore, ACopyOfCutRowsOutlivesTheOriginal) {
  auto store = std::make_unique<SectionStore>();
  store->AdoptText(TextBuffer("x=1\n//c\ny=2\n"));
  store->AddPendingRow(1, 0, 12, 3);
  ASSERT_EQ(store->Count(1), 2u);
  SectionStore copy = *store;
  SectionStore assigned;
  assigned.Assign(1, {"old"});
  assigned = *store;
  store.reset();
  EXPECT_EQ(LinesOf(copy, 1), (std::vector<std::string>{"x=1", "y=2"}));
  EXPECT_EQ(LinesOf(assigned, 1), (std::vector<std::string>{"x=1", "y=2"}));
  // A cut row that grows moves its lines behind the others and keeps them.
  copy.Assign(2, {"z"});
  copy.AddLine(1, 0, 3);
  EXPECT_EQ(LinesOf(copy, 1), (std::vector<std::string>{"x=1", "y=2", "x=1"}));
  EXPECT_EQ(LinesOf(copy, 2), (std::vector<std::string>{"z"}));
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
  adopted.AdoptText(TextBuffer("pad a=1 b=2"));
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
