#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

std::string ExamplePath(const std::string& name) { return std::string(TESSARA_SOURCE_DIR) + "/examples/" + name; }

std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The script of an example without its comment lines, so that commands can follow it.
std::string ExampleScript(const std::string& name) {
  std::istringstream in(ReadText(ExamplePath(name)));
  std::string script;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line[0] != '#') script += line + "\n";
  }
  return script;
}

const char kQtl4cRows[] =
    "pd0=0x03\t//P0_1 output\n"
    "drr=0x01\t//P0_1 low drive\n"
    "pd1=0x00\t//Port 1 direction\n"
    "p1drr=0x00\t//Port 1 drive capacity\n"
    "pu03=1\t//Pull-up on P1_4 to P1_7\n"
    "int0ic=0x13,int0en=1\t//INT0 on the rising edge\n"
    "int0pin=1\t//INT0 pin input enabled\n"
    "int0sel=1\t//INT0 on P1_5\n"
    "kirold=0x05\t//K12 key input on\n"
    "kupic=0x01\t//Key input priority level 1\n";

class CliPortsTest : public ::testing::Test {
 protected:
  void SetUp() override { CopySampleHome(home.path()); }
  CliResult Run(const std::string& script) { return RunCli({"--home", home.path(), "run", "-"}, script); }
  TempFolder home;
  TempFolder out;
};

TEST_F(CliPortsTest, TheQtl4cExampleMergesPinsInterruptAndKeyInputBits) {
  CliResult result = RunCli({"--home", home.path(), "run", ExamplePath("ports_qtl4c.txt")});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, kQtl4cRows);
}

TEST_F(CliPortsTest, TheKbExampleTakesThePullUpOfAnOutputAway) {
  CliResult result = RunCli({"--home", home.path(), "run", ExamplePath("ports_kb77161.txt")});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "IO.PCR1=0x02\t//P11 output\n"
            "IO.PUCR1.BYTE=0x01\t//P11 pull-up on\n"
            "IENR1.BYTE=0x01\t//IRQ0 enabled\n"
            "IEGR.BYTE=0x01\t//IRQ0 on the rising edge\n"
            "int0ic=0x01,IO.INTEN=1\t//INT0 on the falling edge\n"
            "IO.INTPIN=0\t//INT0 pin input disabled\n"
            "IO.INTBOTH=1\t//Interrupt on both edges\n");
}

TEST_F(CliPortsTest, GeneratedCodePlacesEveryBlockAndCompiles) {
  struct Case {
    const char* example;
    const char* statements[3];
    bool interruptProgram;
  } cases[] = {
      {"ports_qtl4c.txt", {"\tpd0=0x03;", "\tint0ic=0x13;int0en=1;", "\tkirold=0x05;"}, false},
      {"ports_kb77161.txt", {"\tIO.PUCR1.BYTE=0x01;", "\tIEGR.BYTE=0x01;", "\tIO.INTBOTH=1;"}, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.example);
    std::string folder = out.File(c.example);
    CliResult result = Run(ExampleScript(c.example) + "generate \"" + folder + "\"\n");
    ASSERT_EQ(result.status, 0) << result.err;
    std::string source = ReadText(folder + "/Config.c");
    for (const char* statement : c.statements) {
      EXPECT_NE(source.find(statement), std::string::npos) << statement;
    }
    if (HostCompilerPresent()) {
      EXPECT_EQ(CompileErrors(folder, "Config.c"), "");
      if (c.interruptProgram) {
        EXPECT_EQ(CompileErrors(folder, "intprg.c"), "");
      }
    }
  }
  std::string qtl = ReadText(out.File("ports_qtl4c.txt") + "/Config.c");
  for (const char* heading : {"\t// Port0 setting\r\n", "\t// INT0 setting\r\n", "\t// Key Input setting\r\n"}) {
    EXPECT_NE(qtl.find(heading), std::string::npos) << heading;
  }
  EXPECT_NE(qtl.find("void int0_isr(void)"), std::string::npos);
  EXPECT_NE(ReadText(out.File("ports_kb77161.txt") + "/Config.c").find("\t// IRQ setting\r\n"),
            std::string::npos);
}

