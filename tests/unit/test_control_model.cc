#include <gtest/gtest.h>

#include "panels/framework/control_model.h"

namespace tessara {
namespace {

ControlModel ComboEditField() {
  ControlModel field;
  field.editable = true;
  field.AddItem("10");
  field.AddItem("20");
  return field;
}

TEST(ControlModelTest, SelectingAnItemPutsItsTextIntoTheField) {
  ControlModel field = ComboEditField();
  field.Select(1);
  EXPECT_EQ(field.text, "20");
  EXPECT_EQ(field.selection, 1);
}

TEST(ControlModelTest, PuttingTextIntoTheFieldSelectsNothing) {
  ControlModel field = ComboEditField();
  field.SetText("10");
  EXPECT_EQ(field.selection, -1);
  field.Select(1);
  field.SetText("15");
  EXPECT_EQ(field.selection, 1);
  EXPECT_EQ(field.text, "15");
}

TEST(ControlModelTest, APlainComboboxKeepsItsCaptionTextOnSelection) {
  ControlModel box;
  box.text = "caption";
  box.AddItem("a");
  box.Select(0);
  EXPECT_EQ(box.text, "caption");
  box.Select(5);
  EXPECT_EQ(box.selection, -1);
  EXPECT_EQ(box.SelectedItem(), nullptr);
}

TEST(ControlModelTest, ADisabledFieldKeepsItsStateAndText) {
  ControlModel field = ComboEditField();
  field.Select(1);
  field.enabled = false;
  EXPECT_EQ(field.text, "20");
  EXPECT_EQ(field.selection, 1);
}

TEST(ControlModelTest, CheckOptionClearsTheOtherOptionsOfAGroup) {
  Control group;
  group.kind = ControlKind::kRadioGroup;
  group.parts.resize(4);
  group.CheckOption(2);
  EXPECT_EQ(group.CheckedPart(), 2);
  group.CheckOption(0);
  EXPECT_EQ(group.CheckedPart(), 0);
  EXPECT_FALSE(group.parts[2].checked);
}

}  // namespace
}  // namespace tessara
