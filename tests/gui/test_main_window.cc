// The main window as a user meets it: choosing a chip and its clock, configuring a
// panel, generating, saving and loading, Back, and the keys of the pages.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "core/ini.h"
#include "error_report_window.h"
#include "gui_fixture.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
#include "panel_view.h"
#include "peripheral_page_view.h"
#include "selection_page_view.h"

using namespace tessara;

namespace {

const QColor kWhite(255, 255, 255);
const QColor kFocusBlue(0, 120, 215);  // the first data file's focus background

QRadioButton* Option(PanelView* view, const char* key, int part) {
  return qobject_cast<QRadioButton*>(view->PartWidget(key, part));
}

// The KB chip, second part, on the peripheral page with the WKP panel shown.
void OpenWkp(GuiSession& session) {
  SelectionPageView* first = session.window->SelectionView();
  QVERIFY(Activate(first->SeriesBox(), "KB"));
  QVERIFY(Activate(first->PartBox(), "KB77161B"));
  QTest::mouseClick(first->NextButton(), Qt::LeftButton);
  PeripheralPageView* second = session.window->PeripheralView();
  QCOMPARE(session.window->Pages()->currentWidget(), second);
  QList<QListWidgetItem*> wkp = second->PeripheralList()->findItems("WKP", Qt::MatchExactly);
  QCOMPARE(wkp.size(), 1);
  second->PeripheralList()->setCurrentItem(wkp.first());
  QCOMPARE(second->Tabs()->tabText(second->Tabs()->currentIndex()), QString("WKP"));
}

}  // namespace

class TestMainWindow : public QObject {
  Q_OBJECT

 private slots:
  void choosingAChipShowsItsCapacitiesAndClock() {
    GuiSession session;
    QCOMPARE(session.window->windowTitle(), QString("Tessara"));
    SelectionPageView* page = session.window->SelectionView();
    QVERIFY(Activate(page->SeriesBox(), "KB"));
    QCOMPARE(page->GroupBox()->currentText(), QString("KB/77161 Group"));
    QCOMPARE(page->PartBox()->currentText(), QString("KB77161A"));
    QCOMPARE(page->CapacityLabel(0)->text(), QString("ROM Capacity:"));
    QCOMPARE(page->CapacityValue(0)->text(), QString("32K bytes"));
    QVERIFY(page->CapacityValue(2)->isHidden());
    QVERIFY(Activate(page->PartBox(), "KB77161B"));
    QCOMPARE(page->CapacityValue(1)->text(), QString("3K bytes"));
    QVERIFY(!page->CapacityValue(2)->isHidden());
    QCOMPARE(page->CapacityValue(2)->text(), QString("1K bytes"));
    QCOMPARE(page->ClockTabs()->tabText(0), QString("Clock"));

    // The clock: the low-speed source writes its register row, shown in the focus colours.
    PanelView* clock = page->ClockView();
    QRadioButton* low = Option(clock, "Radiobox_1", 1);
    QVERIFY(low != nullptr);
    QCOMPARE(low->text(), QString("Low-speed Oscillator"));
    QTest::mouseClick(low, Qt::LeftButton);
    QVERIFY(low->isChecked());
    QVERIFY(!Option(clock, "Radiobox_1", 0)->isChecked());
    ParameterListView* list = page->ParameterListWidget();
    QCOMPARE(list->item(0, 0)->text(), QString("syscr1=0x20"));
    QCOMPARE(list->item(0, 1)->text(), QString("//Low-speed oscillator"));
    QCOMPARE(RowColour(list, 0), kFocusBlue);
    QCOMPARE(RowColour(list, 1), kWhite);
  }

