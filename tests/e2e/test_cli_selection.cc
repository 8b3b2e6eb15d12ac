#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "cli_runner.h"

namespace tessara {
namespace {

CliResult RunScript(const std::string& script) { return RunCli({"run", "-"}, script); }

TEST(CliSelectionPage, ClockPanelGroupRowsControlsAndSummary) {
  CliResult result = RunScript(
      "group \"QTL/6P Group\"\n"
      "rows\n"
      "option Radiobox_1 2\n"
      "rows\n"
      "controls\n"
      "summary\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out,
            // Main clock: the divider starts at its data's index 3.
            "cm0=0x08\t//Main clock oscillates\n"
            "cm1=0x20\t//CPU clock from XIN\n"
            "cm15=1\t//XIN drive high\n"
            "cm16=0x30\t//f(XIN)/8\n"
            // Sub clock: the mask forces the drive to its second option and disables
            // the divider, whose row leaves the list.
            "cm0=0x18\t//Sub clock oscillates\n"
            "cm1=0x20\t//CPU clock from XCIN\n"
            "cm15=1\t//XIN drive high\n"
            "Radiobox_1\tRadioGroup\tchecked=2\n"
            "Radiobox_1:1\tOption\tenabled=1\tvisible=1\tchecked=0\ttext=Main Clock\n"
            "Radiobox_1:2\tOption\tenabled=1\tvisible=1\tchecked=1\ttext=Sub Clock\n"
            "Radiobox_1:3\tOption\tenabled=1\tvisible=1\tchecked=0\ttext=On-chip Oscillator\n"
            "Radiobox_2\tRadioGroup\tchecked=2\n"
            "Radiobox_2:1\tOption\tenabled=0\tvisible=1\tchecked=0\ttext=Low\n"
            "Radiobox_2:2\tOption\tenabled=1\tvisible=1\tchecked=1\ttext=High\n"
            "Combobox_1\tCombobox\tenabled=0\tvisible=1\tselection=3\t"
            "items=No division|Divide by 2|Divide by 4|Divide by 8|Divide by 16\n"
            "Combobox_2\tCombobox\tenabled=0\tvisible=1\tselection=0\titems=20|16|12.5|8\n"
            "Combobox_3\tCombobox\tenabled=1\tvisible=1\tselection=0\titems=0.032768|0.0625\n"
            "Clock Source:\t\tSub Clock\n"
            "CPU Clock Division:\tDivide by 8\n"
            "\n"
            "Frequency: 0.032768 MHz\n"
            "\n");
}

TEST(CliSelectionPage, EverySummaryBranchOfTheSampleGroups) {
  struct Case {
    const char* script;
    const char* summary;
  } cases[] = {
      {"group \"QTL/4C Group\"\noption Radiobox_1 4\nchoose Combobox_2 0.125\n",
       "OCO Clock:\t\tOn-chip oscillator(default)\nCPU Clock Division:\tNo division\n"
       "CPU Clock:\t\tLow-speed On-chip Oscillator\nLow-speed clock: 0.125MHz\n"
       "Low-speed clock: 32768Hz\n"},
      // The on-chip source disables the divider: its line stays empty.
      {"series ZNR9\noption Radiobox_1 3\n",
       "OCO Clock:\t\tOn-chip oscillator(default)\n\n"
       "CPU Clock:\t\tOn-chip Oscillator\nReference clock: 1MHz\nReference clock: 32768Hz\n"},
      {"series ZNR9\noption Radiobox_1 4\nchoose Combobox_2 =8\nchoose Combobox_5 x2\n",
       "CPU Clock Source:\t\tPLL Clock\nCPU Clock Division:\tDivide by 2\n\n"
       "Reference clock: 16MHz\n\n"},
      {"series ZNR9\nchoose Combobox_3 0.5\n",
       "CPU Clock Source:\t\tMain Clock\nCPU Clock Division:\tDivide by 2\n\n"
       "Reference clock: 0.500MHz\n\n"},
      {"series KB\noption Radiobox_1 2\n",
       "\n\n\nSub clock:\t32.768 KHz\n\n"},
      {"group \"QTL/4V Group\"\noption Radiobox_1 3\nchoose Combobox_4 1/3\n",
       "System Clock Source:\t\tXIN Clock\nSystem Clock Division:\t1/1\n\nfOCO 6.667 MHz\n\n"},
      {"group \"QTL/4V Group\"\noption Radiobox_1 4\n",
       "System Clock:\t\tXCIN Clock\nSystem Clock Division:\t1/1\n\nfOCO 32768 Hz\n\n"},
  };
  for (const Case& c : cases) {
    CliResult result = RunScript(std::string(c.script) + "summary\n");
    ASSERT_EQ(result.status, 0) << c.script << result.err;
    EXPECT_EQ(result.out, c.summary) << c.script;
  }
}

TEST(CliSelectionPage, FamilyFlagsWaitForTheFirstGroupChange) {
  // At start the first group's clock is loaded, but no group was chosen yet, so no
  // family is known and the summary of its Clock2Panel is empty.
  CliResult result = RunScript("summary\ngroup 0\nsummary\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "\n\n\n\n\n"
            "Clock Source:\t\tXIN Clock\nCPU Clock Division:\tNo division\n\n"
            "Low-speed clock: 20.000MHz\n\n");
}

TEST(CliSelectionPage, Box5FollowsTheFrequencyWithTheFourthSource) {
  CliResult result = RunScript(
      "series ZNR9\n"
      "option Radiobox_1 4\n"
      "choose Combobox_2 =10\n"
      "controls\n"
      "rows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("Combobox_5\tCombobox\tenabled=1\tvisible=1\tselection=1\titems=x2|x4\n"),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("plc0=0x14\t//PLL multiplies by 4\n"), std::string::npos) << result.out;
}

TEST(CliSelectionPage, ScriptLinesThatCannotRun) {
  struct Case {
    const char* script;
    const char* error;
  } cases[] = {
      {"group \"QTL/9Z Group\"\n", "line 1: no item \"QTL/9Z Group\" in the group box\n"},
      {"series 7\n", "line 1: position 7 is outside the series box (3 items)\n"},
      {"\n# a comment\noption Radiobox_9 1\n", "line 3: the panel has no RadioGroup Radiobox_9\n"},
      {"option Radiobox_1 5\n", "line 1: Radiobox_1 has no option 5\n"},
      {"group \"QTL/6P Group\"\noption Radiobox_1 2\noption Radiobox_2 1\n",
       "line 3: option 1 of Radiobox_2 is disabled\n"},
      {"group \"QTL/6P Group\"\noption Radiobox_1 2\nchoose Combobox_1 0\n",
       "line 3: Combobox_1 is disabled\n"},
      {"choose Radiobox_1 0\n", "line 1: the panel has no Combobox Radiobox_1\n"},
      {"part\n", "line 1: part takes 1 argument, not 0\n"},
  };
  for (const Case& c : cases) {
    CliResult result = RunScript(std::string(c.script) + "rows\n");
    EXPECT_EQ(result.status, 2) << c.script;
    EXPECT_EQ(result.err, c.error) << c.script;
  }
}

TEST(CliSelectionPage, QuitEndsTheRun) {
  CliResult result = RunScript("quit\nbogus\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
}

TEST(CliExamples, EverySampleGroupScriptRuns) {
  const char* names[] = {"clock_qtl4c.txt", "clock_qtl4v.txt", "clock_qtl6p.txt", "clock_znr94x.txt",
                         "clock_kb77161.txt"};
  for (const char* name : names) {
    CliResult result = RunCli({"run", std::string(TESSARA_SOURCE_DIR) + "/examples/" + name});
    EXPECT_EQ(result.status, 0) << name << result.err;
    EXPECT_EQ(result.err, "") << name;
    EXPECT_NE(result.out.find("\t//"), std::string::npos) << name;
  }
  CliResult kb = RunCli({"run", std::string(TESSARA_SOURCE_DIR) + "/examples/clock_kb77161.txt"});
  EXPECT_NE(kb.out.find("System clock :\t16 MHz\nCPU Clock      :    System Clock\n\nSub clock:\t38.4 KHz\n"),
            std::string::npos)
      << kb.out;
}

}  // namespace
}  // namespace tessara
