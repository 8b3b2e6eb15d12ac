#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/text.h"
#include "database/device_database.h"
#include "pages/parameter_list.h"
#include "panels/framework/generic_panel.h"
#include "panels/framework/panel_context.h"
#include "panels/system/clock2_panel.h"
#include "panels/timers/timer_ra_panel.h"
#include "recording_host.h"

namespace tessara {
namespace {

// Places of the 22-place EnableMask: groups 2 to 8 (two each), Combobox_1 to _3, the
// time field, the two count fields, Combobox_4 and _5.
const std::string kAllOn = "1111111111111111111111";

// A Timer RA section with short names, so that each test can state its rows.
std::vector<std::string> TimerLines(const std::string& marker = "",
                                    const std::string& groupOneShow = "SSHHHHHHHHSSSSSSSSSS") {
  return {
      "Dialog=Timer RA",
      "Peripheral_Heading=//**;// Timer RA;//**",
      "Tooltip=t1;t2;t3;t4;t5;t6;t7;t8;t9;t10;t11;t12;t13;t14;t15;t16",
      "Radiobox_1=Use;Stop;Use;;;;;11;0000000000000000000000;--------------1-------;"
      "SSHHHHHHHHSSSSSSSSSS;" + groupOneShow + ";" + marker,
      "Radiobox_2=Out;Off;On;out=0;out=1;//out off;//out on;11;0;1",
      "Radiobox_3=Level;High;Low;lvl=0;lvl=1;//high;//low;11",
      "Radiobox_4=Edge;Rise;Fall;edge=0;edge=1;//rise;//fall;11",
      "Radiobox_5=Width;High;Low;wid=0;wid=1;//wh;//wl;11",
      "Radiobox_6=Period;Rise;Fall;per=0;per=1;//pr;//pf;11",
      "Radiobox_7=Filter;Off;On;flt=0;flt=1;//no filter;//filter;11;0;1",
      "Radiobox_8=Irq;Off;On;irq=0;irq=1;//irq off;//irq on;11",
      // Mode A: time field only; mode C: count fields only, time field off.
      "Combobox_1=Mode;A;B;C;D;E;mode=0;mode=1;mode=2;mode=3;mode=4;//a;//b;//c;//d;//e;1;11111;"
      "0000000000001111110000;1111111111111111110000;1111111111111111101111;"
      "1111111111111111111111;1111111111111111111111;"
      "SSHHHHHHHHSSSSSSSSSS;SSSSHHHHHHSSSSSSSSSS;SSHHSSHHHHSSSSSSSSSS;"
      "SSHHHHSSHHSSSSSSSSSS;SSHHHHHHSSSSSSSSSS",
      marker == "v1.31"
          ? "Combobox_2=Source;f1;f8;fOCO;fC32;f4;f16;f32;f64;src=0;div=1;src=1;div=8;src=2;div=fOCO;"
            "src=3;div=fC32;src=4;div=4;src=5;div=16;src=6;div=32;src=7;div=64;"
            "//f1;//f8;//fOCO;//fC32;//f4;//f16;//f32;//f64;;11111101"
          : "Combobox_2=Source;f1;f8;fOCO;fC32;f4;src=0;div=1;src=1;div=8;src=2;div=fOCO;"
            "src=3;div=fC32;src=4;div=4;//f1;//f8;//fOCO;//fC32;//f4;1;11111",
      "Combobox_3=Start;Stop;Go;;;go=0;go=1;;;//stop;//go;;;1;11",
      "Combobox_4=Pin;P0;P1;;;pin=0;pin=1;;;//p0;//p1;;;;11",
      "Combobox_5=Clock;c1;c8;;;fck=0;fck=1;;;//c1;//c8;;;;11",
      "ComboEditbox_1=Time;ms;pre;cnt;//valid time;1;1;1.5;1500;;//invalid time;1|1.5|1500|",
      "ComboEditbox_2=Counts;P:;C:;pre;cnt;//c2a;//c2b;//c3a;//c3b;//c4a;//c4b;11;SS;0;255;1;255;"
      "//bad pre;//bad cnt;0|255|;1|255|",
      "ExtraComment=Combobox_1=ma,mb,mc;Combobox_4=never;Radiobox_8,Combobox_4(1)=gated",
      "Error_Null=pre,ComboEdit_1,E1,no time,pick a time;pre,ComboEdit_2,E2,no count,type digits",
      "Error_Max=cnt,ComboEdit_2,E3,count too big,at most 255",
  };
}

// A group with the timer at configuration 1 and its clock at configuration 2.
struct Bench {
  explicit Bench(const std::vector<std::string>& clockLines, bool clock2 = false,
                 std::vector<std::string> timerLines = TimerLines()) {
    group.Group = "TST/1 Group";
    group.Configuration[1] = "Timer RA";
    group.Configuration[2] = "Clock";
    group.SectionLines.Assign(1, timerLines);
    group.SectionLines.Assign(2, clockLines);
    clockContext.host = &host;
    clockContext.group = &group;
    clockContext.configuration = 2;
    clockContext.flags = &flags;
    context.host = &host;
    context.group = &group;
    context.configuration = 1;
    context.flags = &flags;
    context.parameterList = &list;
    if (clock2) {
      clock = std::make_unique<Clock2Panel>();
      context.clock2Link = clock.get();
    } else {
      clock = std::make_unique<GenericPanel>(PanelKind::kClock);
      context.clockLink = clockLines.empty() ? nullptr : clock.get();
    }
    clock->SetContext(&clockContext);
    clock->LoadSection();
    panel.SetContext(&context);
    panel.LoadSection();
  }

