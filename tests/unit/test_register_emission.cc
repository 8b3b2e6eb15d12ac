#include <gtest/gtest.h>

#include <algorithm>

#include <string>
#include <vector>

#include "panels/framework/register_emission.h"

namespace tessara {
namespace {

Control Group(const std::string& key, int checked) {
  Control group;
  group.kind = ControlKind::kRadioGroup;
  group.key = key;
  group.parts.resize(2);
  group.CheckOption(checked);
  return group;
}

class EmitRegisterCodeTest : public ::testing::Test {
 protected:
  std::string Emit(std::string_view extraComment) {
    return EmitRegisterCode(extraComment, controls, rows, 65);
  }

  std::vector<Control> controls{Group("Radiobox_1", 1), Group("Radiobox_2", 0),
                                Group("Radiobox_3", 0)};
  RowTable rows{4};
};

TEST_F(EmitRegisterCodeTest, ItemsGiveTheTextOfTheCheckedOptionJoinedByLineFeedAndTab) {
  EXPECT_EQ(Emit("Radiobox_2=a,b;Radiobox_3,Radiobox_1(2)=c,d"), "a\n\tc");
  controls[0].CheckOption(0);
  controls[1].CheckOption(1);
  EXPECT_EQ(Emit("Radiobox_2=a,b;Radiobox_3,Radiobox_1(2)=c,d"), "b");
}

TEST_F(EmitRegisterCodeTest, EmptyCommentAndItemsWithoutEqualsGiveNothing) {
  EXPECT_EQ(Emit(""), "");
  EXPECT_EQ(Emit("Radiobox_2;Unknown_1=x,y"), "");
}

TEST_F(EmitRegisterCodeTest, ADisabledGroupGivesNothingButStillGatesOthers) {
  controls[0].parts[0].enabled = false;
  controls[0].parts[1].enabled = false;
  EXPECT_EQ(Emit("Radiobox_1=x,y;Radiobox_2,Radiobox_1(2)=c,d"), "c");
}

TEST_F(EmitRegisterCodeTest, ComboboxTakesTheTextOfItsItemsCell) {
  Control box;
  box.kind = ControlKind::kCombobox;
  box.key = "Combobox_1";
  box.frame.text = "Clock";
  box.parts.resize(1);
  box.parts[0].AddItem("f8");
  box.parts[0].Select(0);
  controls.push_back(box);
  rows.MutableRow(1).SetCells({"Clock", "f1", "", "f8"});
  EXPECT_EQ(Emit("Combobox_1=t1,t2,t3"), "t3");
  EXPECT_EQ(Emit("Radiobox_2,Combobox_1(3)=gated"), "gated");
  EXPECT_EQ(Emit("Radiobox_2,Combobox_1(1)=gated"), "");
}

TEST_F(EmitRegisterCodeTest, ComboEditboxGivesItsFirstTextWhileEnabled) {
  Control field;
  field.kind = ControlKind::kComboEditbox;
  field.key = "ComboEditbox_1";
  field.parts.resize(1);
  controls.push_back(field);
  EXPECT_EQ(Emit("ComboEditbox_1=first,second;Radiobox_2,ComboEditbox_1(7)=g"), "first\n\tg");
  controls.back().parts[0].enabled = false;
  EXPECT_EQ(Emit("ComboEditbox_1=first,second;Radiobox_2,ComboEditbox_1(7)=g"), "");
}

TEST_F(EmitRegisterCodeTest, TextBehindTheFirst1024CharactersIsNotSeen) {
  std::string comment = "Radiobox_2=" + std::string(1000, 'a') + ";Radiobox_3=bbbbbbbbbbbbbbbbbbbb";
  std::string out = Emit(comment);
  // 11 + 1000 + 1 + 11 characters leave room for one "b".
  EXPECT_EQ(out, std::string(1000, 'a') + "\n\tb");
}

TEST_F(EmitRegisterCodeTest, AtMost65ItemsAreTaken) {
  std::string comment;
  for (int i = 0; i < 70; ++i) comment += "Radiobox_2=x;";
  std::string out = Emit(comment);
  EXPECT_EQ(std::count(out.begin(), out.end(), 'x'), 65);
}

TEST(EmitExtraCodeTest, OnlyTextsClosedByACommaAreUsed) {
  EXPECT_EQ(EmitExtraCode("x,y"), "x\n\t");
  EXPECT_EQ(EmitExtraCode("a,b,"), "a\n\tb\n\t");
  EXPECT_EQ(EmitExtraCode(""), "");
}

}  // namespace
}  // namespace tessara