  void aPanelIsConfiguredByClicksAndItsRowsFollow() {
    GuiSession session;
    OpenWkp(session);
    PeripheralPageView* page = session.window->PeripheralView();
    PanelView* panel = page->Panel();
    QCOMPARE(panel->Frame("Radiobox_1")->title(), QString("Wake-up Interrupt"));
    QCOMPARE(Option(panel, "Radiobox_1", 1)->toolTip(), QString("Use the wake-up interrupt"));
    QVERIFY(Option(panel, "Radiobox_1", 0)->isChecked());
    // "Not used" greys every other group; "Used" gives them back.
    QTest::mouseClick(Option(panel, "Radiobox_1", 0), Qt::LeftButton);
    QVERIFY(!Option(panel, "Radiobox_3", 1)->isEnabled());
    QVERIFY(!Option(panel, "Radiobox_3", 0)->isEnabled());
    QTest::mouseClick(Option(panel, "Radiobox_1", 1), Qt::LeftButton);
    QVERIFY(Option(panel, "Radiobox_3", 1)->isEnabled());
    // The sixth pin has no rising edge on this chip: its option stays grey.
    QVERIFY(!Option(panel, "Radiobox_9", 1)->isEnabled());
    QTest::mouseClick(Option(panel, "Radiobox_3", 1), Qt::LeftButton);
    QVERIFY(Option(panel, "Radiobox_3", 1)->isChecked());
    QVERIFY(!Option(panel, "Radiobox_3", 0)->isChecked());

    ParameterListView* list = page->ParameterListWidget();
    QCOMPARE(list->item(0, 0)->text(), QString("WKP.WEGR.BIT.WKEGS0=1"));
    QCOMPARE(list->item(0, 1)->text(), QString("//WKP0 on rising edge"));
    QCOMPARE(RowColour(list, 0), kFocusBlue);
    QCOMPARE(RowColour(list, 1), kWhite);
    // A click below the last row takes the mark away.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, list->viewport()->height() - 5));
    QCOMPARE(RowColour(list, 0), kWhite);
    // A click on a row marks it.
    QRect second = list->visualRect(list->model()->index(1, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second.center());
    QCOMPARE(RowColour(list, 1), kFocusBlue);
    QCOMPARE(RowColour(list, 0), kWhite);

    // The tabs are kept in step with the list.
    QTabBar* tabs = page->Tabs();
    int aec = page->PeripheralList()->findItems("AEC", Qt::MatchExactly).first()->listWidget()->row(
        page->PeripheralList()->findItems("AEC", Qt::MatchExactly).first());
    emit tabs->tabBarClicked(aec);
    QCOMPARE(page->PeripheralList()->currentRow(), aec);
    QCOMPARE(tabs->currentIndex(), aec);
    QCOMPARE(panel->Frame("Radiobox_1")->title(), QString("Event Counter"));
  }

  void invalidRowsArePaintedInTheInvalidColours() {
    GuiSession session;
    ParameterList& list = session.window->Selection().List();
    list.DeleteAllRows();
    list.AppendRow("tra=INVALID_MIN", "//too short");
    list.AppendRow("trapre=0x10", "//ok");
    list.SetHighlightText("");
    ParameterListView* view = session.window->SelectionView()->ParameterListWidget();
    view->Redraw();
    // The first data file paints invalid rows on light yellow, in red letters.
    QCOMPARE(RowColour(view, 0), QColor(255, 255, 224));
    QCOMPARE(RowColour(view, 1), kWhite);
    list.SetHighlightText("tra=INVALID_MIN");
    view->Redraw();
    QCOMPARE(RowColour(view, 0), QColor(255, 0, 0));
  }

  void generateWithTheDialogWritesIntoTheChosenFolder() {
    GuiSession session;
    OpenWkp(session);
    QVERIFY(WriteProgramIni("Generate", "EnhancedGenerate", "1"));
    const std::string target = session.out.filePath("Config.c").toStdString();
    session.host.saveAnswers = {target};
    session.host.drive = [&](GenerateDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QString("Generate"));
      QCOMPARE(dialog.FolderOption()->text(), QString("Output \"Config.c\" to folder:"));
      QVERIFY(dialog.FolderOption()->isChecked());
      QVERIFY(!dialog.WorkspaceBox()->isEnabled());
      QTest::mouseClick(dialog.PathBrowse(), Qt::LeftButton);
      QCOMPARE(dialog.PathBox()->itemText(0), QString::fromStdString(target));
      QTest::mouseClick(dialog.OkButton(), Qt::LeftButton);
    };
    QTest::mouseClick(session.window->PeripheralView()->GenerateButton(), Qt::LeftButton);
    QCOMPARE(session.host.generateDialogs, 1);
    QVERIFY(session.host.messages.empty());
    QVERIFY(QFile::exists(session.out.filePath("Config.c")));
    QVERIFY(QFile::exists(session.out.filePath("Config.h")));
    QVERIFY(QFile::exists(session.out.filePath("iodefine.h")));
    QVERIFY(QFile::exists(session.out.filePath("intprg.c")));
    QCOMPARE(session.host.viewed.size(), size_t{2});
    QVERIFY(session.window->ErrorWindow() == nullptr);
  }