  std::string Row(const std::string& name) const {
    for (const std::string& row : panel.ParameterRows()) {
      if (EqualsNoCase(PeripheralPanel::RowName(row), name)) return row;
    }
    return "";
  }
  std::string Comment(const std::string& name) const {
    const auto& rows = panel.ParameterRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (EqualsNoCase(PeripheralPanel::RowName(rows[i]), name)) return panel.ParameterComments()[i];
    }
    return "";
  }
  const ControlModel& Part(const std::string& key, int part = 0) const {
    return panel.FindControl(key)->parts.at(static_cast<std::size_t>(part));
  }

  DatabaseEntry group;
  RecordingHost host;
  FamilyFlags flags;
  ParameterList list;
  PanelContext clockContext;
  PanelContext context;
  std::unique_ptr<PeripheralPanel> clock;
  TimerRAPanel panel;
};

std::vector<std::string> ClockAt(const std::string& hz) {
  return {"Dialog=Clock", "initial_value_1=clk=" + hz + " //main clock"};
}

// ---------------------------------------------------------------- time field

TEST(TimerRaTime, SourceF1At20MHzGivesLargestExactFirstFactor) {
  Bench bench(ClockAt("20000000"));
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_2", 0));  // f1: div=1
  ASSERT_TRUE(bench.panel.EditFieldText("ComboEditbox_1", 0, "1"));
  // 1 ms at 20 MHz: 5e-8 s per count is not exact in single precision, so the wanted
  // count is 19999.99977. Its distance to 20000, kept in single precision, comes out
  // larger than itself: every later pair with the product 20000 is strictly nearer,
  // and the last of them, 80 x 250, wins.
  EXPECT_EQ(bench.Row("pre"), "pre=79");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
  EXPECT_EQ(bench.Comment("cnt"), "//valid time");
}

TEST(TimerRaTime, SourceF8DividesTheClock) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseItem("Combobox_2", 1);  // f8: div=8
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1");
  // 2499.99997 counts: as at f1 the last pair of the product 2500, 10 x 250, wins.
  EXPECT_EQ(bench.Row("pre"), "pre=9");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
}

