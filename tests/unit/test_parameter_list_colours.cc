#include "pages/parameter_list_colours.h"

#include <gtest/gtest.h>

#include "database/device_database.h"
#include "pages/parameter_list.h"

namespace tessara {
namespace {

using K = ListColourKey;

TEST(ParameterListColours, DefaultsBeforeAnyLine) {
  ParameterListColours colours(Rgb(1, 2, 3));
  EXPECT_EQ(colours.Colour(K::kForegroundNotFocusValid), Rgb(0, 0, 0));
  EXPECT_EQ(colours.Colour(K::kForegroundNotFocusInvalid), Rgb(255, 0, 0));
  EXPECT_EQ(colours.Colour(K::kForegroundFocusValid), Rgb(255, 255, 255));
  EXPECT_EQ(colours.Colour(K::kForegroundFocusInvalid), Rgb(255, 255, 255));
  EXPECT_EQ(colours.Colour(K::kBackgroundNotFocusValid), Rgb(255, 255, 255));
  EXPECT_EQ(colours.Colour(K::kBackgroundNotFocusInvalid), Rgb(255, 255, 255));
  EXPECT_EQ(colours.Colour(K::kBackgroundFocusValid), Rgb(1, 2, 3));
  EXPECT_EQ(colours.Colour(K::kBackgroundFocusInvalid), Rgb(255, 0, 0));
  EXPECT_EQ(Rgb(0x12, 0x34, 0x56), 0x563412u);
}

TEST(ParameterListColours, LinesOfTheEntryRestyleTheList) {
  DatabaseEntry entry;
  entry.Color[1] = "Foreground_NotFocus_Valid=10,20,30";
  // An empty slot is skipped; the slots behind it are still read.
  entry.Color[3] = "Background_Focus_InValid=1,2,3";
  entry.Color[9] = "Foreground_Focus_Invalid=7,8,9";
  ParameterListColours colours;
  colours.ReadColourLines(entry);
  EXPECT_EQ(colours.Colour(K::kForegroundNotFocusValid), Rgb(10, 20, 30));
  EXPECT_EQ(colours.Colour(K::kBackgroundFocusInvalid), Rgb(1, 2, 3));
  EXPECT_EQ(colours.Colour(K::kForegroundFocusInvalid), Rgb(7, 8, 9));
}

TEST(ParameterListColours, DefaultWordKeysAndMisspeltKeys) {
  ParameterListColours colours;
  colours.ApplyColourLine("Foreground_NotFocus_Invalid=Default");
  EXPECT_EQ(colours.Colour(K::kForegroundNotFocusInvalid), Rgb(255, 0, 0));
  // "Default" in another case is read as numbers: all three come out 0.
  colours.ApplyColourLine("Background_Focus_InValid=default");
  EXPECT_EQ(colours.Colour(K::kBackgroundFocusInvalid), Rgb(0, 0, 0));
  // The background key is spelt with a capital V; the small v names no colour.
  colours.ApplyColourLine("Background_NotFocus_Invalid=1,1,1");
  EXPECT_EQ(colours.Colour(K::kBackgroundNotFocusInvalid), Rgb(255, 255, 255));
  colours.ApplyColourLine("Background_NotFocus_InValid=4,5,6");
  EXPECT_EQ(colours.Colour(K::kBackgroundNotFocusInvalid), Rgb(4, 5, 6));
  // Keys compare with regard to case.
  colours.ApplyColourLine("foreground_notfocus_valid=9,9,9");
  EXPECT_EQ(colours.Colour(K::kForegroundNotFocusValid), Rgb(0, 0, 0));
  // A line without "=" has an empty key and changes nothing.
  ParameterListColours untouched;
  untouched.ApplyColourLine("10,20,30");
  EXPECT_EQ(untouched.Colour(K::kForegroundNotFocusValid), Rgb(0, 0, 0));
}

TEST(ParameterListColours, BadNumbersReadAsAtoiDoes) {
  ParameterListColours colours;
  colours.ApplyColourLine("Foreground_Focus_Valid=12abc, 34 ,x");
  EXPECT_EQ(colours.Colour(K::kForegroundFocusValid), Rgb(12, 34, 0));
  colours.ApplyColourLine("Foreground_Focus_Valid=200");
  EXPECT_EQ(colours.Colour(K::kForegroundFocusValid), Rgb(200, 0, 0));
  // Each component keeps its low byte, as a colour value can hold no more.
  colours.ApplyColourLine("Foreground_Focus_Valid=256,-1,99999999999999999999");
  EXPECT_EQ(colours.Colour(K::kForegroundFocusValid), Rgb(0, 255, 255));
}

TEST(ParameterListColours, RowColoursFollowTheTextOfColumnZero) {
  ParameterListColours colours(Rgb(0, 0, 128));
  CellColours plain = colours.ForRow("tramr=0x00", "");
  EXPECT_EQ(plain.text, Rgb(0, 0, 0));
  EXPECT_EQ(plain.background, Rgb(255, 255, 255));
  CellColours focus = colours.ForRow("tramr=0x00", "TRAMR=0X00");
  EXPECT_EQ(focus.text, Rgb(255, 255, 255));
  EXPECT_EQ(focus.background, Rgb(0, 0, 128));
  CellColours invalid = colours.ForRow("trapre=INVALID_MAX", "");
  EXPECT_EQ(invalid.text, Rgb(255, 0, 0));
  EXPECT_EQ(invalid.background, Rgb(255, 255, 255));
  CellColours invalidFocus = colours.ForRow("trapre=INVALID_MIN", "trapre=INVALID_MIN");
  EXPECT_EQ(invalidFocus.background, Rgb(255, 0, 0));
  // The marker words are searched anywhere and with regard to case.
  EXPECT_TRUE(IsInvalidRowText("NULLCOUNT=3"));
  EXPECT_FALSE(IsInvalidRowText("x=null"));
  EXPECT_FALSE(IsInvalidRowText("x=Invalid_Max"));
}

TEST(ParameterListHighlight, MarkIsATextThatOutlivesARebuild) {
  ParameterList list;
  list.AppendRow("a=1", "");
  list.AppendRow("b=2", "");
  list.AppendRow("a=1", "");
  list.SetHighlightRow(0);
  // Two rows with the same text are both marked.
  EXPECT_EQ(list.PaintCell(0).text, Rgb(255, 255, 255));
  EXPECT_EQ(list.PaintCell(2).text, Rgb(255, 255, 255));
  EXPECT_EQ(list.PaintCell(1).text, Rgb(0, 0, 0));
  list.DeleteAllRows();
  list.AppendRow("b=2", "");
  list.AppendRow("a=1", "");
  EXPECT_EQ(list.PaintCell(1).text, Rgb(255, 255, 255));
}

TEST(ParameterListHighlight, ClickAndFocusLoss) {
  ParameterList list;
  list.AppendRow("a=1", "");
  list.AppendRow("b=2", "");
  list.AppendRow("c=3", "");
  list.Click(1);
  EXPECT_EQ(list.HighlightText(), "b=2");
  // A click below the last row leaves no row marked.
  list.Click(-1);
  EXPECT_EQ(list.HighlightText(), "");
  list.Click(7);
  EXPECT_EQ(list.HighlightText(), "");
  // Losing the focus marks the row that was painted last, not the one that had it.
  list.Click(0);
  list.PaintCell(0);
  list.PaintCell(2);
  list.LoseFocus();
  EXPECT_EQ(list.HighlightText(), "c=3");
  EXPECT_EQ(list.LastDrawnRow(), 2);
}

}  // namespace
}  // namespace tessara
