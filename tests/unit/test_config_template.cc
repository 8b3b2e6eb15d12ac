#include "generator/config_template.h"
#include "generator/output_target.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

std::string Heading(const std::string& name) {
  return "\n\n\t" + std::string(kStarLine) + "\n\t// " + name + "\n\t" + std::string(kStarLine);
}

TEST(OutputTarget, HeaderNamesReplaceTheLastCharacter) {
  EXPECT_EQ(HeaderNameOf("Config.c"), "Config.h");
  EXPECT_EQ(HeaderNameOf("foo.cpp"), "foo.cph");
  EXPECT_EQ(HeaderNameOf("foo"), "foh");
  EXPECT_EQ(HeaderNameOf("c"), "c");
  EXPECT_EQ(HeaderPathOf("/out/Config.c"), "/out/Config.h");
}

TEST(OutputTarget, TheFolderLosesTheFirstOccurrenceOfTheName) {
  OutputState state;
  state.SetTarget("/work/Config.c/Config.c", "Config.c");
  EXPECT_EQ(state.OutputFolder, "/work//Config.c");
  state.SetTarget("/work/out/main.c", "main.c");
  EXPECT_EQ(state.OutputFolder, "/work/out/");
  EXPECT_EQ(state.OutputFileName, "main.c");
}

TEST(OutputTarget, RegisterHeaderNames) {
  EXPECT_EQ(RegisterHeaderNameFor("QTL/4C Group", false), "sfr_QTL4Cconfig.h");
  EXPECT_EQ(RegisterHeaderNameFor("KB/77161 Group", true), "iodefine.h");
  EXPECT_EQ(RegisterHeaderNameFor("", true), "sfr_QTL6Pconfig.h");
  EXPECT_EQ(RegisterHeaderNameFor("NoBlank", false), "sfr_config.h");
  EXPECT_EQ(RegisterHeaderNameFor("ZNR9/4X/B Group", false), "sfr_ZNR94XBconfig.h");
}

TEST(OutputTarget, GeneratedFilesGetCrLfAndReplaceTheTargetWhole) {
  TempFolder folder;
  RecordingHost host;
  EXPECT_EQ(WriteGeneratedFile(host, folder.File("a.c"), "x\ny\n"), 0);
  EXPECT_EQ(folder.Read("a.c"), "x\r\ny\r\n");
  EXPECT_EQ(WriteGeneratedFile(host, folder.File("a.c"), "z"), 0);
  EXPECT_EQ(folder.Read("a.c"), "z");
  EXPECT_EQ(WriteGeneratedFile(host, folder.File("missing/a.c"), "z"), 1);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "Error opening file: \"" + folder.File("missing/a.c") + "\"");
  // A folder in the target's place cannot be written either.
  EXPECT_EQ(WriteGeneratedFile(host, folder.path(), "z"), 1);
}

TEST(ConfigTemplate, ReplacementsCountCase) {
  EXPECT_EQ(ReplaceAll("#include \"config.h\" CONFIG.H config.h", "config.h", "main.h"),
            "#include \"main.h\" CONFIG.H main.h");
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
}

TEST(ConfigTemplate, ClockTextGoesBehindTheFamilysMarker) {
  std::string qtl = "x\n\t" + std::string(kClockMarker) + "\nrest";
  InsertClockText(qtl, "<CLK>", false);
  EXPECT_EQ(qtl, "x\n\t" + std::string(kClockMarker) + "<CLK>\nrest");
  std::string kb = std::string(kKbClockMarker) + "|";
  InsertClockText(kb, "<CLK>", true);
  EXPECT_EQ(kb, std::string(kKbClockMarker) + "<CLK>|");
  // Without its marker the text lands at the marker's length less one.
  std::string missing(100, '.');
  InsertClockText(missing, "<CLK>", false);
  EXPECT_EQ(missing.find("<CLK>"), kClockMarker.size() - 1);
  std::string shortText = "ab";
  InsertClockText(shortText, "<CLK>", true);
  EXPECT_EQ(shortText, "ab<CLK>");
}

TEST(ConfigTemplate, InitBodyGoesBehindTheFirstBraceOfInit) {
  std::string text = "void x(void){}\nvoid init(void)\n{\n}\n";
  InsertInitBody(text, "<BODY>");
  EXPECT_EQ(text, "void x(void){}\nvoid init(void)\n{<BODY>\n}\n");
}

TEST(OrderBlocks, TheListDecidesTheOrder) {
  std::array<std::string, kPeripheralSlots> slots;
  slots[0] = Heading("Port1 setting") + "\n\tp1=1;" + Heading("Port3 setting") + "\n\tp3=1;";
  slots[15] = Heading("UART0 setting") + "\n\tu0=1;";
  std::string body = OrderBlocks(slots, {"UART0", "Port 0", "Port 1", "Port 3", "Timer RA"});
  EXPECT_EQ(body, Heading("UART0 setting") + "\n\tu0=1;" + Heading("Port1 setting") + "\n\tp1=1;" +
                      Heading("Port3 setting") + "\n\tp3=1;");
  EXPECT_TRUE(slots[0].empty());
  EXPECT_TRUE(slots[15].empty());
}

TEST(OrderBlocks, AHeadingWithOneStarLineMatchesNothing) {
  std::array<std::string, kPeripheralSlots> slots;
  slots[3] = "\n\n\t" + std::string(kStarLine) + "\n\t// Timer X";
  EXPECT_EQ(OrderBlocks(slots, {"Timer X"}), "");
  EXPECT_FALSE(slots[3].empty());
}

}  // namespace
}  // namespace tessara
