#include <gtest/gtest.h>

#include <string>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// The QTL/4C sample chip with Timer RA switched on: its popup slides out with the
// interrupt priority and two check boxes.
const std::string kTimerRaOn =
    "group \"QTL/4C Group\"\nnext\nselect \"Timer RA\"\noption Radiobox_1 2\n";

class CliExtraSettingsTest : public ::testing::Test {
 protected:
  void SetUp() override { CopySampleHome(home.path()); }
  CliResult Run(const std::string& script) { return RunCli({"--home", home.path(), "run", "-"}, script); }
  std::string Quoted(const std::string& name) const { return "\"" + out.File(name) + "\""; }
  TempFolder home;
  TempFolder out;
};

TEST_F(CliExtraSettingsTest, APriorityIsListedGeneratedAndComesBackFromItsProject) {
  CliResult first = Run(kTimerRaOn + "extra combo 1 \"Level 5\"\nrows\nsave " + Quoted("p.tsr") +
                        "\ngenerate " + Quoted("first") + "\n");
  ASSERT_EQ(first.status, 0) << first.err;
  EXPECT_NE(first.out.find("traipr=0x05\t//Timer RA interrupt priority level 5\n"), std::string::npos);
  std::string source = out.Read("first/Config.c");
  EXPECT_NE(source.find("\r\n\ttraipr=0x05;                             //Timer RA interrupt priority level 5\r\n"),
            std::string::npos);
  if (HostCompilerPresent()) {
    EXPECT_EQ(CompileErrors(out.File("first"), "Config.c"), "");
  }

  // Loaded again, the panel lists the priority, the popup shows it, and the code is the same.
  CliResult again = Run("load " + Quoted("p.tsr") + "\nnext\ngenerate " + Quoted("second") +
                        "\nselect \"Timer RA\"\nrows\nextra controls\n");
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_NE(again.out.find("traipr=0x05\t//Timer RA interrupt priority level 5\n"), std::string::npos);
  EXPECT_NE(again.out.find("ExtraSettings\tmode=1\nCombobox_1\tvisible=1\tplace=0\tselection=5\t"
                           "text=Interrupt Priority\titems=Level 0|Level 1|Level 2|Level 3|Level 4|"
                           "Level 5|Level 6|Level 7\n"),
            std::string::npos);
  EXPECT_EQ(out.Read("second/Config.c"), source);
}

TEST_F(CliExtraSettingsTest, AnUncheckedBoxLeavesNoStatementBehind) {
  CliResult result = Run(kTimerRaOn + "extra check 1 on\ngenerate " + Quoted("on") +
                         "\nextra check 1 off\nrows\ngenerate " + Quoted("off") + "\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(out.Read("on/Config.c").find("\ttramr.tckcut=1;"), std::string::npos);
  std::string off = out.Read("off/Config.c");
  EXPECT_EQ(off.find("tckcut"), std::string::npos);
  EXPECT_EQ(result.out.find("tckcut"), std::string::npos);
}

TEST_F(CliExtraSettingsTest, SwitchingThePeripheralOffForgetsItsSideSettings) {
  CliResult result = Run(kTimerRaOn + "extra combo 1 4\nextra check 2 on\noption Radiobox_1 1\n"
                                      "option Radiobox_1 2\nrows\nextra controls\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("traipr=0x00\t//Timer RA interrupt priority level 0 (masked)\n"), std::string::npos);
  EXPECT_EQ(result.out.find("trastpd"), std::string::npos);
  EXPECT_NE(result.out.find("Combobox_1\tvisible=1\tplace=0\tselection=0\t"), std::string::npos);
  EXPECT_NE(result.out.find("Checkbox_2\tvisible=1\tplace=1\tchecked=0\t"), std::string::npos);
}

// UART0's first check box belongs to the clock synchronous mode: a plain UART hides it,
// and the noise filter box closes up to the top of the check boxes.
TEST_F(CliExtraSettingsTest, AModeWordHidesItsLineAndTheLayoutClosesUp) {
  CliResult result = Run(
      "group \"QTL/4C Group\"\nnext\nselect UART0\nchoose Combobox_1 \"UART, internal clock\"\n"
      "extra controls\nextra check 2 on\nrows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("ExtraSettings\tmode=1\n"), std::string::npos);
  EXPECT_NE(result.out.find("Combobox_2\tvisible=1\tplace=1\tselection=0\ttext=Receive Interrupt Priority\t"),
            std::string::npos);
  EXPECT_NE(result.out.find("Checkbox_1\tvisible=0\tplace=-1\t"), std::string::npos);
  EXPECT_NE(result.out.find("Checkbox_2\tvisible=1\tplace=0\tchecked=0\ttext=Noise filter on RXD0\n"),
            std::string::npos);
  EXPECT_NE(result.out.find("u0rxflt=1\t//Noise filter on RXD0\n"), std::string::npos);

  CliResult hidden = Run("group \"QTL/4C Group\"\nnext\nselect UART0\nchoose Combobox_1 1\nextra check 1 on\n");
  EXPECT_EQ(hidden.status, 2);
  EXPECT_EQ(hidden.err, "line 5: check box 1 of the extra settings popup is hidden\n");
}

TEST_F(CliExtraSettingsTest, ScriptLinesThatCannotReachThePopupEndTheRun) {
  struct Case {
    std::string script;
    std::string err;
  };
  const Case cases[] = {
      {"extra combo 1 0\n", "line 1: extra acts on the peripheral page, which is not open\n"},
      {"group \"QTL/4C Group\"\nnext\nselect \"Timer RA\"\nextra combo 1 0\n",
       "line 4: the extra settings popup is hidden\n"},
      {kTimerRaOn + "extra combo 5 0\n", "line 5: the extra settings popup has no combo box 5\n"},
      {kTimerRaOn + "extra check 0 on\n", "line 5: the extra settings popup has no check box 0\n"},
      {kTimerRaOn + "extra combo 2 0\n", "line 5: combo box 2 of the extra settings popup is hidden\n"},
      {kTimerRaOn + "extra combo 1 \"Level 9\"\n", "line 5: no item \"Level 9\" in combo box 1\n"},
      {kTimerRaOn + "extra combo 1 8\n", "line 5: position 8 is outside combo box 1 (8 items)\n"},
      {kTimerRaOn + "extra check 1 maybe\n", "line 5: extra check takes on or off, not \"maybe\"\n"},
      {kTimerRaOn + "extra check 1\n", "line 5: extra check takes 2 arguments, not 1\n"},
      {kTimerRaOn + "extra show\n", "line 5: extra takes combo, check or controls, not \"show\"\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    CliResult result = Run(c.script);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, c.err);
  }
}

TEST_F(CliExtraSettingsTest, WithThePopupSwitchedOffThePanelsAddNoRows) {
  std::string ini = home.Read("Tessara.ini");
  std::size_t at = ini.find("ExtraSetting=1");
  ASSERT_NE(at, std::string::npos);
  ini.replace(at, 14, "ExtraSetting=0");
  home.Write("Tessara.ini", ini);
  CliResult result = Run(kTimerRaOn + "rows\ngenerate " + Quoted("plain") + "\nextra controls\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "line 7: the page has no extra settings popup\n");
  EXPECT_EQ(result.out.find("traipr"), std::string::npos);
  EXPECT_EQ(out.Read("plain/Config.c").find("traipr"), std::string::npos);
}

}  // namespace
}  // namespace tessara
