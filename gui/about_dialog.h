#ifndef TESSARA_GUI_ABOUT_DIALOG_H_
#define TESSARA_GUI_ABOUT_DIALOG_H_

#include <QDialog>

namespace tessara {

// "About Tessara": the icon, the version line, our copyright and OK.
class AboutDialog : public QDialog {
  Q_OBJECT
 public:
  static constexpr const char* kTitle = "About Tessara";
  static constexpr const char* kCopyright = "Copyright (C) 2026 The Tessara developers";
  static constexpr const char* kMenuEntry = "&About Tessara...";

  explicit AboutDialog(QWidget* parent);
};

}  // namespace tessara

#endif  // TESSARA_GUI_ABOUT_DIALOG_H_