TEST_F(CliPortsTest, AProjectOfPinsAndInterruptsRoundTrips) {
  std::string project = out.File("ports.tsr");
  ASSERT_EQ(Run(ExampleScript("ports_qtl4c.txt") + "save \"" + project + "\"\n").status, 0);
  std::string saved = ReadText(project);
  EXPECT_NE(saved.find("Port0:0 1 0 1 0 1 1 0 1 0 1 0 "), std::string::npos);
  EXPECT_NE(saved.find("Interrupt0:0 1 1 0 1 0 0 0 0 0 0 1 0 0 0 0 0 1 1  \r\n"), std::string::npos);
  EXPECT_NE(saved.find("KeyInputInterrupt:0 1 0 0 0 0 0 0 2 0 0 1 1 0  \r\n"), std::string::npos);

  std::string again = out.File("again.tsr");
  CliResult result = Run("load \"" + project + "\"\nnext\nselect \"Port 0\"\nrows\nselect \"Port 1\"\nrows\n"
                         "select \"INT 0\"\nrows\n"
                         "save \"" + again + "\"\n");
  ASSERT_EQ(result.status, 0) << result.err;
  // The replay runs every switch's handler, so the first switch's row is listed too.
  EXPECT_EQ(result.out,
            "pd0=0x03\t//P0_1 output\n"
            "drr=0x01\t//P0_1 low drive\n"
            "pd1=0x00\t//Port 1 direction\n"
            "p1drr=0x00\t//Port 1 drive capacity\n"
            "pu02=0\t//No pull-up on P1_0 to P1_3\n"
            "pu03=1\t//Pull-up on P1_4 to P1_7\n"
            "int0ic=0x13,int0en=1\t//INT0 on the rising edge\n"
            "int0pin=1\t//INT0 pin input enabled\n"
            "int0both=0\t//Interrupt on one edge\n"
            "int0f=0\t//No digital filter on INT0\n"
            "int0sel=1\t//INT0 on P1_5\n");
  EXPECT_EQ(ReadText(again), saved);
}

TEST_F(CliPortsTest, ControlsShowAPinAsFourOptionsAndAPairButtonAsOne) {
  CliResult result = Run("group \"QTL/4C Group\"\nnext\nselect \"Port 0\"\noption Radiobox_1 2\ncontrols\n"
                         "select \"Key Input\"\ncontrols\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("Radiobox_1\tRadioGroup\tchecked=2\n"
                            "Radiobox_1:1\tOption\tenabled=1\tvisible=1\tchecked=0\ttext=Input\n"
                            "Radiobox_1:2\tOption\tenabled=1\tvisible=1\tchecked=1\ttext=Output\n"
                            "Radiobox_1:3\tOption\tenabled=1\tvisible=1\tchecked=1\ttext=Low\n"
                            "Radiobox_1:4\tOption\tenabled=1\tvisible=1\tchecked=0\ttext=High\n"
                            "Radiobox_2\tRadioGroup\tchecked=1\n"),
            std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("Radiobox_3\tRadioGroup\tchecked=0\n"
                            "Radiobox_3:1\tOption\tenabled=1\tvisible=1\tchecked=0\ttext=K10-K13 On\n"
                            "Combobox_2\tCombobox"),
            std::string::npos)
      << result.out;
}

TEST_F(CliPortsTest, AnOptionPastThePinsFourIsABadLine) {
  CliResult result = Run("group \"QTL/4C Group\"\nnext\nselect \"Port 0\"\noption Radiobox_1 5\nrows\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err.rfind("line 4: ", 0), 0u) << result.err;
}

}  // namespace
}  // namespace tessara
