#ifndef TESSARA_GUI_KEY_FILTER_H_
#define TESSARA_GUI_KEY_FILTER_H_

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace tessara {

// The keys of a page, looked at before its controls get them: Return and Escape are
// swallowed, so that no key closes a page or a panel, and the Control key alone runs
// the page's focus move. It watches the whole application and acts only on key events
// of widgets inside `page`.
class KeyFilter : public QObject {
 public:
  KeyFilter(QWidget* page, std::function<void()> controlKey);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointer<QWidget> page_;
  std::function<void()> controlKey_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_KEY_FILTER_H_