TEST(TimerRaTime, TieGoesToTheLargerFirstFactor) {
  Bench bench(ClockAt("64"));
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1500");
  // Exactly 96 counts: 96 x 1 is found before 48 x 2, 32 x 3 ... and none is nearer.
  EXPECT_EQ(bench.Row("pre"), "pre=95");
  EXPECT_EQ(bench.Row("cnt"), "cnt=0");

  Bench nearHundred(ClockAt("100000"));
  nearHundred.panel.EditFieldText("ComboEditbox_1", 0, "1");
  // 100.0000025 counts: here the single-precision distance is not larger than itself,
  // so 100 x 1 keeps its place ahead of 50 x 2.
  EXPECT_EQ(nearHundred.Row("pre"), "pre=99");
  EXPECT_EQ(nearHundred.Row("cnt"), "cnt=0");
}

TEST(TimerRaTime, CountsBeyondTheLargestProduct) {
  Bench exact(ClockAt("65536000"));
  exact.panel.EditFieldText("ComboEditbox_1", 0, "1");
  EXPECT_EQ(exact.Row("pre"), "pre=255");  // 65536 = 256 x 256
  EXPECT_EQ(exact.Row("cnt"), "cnt=255");

  Bench far(ClockAt("20000000"));
  far.panel.EditFieldText("ComboEditbox_1", 0, "1500");  // 30000000 counts
  EXPECT_EQ(far.Row("pre"), "pre=255");
  EXPECT_EQ(far.Row("cnt"), "cnt=0");
}

TEST(TimerRaTime, SubClockNeedsNoClockRows) {
  Bench bench({});
  bench.panel.ChooseItem("Combobox_2", 3);  // fC32: 32 / 32768 s per count
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1500");
  // Exactly 1536 counts = 256 x 6.
  EXPECT_EQ(bench.Row("pre"), "pre=255");
  EXPECT_EQ(bench.Row("cnt"), "cnt=5");
}

TEST(TimerRaTime, WithoutClockRowTheDefaultClockCounts) {
  Bench bench({"Dialog=Clock", "initial_value_1=osc=1"});
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1");
  // 125000 Hz: 125 counts = 125 x 1.
  EXPECT_EQ(bench.Row("pre"), "pre=124");
  EXPECT_EQ(bench.Row("cnt"), "cnt=0");
}

std::vector<std::string> Clock2At20MHzDividedBy4() {
  return {"Dialog=Clock", "initial_value_1=clk=20000000", "initial_value_2=oscdiv=4"};
}

TEST(TimerRaTime, OnChipWordTakesTheOscillatorClock) {
  Bench bench(Clock2At20MHzDividedBy4(), true);
  bench.clock->MutableControl("Radiobox_1")->CheckOption(2);  // oscillator divider in use
  bench.panel.ChooseItem("Combobox_2", 2);  // fOCO
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1");
  // 5 MHz: 4999.99994 counts; the last pair of the product 5000, 20 x 250, wins.
  EXPECT_EQ(bench.Row("pre"), "pre=19");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
}

TEST(TimerRaTime, OnChipWordFallsBackWhenTheOscillatorChangesNothing) {
  Bench clock2(Clock2At20MHzDividedBy4(), true);  // first source: no divider applied
  clock2.panel.ChooseItem("Combobox_2", 2);
  clock2.panel.EditFieldText("ComboEditbox_1", 0, "1");
  EXPECT_EQ(clock2.Row("pre"), "pre=124");  // 125 counts at 125 kHz
  EXPECT_EQ(clock2.Row("cnt"), "cnt=0");

  Bench clock(ClockAt("20000000"));  // no Clock2Panel at all
  clock.panel.ChooseItem("Combobox_2", 2);
  clock.panel.EditFieldText("ComboEditbox_1", 0, "1");
  EXPECT_EQ(clock.Row("pre"), "pre=124");
}

