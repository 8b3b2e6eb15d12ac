#include "key_filter.h"

#include <QApplication>
#include <QKeyEvent>

namespace tessara {

KeyFilter::KeyFilter(QWidget* page, std::function<void()> controlKey)
    : QObject(page), page_(page), controlKey_(std::move(controlKey)) {
  qApp->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || page_ == nullptr || !page_->isVisible()) return false;
  if (widget != page_ && !page_->isAncestorOf(widget)) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      return true;
    case Qt::Key_Control:
      if (event->type() == QEvent::KeyPress && controlKey_) controlKey_();
      return true;
    default:
      return false;
  }
}

}  // namespace tessara
