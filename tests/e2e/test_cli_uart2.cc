#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// UART0 of the sample QTL/4C chip (20 MHz, no oscillator divider) in UART mode with
// the transfer clock f8.
const std::string kQtlUart0 =
    "group \"QTL/4C Group\"\nnext\nselect UART0\nchoose Combobox_1 \"UART, internal clock\"\n"
    "option Radiobox_2 2\n";

class CliUart2Test : public ::testing::Test {
 protected:
  CliResult Run(const std::string& script) {
    return RunCli({"--home", home.path(), "run", "-"}, script);
  }
  void SetUp() override { CopySampleHome(home.path()); }
  TempFolder home;
  TempFolder out;
};

TEST_F(CliUart2Test, BitRateAndBitTimeWriteTheDivider) {
  // 20000000 / 8 x 0.0625 / 9600 - 1 = 15.28; 104.167 x 2500000 x 0.0000005 - 1 = 129.21
  CliResult result = Run(kQtlUart0 + "type ComboEditbox_1:2 9600\nrows\ntype ComboEditbox_1:1 104.167\nrows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("u0c0.clk=1\t//Transfer clock f8\n"), std::string::npos);
  std::size_t rate = result.out.find("u0brg=15\t//Divider for the bit rate\n");
  std::size_t time = result.out.find("u0brg=129\t//Divider for the bit time\n");
  ASSERT_NE(rate, std::string::npos);
  ASSERT_NE(time, std::string::npos);
  EXPECT_LT(rate, time);
}

TEST_F(CliUart2Test, OutOfRangeRateShowsItsRangeAndStopsGeneration) {
  // The lowest rate at f8 is ceil(156250 / 256) = 611.
  CliResult result = Run(kQtlUart0 + "type ComboEditbox_1:2 610\nrows\ngenerate \"" +
                         out.File("never") + "\"\n");
  EXPECT_EQ(result.status, 3);
  EXPECT_NE(result.out.find("u0brg=INVALID_MIN\t//Bit rate out of range. 611bps < Bit rate: < 156250bps\n"),
            std::string::npos);
  EXPECT_NE(result.out.find("E1103\tUART0: the bit rate or the bit time is below its range for the "
                            "transfer clock\tType a value within the range shown beside the divider\n"),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(out.File("never")));
}

TEST_F(CliUart2Test, NotUsedModeHidesTheChannel) {
  CliResult result = Run(kQtlUart0 + "type ComboEditbox_2 12\nchoose Combobox_1 \"Not used\"\nrows\nerrors\ncontrols\n");
  ASSERT_EQ(result.status, 0) << result.err << "the bad data of a disabled field block nothing";
  EXPECT_EQ(result.out.rfind("s0tipr=0x00\t//UART0 transmit interrupt priority level 0 (masked)\n"
                             "s0ripr=0x00\t//UART0 receive interrupt priority level 0 (masked)\n"
                             "Combobox_1\tCombobox\t",
                             0),
            0u)
      << "only the popup's rows and no report come first";
  EXPECT_NE(result.out.find("ComboEditbox_2\tComboEditbox\tenabled=0"), std::string::npos);
}

TEST_F(CliUart2Test, OscillatorDividerOfTheZnr9ClockReachesTheDivider) {
  // Main clock 16 MHz divided by 2: 8000000 x 0.0625 / 9600 - 1 = 51.08; nine bits of
  // data go as bit 8 and bits 7 to 0.
  CliResult result = Run(
      "series ZNR9\ngroup \"ZNR9/4X Group\"\nchoose Combobox_4 1\nnext\nselect UART2\n"
      "choose Combobox_1 1\ntype ComboEditbox_1:2 9600\ntype ComboEditbox_2 101010101\nrows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("u2brg=51\t"), std::string::npos);
  EXPECT_NE(result.out.find("u2tbh=0B00000001\t//Transmit buffer\nu2tbl=0B01010101\t"), std::string::npos);
}

TEST_F(CliUart2Test, ProjectsKeepEachChannelAndGenerateItsBlockAndInterrupts) {
  std::string project = out.File("uart.tsr");
  CliResult saved = Run(kQtlUart0 + "type ComboEditbox_1:2 9600\nselect UART1\n"
                        "choose Combobox_1 1\ntype ComboEditbox_1:2 115200\nsave \"" + project + "\"\n");
  ASSERT_EQ(saved.status, 0) << saved.err;
  std::string text = out.Read("uart.tsr");
  EXPECT_NE(text.find("\r\nUART2_0:1 1 0 0 1 0 0 "), std::string::npos);
  EXPECT_NE(text.find(" 9600 00000000 -1 0 -1  \r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\nUART2_1:1 1 0 1 0 0 0 "), std::string::npos);

  CliResult again = Run("load \"" + project + "\"\nnext\nsave \"" + out.File("again.tsr") + "\"\n");
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(out.Read("again.tsr"), text);

  CliResult generated = RunCli({"--home", home.path(), "generate", project, "--out", out.File("gen")});
  ASSERT_EQ(generated.status, 0) << generated.err;
  std::string source = out.Read("gen/Config.c");
  EXPECT_NE(source.find("\t// UART0 setting\r\n"), std::string::npos);
  EXPECT_NE(source.find("\tu0brg=15;"), std::string::npos);
  // 20000000 x 0.0625 / 115200 - 1 = 9.85 at f1
  EXPECT_NE(source.find("\tu1brg=10;"), std::string::npos);
  EXPECT_NE(source.find("//Baud rate generator counts f8\r\n"), std::string::npos);
  EXPECT_NE(source.find("void uart1_rx_isr(void)"), std::string::npos);
  EXPECT_NE(out.Read("gen/Config.h").find("#pragma interrupt uart0_tx_isr"), std::string::npos);
}

// The sub-clock source counts 32768 Hz whatever the main clock: the rates reach from
// ceil(2048 / 256) = 8 to 2048 / 1, the bit times from 1 x 61.03515625 us to
// 256 x 61.03515625 = 15625 us. Choosing a source runs both fields, the rate last, so
// the range moves at once; back on f1 at 16 MHz the rates start at ceil(1000000 / 256).
TEST_F(CliUart2Test, SubClockSourceMovesTheRangesAtOnce) {
  CliResult result = Run("series ZNR9\ngroup \"ZNR9/4X Group\"\nnext\nselect UART2\n"
                         "choose Combobox_1 \"UART, internal clock\"\nrows\noption Radiobox_2 4\nrows\n"
                         "type ComboEditbox_1:2 2048\nrows\ntype ComboEditbox_1:2 8\nrows\n"
                         "type ComboEditbox_1:2 7\nrows\ntype ComboEditbox_1:1 61.035\nrows\n"
                         "type ComboEditbox_1:1 61.036\nrows\ntype ComboEditbox_1:1 15625\nrows\n"
                         "type ComboEditbox_1:1 15625.001\nrows\noption Radiobox_2 1\nrows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  std::vector<std::string> dividers;
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("u2brg=", 0) == 0) dividers.push_back(line);
  }
  const std::string subRates = "\t//Bit rate out of range. 8bps < Bit rate: < 2048bps";
  const std::string subTimes = "\t//Bit time out of range. 61.035us < Bit time: < 15625.000us";
  EXPECT_EQ(dividers, (std::vector<std::string>{
                          "u2brg=103\t//Divider for the bit rate",  // 1000000 / 9600 - 1 = 103.17
                          "u2brg=INVALID_MAX" + subRates,
                          "u2brg=0\t//Divider for the bit rate",
                          "u2brg=255\t//Divider for the bit rate",
                          "u2brg=INVALID_MIN" + subRates,
                          "u2brg=INVALID_MIN" + subTimes,
                          "u2brg=0\t//Divider for the bit time",  // 61.036 x 32768 x 0.0000005 - 1
                          "u2brg=255\t//Divider for the bit time",
                          "u2brg=INVALID_MAX" + subTimes,
                          "u2brg=INVALID_MIN\t//Bit rate out of range. 3907bps < Bit rate: < 1000000bps",
                      }));
}

// A channel with the second option of every group but the transfer mode and group 1
// (whose second option the data keep off) writes every register and bit field of its
// sort list: the register header must declare each, and the interrupt functions that
// the channels bring must compile beside them.
const std::string kEverySecondOption =
    "option Radiobox_3 2\noption Radiobox_4 2\noption Radiobox_5 2\noption Radiobox_6 2\n"
    "option Radiobox_8 2\noption Radiobox_9 2\noption Radiobox_10 2\noption Radiobox_11 2\n"
    "choose Combobox_3 1\ntype ComboEditbox_2 101010101\n";

TEST_F(CliUart2Test, ChannelsOfBothSampleGroupsGenerateCThatCompiles) {
  if (!HostCompilerPresent()) GTEST_SKIP() << "no gcc on PATH";
  // QTL/4C at 20 MHz: UART0 from f8 at 9600 bit/s, 156250 / 9600 - 1 = 15.28; UART1
  // asleep and receiving only, from f32 with a bit time of 416.667 us,
  // 416.667 x 20000000 / 32 x 0.0000005 - 1 = 129.21.
  CliResult qtl = Run("group \"QTL/4C Group\"\nnext\nselect UART0\n"
                      "choose Combobox_1 \"UART, internal clock\"\noption Radiobox_2 2\n" +
                      kEverySecondOption + "type ComboEditbox_1:2 9600\n"
                      "select UART1\nchoose Combobox_1 \"UART, sleep mode\"\noption Radiobox_2 3\n"
                      "option Radiobox_7 2\ntype ComboEditbox_1:1 416.667\n"
                      "generate \"" + out.File("qtl") + "\"\n");
  ASSERT_EQ(qtl.status, 0) << qtl.err;
  EXPECT_EQ(qtl.err, "");
  std::string source = out.Read("qtl/Config.c");
  for (const char* statement :
       {"u0mr.ckdir=0;", "u0mr.smd9=1;", "u0mr.prye=1;", "u0mr.pry=1;", "u0c0.clk=1;", "u0c0.uform=1;",
        "u0brg=15;", "u0sr=0x0A;", "u0tbh=0B00000001;", "u0tbl=0B01010101;", "u0c1.irs=1;", "u0c1.re=1;",
        "u0c1.te=1;", "s0tic=0x01;", "s0ric=0x01;", "u1c0.clk=2;", "u1brg=129;", "u1sr=0x01;"}) {
    EXPECT_NE(source.find(std::string("\t") + statement), std::string::npos) << statement;
  }
  // Receiving only turns the transmitter's groups and the transmit data off.
  EXPECT_EQ(source.find("\tu1c1.te="), std::string::npos);
  EXPECT_EQ(source.find("\tu1tbl="), std::string::npos);
  EXPECT_NE(source.find("void uart1_rx_isr(void)"), std::string::npos);
  EXPECT_EQ(CompileErrors(out.File("qtl"), "Config.c"), "");

  // ZNR9/4X at 16 MHz, undivided: UART0 from f8 at 19200 bit/s,
  // 125000 / 19200 - 1 = 5.51; UART1 from f32 for 833.333 us,
  // 833.333 x 16000000 / 32 x 0.0000005 - 1 = 207.33; UART2 from the sub-clock for
  // 833.333 us, 833.333 x 32768 x 0.0000005 - 1 = 12.65.
  CliResult znr = Run("series ZNR9\ngroup \"ZNR9/4X Group\"\nnext\nselect UART0\n"
                      "choose Combobox_1 \"UART, internal clock\"\noption Radiobox_2 2\n" +
                      kEverySecondOption + "type ComboEditbox_1:2 19200\n"
                      "select UART1\nchoose Combobox_1 \"UART, internal clock\"\noption Radiobox_2 3\n"
                      "option Radiobox_9 2\ntype ComboEditbox_1:1 833.333\n"
                      "select UART2\nchoose Combobox_1 \"UART, sleep mode\"\noption Radiobox_2 4\n"
                      "option Radiobox_10 2\nchoose Combobox_3 1\ntype ComboEditbox_1:1 833.333\n"
                      "generate \"" + out.File("znr") + "\"\n");
  ASSERT_EQ(znr.status, 0) << znr.err;
  EXPECT_EQ(znr.err, "");
  source = out.Read("znr/Config.c");
  for (const char* statement :
       {"u0mr.ckdir=0;", "u0mr.smd9=1;", "u0mr.prye=1;", "u0mr.pry=1;", "u0c0.clk=1;", "u0c0.uform=1;",
        "u0brg=6;", "u0sr=0x0A;", "u0tbh=0B00000001;", "u0tbl=0B01010101;", "u0c1.irs=1;", "u0c1.re=1;",
        "u0c1.te=1;", "s0tic=0x01;", "s0ric=0x01;", "u1c0.clk=2;", "u1brg=207;", "s1tic=0x01;",
        "u1sr=0x01;", "u2c0.clk=3;", "u2brg=13;", "s2ric=0x01;", "u2sr=0x02;"}) {
    EXPECT_NE(source.find(std::string("\t") + statement), std::string::npos) << statement;
  }
  std::string header = out.Read("znr/Config.h");
  for (const char* function : {"uart0_tx_isr", "uart1_tx_isr", "uart2_tx_isr", "uart0_rx_isr",
                               "uart1_rx_isr", "uart2_rx_isr"}) {
    EXPECT_NE(header.find(std::string("void ") + function + "(void);"), std::string::npos) << function;
    EXPECT_NE(source.find(std::string("void ") + function + "(void)\r\n{"), std::string::npos) << function;
  }
  EXPECT_EQ(CompileErrors(out.File("znr"), "Config.c"), "");
}

}  // namespace
}  // namespace tessara
