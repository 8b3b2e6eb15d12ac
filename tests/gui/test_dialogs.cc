// The small dialogs and services of the desktop face: the reset warning as the user
// answers it, the About box, the file filters handed to Qt's dialogs and the tooltip
// times.

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <QTimer>

#include "about_dialog.h"
#include "file_filter.h"
#include "gui_host.h"
#include "tooltips.h"
#include "warning_dialog.h"

using namespace tessara;

namespace {

// Answers the next modal dialog that opens: ticks its check box if asked, then presses
// OK or Cancel.
void AnswerWarning(bool ok, bool tick, QString* seenTitle, QString* seenText) {
  QTimer::singleShot(0, [=] {
    auto* dialog = qobject_cast<WarningDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    *seenTitle = dialog->windowTitle();
    *seenText = dialog->findChild<QLabel*>("warningText")->text();
    if (tick && dialog->CheckBox() != nullptr) QTest::mouseClick(dialog->CheckBox(), Qt::LeftButton);
    QTest::mouseClick(ok ? dialog->OkButton() : dialog->CancelButton(), Qt::LeftButton);
  });
}

}  // namespace

class TestDialogs : public QObject {
  Q_OBJECT

 private slots:
  void theResetWarningCountsItsBoxOnlyOnOk() {
    GuiHost host;
    QString title, text;
    AnswerWarning(false, true, &title, &text);
    Host::ResetWarningAnswer cancelled = host.AskResetWarning("All peripherals settings will be reset");
    QCOMPARE(title, QString("Warning Dialog"));
    QCOMPARE(text, QString("All peripherals settings will be reset"));
    QVERIFY(!cancelled.ok);

    AnswerWarning(true, true, &title, &text);
    Host::ResetWarningAnswer remembered = host.AskResetWarning("x");
    QVERIFY(remembered.ok);
    QVERIFY(remembered.doNotShowAgain);

    AnswerWarning(true, false, &title, &text);
    Host::ResetWarningAnswer once = host.AskResetWarning("x");
    QVERIFY(once.ok);
    QVERIFY(!once.doNotShowAgain);
  }

  void theWarningDefaultsToCancel() {
    WarningDialog dialog("text", "OK", true, nullptr);
    QVERIFY(dialog.CancelButton()->isDefault());
    QVERIFY(!dialog.OkButton()->isDefault());
    QCOMPARE(dialog.CheckBox()->text(), QString("Do not show this message again."));
    WarningDialog invoke("Could not detect any existing ORV workspace!", "Invoke ORV", false, nullptr);
    QCOMPARE(invoke.OkButton()->text(), QString("Invoke ORV"));
    QVERIFY(invoke.CheckBox() == nullptr);
  }

  void theAboutBoxNamesTheVersion() {
    AboutDialog about(nullptr);
    QCOMPARE(about.windowTitle(), QString("About Tessara"));
    QCOMPARE(about.findChild<QLabel*>("version")->text(), QString("Tessara V.1.31 Release 00"));
    QVERIFY(about.findChild<QLabel*>("copyright")->text().startsWith("Copyright"));
    QList<QPushButton*> buttons = about.findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons.first()->text(), QString("OK"));
  }

  void fileFiltersBecomeQtFilters() {
    QCOMPARE(QtFileFilter("Tessara File (*.tsr)|*.tsr;All Files (*.*)|*.*||"),
             QString("Tessara File (*.tsr);;All Files (*)"));
    QCOMPARE(QtFileFilter("C Source Files (*.c;*.h)|*.c;*.h|All Files (*.*)|*.*||"),
             QString("C Source Files (*.c *.h);;All Files (*)"));
    QCOMPARE(DefaultSuffix("Tessara File (*.tsr)|*.tsr;All Files (*.*)|*.*||"), QString("tsr"));
    QCOMPARE(DefaultSuffix("C Source Files (*.c;*.cpp)|*.c;*.cpp|All Files (*.*)|*.*||"), QString("c"));
    QCOMPARE(DefaultSuffix("All Files (*.*)|*.*||"), QString());
    QCOMPARE(QtFileFilter(""), QString());
  }

  void tooltipsComeUpAfter200Milliseconds() {
    InstallTooltipTimes();
    QCOMPARE(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay), 200);
  }
};

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
