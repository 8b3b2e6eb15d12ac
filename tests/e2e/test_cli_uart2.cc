#include <gtest/gtest.h>

#include <filesystem>

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

}  // namespace
}  // namespace tessara