TEST(TimerRaTime, NumericWordDividesTheOscillatorClockButNoWordTakesClkItself) {
  Bench bench(Clock2At20MHzDividedBy4(), true);
  bench.clock->MutableControl("Radiobox_1")->CheckOption(2);
  bench.panel.EditFieldText("ComboEditbox_1", 0, "1");  // no "div" row yet: clk itself
  EXPECT_EQ(bench.Row("pre"), "pre=79");  // 20 MHz, as with f1
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
  bench.panel.ChooseItem("Combobox_2", 4);  // div=4 over 5 MHz; the time follows at once
  // 1249.99999 counts; the last pair of the product 1250, 5 x 250, wins.
  EXPECT_EQ(bench.Row("pre"), "pre=4");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
}

TEST(TimerRaTime, BadTimesGiveNullWithTheInvalidComment) {
  Bench bench(ClockAt("20000000"));
  for (const char* text : {"2", "1.5.2", "1x", "1500x", "-1", "1 5"}) {
    bench.panel.EditFieldText("ComboEditbox_1", 0, "1");
    ASSERT_EQ(bench.Row("pre"), "pre=79");
    bench.panel.EditFieldText("ComboEditbox_1", 0, text);
    EXPECT_EQ(bench.Row("pre"), "pre=NULL") << text;
    EXPECT_EQ(bench.Row("cnt"), "cnt=NULL") << text;
    EXPECT_EQ(bench.Comment("pre"), "//invalid time") << text;
    EXPECT_EQ(bench.Part("ComboEditbox_1").text, text);  // the field keeps its text
  }
  EXPECT_TRUE(bench.host.messages.empty());
}

TEST(TimerRaTime, BlanksLengthAndTheEmptyAcceptedCell) {
  Bench bench(ClockAt("20000000"));
  bench.panel.EditFieldText("ComboEditbox_1", 0, "  1  ");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
  // An empty fourth cell accepts the empty text, as the time 0: both factors 1.
  bench.panel.EditFieldText("ComboEditbox_1", 0, "");
  EXPECT_EQ(bench.Row("pre"), "pre=0");
  EXPECT_EQ(bench.Row("cnt"), "cnt=0");
  // 19 characters are read (1.5 ms: 30000 = 250 x 120), 20 are ignored.
  bench.panel.EditFieldText("ComboEditbox_1", 0, "0000000000000001.50");
  EXPECT_EQ(bench.Row("pre"), "pre=249");
  EXPECT_EQ(bench.Row("cnt"), "cnt=119");
  bench.panel.EditFieldText("ComboEditbox_1", 0, "00000000000000000001");
  EXPECT_EQ(bench.Row("cnt"), "cnt=119");
  bench.panel.EditFieldText("ComboEditbox_1", 0, "000000000000000001x");
  EXPECT_EQ(bench.Row("cnt"), "cnt=NULL");
}

TEST(TimerRaTime, PickingAValueListItemComputesIt) {
  Bench bench(ClockAt("20000000"));
  EXPECT_EQ(bench.Part("ComboEditbox_1").items, (std::vector<std::string>{"1", "1.5", "1500"}));
  ASSERT_TRUE(bench.panel.ChooseItem("ComboEditbox_1", 1));
  EXPECT_EQ(bench.Part("ComboEditbox_1").text, "1.5");
  EXPECT_EQ(bench.Row("cnt"), "cnt=119");
}

// ---------------------------------------------------------------- count fields

