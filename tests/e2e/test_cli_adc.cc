#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

std::string ExampleScript(const std::string& name) {
  std::ifstream in(std::string(TESSARA_SOURCE_DIR) + "/examples/" + name, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

class CliAdcTest : public ::testing::Test {
 protected:
  void SetUp() override { CopySampleHome(home.path()); }
  CliResult Run(const std::string& script) { return RunCli({"--home", home.path(), "run", "-"}, script); }
  TempFolder home;
  TempFolder out;
};

// Repeat mode on a QTL/4 chip: the fAD/8 clock and the ADTRG pin are out; the channel
// row is one of the item's two rows. The popup's priority list adds its first level.
TEST_F(CliAdcTest, TheQtl4cExamplePrintsItsRows) {
  CliResult result = Run(ExampleScript("adc_qtl4c.txt"));
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "admd=1\t//Repeat mode\n"
            "adcks=1\t//fAD divided by 2\n"
            "adtrgsel=0\t//Started by software\n"
            "adsmp=1\t//Sample and hold on\n"
            "adch=0x09\t//Converts AN9\n"
            "adipr=0x00\t//A/D conversion end interrupt priority level 0 (masked)\n");
}

TEST_F(CliAdcTest, TheRepeatModeRefusesTheFourthClockOnQtl4c) {
  CliResult result = Run(
      "group \"QTL/4C Group\"\nnext\nselect \"A/D Converter\"\noption Radiobox_1 2\n"
      "option Radiobox_3 4\noption Radiobox_2 2\noption Radiobox_3 4\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "line 7: option 4 of Radiobox_3 is disabled\n");
}

// The repeat sweep mode: the timer starts it (its mask greys the software start and checks
// the timer), one channel group is left, every sweep range is offered.
TEST_F(CliAdcTest, TheQtl4vExamplePrintsItsRowsAndTheModeShapesTheLists) {
  CliResult result = Run(ExampleScript("adc_qtl4v.txt") + "controls\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out.substr(0, result.out.find("Radiobox_1\t")),
            "adsmp=0\t//Sample and hold off\n"
            "adtrgsel=1\t//Started by the timer\n"
            "adgsel=0x00\t//Pins AN0 to AN3\n"
            "adcks=2\t//Conversion clock phi/16\n"
            "admd=3\t//Repeat sweep mode\n"
            "adsst=0\t//Sampling at fAD\n"
            "adbit=0\t//10-bit result\n"
            "adbuf=0\t//No input buffer\n"
            "adscan=2\t//Sweeps AN0 to AN7\n");
  EXPECT_NE(result.out.find("Radiobox_3:1\tOption\tenabled=0\tvisible=1\tchecked=0\ttext=Software\n"),
            std::string::npos);
  EXPECT_NE(result.out.find("Combobox_1\tCombobox\tenabled=1\tvisible=1\tselection=0\titems=AN0 to AN3\n"),
            std::string::npos);
  EXPECT_NE(result.out.find("Combobox_7\tCombobox\tenabled=1\tvisible=1\tselection=2\t"
                            "items=AN0 to AN1|AN0 to AN3|AN0 to AN7|AN0 to AN11\n"),
            std::string::npos);
}

// ZNR9 chips set no system clock of their own: the conversion time goes by the value the
// last KB chip's page left, and before any there is none to divide by.
TEST_F(CliAdcTest, TheConversionTimeGoesByTheClockTheLastKbPageSet) {
  CliResult result = Run(ExampleScript("adc_znr94x.txt"));
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "AD.AMR.BIT.CKS=0\t//Conversion in 62 states, Conversion Times = infus\n"
            "AD.AMR.BIT.SCAN=1\t//One scan\n"
            "AD.AMR.BIT.CH=5\t//Converts AN5\n");
  // 62 cycles at 16 MHz are 3.9 us, too fast.
  result = Run("series KB\npart KB77161B\nchoose Combobox_3 =16\nnext\nback\n" + ExampleScript("adc_znr94x.txt"));
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out.substr(0, result.out.find('\n')),
            "AD.AMR.BIT.CKS=0\t//Conversion in 62 states, Warning: Conversion times faster than "
            "minimum conversion times (7.8us) ");
}

