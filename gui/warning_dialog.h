#ifndef TESSARA_GUI_WARNING_DIALOG_H_
#define TESSARA_GUI_WARNING_DIALOG_H_

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace tessara {

// The "Warning Dialog" of the pages: a text, a picture, OK or a named button, and Cancel
// as the default. The reset warning adds its "Do not show this message again." box.
class WarningDialog : public QDialog {
  Q_OBJECT
 public:
  static constexpr const char* kTitle = "Warning Dialog";
  static constexpr const char* kDoNotShowAgain = "Do not show this message again.";

  WarningDialog(const QString& text, const QString& okText, bool withCheckBox, QWidget* parent);

  bool DoNotShowAgain() const;
  QPushButton* OkButton() const { return ok_; }
  QPushButton* CancelButton() const { return cancel_; }
  QCheckBox* CheckBox() const { return check_; }

 private:
  QPushButton* ok_;
  QPushButton* cancel_;
  QCheckBox* check_ = nullptr;
};

}  // namespace tessara

#endif  // TESSARA_GUI_WARNING_DIALOG_H_