TEST(TimerRaCounts, ValidCountsTakeTheCommentOfTheMode) {
  Bench bench(ClockAt("20000000"));
  bench.panel.EditFieldText("ComboEditbox_2", 0, "100");
  EXPECT_EQ(bench.Row("pre"), "pre=100");
  EXPECT_EQ(bench.Comment("pre"), "Counts");  // modes 0 and 1: the caption
  bench.panel.ChooseItem("Combobox_1", 2);
  bench.panel.EditFieldText("ComboEditbox_2", 0, " 7 ");
  EXPECT_EQ(bench.Row("pre"), "pre=7");
  EXPECT_EQ(bench.Comment("pre"), "//c2a");
  bench.panel.ChooseItem("Combobox_1", 3);
  bench.panel.EditFieldText("ComboEditbox_2", 1, "8");
  EXPECT_EQ(bench.Row("cnt"), "cnt=8");
  EXPECT_EQ(bench.Comment("cnt"), "//c3b");
  bench.panel.ChooseItem("Combobox_1", 4);
  bench.panel.EditFieldText("ComboEditbox_2", 0, "9");
  EXPECT_EQ(bench.Comment("pre"), "//c4a");
}

TEST(TimerRaCounts, MarkersInTheOrderBelowAboveMalformed) {
  Bench bench(ClockAt("20000000"));
  struct Case {
    int field;
    const char* text;
    const char* row;
  };
  const Case cases[] = {
      {0, "", "pre=NULL"},          {1, "", "cnt=INVALID_MIN"},  // lowest 0, lowest 1
      {0, "12x", "pre=NULL"},       {0, "300x", "pre=INVALID_MAX"},
      {0, "256", "pre=INVALID_MAX"}, {1, "0", "cnt=INVALID_MIN"},
      {0, "1.5", "pre=NULL"},       {1, "1.5.2", "cnt=NULL"},
      {0, "9999999999999999999", "pre=INVALID_MAX"},
  };
  for (const Case& c : cases) {
    bench.panel.EditFieldText("ComboEditbox_2", c.field, c.text);
    const std::string name = c.field == 0 ? "pre" : "cnt";
    EXPECT_EQ(bench.Row(name), c.row) << c.text;
    EXPECT_EQ(bench.Comment(name), c.field == 0 ? "//bad pre" : "//bad cnt") << c.text;
  }
  bench.panel.EditFieldText("ComboEditbox_2", 1, "0000000000000000255");  // 19 characters
  EXPECT_EQ(bench.Row("cnt"), "cnt=0000000000000000255");
  bench.panel.EditFieldText("ComboEditbox_2", 1, "00000000000000000001");  // 20: ignored
  EXPECT_EQ(bench.Row("cnt"), "cnt=0000000000000000255");
  EXPECT_TRUE(bench.host.messages.empty());
}

// ---------------------------------------------------------------- masks and views

TEST(TimerRaMasks, StartHidesTheSharedGroupsAndTheOptionsCell11Names) {
  Bench bench(ClockAt("20000000"), false,
              TimerLines("", "SSSSHSSHHSSSSSSSSSSS"));
  const Control& level = *bench.panel.FindControl("Radiobox_3");
  EXPECT_TRUE(level.frame.visible);
  for (const char* key : {"Radiobox_4", "Radiobox_5", "Radiobox_6"}) {
    EXPECT_FALSE(bench.panel.FindControl(key)->frame.visible) << key;
  }
  // Places 5 to 10 of "SSSSHSSHHS...": Edge first, Width second, Period first.
  EXPECT_FALSE(bench.Part("Radiobox_4", 0).visible);
  EXPECT_TRUE(bench.Part("Radiobox_4", 1).visible);
  EXPECT_TRUE(bench.Part("Radiobox_5", 0).visible);
  EXPECT_FALSE(bench.Part("Radiobox_5", 1).visible);
  EXPECT_FALSE(bench.Part("Radiobox_6", 0).visible);
  EXPECT_FALSE(bench.panel.ChooseOption("Radiobox_6", 0));
}

