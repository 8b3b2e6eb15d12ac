#ifndef TESSARA_GUI_PROJECT_DETECTED_DIALOG_H_
#define TESSARA_GUI_PROJECT_DETECTED_DIALOG_H_

#include <QDialog>

class QComboBox;

namespace tessara {

class Host;
class ProjectDetectedDialogModel;

// "ORV Project Detected!": the active project, the files that go into it and the path
// of the C source, which the user may type or browse.
class ProjectDetectedDialog : public QDialog {
  Q_OBJECT
 public:
  ProjectDetectedDialog(ProjectDetectedDialogModel& model, Host& host, QWidget* parent);
  void accept() override;

 private:
  void Redraw();

  ProjectDetectedDialogModel& model_;
  Host& host_;
  QComboBox* path_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_PROJECT_DETECTED_DIALOG_H_
