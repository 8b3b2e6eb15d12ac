// The side-settings drawer beside the peripheral page, as a user meets it on the
// QTL/4C chip: it comes out when Timer RA is put to use, its choices become rows of the
// ParameterList, it follows the window, the Control key walks through it, and Back
// takes it away.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>

#include "core/ini.h"
#include "extra_settings_popup.h"
#include "gui_fixture.h"
#include "pages/peripheral_page.h"
#include "panel_view.h"
#include "peripheral_page_view.h"
#include "selection_page_view.h"

using namespace tessara;

namespace {

const QColor kFocusBlue(0, 120, 215);  // the first data file's focus background

QRadioButton* Option(PanelView* view, const char* key, int part) {
  return qobject_cast<QRadioButton*>(view->PartWidget(key, part));
}

// A click on the option's mark: an option button wider than its text takes no click
// in the free room behind the text.
void Click(QRadioButton* option) {
  QVERIFY(option != nullptr);
  QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
}

void SelectPeripheral(PeripheralPageView* page, const char* name) {
  QList<QListWidgetItem*> items = page->PeripheralList()->findItems(name, Qt::MatchExactly);
  QCOMPARE(items.size(), 1);
  page->PeripheralList()->setCurrentItem(items.first());
}

// The first chip on the peripheral page, with Timer RA selected and put to use: the
// drawer is out.
PeripheralPageView* OpenTimerRa(GuiSession& session) {
  QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
  // The program's event loop runs once the page is up.
  QCoreApplication::processEvents();
  PeripheralPageView* page = session.window->PeripheralView();
  SelectPeripheral(page, "Timer RA");
  Click(Option(page->Panel(), "Radiobox_1", 1));
  return page;
}

int RowOf(ParameterListView* list, const QString& text) {
  QList<QTableWidgetItem*> found = list->findItems(text, Qt::MatchExactly);
  return found.size() == 1 ? found.first()->row() : -1;
}

}  // namespace

