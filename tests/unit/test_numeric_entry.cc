#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panel_fixture.h"
#include "panels/framework/numeric_entry.h"
#include "sample_panel.h"

namespace tessara {
namespace {

TEST(FieldClassTest, DecimalTestsTheRangeBeforeTheForm) {
  EXPECT_EQ(CheckDecimalInteger("", 1, 10).marker, Marker::kInvalidMin);
  EXPECT_EQ(CheckDecimalInteger("", 0, 10).marker, Marker::kNull);
  EXPECT_EQ(CheckDecimalInteger("12x", 0, 100).marker, Marker::kNull);
  EXPECT_EQ(CheckDecimalInteger("12x", 0, 10).marker, Marker::kInvalidMax);
  EXPECT_EQ(CheckDecimalInteger("10", 0, 10).marker, Marker::kNone);
  EXPECT_EQ(CheckDecimalInteger("4294967295", 0, 4294967295u).marker, Marker::kNone);
}

TEST(FieldClassTest, HexadecimalTestsTheFormFirst) {
  EXPECT_EQ(CheckHexadecimal("", 0, 0xFF).marker, Marker::kNull);
  EXPECT_EQ(CheckHexadecimal("1G", 0, 0xFF).marker, Marker::kNull);
  EXPECT_EQ(CheckHexadecimal("fF", 0, 0xFF).marker, Marker::kNone);
  EXPECT_EQ(CheckHexadecimal("100", 0, 0xFF).marker, Marker::kInvalidMax);
  EXPECT_EQ(CheckHexadecimal("0F", 0x10, 0xFF).marker, Marker::kInvalidMin);
}

TEST(FieldClassTest, CountMinusOneComparesTheValueLessOne) {
  FieldCheck check = CheckCountMinusOne("256", 0, 255);
  EXPECT_EQ(check.marker, Marker::kNone);
  EXPECT_EQ(check.value, 255.0);
  EXPECT_EQ(CheckCountMinusOne("257", 0, 255).marker, Marker::kInvalidMax);
  EXPECT_EQ(CheckCountMinusOne("0", 0, 255).marker, Marker::kInvalidMin);
  EXPECT_EQ(CheckCountMinusOne("1.0", 0, 255).marker, Marker::kNull);
}

TEST(FieldClassTest, PercentageAllowsOnePointOnly) {
  EXPECT_EQ(CheckPercentage("", 0, 100).marker, Marker::kNull);
  EXPECT_EQ(CheckPercentage("1.5.2", 0, 100).marker, Marker::kNull);
  EXPECT_EQ(CheckPercentage("12.5", 0, 100).value, 12.5);
  EXPECT_EQ(CheckPercentage(".5", 1, 100).marker, Marker::kInvalidMin);
  EXPECT_EQ(CheckPercentage("100.5", 0, 100).marker, Marker::kInvalidMax);
}

TEST(FieldClassTest, RangeCommentJoinsTheBounds) {
  EXPECT_EQ(RangeComment("Period", 0.5, kBothIncluded, 10), "Period, 0.500 <= Value <= 10.000");
  EXPECT_EQ(RangeComment("Rate", 1, kUpperComputed, 2), "Rate, 1.000 <= Value < (2.000)");
}

class ValueChangedTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fixture.SetLines(SampleSection());
    panel.SetContext(&fixture.context);
    panel.LoadSection();
    panel.ChooseOption("Radiobox_1", 1);
  }

  const std::string& DutyRow() const { return panel.ParameterRows()[2]; }

  PanelFixture fixture;
  SamplePanel panel;
};

TEST_F(ValueChangedTest, ValidTextWritesTheRowWithTheValidComment) {
  ASSERT_TRUE(panel.EditFieldText("ComboEditbox_1", 0, " 75 "));
  EXPECT_EQ(DutyRow(), "P.DUTY=75");
  EXPECT_EQ(panel.ParameterComments()[2], "duty ok");
  // The field keeps the text as typed.
  EXPECT_EQ(panel.FindControl("ComboEditbox_1")->parts[0].text, " 75 ");
}