TEST(TimerRaMasks, UsingThePeripheralRunsTheModeAndItsMasks) {
  Bench bench(ClockAt("20000000"));
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_1", 1));
  EXPECT_EQ(bench.panel.CurrentChoice(), 1);
  // Mode A: groups 2 to 7 off, the time field on, the count fields and lists 4, 5 off.
  EXPECT_FALSE(bench.panel.FindControl("Radiobox_2")->AnyPartEnabled());
  EXPECT_TRUE(bench.Part("ComboEditbox_1").enabled);
  EXPECT_FALSE(bench.Part("ComboEditbox_2", 0).enabled);
  EXPECT_FALSE(bench.Part("Combobox_4").enabled);
  EXPECT_EQ(bench.Row("mode"), "mode=0");
  // The re-run computed the time from the field's first item.
  EXPECT_EQ(bench.Row("pre"), "pre=79");
  EXPECT_EQ(bench.Row("cnt"), "cnt=249");
  std::vector<std::string> shown;
  for (const auto& row : bench.list.Rows()) shown.push_back(row.parameter);
  EXPECT_EQ(shown, (std::vector<std::string>{"irq=0", "pre=79", "cnt=249", "mode=0", "src=0",
                                             "go=0"}));

  // Stopping disables everything; rows stay but are no longer shown.
  bench.panel.ChooseOption("Radiobox_1", 0);
  EXPECT_EQ(bench.panel.CurrentChoice(), 0);
  EXPECT_FALSE(bench.Part("ComboEditbox_1").enabled);
  EXPECT_EQ(bench.list.RowCount(), 0);
  EXPECT_EQ(bench.Row("pre"), "pre=79");
}

TEST(TimerRaMasks, ModeWithoutTimeLeavesAMarkerThatBlocksNothing) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.EditFieldText("ComboEditbox_1", 0, "2");
  ErrorReport report;
  EXPECT_FALSE(bench.panel.CollectErrors(report));
  ASSERT_EQ(report.Count(), 1);
  EXPECT_EQ(report.rows[0][2], "E1");
  // Mode C turns the time field off: its slots go, and the count fields take the rows.
  bench.panel.ChooseItem("Combobox_1", 2);
  EXPECT_FALSE(bench.Part("ComboEditbox_1").enabled);
  EXPECT_TRUE(bench.Part("ComboEditbox_2", 1).enabled);
  EXPECT_EQ(bench.Row("pre"), "pre=0");  // re-run on the field's first item
  EXPECT_EQ(bench.Row("cnt"), "cnt=1");
  report.Clear();
  EXPECT_TRUE(bench.panel.CollectErrors(report));
  bench.panel.EditFieldText("ComboEditbox_2", 1, "300");
  EXPECT_FALSE(bench.panel.CollectErrors(report));
  ASSERT_EQ(report.Count(), 1);
  EXPECT_EQ(report.rows[0][3], "count too big");
}

TEST(TimerRaMasks, ShowMaskLettersFollowTheirPlaces) {
  Bench bench(ClockAt("20000000"));
  bench.panel.MutableControl("Radiobox_2")->parts[0].visible = false;
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_1", 2);  // "SSHHSSHHHH...": Edge shown, Level's box hidden
  EXPECT_TRUE(bench.Part("Radiobox_2", 0).visible);  // "S" shows
  EXPECT_TRUE(bench.Part("Radiobox_3", 0).visible);  // "H" at group 3 still shows the options
  EXPECT_FALSE(bench.panel.FindControl("Radiobox_3")->frame.visible);
  EXPECT_TRUE(bench.panel.FindControl("Radiobox_4")->frame.visible);
  EXPECT_TRUE(bench.Part("Radiobox_4", 1).visible);
  EXPECT_FALSE(bench.Part("Radiobox_5", 0).visible);  // "H" at groups 4 to 6 hides
  EXPECT_FALSE(bench.panel.FindControl("Radiobox_5")->frame.visible);
  // Group 2's options and box come back with "HH" as with "SS".
  bench.panel.MutableControl("Radiobox_2")->parts[1].visible = false;
  bench.panel.MutableControl("Radiobox_2")->frame.visible = false;
  bench.panel.ChooseItem("Combobox_1", 3);  // "SSHHHHSSHH..."
  EXPECT_TRUE(bench.Part("Radiobox_2", 1).visible);
  EXPECT_TRUE(bench.panel.FindControl("Radiobox_2")->frame.visible);
  EXPECT_FALSE(bench.panel.FindControl("Radiobox_4")->frame.visible);
  EXPECT_TRUE(bench.panel.FindControl("Radiobox_5")->frame.visible);
}

