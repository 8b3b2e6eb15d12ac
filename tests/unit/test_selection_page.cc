#include "pages/selection_page.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/application.h"
#include "core/text.h"
#include "pages/group_picture.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// The page on a copy of the sample data, after the program's start-up.
class SelectionPageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(std::string(TESSARA_SOURCE_DIR) + "/data", folder.path(),
                          std::filesystem::copy_options::recursive);
    SetModuleFolder(folder.path());
    ASSERT_EQ(application.StartUp(), Application::StartResult::kRunning);
    page = std::make_unique<SelectionPage>(application);
    page->Initialise();
  }
  void TearDown() override { SetModuleFolder(""); }

  TempFolder folder;
  RecordingHost host;
  Application application{host};
  std::unique_ptr<SelectionPage> page;
};

TEST_F(SelectionPageTest, InitialiseFillsTheBoxesFromTheCatalogue) {
  EXPECT_EQ(page->SeriesBox().items, (std::vector<std::string>{"QTL", "ZNR9", "KB"}));
  EXPECT_EQ(page->GroupBox().items,
            (std::vector<std::string>{"QTL/4C Group", "QTL/4V Group", "QTL/6P Group"}));
  EXPECT_EQ(page->PartBox().items,
            (std::vector<std::string>{"QTL4C12", "QTL4C14", "QTL4C16", "QTL4C18"}));
  EXPECT_EQ(page->GroupPicture(), 156);
  EXPECT_EQ(page->Tabs(), (std::vector<std::string>{"Clock"}));
  EXPECT_EQ(page->Ram().value, "512 bytes");
  EXPECT_EQ(page->Tooltips().at(5).text, "Click to load a saved file");
  EXPECT_TRUE(page->PageReady());
  ASSERT_NE(page->ShownClockPanel(), nullptr);
  EXPECT_EQ(page->ShownClockPanel(), &page->Clock2());
  // The first group's clock rows are in the list from the start.
  EXPECT_EQ(page->List().Rows().front().parameter, "ckstpr=0x00");
}

TEST_F(SelectionPageTest, CapacityRowsAndTheBytesRule) {
  ASSERT_TRUE(page->ChoosePart(2));  // QTL4C16;32Kbytes;1.5Kbytes;
  EXPECT_EQ(page->Rom().value, "32K bytes");
  EXPECT_EQ(page->Ram().value, "1.5K bytes");
  EXPECT_FALSE(page->DataFlash().visible);
  ASSERT_TRUE(page->ChoosePart(3));
  EXPECT_TRUE(page->DataFlash().visible);
  EXPECT_EQ(page->DataFlash().value, "4K bytes");
  EXPECT_FALSE(page->ChoosePart(4));
}

TEST_F(SelectionPageTest, SeriesFallsBackToItsFirstGroupAndPart) {
  ASSERT_TRUE(page->ChoosePart(1));
  ASSERT_TRUE(page->ChooseSeries(2));
  EXPECT_EQ(page->GroupBox().items, (std::vector<std::string>{"KB/77161 Group"}));
  EXPECT_EQ(page->PartBox().selection, 0);
  EXPECT_EQ(page->GroupPicture(), 209);
  EXPECT_EQ(application.SelectedGroup, 5);
  EXPECT_EQ(application.Flags.FlagKBFamily, 1);
  // A part with an empty data-flash field hides the row.
  EXPECT_FALSE(page->DataFlash().visible);
  EXPECT_EQ(page->Focus(), SelectionControl::kSeriesBox);
}

TEST_F(SelectionPageTest, GroupChangeSwapsTheClockPanel) {
  ASSERT_TRUE(page->ChooseGroup(2));  // QTL/6P: the ClockPanel
  EXPECT_EQ(page->ShownClockPanel(), &page->Clock());
  EXPECT_EQ(page->ClockLink(), &page->Clock());
  EXPECT_EQ(page->Clock2Link(), nullptr);
  EXPECT_EQ(page->List().Rows().front().parameter, "cm0=0x08");
  // Parts without ";" are not listed.
  EXPECT_EQ(page->PartBox().items, (std::vector<std::string>{"QTL6P04", "QTL6P06"}));
  ASSERT_TRUE(page->ChooseGroup(0));
  EXPECT_EQ(page->ShownClockPanel(), &page->Clock2());
  EXPECT_EQ(page->ClockLink(), nullptr);
}

TEST_F(SelectionPageTest, AGroupChosenTwiceReadsItsFileOnce) {
  ASSERT_TRUE(page->ChooseGroup(1));
  ASSERT_TRUE(page->ChooseGroup(0));
  // With its file gone, going back to the group still works: nothing is read again.
  std::filesystem::remove(folder.path() + "/IO Files/QTL4V.ini");
  EXPECT_NO_THROW(page->ChooseGroup(1));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(page->GroupPicture(), 156);
}

TEST_F(SelectionPageTest, NextStoresTheSelection) {
  ASSERT_TRUE(page->ChooseSeries(1));
  ASSERT_TRUE(page->ChoosePart(1));
  bool ran = false;
  page->runPeripheralPage = [&] {
    ran = true;
    EXPECT_FALSE(page->Visible());
  };
  page->NextPressed();
  EXPECT_TRUE(ran);
  EXPECT_TRUE(page->Visible());
  EXPECT_EQ(application.SelectedSeries, 2);
  EXPECT_EQ(application.SelectedGroup, 4);
  EXPECT_EQ(application.SelectedFile, 4);
  EXPECT_EQ(application.SelectedPart, 2);
}

TEST(GroupPicture, ByNameWithoutRegardToCase) {
  EXPECT_EQ(GroupPictureOf("qtl/4c group"), 254);
  EXPECT_EQ(GroupPictureOf("ZNR9/4VZ Group"), 207);
  EXPECT_EQ(GroupPictureOf("QTL/4C"), 0);
}

}  // namespace
}  // namespace tessara