// The pair shows the fast time once; the reference from VREF takes AN3 and AN11 away,
// whose rows stay as they were (digital pins).
TEST_F(CliAdcTest, TheKbExamplePrintsItsRows) {
  CliResult result = Run(ExampleScript("adc_kb77161.txt"));
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "AD.ADCSR.BIT.SCAN=1\t//Scan mode\n"
            "AD.ADCR.BIT.TRGE=0\t//Started by software\n"
            "AD.ADCR.BIT.CKS=1\t//Conversion in 70 states\n"
            "AD.ADCSR.BIT.ADIE=1\t//A/D interrupt enabled\n"
            "AD.ADCSR.BIT.CH=0\t//Converts AN0\n"
            "AD.ADCR.BIT.GRP=1\t//Scans AN4 to AN7\n"
            "AD.ADCR.BIT.END=6\t//Scan ends at AN6\n"
            "AD.AMR.BIT.CLK=0\t//Clocked by phi\n"
            "AD.AMR.BIT.DALIGN=0\t//Result right-aligned\n"
            "AD.AMR.BIT.REF=1\t//Reference from the VREF pin (AN3 and AN11 lost)\n"
            "AD.PMR1.BIT.AN0=0\t//AN0 is a digital pin\n"
            "AD.PMR1.BIT.AN1=1\t//AN1 is an analog input\n"
            "AD.PMR1.BIT.AN2=0\t//AN2 is a digital pin\n"
            "AD.PMR1.BIT.AN3=0\t//AN3 is a digital pin\n"
            "AD.PMR1.BIT.AN4=1\t//AN4 is an analog input\n"
            "AD.PMR1.BIT.AN5=0\t//AN5 is a digital pin\n"
            "AD.PMR1.BIT.AN6=0\t//AN6 is a digital pin\n"
            "AD.PMR1.BIT.AN7=0\t//AN7 is a digital pin\n"
            "AD.PMR2.BIT.AN8=0\t//AN8 is a digital pin\n"
            "AD.PMR2.BIT.AN9=0\t//AN9 is a digital pin\n"
            "AD.PMR2.BIT.AN10=0\t//AN10 is a digital pin\n"
            "AD.PMR2.BIT.AN11=0\t//AN11 is a digital pin\n");
}

TEST_F(CliAdcTest, EveryExampleGeneratesCThatCompiles) {
  if (!HostCompilerPresent()) GTEST_SKIP() << "no gcc on PATH";
  for (const char* name : {"adc_qtl4c.txt", "adc_qtl4v.txt", "adc_znr94x.txt", "adc_kb77161.txt"}) {
    SCOPED_TRACE(name);
    std::string folder = out.File(std::string(name) + ".out");
    CliResult result = Run(ExampleScript(name) + "generate \"" + folder + "\"\n");
    ASSERT_EQ(result.status, 0) << result.err;
    std::string source = out.Read(std::string(name) + ".out/Config.c");
    EXPECT_NE(source.find("\r\n\t// A/D Converter setting\r\n"), std::string::npos);
    EXPECT_NE(source.find("void adc_start(void)"), std::string::npos);
    EXPECT_EQ(CompileErrors(folder, "Config.c"), "");
  }
}

// A converter that is not used writes its line and nothing else.
TEST_F(CliAdcTest, AConverterNotUsedKeepsOnlyItsComment) {
  std::string folder = out.File("off");
  CliResult result = Run("group \"QTL/6P Group\"\nnext\nselect \"A/D Converter\"\nrows\ngenerate \"" + folder +
                         "\"\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "");
  std::string source = out.Read("off/Config.c");
  EXPECT_NE(source.find("\t//**************************************\r\n\t//A/D converter not used\r\n"),
            std::string::npos);
  EXPECT_EQ(source.find("adc_start"), std::string::npos) << "the File texts go with a used converter";
}

// What a project keeps of each converter brings its panel back as it was: the QTL/4V
// panel's lists are refilled by the mode before their positions are replayed.
TEST_F(CliAdcTest, SavedConvertersComeBackAsTheyWere) {
  struct Case {
    const char* script;
    const char* tag;
  };
  for (const Case& c : {Case{"adc_qtl4c.txt", "ADC:"}, Case{"adc_qtl4v.txt", "ADC2:"},
                        Case{"adc_znr94x.txt", "ADC3:"}, Case{"adc_kb77161.txt", "ADC4:"}}) {
    SCOPED_TRACE(c.script);
    std::string project = out.File(std::string(c.script) + ".tsr");
    CliResult before = Run(ExampleScript(c.script) + "controls\nsave \"" + project + "\"\n");
    ASSERT_EQ(before.status, 0) << before.err;
    EXPECT_NE(out.Read(std::string(c.script) + ".tsr").find(c.tag), std::string::npos);
    CliResult after = Run("load \"" + project + "\"\nnext\nselect \"A/D Converter\"\nrows\ncontrols\n");
    ASSERT_EQ(after.status, 0) << after.err;
    EXPECT_EQ(after.out, before.out);
  }
}

}  // namespace
}  // namespace tessara