TEST(TimerRaMasks, CountBoxIsShownOnlyByTwoH) {
  std::vector<std::string> lines = TimerLines();
  lines[3] = "Radiobox_1=Use;Stop;Use;;;;;11;;;SSHHHHHHHHSSSSSSSSSS;SSHHHHHHHHSSSSSSSSHH;";
  Bench bench(ClockAt("20000000"), false, lines);
  bench.panel.MutableControl("ComboEditbox_2")->frame.visible = false;
  bench.panel.ChooseOption("Radiobox_1", 0);  // "...SS": the box is left as it is
  EXPECT_FALSE(bench.panel.FindControl("ComboEditbox_2")->frame.visible);
  bench.panel.ChooseOption("Radiobox_1", 1);  // "...HH": shows the box and both fields
  EXPECT_TRUE(bench.panel.FindControl("ComboEditbox_2")->frame.visible);
  EXPECT_TRUE(bench.Part("ComboEditbox_2", 1).visible);
}

TEST(TimerRaMasks, GroupsTwoAndSevenSteerTheirLists) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseItem("Combobox_4", 1);
  EXPECT_EQ(bench.Row("pin"), "pin=1");
  bench.panel.ChooseOption("Radiobox_2", 0);  // cell 8 "0": list 4 back to item 0, off
  EXPECT_FALSE(bench.Part("Combobox_4").enabled);
  EXPECT_EQ(bench.Part("Combobox_4").selection, 0);
  EXPECT_EQ(bench.Row("out"), "out=0");
  EXPECT_EQ(bench.Row("pin"), "pin=1");  // a disabled list writes nothing
  bench.panel.ChooseOption("Radiobox_2", 1);
  EXPECT_TRUE(bench.Part("Combobox_4").enabled);
  EXPECT_EQ(bench.Row("pin"), "pin=0");
  bench.panel.ChooseOption("Radiobox_7", 1);
  EXPECT_TRUE(bench.Part("Combobox_5").enabled);
  EXPECT_EQ(bench.Row("fck"), "fck=0");
  EXPECT_EQ(bench.Row("flt"), "flt=1");
}

TEST(TimerRaMasks, ACheckedOptionThatIsDisabledWritesNothing) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseOption("Radiobox_8", 1);
  EXPECT_EQ(bench.Row("irq"), "irq=1");
  bench.panel.MutableControl("Radiobox_8")->parts[1].enabled = false;
  bench.panel.MutableControl("Radiobox_8")->parts[1].checked = true;
  bench.panel.MutableControl("Radiobox_8")->parts[0].checked = false;
  bench.panel.MutableControl("Radiobox_8")->parts[0].enabled = true;
  bench.panel.RunHandler(bench.panel.ControlIndex("Radiobox_8"));
  bench.panel.MutableControl("Radiobox_8")->CheckOption(0);
  bench.panel.MutableControl("Radiobox_8")->parts[0].enabled = false;
  bench.panel.RunHandler(bench.panel.ControlIndex("Radiobox_8"));
  EXPECT_EQ(bench.Row("irq"), "irq=1");
}

