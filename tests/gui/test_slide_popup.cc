// The drawer beside a window: where each step of a slide puts it, where it ends, and how
// it follows its owner.

#include <QTest>
#include <QWidget>
#include <vector>

#include "gui_fixture.h"
#include "slide_popup.h"

using namespace tessara;

namespace {

// A drawer that notes, at each pause of a slide, where the step before left it: the
// first note is the place before the first step.
class RecordingPopup : public SlidePopup {
 public:
  using SlidePopup::SlidePopup;

  struct Note {
    QRect geometry;
    QRegion mask;
    bool visible;
  };
  std::vector<Note> notes;

 protected:
  void WaitStep() override { notes.push_back({geometry(), mask(), isVisible()}); }
};

struct Owner {
  Owner() {
    window.setGeometry(100, 60, 640, 520);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    page = new QWidget(&window);
  }
  int Right() const { return window.frameGeometry().x() + window.frameGeometry().width(); }
  QWidget window;
  QWidget* page = nullptr;
};

}  // namespace

class TestSlidePopup : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QuietOffscreenWarnings(); }

  void theGeometryScalesWithTheScreen() {
    Owner owner;
    SlidePopup popup(owner.page);
    QCOMPARE(popup.StepDelay, 12);
    const double scale = owner.window.screen()->logicalDotsPerInch() / 96.0;
    QCOMPARE(popup.StepSize, qRound(10 * scale));
    QCOMPARE(popup.TopOffset, qRound(28 * scale));
    QCOMPARE(popup.HeightChange, qRound(-160 * scale));
    QVERIFY(popup.isWindow());
    QVERIFY(popup.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(popup.parentWidget(), &owner.window);
    QVERIFY(popup.isHidden());
  }

  // 240 pixels are 24 steps: the popup comes out two pixels at first, showing only what
  // lies beside the owner, and ends docked at the owner's right edge.
  void slideOutComesFromBehindTheRightEdge() {
    Owner owner;
    RecordingPopup popup(owner.page);
    popup.resize(240, 100);
    popup.SlideOut();

    const QRect frame = owner.window.frameGeometry();
    const int top = frame.y() + popup.TopOffset;
    const int height = frame.height() + popup.HeightChange;
    const int steps = (240 + popup.StepSize - 1) / popup.StepSize;
    QCOMPARE(int(popup.notes.size()), steps);
    QVERIFY(!popup.notes[0].visible);
    for (int step = 1; step < steps; ++step) {
      const RecordingPopup::Note& note = popup.notes[static_cast<std::size_t>(step)];
      const int x = owner.Right() + 2 - 240 + (step - 1) * popup.StepSize;
      QCOMPARE(note.geometry, QRect(x, top, 240, height));
      QVERIFY(note.visible);
      // Only the part past the owner's edge shows.
      const int beside = x + 240 - owner.Right();
      QCOMPARE(note.mask, QRegion(240 - beside, 0, beside, height));
    }
    QCOMPARE(popup.geometry(), QRect(owner.Right(), top, 240, height));
    QVERIFY(popup.isVisible());
    QVERIFY(popup.mask().isEmpty());
    QCOMPARE(popup.OwnerRect(), frame);
  }

  // Going back runs one step more than coming out when the width is a whole number of
  // steps, starting two pixels inside the owner's edge; in the end the popup is hidden.
  void slideBackGoesBehindTheOwnerAndHides() {
    Owner owner;
    RecordingPopup popup(owner.page);
    popup.resize(240, 100);
    popup.SlideOut();
    popup.notes.clear();
    popup.SlideBack();

    const int height = owner.window.frameGeometry().height() + popup.HeightChange;
    const int steps = 240 / popup.StepSize + 1;
    QCOMPARE(int(popup.notes.size()), steps);
    for (int step = 1; step < steps; ++step) {
      const RecordingPopup::Note& note = popup.notes[static_cast<std::size_t>(step)];
      const int x = owner.Right() - 2 - (step - 1) * popup.StepSize;
      QCOMPARE(note.geometry.x(), x);
      QCOMPARE(note.geometry.width(), 240);
      QVERIFY(note.visible);
      const int beside = x + 240 - owner.Right();
      if (beside > 0) {
        QCOMPARE(note.mask, QRegion(240 - beside, 0, beside, height));
      } else {
        // Wholly behind the owner: nothing of the popup shows.
        QVERIFY(!note.mask.isEmpty());
        QVERIFY(!note.mask.intersects(QRect(0, 0, 240, height)));
      }
    }
    QVERIFY(popup.isHidden());
    QVERIFY(popup.mask().isEmpty());
  }

  // A popup of no width still makes one step back, and none out.
  void aPopupOfNoWidthSlidesWithoutSteps() {
    Owner owner;
    RecordingPopup popup(owner.page);
    popup.setMinimumSize(0, 0);
    popup.resize(0, 100);
    popup.SlideOut();
    QCOMPARE(int(popup.notes.size()), 0);
    QCOMPARE(popup.geometry().x(), owner.Right());
    popup.SlideBack();
    QCOMPARE(int(popup.notes.size()), 1);
    QVERIFY(popup.isHidden());
  }

  // Moving the owner brings the popup along at once, with its size, and no slide.
  void movingTheOwnerRedocksThePopup() {
    Owner owner;
    RecordingPopup popup(owner.page);
    popup.resize(200, 100);
    popup.SlideOut();
    const QSize size = popup.size();
    popup.notes.clear();

    owner.window.move(300, 150);
    QTRY_COMPARE(owner.window.frameGeometry().topLeft(), QPoint(300, 150));
    QTRY_COMPARE(popup.pos(), QPoint(owner.Right(), owner.window.frameGeometry().y() + popup.TopOffset));
    QCOMPARE(popup.size(), size);
    QVERIFY(popup.notes.empty());
    QVERIFY(popup.isVisible());
    QCOMPARE(popup.OwnerRect(), owner.window.frameGeometry());

    // A wider owner: the popup stays at its right edge.
    owner.window.resize(800, 520);
    QTRY_COMPARE(popup.pos().x(), owner.Right());
    QCOMPARE(popup.size(), size);
  }

  // A hidden popup moves along too, and comes out later at the new place.
  void aHiddenPopupFollowsAndSlidesOutWhereTheOwnerIs() {
    Owner owner;
    RecordingPopup popup(owner.page);
    popup.resize(200, 100);
    owner.window.move(40, 30);
    QTRY_COMPARE(popup.pos(), QPoint(owner.Right(), owner.window.frameGeometry().y() + popup.TopOffset));
    QVERIFY(popup.isHidden());
    popup.SlideOut();
    QCOMPARE(popup.geometry(), QRect(owner.Right(), owner.window.frameGeometry().y() + popup.TopOffset, 200,
                                     owner.window.frameGeometry().height() + popup.HeightChange));
  }
};

QTEST_MAIN(TestSlidePopup)
#include "test_slide_popup.moc"
