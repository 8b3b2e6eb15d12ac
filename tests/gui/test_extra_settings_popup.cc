// The side-settings drawer on its own: its keyboard ring, the focus it takes when it
// comes up, the closed-up places of its controls and what it reports of the user.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <vector>

#include "extra_settings_popup.h"
#include "gui_fixture.h"

using namespace tessara;

namespace {

struct Drawer {
  // A drawer with `checks` check boxes shown, from box 1 on, and the combo boxes shown
  // or not; out beside its owner and the active window.
  Drawer(int checks, bool combos) {
    owner.setGeometry(50, 50, 700, 760);
    owner.show();
    popup = new ExtraSettingsPopup(&owner);
    for (int k = 1; k <= ExtraSettingsPopup::kComboBoxes; ++k) {
      popup->ComboBox(k)->addItems({"Level 0", "Level 1"});
      popup->ComboLabel(k)->setText(QString("Priority %1").arg(k));
      popup->ComboBox(k)->setVisible(combos);
      popup->ComboLabel(k)->setVisible(combos);
    }
    for (int k = 1; k <= ExtraSettingsPopup::kCheckBoxes; ++k) {
      popup->CheckBox(k)->setText(QString("Option %1").arg(k));
      popup->CheckBox(k)->setVisible(k <= checks);
    }
    popup->ArrangeControls();
    popup->SlideOut();
    popup->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(popup));
  }
  QCheckBox* Box(int k) const { return popup->CheckBox(k); }
  QWidget* Focus() const { return QApplication::focusWidget(); }
  // Presses `key` on check box k and tells where the focus went.
  QWidget* Press(int k, Qt::Key key) {
    Box(k)->setFocus();
    QTest::keyClick(Box(k), key);
    return Focus();
  }

  QWidget owner;
  ExtraSettingsPopup* popup = nullptr;  // a tool window of the owner, which deletes it
};

}  // namespace

