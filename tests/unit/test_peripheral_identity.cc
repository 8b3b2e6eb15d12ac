#include "database/peripheral_identity.h"

#include <gtest/gtest.h>

#include <set>

#include "database/device_database.h"

namespace tessara {
namespace {

struct FlagCase {
  const char* group;
  FamilyFlags expected;
};

FamilyFlags Flags(int qtl, int znr9, int kb, int vw, int xy, int q4, int ef, int q5, int q5z) {
  return FamilyFlags{qtl, znr9, kb, vw, xy, q4, ef, q5, q5z};
}

bool Same(const FamilyFlags& a, const FamilyFlags& b) {
  return a.FlagQTLFamily == b.FlagQTLFamily && a.FlagZNR9Family == b.FlagZNR9Family &&
         a.FlagKBFamily == b.FlagKBFamily && a.FlagQTL4VW == b.FlagQTL4VW &&
         a.FlagQTL4XY == b.FlagQTL4XY && a.FlagQTL4 == b.FlagQTL4 &&
         a.FlagQTL4EF == b.FlagQTL4EF && a.FlagQTL5 == b.FlagQTL5 && a.FlagQTL5Z == b.FlagQTL5Z;
}

TEST(FamilyFlags, FollowTheGroupName) {
  const FlagCase cases[] = {
      {"QTL/4C Group", Flags(1, 0, 0, 0, 0, 1, 0, 0, 0)},
      {"QTL/4E Group", Flags(1, 0, 0, 0, 0, 1, 1, 0, 0)},
      {"QTL/4V Group", Flags(0, 0, 0, 1, 0, 1, 0, 0, 0)},
      {"QTL/4Y Group", Flags(0, 0, 0, 0, 1, 1, 0, 0, 0)},
      {"QTL/5UZ Group", Flags(1, 0, 0, 0, 0, 0, 0, 1, 1)},
      {"QTL/6P Group", Flags(1, 0, 0, 0, 0, 0, 0, 0, 0)},
      {"ZNR9/4X Group", Flags(0, 1, 0, 0, 0, 0, 0, 0, 0)},
      {"KB/77161 Group", Flags(0, 0, 1, 0, 0, 0, 0, 0, 0)},
  };
  for (const FlagCase& c : cases) {
    FamilyFlags flags = Flags(1, 1, 1, 1, 1, 1, 1, 1, 1);
    flags.SetFromGroupName(c.group);
    EXPECT_TRUE(Same(flags, c.expected)) << c.group;
  }
}

TEST(FamilyFlags, CaseOfThePrefixMattersOnlyWhereTheRuleSaysSo) {
  // "qtl/4c" begins with QTL in any case but holds no exact "QTL": nothing is set.
  FamilyFlags flags;
  flags.SetFromGroupName("qtl/4c Group");
  EXPECT_TRUE(Same(flags, FamilyFlags{}));
  // The 5Z rule asks for the prefix alone, in any case.
  flags.SetFromGroupName("QTL/5rz Group");
  EXPECT_TRUE(Same(flags, Flags(1, 0, 0, 0, 0, 0, 0, 1, 1)));
  // The 4V rule keeps a 5Z flag that an earlier group left.
  flags.SetFromGroupName("QTL/4W Group");
  EXPECT_TRUE(Same(flags, Flags(0, 0, 0, 1, 0, 1, 0, 0, 0)));
  // "ZNR" in any case and "ZNR9" exactly.
  flags = FamilyFlags{};
  flags.SetFromGroupName("znr9 Group");
  EXPECT_EQ(flags.FlagZNR9Family, 0);
  flags.SetFromGroupName("zNrZNR9 Group");
  EXPECT_EQ(flags.FlagZNR9Family, 1);
}

TEST(FamilyFlags, AnUnknownGroupLeavesTheFlagsAsTheyWere) {
  FamilyFlags flags;
  flags.SetFromGroupName("KB/77161 Group");
  flags.SetFromGroupName("Other Group");
  EXPECT_EQ(flags.FlagKBFamily, 1);
}

TEST(ResourceTags, EveryKindOnceWithItsInstances) {
  std::set<std::string_view> tags;
  int total = 0;
  for (std::size_t i = 0; i < kResourceTags.size(); ++i) {
    EXPECT_EQ(static_cast<std::size_t>(kResourceTags[i].kind), i);
    tags.insert(kResourceTags[i].tag);
    total += kResourceTags[i].instances;
  }
  EXPECT_EQ(tags.size(), kPanelKindCount);
  // 12 ports, 10 interrupts, 5 Timer A, 3 Timer X, 3 UART2, two each of DMA, SCI and
  // SIO, and one of the 36 other kinds.
  EXPECT_EQ(total, 12 + 10 + 5 + 3 + 3 + 2 + 2 + 2 + 36);
  EXPECT_EQ(TagOf(PanelKind::kUART3).dialogValue, "UART2");
  EXPECT_EQ(TagOf(PanelKind::kTimerX).alternativeDialogValue, "Timer B");
  EXPECT_EQ(FindResourceTag("iid_dialog_adc2")->kind, PanelKind::kADC2);
  EXPECT_EQ(FindResourceTag("IID_DIALOG_NONE"), nullptr);
}

TEST(PeripheralIdentity, TagsMatchWholeInAnyCase) {
  DatabaseEntry group;
  group.Configuration[1] = "Port 0";
  group.ResourceID[1] = "IID_DIALOG_PORT";
  group.Configuration[2] = "A/D";
  group.ResourceID[2] = "iid_dialog_adc2";
  group.Configuration[3] = "Port 1";
  group.ResourceID[3] = "IID_DIALOG_PORT";
  group.Configuration[4] = "clock";
  group.ResourceID[4] = "IID_DIALOG_CLOCK2";
  group.Configuration[5] = "Odd";
  group.ResourceID[5] = "IID_DIALOG_UNKNOWN";

  EXPECT_TRUE(IsPanelKind(PanelKind::kADC2, group, 2));
  EXPECT_FALSE(IsPanelKind(PanelKind::kADC, group, 2));
  EXPECT_FALSE(IsPanelKind(PanelKind::kPort, group, 0));
  EXPECT_FALSE(IsPanelKind(PanelKind::kPort, group, 6));
  EXPECT_EQ(PanelInstance(group, 1), 1);
  EXPECT_EQ(PanelInstance(group, 3), 2);
  EXPECT_EQ(PanelInstance(group, 5), 0);
  EXPECT_EQ(ConfigurationIndexOfClock(group), 4);
  group.Configuration[4] = "Clocks";
  EXPECT_EQ(ConfigurationIndexOfClock(group), 0);
}

}  // namespace
}  // namespace tessara
