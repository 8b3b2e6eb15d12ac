#ifndef TESSARA_GUI_GENERATE_DIALOG_H_
#define TESSARA_GUI_GENERATE_DIALOG_H_

#include <QDialog>

class QComboBox;
class QPushButton;
class QRadioButton;

namespace tessara {

class GenerateDialogModel;
class Host;
struct OutputState;

// The "Generate" dialog drawn over its model: folder mode with the remembered target
// files, or project mode with the remembered workspaces. The browse buttons ask the
// host for a file; OK closes only when the model has a target.
class GenerateDialog : public QDialog {
  Q_OBJECT
 public:
  GenerateDialog(GenerateDialogModel& model, OutputState& output, Host& host, QWidget* parent);

  QRadioButton* FolderOption() const { return folderOption_; }
  QRadioButton* ProjectOption() const { return projectOption_; }
  QComboBox* PathBox() const { return pathBox_; }
  QComboBox* WorkspaceBox() const { return workspaceBox_; }
  QPushButton* PathBrowse() const { return pathBrowse_; }
  QPushButton* WorkspaceBrowse() const { return workspaceBrowse_; }
  QPushButton* OkButton() const { return ok_; }

  void accept() override;

 private:
  void Redraw();

  GenerateDialogModel& model_;
  OutputState& output_;
  Host& host_;
  QRadioButton* folderOption_;
  QRadioButton* projectOption_;
  QComboBox* pathBox_;
  QComboBox* workspaceBox_;
  QPushButton* pathBrowse_;
  QPushButton* workspaceBrowse_;
  QPushButton* ok_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_GENERATE_DIALOG_H_