class TestExtraSettingsPopup : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QuietOffscreenWarnings(); }

  void tabClosesARingOverTheShownControls() {
    Drawer drawer(16, true);
    for (int k = 1; k < 16; ++k) QCOMPARE(drawer.Press(k, Qt::Key_Tab), drawer.Box(k + 1));
    QCOMPARE(drawer.Press(16, Qt::Key_Tab), drawer.popup->ComboBox(1));
    // Between the combo boxes the toolkit's own order holds, and the last leads to box 1.
    QTest::keyClick(drawer.Focus(), Qt::Key_Tab);
    QCOMPARE(drawer.Focus(), drawer.popup->ComboBox(2));
    drawer.popup->ComboBox(4)->setFocus();
    QTest::keyClick(drawer.popup->ComboBox(4), Qt::Key_Tab);
    QCOMPARE(drawer.Focus(), drawer.Box(1));
  }

  void withoutComboBoxesTheRingTurnsAtBoxOne() {
    Drawer drawer(16, false);
    QCOMPARE(drawer.Press(16, Qt::Key_Tab), drawer.Box(1));
    // Shift is no part of the rule: the Tab key goes on from a check box with it too.
    QCOMPARE(drawer.Press(5, Qt::Key_Backtab), drawer.Box(6));
  }

  // Boxes 1 to 3: Right stops on box 3, Tab goes on to the first combo box.
  void theArrowsStopAtTheLastShownBox() {
    Drawer drawer(3, true);
    QCOMPARE(drawer.Press(1, Qt::Key_Right), drawer.Box(2));
    QCOMPARE(drawer.Press(2, Qt::Key_Down), drawer.Box(3));
    QCOMPARE(drawer.Press(3, Qt::Key_Right), drawer.Box(3));
    QCOMPARE(drawer.Press(3, Qt::Key_Down), drawer.Box(3));
    QCOMPARE(drawer.Press(3, Qt::Key_Tab), drawer.popup->ComboBox(1));
    // Without combo boxes Tab turns back to box 1.
    drawer.popup->ComboBox(1)->hide();
    QCOMPARE(drawer.Press(3, Qt::Key_Tab), drawer.Box(1));
  }

  void upAndLeftStopAtBoxOne() {
    Drawer drawer(16, true);
    QCOMPARE(drawer.Press(2, Qt::Key_Up), drawer.Box(1));
    QCOMPARE(drawer.Press(1, Qt::Key_Up), drawer.Box(1));
    QCOMPARE(drawer.Press(1, Qt::Key_Left), drawer.Box(1));
    QCOMPARE(drawer.Press(3, Qt::Key_Left), drawer.Box(2));
    QCOMPARE(drawer.Press(16, Qt::Key_Up), drawer.Box(15));
    // Box 16 keeps the focus going down.
    QCOMPARE(drawer.Press(16, Qt::Key_Down), drawer.Box(16));
  }

  // On a combo box the arrows are the box's own: they choose its items.
  void onAComboBoxTheKeysAreTheToolkits() {
    Drawer drawer(4, true);
    std::vector<std::pair<int, int>> chosen;
    drawer.popup->onComboChosen = [&](int k, int index) { chosen.push_back({k, index}); };
    QComboBox* second = drawer.popup->ComboBox(2);
    second->setFocus();
    QTest::keyClick(second, Qt::Key_Down);
    QCOMPARE(drawer.Focus(), second);
    QCOMPARE(second->currentIndex(), 1);
    QCOMPARE(chosen, (std::vector<std::pair<int, int>>{{2, 1}}));
  }

  // Return and Escape stop at the control: nothing behind it, the drawer included,
  // ever sees them.
  void returnAndEscapeAreSwallowed() {
    Drawer drawer(4, true);
    struct KeyCounter : QObject {
      int keys = 0;
      bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) ++keys;
        return false;
      }
    } counter;
    drawer.popup->installEventFilter(&counter);
    for (QWidget* control : {static_cast<QWidget*>(drawer.Box(1)), static_cast<QWidget*>(drawer.popup->ComboBox(1))}) {
      for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) QTest::keyClick(control, key);
    }
    QCOMPARE(counter.keys, 0);
    // A key that the check box leaves alone goes on to the drawer.
    QTest::keyClick(drawer.Box(1), Qt::Key_F5);
    QCOMPARE(counter.keys, 1);
    QVERIFY(drawer.popup->isVisible());
  }

  void theControlKeyHandsTheFocusOn() {
    Drawer drawer(4, true);
    int handedOn = 0;
    drawer.popup->onControlKey = [&] { ++handedOn; };
    QTest::keyClick(drawer.Box(2), Qt::Key_Control);
    QTest::keyClick(drawer.popup->ComboBox(3), Qt::Key_Control);
    QCOMPARE(handedOn, 2);
  }

  void aClickOnACheckBoxIsReported() {
    Drawer drawer(4, true);
    std::vector<std::pair<int, bool>> clicked;
    drawer.popup->onCheckBoxClicked = [&](int k, bool checked) { clicked.push_back({k, checked}); };
    // A check box takes clicks on its mark and its text, not on the free room behind.
    const QPoint mark(6, drawer.Box(3)->height() / 2);
    QTest::keyClick(drawer.Box(4), Qt::Key_Space);
    QTest::mouseClick(drawer.Box(3), Qt::LeftButton, {}, mark);
    QTest::mouseClick(drawer.Box(4), Qt::LeftButton, {}, mark);
    QCOMPARE(clicked, (std::vector<std::pair<int, bool>>{{4, true}, {3, true}, {4, false}}));
  }

  // The Tab the drawer posts itself when it is built gives the focus to the first
  // control shown by then.
  void theFirstShownControlTakesTheFocusAtTheStart() {
    QWidget owner;
    owner.show();
    auto* popup = new ExtraSettingsPopup(&owner);
    QCoreApplication::processEvents();
    QCOMPARE(popup->focusWidget(), popup->ComboBox(1));

    auto* second = new ExtraSettingsPopup(&owner);
    for (int k = 1; k <= ExtraSettingsPopup::kComboBoxes; ++k) second->ComboBox(k)->hide();
    second->CheckBox(1)->hide();
    QCoreApplication::processEvents();
    QCOMPARE(second->focusWidget(), second->CheckBox(2));
  }

  // Hidden combo boxes lift the check boxes by their rows; the check boxes that are
  // shown follow each other at an even step, whatever is hidden between them.
  void shownControlsCloseUp() {
    Drawer drawer(16, true);
    ExtraSettingsPopup* popup = drawer.popup;
    const int comboTop1 = popup->ComboBox(1)->y();
    const int comboStep = popup->ComboBox(2)->y() - comboTop1;
    QVERIFY(comboStep >= popup->ComboBox(1)->height());
    QCOMPARE(popup->ComboLabel(2)->y(), popup->ComboBox(2)->y());
    QVERIFY(popup->ComboLabel(2)->geometry().right() < popup->ComboBox(2)->x());
    const int checkTop = popup->CheckBox(1)->y();
    QVERIFY(checkTop >= popup->ComboBox(4)->geometry().bottom());
    const int checkStep = popup->CheckBox(2)->y() - checkTop;
    QVERIFY(checkStep >= popup->CheckBox(1)->height());

    popup->ComboBox(2)->hide();
    popup->ComboLabel(2)->hide();
    popup->CheckBox(2)->hide();
    popup->CheckBox(3)->hide();
    popup->ArrangeControls();
    QCOMPARE(popup->ComboBox(3)->y(), comboTop1 + comboStep);
    QCOMPARE(popup->CheckBox(1)->y(), checkTop - comboStep);
    QCOMPARE(popup->CheckBox(4)->y(), checkTop - comboStep + checkStep);
    QCOMPARE(popup->CheckBox(16)->y(), checkTop - comboStep + 13 * checkStep);
    // Everything shown lies inside the drawer.
    for (int k = 1; k <= ExtraSettingsPopup::kCheckBoxes; ++k) {
      if (!popup->CheckBox(k)->isHidden()) QVERIFY(popup->rect().contains(popup->CheckBox(k)->geometry()));
    }
  }

  // A long label widens the drawer rather than being cut; a low owner cannot make the
  // drawer lower than its controls.
  void theDrawerHoldsAllItShows() {
    Drawer drawer(16, true);
    ExtraSettingsPopup* popup = drawer.popup;
    const QString longText = "A very long side setting that needs far more room than the drawer has";
    popup->CheckBox(5)->setText(longText);
    popup->ArrangeControls();
    QVERIFY(popup->CheckBox(5)->width() >= popup->CheckBox(5)->sizeHint().width());
    QVERIFY(popup->rect().contains(popup->CheckBox(5)->geometry()));

    drawer.owner.resize(700, 200);
    popup->SlideBack();
    popup->SlideOut();
    QVERIFY(popup->rect().contains(popup->CheckBox(16)->geometry()));
  }
};

QTEST_MAIN(TestExtraSettingsPopup)
#include "test_extra_settings_popup.moc"