TEST(TimerRaLayout, LongLayoutHasEightSourcesAndItsOwnCells) {
  Bench bench(ClockAt("20000000"), false, TimerLines("v1.31"));
  EXPECT_TRUE(bench.panel.LongComboLayout());
  // Availability from cell 34 leaves out the seventh item.
  EXPECT_EQ(bench.Part("Combobox_2").items,
            (std::vector<std::string>{"f1", "f8", "fOCO", "fC32", "f4", "f16", "f64"}));
  bench.panel.ChooseItem("Combobox_2", 6);  // f64: cells 23 and 24, comment 32
  EXPECT_EQ(bench.Row("src"), "src=7");
  EXPECT_EQ(bench.Row("div"), "div=64");
  EXPECT_EQ(bench.Comment("src"), "//f64");
  EXPECT_NE(std::find(bench.panel.InitialValueLinks().begin(),
                      bench.panel.InitialValueLinks().end(), "Source=src"),
            bench.panel.InitialValueLinks().end());

  Bench shortLayout(ClockAt("20000000"), false, TimerLines("v1.3"));
  EXPECT_FALSE(shortLayout.panel.LongComboLayout());
  EXPECT_EQ(shortLayout.Part("Combobox_2").items.size(), 5u);
}

// ---------------------------------------------------------------- save, emission

TEST(TimerRaState, SaveLineAndReplayAgainstANewClock) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_1", 3);  // D: everything on
  bench.panel.ChooseOption("Radiobox_8", 1);
  bench.panel.ChooseItem("Combobox_2", 1);
  bench.panel.ChooseItem("ComboEditbox_1", 1);
  bench.panel.EditFieldText("ComboEditbox_2", 0, "15");
  bench.panel.EditFieldText("ComboEditbox_2", 1, "99");
  std::string text;
  bench.panel.SaveState(text);
  EXPECT_EQ(text, "0 1 1 0 1 0 1 0 1 0 1 0 1 0 0 1 3 1 0 1 15 99 0 0  \n");

  // Replayed on a clock of 10 MHz, the time is computed anew; the counts are set and
  // checked last, so they stand in the rows they share with the time.
  Bench replay(ClockAt("10000000"));
  replay.panel.LoadState("Clock2:1 \nTimerRA:" + text);
  EXPECT_EQ(replay.Part("Combobox_1").selection, 3);
  EXPECT_TRUE(replay.Part("Radiobox_8", 1).checked);
  EXPECT_EQ(replay.Part("ComboEditbox_1").text, "1.5");
  EXPECT_EQ(replay.Part("ComboEditbox_2", 1).text, "99");
  EXPECT_EQ(replay.Row("pre"), "pre=15");
  EXPECT_EQ(replay.Row("cnt"), "cnt=99");
  EXPECT_EQ(replay.Row("div"), "div=8");
  std::string again;
  replay.panel.SaveState(again);
  EXPECT_EQ(again, text);
}

TEST(TimerRaState, ReplayComputesTheTimeFromTheSavedIndex) {
  Bench bench(ClockAt("10000000"));
  bench.panel.LoadState("TimerRA:0 1 1 0 1 0 1 0 1 0 1 0 1 0 1 0 0 0 0 1 x y 0 0  \n");
  // 1.5 ms at 10 MHz, f1: 15000 counts = 250 x 60.
  EXPECT_EQ(bench.Row("pre"), "pre=249");
  EXPECT_EQ(bench.Row("cnt"), "cnt=59");
}

TEST(TimerRaEmission, OnlyTheKindsKeysAreRead) {
  Bench bench(ClockAt("20000000"));
  bench.panel.ChooseItem("Combobox_1", 2);
  bench.panel.ChooseOption("Radiobox_8", 1);
  std::string out;
  bench.panel.EmitRegisterCode(out);
  // Combobox_4 is no key of this panel, neither alone nor as a gate.
  EXPECT_EQ(out, "mc");
}

}  // namespace
}  // namespace tessara

namespace tessara {
namespace {

TEST(TimerRaLinks, GroupTwoLinksItsParameterLikeEveryGroupButTheFirst) {
  Bench bench(ClockAt("20000000"));
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_2", 1));
  const std::vector<std::string>& links = bench.panel.InitialValueLinks();
  EXPECT_NE(std::find(links.begin(), links.end(), "Out=out"), links.end());
  bool shown = false;
  for (const ParameterList::Row& row : bench.list.Rows()) shown = shown || row.parameter == "out=1";
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace tessara
