#include "slide_popup.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>
#include <algorithm>
#include <cmath>

namespace tessara {

namespace {

// How much larger than a 96 dpi screen the owner's screen draws.
double ScreenScale(const QWidget* owner) {
  const QScreen* screen = owner != nullptr ? owner->screen() : QGuiApplication::primaryScreen();
  if (screen == nullptr) return 1.0;
  const double dpi = screen->logicalDotsPerInch();
  return dpi > 0 ? dpi / SlidePopup::kReferenceDpi : 1.0;
}

int Scaled(int pixels, const QWidget* owner) {
  return static_cast<int>(std::lround(pixels * ScreenScale(owner)));
}

}  // namespace

SlidePopup::SlidePopup(QWidget* owner)
    : QWidget(owner != nullptr ? owner->window() : nullptr, Qt::Tool | Qt::FramelessWindowHint),
      StepDelay(kStepDelay),
      // A step of no pixels would never end a slide.
      StepSize(std::max(1, Scaled(kStepSize, owner))),
      TopOffset(Scaled(kTopOffset, owner)),
      HeightChange(Scaled(kHeightChange, owner)),
      owner_(owner),
      ownerWindow_(owner != nullptr ? owner->window() : nullptr) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  if (ownerWindow_ != nullptr) ownerWindow_->installEventFilter(this);
  ownerRect_ = OwnerFrame();
  // The popup has no frame: its geometry is its whole window, also before it was ever
  // shown, when the toolkit does not know a frame yet.
  popupRect_ = geometry();
}

SlidePopup::~SlidePopup() {
  if (ownerWindow_ != nullptr) ownerWindow_->removeEventFilter(this);
}

QRect SlidePopup::OwnerFrame() const {
  return ownerWindow_ != nullptr ? ownerWindow_->frameGeometry() : QRect();
}

void SlidePopup::SlideOut() {
  ownerRect_ = OwnerFrame();
  popupRect_ = geometry();
  const int width = popupRect_.width();
  // The first step leaves two pixels of the popup beside the owner's right edge.
  int x = OwnerRightEdge() + 2 - width;
  int moved = 0;
  sliding_ = true;
  if (width > 0) {
    do {
      WaitStep();
      PlaceBehindOwner(x);
      moved += StepSize;
      x += StepSize;
    } while (moved < width);
  }
  setGeometry(OwnerRightEdge(), DockedTop(), width, DockedHeight());
  clearMask();
  show();
  raise();
  sliding_ = false;
  if (redockPending_) Redock();
}

void SlidePopup::SlideBack() {
  const int width = popupRect_.width();
  int x = OwnerRightEdge() - 2;
  int moved = 0;
  sliding_ = true;
  // Runs until moved passes the width, one step more than SlideOut when the width is a
  // whole number of steps.
  do {
    WaitStep();
    PlaceBehindOwner(x);
    moved += StepSize;
    x -= StepSize;
  } while (moved <= width);
  hide();
  clearMask();
  sliding_ = false;
  if (redockPending_) Redock();
}

void SlidePopup::Redock() {
  if (sliding_) {
    redockPending_ = true;
    return;
  }
  redockPending_ = false;
  ownerRect_ = OwnerFrame();
  popupRect_ = geometry();
  move(OwnerRightEdge(), DockedTop());
  if (isVisible()) raise();
}

void SlidePopup::WaitStep() {
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QThread::msleep(static_cast<unsigned long>(StepDelay));
}

bool SlidePopup::eventFilter(QObject* watched, QEvent* event) {
  // The owner's window moved or changed its size: the popup stays at its right edge.
  if (watched == ownerWindow_ && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
    Redock();
  }
  return QWidget::eventFilter(watched, event);
}

QRegion SlidePopup::PartBesideOwner(int x, int width, int height) const {
  const int hidden = std::clamp(OwnerRightEdge() - x, 0, width);
  if (hidden == width) {
    // All of it is behind the owner. An empty mask would be no mask at all, so the mask
    // is one pixel outside the popup: nothing of it shows.
    return QRegion(width, 0, 1, 1);
  }
  return QRegion(hidden, 0, width - hidden, height);
}

void SlidePopup::PlaceBehindOwner(int x) {
  setGeometry(x, DockedTop(), popupRect_.width(), DockedHeight());
  setMask(PartBesideOwner(x, width(), height()));
  if (isHidden()) show();
}

}  // namespace tessara
