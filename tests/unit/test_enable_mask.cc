#include <gtest/gtest.h>

#include <vector>

#include "panels/framework/enable_mask.h"

namespace tessara {
namespace {

// A group of two options, a combo box with two items, a check box.
std::vector<Control> GroupBoxAndCheck() {
  std::vector<Control> controls(3);
  controls[0].kind = ControlKind::kRadioGroup;
  controls[0].parts.resize(2);
  controls[1].kind = ControlKind::kCombobox;
  controls[1].parts.resize(1);
  controls[1].parts[0].AddItem("a");
  controls[1].parts[0].AddItem("b");
  controls[2].kind = ControlKind::kCheckbox;
  controls[2].parts.resize(1);
  return controls;
}

const std::vector<MaskTarget> kTargets{{0, 0}, {0, 1}, {1, -1}, {2, -1}};

TEST(EnableMaskTest, ZeroAtTheSecondOptionThrowsTheSelectionBackToTheFirst) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].CheckOption(1);
  ApplyEnableMask("10", kTargets, c);
  EXPECT_EQ(c[0].CheckedPart(), 0);
  EXPECT_TRUE(c[0].parts[0].enabled);
  EXPECT_FALSE(c[0].parts[1].enabled);
}

TEST(EnableMaskTest, ZeroAtTheFirstOptionLeavesItCheckedButGreyed) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].CheckOption(1);
  ApplyEnableMask("0", kTargets, c);
  EXPECT_EQ(c[0].CheckedPart(), 0);
  EXPECT_FALSE(c[0].parts[0].enabled);
}

TEST(EnableMaskTest, OneEnablesWithoutChangingASelection) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].parts[1].enabled = false;
  c[0].CheckOption(0);
  ApplyEnableMask("11", kTargets, c);
  EXPECT_TRUE(c[0].parts[1].enabled);
  EXPECT_EQ(c[0].CheckedPart(), 0);
}

TEST(EnableMaskTest, ZeroSelectsTheFirstItemOfABoxAndClearsACheckBox) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[1].parts[0].Select(1);
  c[2].parts[0].checked = true;
  ApplyEnableMask("1100", kTargets, c);
  EXPECT_EQ(c[1].parts[0].selection, 0);
  EXPECT_FALSE(c[1].parts[0].enabled);
  EXPECT_FALSE(c[2].parts[0].checked);
  EXPECT_FALSE(c[2].parts[0].enabled);
}

TEST(EnableMaskTest, OtherCharactersAndPlacesBehindTheMaskLeaveTargetsAlone) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[1].parts[0].enabled = false;
  ApplyEnableMask("0x", kTargets, c);
  EXPECT_FALSE(c[0].parts[0].enabled);
  EXPECT_TRUE(c[0].parts[1].enabled);
  EXPECT_FALSE(c[1].parts[0].enabled);
  EXPECT_TRUE(c[2].parts[0].enabled);
  // A mask longer than its targets has nothing to steer behind them.
  ApplyEnableMask("111111111", kTargets, c);
  EXPECT_TRUE(c[1].parts[0].enabled);
}

TEST(EnableMaskTest, ComparatorVariantTouchesOnlyTheOptionItNames) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].CheckOption(1);
  ApplyEnableMask("0", kTargets, c, MaskVariant::kComparator);
  EXPECT_TRUE(c[0].parts[0].checked);
  EXPECT_TRUE(c[0].parts[1].checked);
  ApplyEnableMask("10", kTargets, c, MaskVariant::kComparator);
  EXPECT_TRUE(c[0].parts[0].checked);
  EXPECT_FALSE(c[0].parts[1].checked);
}

TEST(EnableMaskTest, InvertedFirstPlaceChecksTheSecondOption) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].CheckOption(0);
  ApplyEnableMask("0", kTargets, c, MaskVariant::kInvertFirstOption);
  EXPECT_EQ(c[0].CheckedPart(), 1);
  EXPECT_FALSE(c[0].parts[0].enabled);
}

TEST(EnableMaskTest, AnyNonZeroDigitEnablesInTheShortVariant) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].parts[0].enabled = false;
  c[0].parts[1].enabled = false;
  ApplyEnableMask("20", kTargets, c, MaskVariant::kAnyNonZeroEnables);
  EXPECT_TRUE(c[0].parts[0].enabled);
  EXPECT_FALSE(c[0].parts[1].enabled);
}

TEST(ShowMaskTest, HidesAndShowsTargetsAndIgnoresOtherLetters) {
  std::vector<Control> c = GroupBoxAndCheck();
  ApplyShowMask("HsH", kTargets, c);
  EXPECT_FALSE(c[0].parts[0].visible);
  EXPECT_TRUE(c[0].parts[1].visible);
  EXPECT_FALSE(c[1].parts[0].visible);
  EXPECT_FALSE(c[1].frame.visible);
  ApplyShowMask("S", kTargets, c);
  EXPECT_TRUE(c[0].parts[0].visible);
}

// One place may steer several targets, each with its own variant; places that no entry
// names are not read.
TEST(EnableMaskTest, PlacedMaskStepsOverUnreadPlacesAndMixesVariants) {
  std::vector<Control> c = GroupBoxAndCheck();
  c[0].CheckOption(1);
  ApplyPlacedMask("0x0z", {{0, {0, 0}, MaskVariant::kInvertFirstOption},
                           {2, {1, -1}},
                           {2, {0, 1}},
                           {3, {2, -1}, MaskVariant::kAnyNonZeroEnables}},
                  c);
  EXPECT_FALSE(c[0].parts[0].enabled);
  EXPECT_FALSE(c[0].parts[1].enabled);
  // The inverted first place checked the second option; the second place's "0" threw
  // the check back to the first.
  EXPECT_EQ(c[0].CheckedPart(), 0);
  EXPECT_FALSE(c[1].parts[0].enabled);
  EXPECT_TRUE(c[2].parts[0].enabled);
  c[2].parts[0].enabled = false;
  ApplyPlacedMask("1", {{0, {0, 0}}, {5, {2, -1}}}, c);
  EXPECT_TRUE(c[0].parts[0].enabled);
  EXPECT_FALSE(c[2].parts[0].enabled);
}

}  // namespace
}  // namespace tessara
