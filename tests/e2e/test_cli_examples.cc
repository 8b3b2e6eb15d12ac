#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

// One example project of examples/, what its generation must write, and the headings of
// the blocks that must find their place in the C source.
struct ExampleProject {
  std::string file;
  std::string registerHeader;
  bool interruptProgram;
  std::vector<std::string> headings;
};

const std::vector<ExampleProject>& Examples() {
  static const std::vector<ExampleProject> examples = {
      {"qtl4c.tsr", "sfr_QTL4Cconfig.h", false,
       {"// Clock setting", "// Port0 setting", "// Timer RA setting"}},
      {"qtl4v.tsr", "sfr_QTL4Vconfig.h", false,
       {"// Clock setting", "// Port0 setting", "// A/D Converter setting"}},
      {"qtl6p.tsr", "sfr_QTL6Pconfig.h", false,
       {"// Clock setting", "// Port0 setting", "// A/D Converter setting"}},
      {"znr94x.tsr", "sfr_ZNR94Xconfig.h", false,
       {"// Clock setting", "// Port0 setting", "// A/D Converter setting"}},
      {"kb77161.tsr", "iodefine.h", true,
       {"// Clock setting", "// Port1 setting", "// WKP setting: wake-up pins",
        "// AEC setting: asynchronous event counter", "// A/D Converter setting"}},
  };
  return examples;
}

std::string ExamplePath(const std::string& name) { return std::string(TESSARA_SOURCE_DIR) + "/examples/" + name; }

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Every file of a folder by name, with its bytes.
std::map<std::string, std::string> FolderFiles(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    files[entry.path().filename().string()] = ReadBytes(entry.path().string());
  }
  return files;
}

class CliExamplesTest : public ::testing::Test {
 protected:
  void SetUp() override { CopySampleHome(home.path()); }
  CliResult Generate(const std::string& project, const std::string& folder) {
    return RunCli({"--home", home.path(), "generate", project, "--out", folder});
  }
  TempFolder home;
  TempFolder out;
};

TEST_F(CliExamplesTest, EveryExampleGeneratesCThatCompiles) {
  if (!HostCompilerPresent()) GTEST_SKIP() << "no gcc on PATH";
  for (const ExampleProject& example : Examples()) {
    SCOPED_TRACE(example.file);
    std::string folder = out.File(example.file + ".out");
    CliResult result = Generate(ExamplePath(example.file), folder);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(fs::exists(folder + "/Config.h"));
    EXPECT_TRUE(fs::exists(folder + "/" + example.registerHeader));
    EXPECT_EQ(fs::exists(folder + "/intprg.c"), example.interruptProgram);
    // A heading that names no list item drops its block without a word: look for each.
    std::string source = out.Read(example.file + ".out/Config.c");
    for (const std::string& heading : example.headings) {
      EXPECT_NE(source.find("\r\n\t" + heading + "\r\n"), std::string::npos) << heading;
    }
    EXPECT_EQ(CompileErrors(folder, "Config.c"), "");
    if (example.interruptProgram) {
      EXPECT_EQ(CompileErrors(folder, "intprg.c"), "");
    }
  }
}

// Each project is made by its script examples/project_*.txt. Made again here, the save
// is followed by a generation: that is what the project must give back when it is loaded.
TEST_F(CliExamplesTest, ProjectsAreWhatTheirScriptsSaveAndGiveBackTheirFiles) {
  for (const ExampleProject& example : Examples()) {
    SCOPED_TRACE(example.file);
    std::string stem = example.file.substr(0, example.file.find('.'));
    std::istringstream script(ReadBytes(ExamplePath("project_" + stem + ".txt")));
    std::string made;
    std::string line;
    int saves = 0;
    while (std::getline(script, line)) {
      if (line == "save examples/" + example.file) {
        made += "save \"" + out.File(example.file) + "\"\ngenerate \"" + out.File(stem + ".saved") + "\"\n";
        ++saves;
      } else {
        made += line + "\n";
      }
    }
    ASSERT_EQ(saves, 1) << "the script saves its project once";
    CliResult result = RunCli({"--home", home.path(), "run", "-"}, made);
    ASSERT_EQ(result.status, 0) << result.err;
    // Whole files are compared without printing them: a project line holds 1950 values.
    EXPECT_TRUE(out.Read(example.file) == ReadBytes(ExamplePath(example.file)))
        << "examples/" << example.file << " is not what its script saves: run examples/make-projects.sh";

    std::string folder = out.File(stem + ".loaded");
    CliResult generated = Generate(ExamplePath(example.file), folder);
    ASSERT_EQ(generated.status, 0) << generated.err;
    std::map<std::string, std::string> saved = FolderFiles(out.File(stem + ".saved"));
    EXPECT_GE(saved.size(), 3u);
    EXPECT_EQ(FolderFiles(folder), saved);
  }
}