  void generateWithThePlainDialogAndCancel() {
    GuiSession session;
    OpenWkp(session);
    QVERIFY(WriteProgramIni("Generate", "EnhancedGenerate", "0"));
    session.window->Generate();  // cancelled: nothing written
    QCOMPARE(session.host.asked.size(), size_t{1});
    QCOMPARE(session.host.asked[0].filter,
             std::string("C Source Files (*.c;*.h)|*.c;*.h|All Files (*.*)|*.*||"));
    QVERIFY(QDir(session.out.path()).isEmpty());
    session.host.saveAnswers = {session.out.filePath("board.c").toStdString()};
    session.window->Generate();
    QCOMPARE(session.host.generateDialogs, 0);
    QVERIFY(QFile::exists(session.out.filePath("board.c")));
    QVERIFY(QFile::exists(session.out.filePath("board.h")));
  }

  void theErrorReportListsItsRowsBesideThePage() {
    GuiSession session;
    ErrorReport report;
    std::vector<std::string> first(kErrorTableCells), second(kErrorTableCells);
    first[2] = "E11";
    first[3] = "Period too short'for the clock";
    first[4] = "Choose a slower divider";
    second[2] = "E12";
    report.rows = {first, second};
    session.window->ShowErrorReport(report);
    ErrorReportWindow* window = session.window->ErrorWindow();
    QVERIFY(window != nullptr);
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), QString("Error Report"));
    QVERIFY(!window->isModal());
    QTableWidget* list = window->List();
    QCOMPARE(list->horizontalHeaderItem(0)->text(), QString("Error Code"));
    QCOMPARE(list->horizontalHeaderItem(1)->text(), QString("Description"));
    QCOMPARE(list->horizontalHeaderItem(2)->text(),
             QString("Help [Please refer to user's manual for details]"));
    QCOMPARE(list->columnWidth(0), 70);
    QCOMPARE(list->columnWidth(1), 240);
    QCOMPARE(list->rowCount(), 4);
    QCOMPARE(list->item(0, 0)->text(), QString("E11"));
    QCOMPARE(list->item(0, 1)->text(), QString("Period too short"));
    QCOMPARE(list->item(1, 1)->text(), QString("for the clock"));
    QCOMPARE(list->item(1, 2)->text(), QString("Choose a slower divider"));
    QCOMPARE(list->item(2, 0)->text(), QString());
    QCOMPARE(list->item(3, 0)->text(), QString("E12"));

    // A Generate whose gate passes closes the window; the page stays usable meanwhile.
    OpenWkp(session);
    QVERIFY(WriteProgramIni("Generate", "EnhancedGenerate", "0"));
    session.window->Generate();
    QVERIFY(!window->isVisible());
  }

  void savedProjectComesBackAfterLoad() {
    GuiSession session;
    OpenWkp(session);
    PanelView* panel = session.window->PeripheralView()->Panel();
    QTest::mouseClick(Option(panel, "Radiobox_1", 1), Qt::LeftButton);
    QTest::mouseClick(Option(panel, "Radiobox_4", 1), Qt::LeftButton);
    const std::string file = session.out.filePath("board.tsr").toStdString();
    session.host.saveAnswers = {file};
    QTest::mouseClick(session.window->PeripheralView()->SaveButton(), Qt::LeftButton);
    QCOMPARE(session.host.asked.back().filter, std::string("Tessara File (*.tsr)|*.tsr;All Files (*.*)|*.*||"));
    QVERIFY(QFile::exists(QString::fromStdString(file)));

    session.host.resetAnswers = {{true, false}};
    QTest::mouseClick(session.window->PeripheralView()->BackButton(), Qt::LeftButton);
    SelectionPageView* first = session.window->SelectionView();
    QCOMPARE(session.window->Pages()->currentWidget(), first);
    QVERIFY(Activate(first->SeriesBox(), "QTL"));
    QCOMPARE(first->GroupBox()->currentText(), QString("QTL/4C Group"));

    session.host.openAnswers = {file};
    QTest::mouseClick(first->LoadButton(), Qt::LeftButton);
    QCOMPARE(first->SeriesBox()->currentText(), QString("KB"));
    QCOMPARE(first->PartBox()->currentText(), QString("KB77161B"));
    QCOMPARE(first->CapacityValue(0)->text(), QString("48K bytes"));
    QTest::mouseClick(first->NextButton(), Qt::LeftButton);
    PeripheralPageView* second = session.window->PeripheralView();
    // Both opened rows come back, the first of them on top; choosing the other shows the
    // restored WKP panel as it was saved.
    QCOMPARE(second->PeripheralList()->currentItem()->text(), QString("Port 1"));
    QList<QListWidgetItem*> wkp = second->PeripheralList()->findItems("WKP", Qt::MatchExactly);
    QCOMPARE(wkp.size(), 1);
    second->PeripheralList()->setCurrentItem(wkp.first());
    QCOMPARE(second->Panel()->Frame("Radiobox_1")->title(), QString("Wake-up Interrupt"));
    QVERIFY(Option(second->Panel(), "Radiobox_1", 1)->isChecked());
    QVERIFY(Option(second->Panel(), "Radiobox_4", 1)->isChecked());
    QVERIFY(!Option(second->Panel(), "Radiobox_3", 1)->isChecked());
  }

  void backAsksUnlessTheUserSaidNotTo() {
    GuiSession session;
    OpenWkp(session);
    QPushButton* back = session.window->PeripheralView()->BackButton();
    // Cancel, the default answer: the page stays.
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(session.host.warnings.size(), size_t{1});
    QCOMPARE(session.host.warnings[0],
             std::string("All peripherals settings will be reset to default.\nDo you want to continue?"));
    QCOMPARE(session.window->Pages()->currentWidget(), session.window->PeripheralView());
    // OK with the box ticked: back on the first page, and never asked again.
    session.host.resetAnswers = {{true, true}};
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(session.window->Pages()->currentWidget(), session.window->SelectionView());
    QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
    // The panels start from their defaults again.
    QCOMPARE(session.window->PeripheralView()->PeripheralList()->currentRow(), 0);
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(session.host.warnings.size(), size_t{2});
    QCOMPARE(session.window->Pages()->currentWidget(), session.window->SelectionView());
  }

  void returnAndEscapeNeverLeaveAPage() {
    GuiSession session;
    OpenWkp(session);
    session.host.resetAnswers = {{true, false}};
    PeripheralPageView* page = session.window->PeripheralView();
    for (QWidget* target : {static_cast<QWidget*>(page->GenerateButton()),
                            static_cast<QWidget*>(page->BackButton()),
                            static_cast<QWidget*>(page->PeripheralList())}) {
      target->setFocus();
      QTest::keyClick(target, Qt::Key_Return);
      QTest::keyClick(target, Qt::Key_Escape);
      QTest::keyClick(target, Qt::Key_Enter);
    }
    QCOMPARE(session.window->Pages()->currentWidget(), page);
    QCOMPARE(session.host.generateDialogs, 0);
    QVERIFY(session.host.asked.empty());
    QVERIFY(session.host.warnings.empty());
    // Space still presses a button, as the user expects.
    QTest::keyClick(page->BackButton(), Qt::Key_Space);
    QCOMPARE(session.window->Pages()->currentWidget(), session.window->SelectionView());
  }

  // The A/D converter of the QTL/4C chip: the repeat mode greys the ADTRG start, and the
  // list shows the mode's row.
  void theConverterModeGreysWhatItRulesOut() {
    GuiSession session;
    QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
    PeripheralPageView* page = session.window->PeripheralView();
    QList<QListWidgetItem*> items = page->PeripheralList()->findItems("A/D Converter", Qt::MatchExactly);
    QCOMPARE(items.size(), 1);
    page->PeripheralList()->setCurrentItem(items.first());
    PanelView* panel = page->Panel();
    QTest::mouseClick(Option(panel, "Radiobox_1", 1), Qt::LeftButton);
    QVERIFY(Option(panel, "Radiobox_3", 3)->isEnabled());
    QTest::mouseClick(Option(panel, "Radiobox_2", 1), Qt::LeftButton);
    QVERIFY(Option(panel, "Radiobox_2", 1)->isChecked());
    QVERIFY(!Option(panel, "Radiobox_4", 1)->isEnabled());
    QVERIFY(Option(panel, "Radiobox_4", 0)->isChecked());
    QCOMPARE(page->ParameterListWidget()->findItems("admd=1", Qt::MatchExactly).size(), 1);
  }

  void aBadTimeStopsGenerateUntilItIsFixed() {
    GuiSession session;
    QVERIFY(WriteProgramIni("Generate", "EnhancedGenerate", "0"));
    QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
    PeripheralPageView* page = session.window->PeripheralView();
    page->PeripheralList()->setCurrentItem(page->PeripheralList()->findItems("Timer RA", Qt::MatchExactly).first());
    PanelView* panel = page->Panel();
    QTest::mouseClick(Option(panel, "Radiobox_1", 1), Qt::LeftButton);
    auto* interval = qobject_cast<QComboBox*>(panel->PartWidget("ComboEditbox_1"));
    QVERIFY(interval != nullptr);
    QCOMPARE(panel->Frame("ComboEditbox_1")->title(), QString("Interval Time"));
    QCOMPARE(interval->currentText(), QString("0.1"));
    // The counter fields belong to the event modes: grey in timer mode.
    QVERIFY(!panel->PartWidget("ComboEditbox_2", 0)->isEnabled());

    // 7 ms is no time of the list: the rows take the marker and the invalid colours.
    interval->lineEdit()->selectAll();
    QTest::keyClicks(interval->lineEdit(), "7");
    QCOMPARE(interval->currentText(), QString("7"));
    ParameterListView* list = page->ParameterListWidget();
    QList<QTableWidgetItem*> bad = list->findItems("tra=NULL", Qt::MatchExactly);
    QCOMPARE(bad.size(), 1);
    QCOMPARE(list->item(bad.first()->row(), 1)->text(), QString("//Interval not available"));
    // The first data file paints invalid rows on light yellow; the changed row, the
    // prescaler's, is marked in the invalid focus colour, red.
    QCOMPARE(RowColour(list, bad.first()->row()), QColor(255, 255, 224));
    QList<QTableWidgetItem*> changed = list->findItems("trapre=NULL", Qt::MatchExactly);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(RowColour(list, changed.first()->row()), QColor(255, 0, 0));
    QList<QTableWidgetItem*> good = list->findItems("tramr.tmod=0x00", Qt::MatchExactly);
    QCOMPARE(good.size(), 1);
    QCOMPARE(RowColour(list, good.first()->row()), kWhite);

    QTest::mouseClick(page->GenerateButton(), Qt::LeftButton);
    QVERIFY(session.host.asked.empty());
    ErrorReportWindow* report = session.window->ErrorWindow();
    QVERIFY(report != nullptr);
    QVERIFY(report->isVisible());
    QCOMPARE(report->List()->item(0, 0)->text(), QString("E0801"));
    QCOMPARE(report->List()->item(0, 1)->text(), QString("Timer RA: the interval time is not available"));

    // Picking 10 ms from the list mends it, and Generate writes.
    QVERIFY(Activate(interval, "10"));
    QCOMPARE(interval->currentText(), QString("10"));
    QVERIFY(list->findItems("tra=NULL", Qt::MatchExactly).isEmpty());
    session.host.saveAnswers = {session.out.filePath("timer.c").toStdString()};
    QTest::mouseClick(page->GenerateButton(), Qt::LeftButton);
    QVERIFY(!report->isVisible());
    QFile source(session.out.filePath("timer.c"));
    QVERIFY(source.open(QIODevice::ReadOnly));
    QVERIFY(source.readAll().contains("timer_ra_isr"));
  }

  void theControlKeyMovesTheFocus() {
    GuiSession session;
    session.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(session.window.get()));
    SelectionPageView* first = session.window->SelectionView();
    first->SeriesBox()->setFocus();
    QTest::keyClick(first->SeriesBox(), Qt::Key_Control);
    QCOMPARE(QApplication::focusWidget(), first->ClockView()->PartWidget("Radiobox_1", 0));

    OpenWkp(session);
    PeripheralPageView* second = session.window->PeripheralView();
    second->PeripheralList()->setFocus();
    QTest::keyClick(second->PeripheralList(), Qt::Key_Control);
    // The first checked option of the panel, in the order of its groups.
    QCOMPARE(QApplication::focusWidget(), second->Panel()->PartWidget("Radiobox_1", 0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Control);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(second->PeripheralList()));
  }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