class TestSideSettingsDrawer : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QuietOffscreenWarnings(); }

  void usingTheTimerSlidesTheDrawerOutBesideThePage() {
    GuiSession session;
    QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
    PeripheralPageView* page = session.window->PeripheralView();
    ExtraSettingsPopup* drawer = page->Drawer();
    QVERIFY(drawer != nullptr);
    QVERIFY(drawer->isHidden());
    SelectPeripheral(page, "Timer RA");
    QVERIFY(drawer->isHidden());
    Click(Option(page->Panel(), "Radiobox_1", 1));
    QVERIFY(drawer->isVisible());

    const QRect frame = session.window->frameGeometry();
    QCOMPARE(drawer->x(), frame.x() + frame.width());
    QCOMPARE(drawer->y(), frame.y() + drawer->TopOffset);
    QCOMPARE(drawer->height(), std::max(frame.height() + drawer->HeightChange, drawer->minimumHeight()));

    // The timer's side settings: the priority and two check boxes, nothing else.
    QVERIFY(!drawer->ComboBox(1)->isHidden());
    QCOMPARE(drawer->ComboLabel(1)->text(), QString("Interrupt Priority"));
    QCOMPARE(drawer->ComboBox(1)->count(), 8);
    QCOMPARE(drawer->ComboBox(1)->itemText(7), QString("Level 7"));
    for (int k = 2; k <= 4; ++k) QVERIFY(drawer->ComboBox(k)->isHidden());
    QCOMPARE(drawer->CheckBox(1)->text(), QString("Cut the count source in wait mode"));
    QCOMPARE(drawer->CheckBox(2)->text(), QString("Stop the count at a debug break"));
    for (int k = 3; k <= 16; ++k) QVERIFY(drawer->CheckBox(k)->isHidden());

    // Switching the timer off slides it back.
    Click(Option(page->Panel(), "Radiobox_1", 0));
    QVERIFY(drawer->isHidden());
  }

  // The user picks an interrupt priority in the drawer and sees its row in the list,
  // marked; a check box adds its row the same way.
  void aSideSettingBecomesARowOfTheList() {
    GuiSession session;
    PeripheralPageView* page = OpenTimerRa(session);
    ExtraSettingsPopup* drawer = page->Drawer();
    ParameterListView* list = page->ParameterListWidget();
    // Before any choice the priority is level 0.
    QVERIFY(RowOf(list, "traipr=0x00") >= 0);

    QVERIFY(Activate(drawer->ComboBox(1), "Level 3"));
    QCOMPARE(RowOf(list, "traipr=0x00"), -1);
    const int priority = RowOf(list, "traipr=0x03");
    QVERIFY(priority >= 0);
    QCOMPARE(list->item(priority, 1)->text(), QString("//Timer RA interrupt priority level 3"));
    QCOMPARE(RowColour(list, priority), kFocusBlue);
    QCOMPARE(drawer->ComboBox(1)->currentText(), QString("Level 3"));
    // The rows of the panel stay.
    QVERIFY(RowOf(list, "tramr.tmod=0x00") >= 0);

    QCOMPARE(RowOf(list, "trastpd=1"), -1);
    drawer->CheckBox(2)->setFocus();
    QTest::keyClick(drawer->CheckBox(2), Qt::Key_Space);
    const int debug = RowOf(list, "trastpd=1");
    QVERIFY(debug >= 0);
    QCOMPARE(list->item(debug, 1)->text(), QString("//Timer RA stops at a debug break"));
    QCOMPARE(RowColour(list, debug), kFocusBlue);
    QVERIFY(RowOf(list, "traipr=0x03") >= 0);
    QCOMPARE(drawer->focusWidget(), drawer->CheckBox(2));

    // Another peripheral and back: the timer's side settings are still there.
    SelectPeripheral(page, "Port 0");
    SelectPeripheral(page, "Timer RA");
    QVERIFY(drawer->isVisible());
    QCOMPARE(drawer->ComboBox(1)->currentText(), QString("Level 3"));
    QVERIFY(drawer->CheckBox(2)->isChecked());
    QVERIFY(RowOf(list, "traipr=0x03") >= 0);

    // Switching the timer off forgets them.
    Click(Option(page->Panel(), "Radiobox_1", 0));
    Click(Option(page->Panel(), "Radiobox_1", 1));
    QVERIFY(drawer->isVisible());
    QCOMPARE(drawer->ComboBox(1)->currentText(), QString("Level 0"));
    QVERIFY(!drawer->CheckBox(2)->isChecked());
    QCOMPARE(RowOf(list, "trastpd=1"), -1);
  }

  // UART0 shows two priorities and its noise filter; the clock polarity belongs to the
  // clock synchronous mode and stays hidden, and the filter moves up into its place.
  void theDrawerClosesUpAroundWhatIsHidden() {
    GuiSession session;
    PeripheralPageView* page = OpenTimerRa(session);
    ExtraSettingsPopup* drawer = page->Drawer();
    const int timerCheckTop = drawer->CheckBox(1)->y();
    const int checkStep = drawer->CheckBox(2)->y() - timerCheckTop;
    SelectPeripheral(page, "UART0");
    QCOMPARE(drawer->ComboLabel(1)->text(), QString("Transmit Interrupt Priority"));
    QCOMPARE(drawer->ComboLabel(2)->text(), QString("Receive Interrupt Priority"));
    QVERIFY(!drawer->ComboBox(2)->isHidden());
    QVERIFY(drawer->ComboBox(3)->isHidden());
    QVERIFY(drawer->CheckBox(1)->isHidden());
    QVERIFY(!drawer->CheckBox(2)->isHidden());
    QCOMPARE(drawer->CheckBox(2)->text(), QString("Noise filter on RXD0"));
    const int comboStep = drawer->ComboBox(2)->y() - drawer->ComboBox(1)->y();
    QCOMPARE(drawer->CheckBox(2)->y(), timerCheckTop + comboStep);
    QVERIFY(checkStep > 0);
  }

  void movingTheWindowBringsTheDrawerAlong() {
    GuiSession session;
    PeripheralPageView* page = OpenTimerRa(session);
    ExtraSettingsPopup* drawer = page->Drawer();
    const QSize size = drawer->size();
    session.window->move(session.window->x() + 120, session.window->y() + 40);
    const QRect frame = session.window->frameGeometry();
    QTRY_COMPARE(drawer->pos(), QPoint(frame.x() + frame.width(), frame.y() + drawer->TopOffset));
    QCOMPARE(drawer->size(), size);
    QVERIFY(drawer->isVisible());
  }

  // List, panel, drawer, Generate: the Control key walks on; without the drawer the
  // panel leads back to the list.
  void theControlKeyWalksThroughTheDrawer() {
    GuiSession session;
    session.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(session.window.get()));
    PeripheralPageView* page = OpenTimerRa(session);
    ExtraSettingsPopup* drawer = page->Drawer();
    page->PeripheralList()->setFocus();
    QTest::keyClick(page->PeripheralList(), Qt::Key_Control);
    QWidget* option = page->Panel()->PartWidget("Radiobox_1", 1);
    QCOMPARE(QApplication::focusWidget(), option);
    QTest::keyClick(option, Qt::Key_Control);
    // The window system activates the drawer, then the page's window again.
    QTRY_COMPARE(QApplication::focusWidget(), drawer->ComboBox(1));
    QTest::keyClick(drawer->ComboBox(1), Qt::Key_Control);
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(page->GenerateButton()));

    Click(Option(page->Panel(), "Radiobox_1", 0));
    QVERIFY(drawer->isHidden());
    QWidget* stop = page->Panel()->PartWidget("Radiobox_1", 0);
    stop->setFocus();
    QTest::keyClick(stop, Qt::Key_Control);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(page->PeripheralList()));
  }

  // Back takes the drawer away, even when the user stays on the page; Next brings a new
  // one, hidden.
  void backTakesTheDrawerAway() {
    GuiSession session;
    PeripheralPageView* page = OpenTimerRa(session);
    QVERIFY(page->Drawer() != nullptr);
    session.host.resetAnswers = {{false, false}};
    QTest::mouseClick(page->BackButton(), Qt::LeftButton);
    QCOMPARE(session.window->Pages()->currentWidget(), page);
    QCOMPARE(page->Drawer(), nullptr);
    // From its next refresh on, the timer adds no side settings' rows.
    SelectPeripheral(page, "Port 0");
    SelectPeripheral(page, "Timer RA");
    QVERIFY(RowOf(page->ParameterListWidget(), "tramr.tmod=0x00") >= 0);
    QCOMPARE(RowOf(page->ParameterListWidget(), "traipr=0x00"), -1);

    session.host.resetAnswers = {{true, false}};
    QTest::mouseClick(page->BackButton(), Qt::LeftButton);
    QCOMPARE(session.window->Pages()->currentWidget(), session.window->SelectionView());
    QCOMPARE(page->Drawer(), nullptr);
    QTest::mouseClick(session.window->SelectionView()->NextButton(), Qt::LeftButton);
    QVERIFY(page->Drawer() != nullptr);
    QVERIFY(page->Drawer()->isHidden());
  }

  // With the ini key off the page has no drawer at all.
  void withoutTheIniKeyThereIsNoDrawer() {
    GuiSession session;
    QVERIFY(WriteProgramIni("Display", "ExtraSetting", "0"));
    PeripheralPageView* page = OpenTimerRa(session);
    QCOMPARE(page->Drawer(), nullptr);
    QCOMPARE(RowOf(page->ParameterListWidget(), "traipr=0x00"), -1);
  }
};

QTEST_MAIN(TestSideSettingsDrawer)
#include "test_side_settings_drawer.moc"