TEST_F(CliExamplesTest, EveryProjectLoadsAndSavesToTheSameBytesAndGeneratesAlike) {
  for (const ExampleProject& example : Examples()) {
    SCOPED_TRACE(example.file);
    std::string copy = out.File("again-" + example.file);
    std::string second = out.File(example.file + ".second");
    CliResult result = RunCli({"--home", home.path(), "run", "-"},
                              "load \"" + ExamplePath(example.file) + "\"\nnext\nsave \"" + copy + "\"\ngenerate \"" +
                                  second + "\"\n");
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(ReadBytes(copy) == ReadBytes(ExamplePath(example.file))) << "saved back with other bytes";
    std::string first = out.File(example.file + ".first");
    ASSERT_EQ(Generate(ExamplePath(example.file), first).status, 0);
    EXPECT_EQ(FolderFiles(second), FolderFiles(first));
  }
}

// 10 ms of f8 at 20 MHz are 25000 counts: 250 x 100, so the prescaler and counter
// registers hold 249 and 99. The popup's priority and debug-break rows follow the panel's.
TEST_F(CliExamplesTest, TheTimerRaExamplePrintsItsRows) {
  CliResult result = RunCli({"--home", home.path(), "run", ExamplePath("timer_ra_qtl4c.txt")});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "traic=0x01\t//Timer RA interrupt enabled, level 1\n"
            "trapre=249\t//Prescaler and counter for the interval\n"
            "tra=99\t//Prescaler and counter for the interval\n"
            "tramr.tmod=0x00\t//Timer mode\n"
            "tramr.tck=0x02\t//Count source f8\n"
            "tracr.tstart=1\t//Count started at once\n"
            "traipr=0x03\t//Timer RA interrupt priority level 3\n"
            "trastpd=1\t//Timer RA stops at a debug break\n");
}

// The whole C source of the QTL/4C example: the file head with its own name, the clock
// text behind the protect marker, the block of the first port (opened by Next, so it
// holds the section's register values) and the Timer RA block behind it with its rows in
// the data's sort order and the comments in column 41, then the rows of the popup beside
// the page, the interrupt function at the end.
// The clock's figures (clk, oscdiv) are rows for other panels, not statements.
TEST_F(CliExamplesTest, TheQtl4cSourceStandsToTheLetter) {
  ASSERT_EQ(Generate(ExamplePath("qtl4c.tsr"), out.path()).status, 0);
  std::string expected =
      "/*******************************************************************************\n"
      " * Config.c\n"
      " *\n"
      " * Start-up configuration of a QTL/4C group chip: clock and peripheral set-up.\n"
      " * Written by Tessara from the settings of the project; regenerate it rather\n"
      " * than edit it by hand.\n"
      " ******************************************************************************/\n"
      "\n"
      "#include \"sfr_QTL4Cconfig.h\"\n"
      "#include \"Config.h\"\n"
      "\n"
      "/* Clock set-up: protection off, the clock statements, a short wait for the\n"
      "   oscillator, protection on again. */\n"
      "void clock_init(void)\n"
      "{\n"
      "\tvolatile unsigned int i;\n"
      "\n"
      "\tprc0=1;                                  //Protect off\n"
      "\n"
      "\t//**************************************\n"
      "\t// Clock setting\n"
      "\t//**************************************\n"
      "\tcm05=1;                                  //XIN drive high\n"
      "\tocd2=0;                                  //Stop detection off\n"
      "\tphisel=0x00;                             //CPU clock undivided\n"
      "\txinsel=0x00;                             //XIN 20 MHz\n"
      "\tocd=0x00;                                //Undivided\n"
      "\tckstpr=0x00;                             //XIN oscillates\n"
      "\tckselr=0x00;                             //System clock from XIN\n"
      "\t\n"
      "\tfor(i=0; i<100; i++);                    //Wait for the oscillator to settle\n"
      "\tprc0=0;                                  //Protect on\n"
      "}\n"
      "\n"
      "/* Peripheral set-up, in the order of the chip's peripheral list. */\n"
      "void init(void)\n"
      "{\n"
      "\n"
      "\t//**************************************\n"
      "\t// Port0 setting\n"
      "\t//**************************************\n"
      "\tpd0=0x00;                                //Port 0 direction\n"
      "\tdrr=0x00;                                //Port 0 drive capacity\n"
      "\t\n"
      "\n"
      "\t//**************************************\n"
      "\t// Timer RA setting\n"
      "\t//**************************************\n"
      "\t//timer_ra_isr runs at each underflow\n"
      "\t//Timer RA counts the interval\n"
      "\n"
      "\ttramr.tmod=0x00;                         //Timer mode\n"
      "\ttramr.tck=0x02;                          //Count source f8\n"
      "\ttrapre=249;                              //Prescaler and counter for the interval\n"
      "\ttra=99;                                  //Prescaler and counter for the interval\n"
      "\ttraic=0x01;                              //Timer RA interrupt enabled, level 1\n"
      "\ttracr.tstart=1;                          //Count started at once\n"
      "\ttraipr=0x03;                             //Timer RA interrupt priority level 3\n"
      "\ttrastpd=1;                               //Timer RA stops at a debug break\n"
      "\t\n"
      "}\n"
      "\n"
      "\n"
      "\n"
      "void timer_ra_isr(void)\n"
      "{\n"
      "\tstatic unsigned int underflows; underflows++;\n"
      "}";
  std::string withCrLf;
  for (char c : expected) withCrLf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(out.Read("Config.c"), withCrLf);
}

}  // namespace
}  // namespace tessara
