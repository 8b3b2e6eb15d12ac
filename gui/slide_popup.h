#ifndef TESSARA_GUI_SLIDE_POPUP_H_
#define TESSARA_GUI_SLIDE_POPUP_H_

#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QWidget>

namespace tessara {

// A borderless window that lies behind the right edge of its owner's window and comes
// out of it like a drawer, in steps, then stays beside it and follows it when it moves.
// It is a tool window of the owner's window: it closes and minimises with it and has no
// task bar entry of its own.
//
// Windows of one program cannot be stacked below their owner on every window system, so
// while the popup is behind the owner a mask cuts away the part that the owner covers:
// the user sees the same drawer coming out of the edge.
class SlidePopup : public QWidget {
  Q_OBJECT
 public:
  // The geometry of a dialog unit screen at 96 dots per inch; the pixel values scale with
  // the screen's logical resolution, the delay does not.
  static constexpr int kStepDelay = 12;     // milliseconds
  static constexpr int kStepSize = 10;      // pixels
  static constexpr int kTopOffset = 28;     // pixels below the owner's top
  static constexpr int kHeightChange = -160;  // pixels against the owner's height
  static constexpr double kReferenceDpi = 96.0;

  // Docks to the window that holds `owner`, whose tool window it is. The popup starts
  // hidden, in its place beside that window.
  explicit SlidePopup(QWidget* owner);
  ~SlidePopup() override;

  // Comes out from behind the owner's right edge and stays beside it, on top.
  void SlideOut();
  // Goes back behind the owner, as far as the rectangles of the last slide or Redock say,
  // and hides.
  void SlideBack();
  // Jumps to its place beside the owner, which has moved; its size stays.
  void Redock();

  // The owner's and the popup's rectangles at the last slide or Redock.
  const QRect& OwnerRect() const { return ownerRect_; }
  const QRect& PopupRect() const { return popupRect_; }
  // The owner's window as the popup docks to it, in screen coordinates.
  QRect OwnerFrame() const;
  QWidget* Owner() const { return owner_; }

  const int StepDelay;
  const int StepSize;
  const int TopOffset;
  const int HeightChange;

 protected:
  // The pause before each step. The slide blocks the page as a drawer does: the user's
  // input waits until it ends, and only the window system's drawing goes on. On the
  // offscreen platform no one watches, so there is no pause.
  virtual void WaitStep();
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The part of the popup at `x` that is not behind the owner, in its own coordinates.
  QRegion PartBesideOwner(int x, int width, int height) const;
  // One step: the popup at `x`, behind the owner, shown and not activated.
  void PlaceBehindOwner(int x);
  int OwnerRightEdge() const { return ownerRect_.x() + ownerRect_.width(); }
  int DockedTop() const { return ownerRect_.y() + TopOffset; }
  int DockedHeight() const { return ownerRect_.height() + HeightChange; }

  QPointer<QWidget> owner_;
  QPointer<QWidget> ownerWindow_;
  QRect ownerRect_;
  QRect popupRect_;
  bool sliding_ = false;
  // The owner moved during a slide: the popup follows once the slide is over.
  bool redockPending_ = false;
};

}  // namespace tessara

#endif  // TESSARA_GUI_SLIDE_POPUP_H_