TEST_F(ValueChangedTest, BadTextBecomesAMarkerRowWithTheInvalidComment) {
  panel.EditFieldText("ComboEditbox_1", 0, "");
  EXPECT_EQ(DutyRow(), "P.DUTY=INVALID_MIN");
  EXPECT_EQ(panel.ParameterComments()[2], "duty bad");
  panel.EditFieldText("ComboEditbox_1", 0, "150x");
  EXPECT_EQ(DutyRow(), "P.DUTY=NULL");
  panel.EditFieldText("ComboEditbox_1", 0, "999");
  EXPECT_EQ(DutyRow(), "P.DUTY=INVALID_MAX");
  EXPECT_TRUE(fixture.host.messages.empty());
}

TEST_F(ValueChangedTest, TextOfTwentyCharactersIsIgnored) {
  panel.EditFieldText("ComboEditbox_1", 0, "0000000000000000099");  // 19 characters
  EXPECT_EQ(DutyRow(), "P.DUTY=0000000000000000099");
  panel.EditFieldText("ComboEditbox_1", 0, "00000000000000000100");
  EXPECT_EQ(DutyRow(), "P.DUTY=0000000000000000099");
}

TEST_F(ValueChangedTest, PickingAPresetHandsItsTextToTheField) {
  ASSERT_TRUE(panel.ChooseItem("ComboEditbox_1", 1));
  EXPECT_EQ(panel.FindControl("ComboEditbox_1")->parts[0].text, "100");
  EXPECT_EQ(DutyRow(), "P.DUTY=100");
}

TEST_F(ValueChangedTest, ADisabledFieldKeepsItsRow) {
  panel.EditFieldText("ComboEditbox_1", 0, "5");
  panel.ChooseOption("Radiobox_1", 0);
  EXPECT_FALSE(panel.EditFieldText("ComboEditbox_1", 0, "60"));
  EXPECT_EQ(DutyRow(), "P.DUTY=INVALID_MIN");
}

class CollectErrorsTest : public ValueChangedTest {};

TEST_F(CollectErrorsTest, EveryMatchingErrorRowOfAShownMarkerIsReported) {
  panel.EditFieldText("ComboEditbox_1", 0, "5");
  ErrorReport report;
  EXPECT_FALSE(panel.CollectErrors(report));
  ASSERT_EQ(report.Count(), 2);
  EXPECT_EQ(report.rows[0][2], "E01");
  EXPECT_EQ(report.rows[0][3], "Too small");
  EXPECT_EQ(report.rows[0][4], "Raise the duty");
  EXPECT_EQ(report.rows[1][2], "E02");
  EXPECT_EQ(report.rows[1][0], "");
}

TEST_F(CollectErrorsTest, AnErrorRowOfAnotherFieldNameDoesNotMatch) {
  panel.EditFieldText("ComboEditbox_1", 0, "12x");  // NULL, whose row names ComboEdit_9
  ErrorReport report;
  EXPECT_TRUE(panel.CollectErrors(report));
  EXPECT_EQ(report.Count(), 0);
}

TEST_F(CollectErrorsTest, AMarkerOfAHiddenFieldBlocksNothing) {
  panel.EditFieldText("ComboEditbox_1", 0, "5");
  panel.ChooseOption("Radiobox_1", 0);
  ErrorReport report;
  EXPECT_TRUE(panel.CollectErrors(report));
}

TEST_F(CollectErrorsTest, APanelWithoutAWindowIsNotAsked) {
  panel.EditFieldText("ComboEditbox_1", 0, "5");
  panel.DestroyWindow();
  ErrorReport report;
  EXPECT_TRUE(panel.CollectErrors(report));
}

TEST_F(CollectErrorsTest, TheReportStopsAtOneHundredRows) {
  std::string errors = "Error_Min=";
  for (int r = 0; r < 60; ++r) errors += "P.DUTY,ComboEdit_1,E" + std::to_string(r) + ";";
  std::vector<std::string> lines = SampleSection();
  lines[8] = errors;
  fixture.SetLines(lines);
  SamplePanel first;
  SamplePanel second;
  ErrorReport report;
  for (SamplePanel* p : {&first, &second}) {
    p->SetContext(&fixture.context);
    p->LoadSection();
    p->ChooseOption("Radiobox_1", 1);
    p->EditFieldText("ComboEditbox_1", 0, "5");
    EXPECT_FALSE(p->CollectErrors(report));
  }
  EXPECT_EQ(report.Count(), kErrorReportRows);
  EXPECT_EQ(report.rows[99][2], "E39");
}

}  // namespace
}  // namespace tessara
