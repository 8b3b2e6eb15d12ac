#include "generator/code_line.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

TEST(AppendCodeLine, PadsTheStatementToTheCommentColumn) {
  std::string out;
  AppendCodeLine(std::string(39, 'a'), "//c", out);
  EXPECT_EQ(out, "\n\t" + std::string(39, 'a') + "; //c");
  out.clear();
  AppendCodeLine(std::string(40, 'a'), "//c", out);
  EXPECT_EQ(out, "\n\t" + std::string(40, 'a') + ";//c");
  out.clear();
  AppendCodeLine(std::string(41, 'a'), "//c", out);
  EXPECT_EQ(out, "\n\t" + std::string(41, 'a') + ";//c");
  out.clear();
  // An empty comment leaves the blanks at the end of the line.
  AppendCodeLine("x=1", "", out);
  EXPECT_EQ(out, "\n\tx=1;" + std::string(37, ' '));
}

TEST(IsActiveRow, ComparesWholeNamesWithoutRegardToCase) {
  std::vector<std::string> keys = {"", "TRAMR", "tramr2"};
  EXPECT_TRUE(IsActiveRow(keys, "tramr=0x01", 3));
  EXPECT_TRUE(IsActiveRow(keys, "TRAMR2", 3));
  EXPECT_FALSE(IsActiveRow(keys, "tramr22=1", 3));
  EXPECT_FALSE(IsActiveRow(keys, "TRAMR2=1", 2));
  EXPECT_FALSE(IsActiveRow(keys, "=1", 3));
}

TEST(AppendParameterRows, SortsFiltersAndSplitsStatements) {
  std::vector<std::string> rows = {"b=2", "", "a=1,c=3", "hidden=5"};
  std::vector<std::string> comments = {"//b", "", "//ac", "//h"};
  std::vector<std::string> keys = {"A", "b", "", ""};
  std::string out;
  AppendParameterRows({&rows, &comments, &keys, "a;", 4}, out);
  EXPECT_EQ(out, "\n\ta=1;c=3;" + std::string(33, ' ') + "//ac" + "\n\tb=2;" + std::string(37, ' ') + "//b");
  // Without a filter every non-empty row is generated.
  out.clear();
  AppendParameterRows({&rows, &comments, nullptr, "", 4}, out);
  EXPECT_NE(out.find("hidden=5;"), std::string::npos);
}

TEST(AppendParameterRows, TheStatementRuleSeesTheFinishedStatement) {
  std::vector<std::string> rows = {"clk=1,x=2"};
  std::vector<std::string> comments = {""};
  std::string out;
  AppendParameterRows({&rows, &comments, nullptr, "", 1}, out,
                      [](std::string& s, std::string& following) {
                        s = "[" + s + "]";
                        following = "<next>";
                      });
  EXPECT_EQ(out, "\n\t[clk=1;x=2];" + std::string(29, ' ') + "<next>");
}

TEST(AppendExtraRows, StopAtTheFirstEmptyCellAndKeepCommas) {
  std::vector<std::vector<std::string>> rows = {{"slot 0 unused"}, {"p=1,q=2", "", "after gap"}, {}, {"r=3"}};
  std::vector<std::vector<std::string>> comments = {{}, {"//pq"}, {}, {}};
  std::string out;
  AppendExtraRows(rows, comments, 10, out);
  EXPECT_EQ(out, "\n\tp=1,q=2;" + std::string(33, ' ') + "//pq" + "\n\tr=3;" + std::string(37, ' '));
}

TEST(AppendFunction, PutsBracesOnLinesOfTheirOwn) {
  std::string out;
  AppendFunction("void f(void){g();}", out);
  EXPECT_EQ(out, "\n\nvoid f(void)\n{\n\tg();\n}");
  out.clear();
  AppendFunction("void f(void){if(x){y();}}", out);
  EXPECT_EQ(out, "\n\nvoid f(void)\n{\n\tif(x){y();\n}}");
  out.clear();
  // A text without braces, the empty one included, gets line feeds and a tab in front.
  AppendFunction("", out);
  EXPECT_EQ(out, "\n\n\n\n\t\n");
}

}  // namespace
}  // namespace tessara
