#include "gui_host.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>
#include <cstdlib>

#include "file_filter.h"
#include "generate_dialog.h"
#include "pages/selection_page.h"
#include "project_detected_dialog.h"
#include "qt_text.h"
#include "warning_dialog.h"

namespace tessara {

void GuiHost::MessageBox(const std::string& text) {
  QMessageBox box(QMessageBox::NoIcon, QString::fromUtf8(kPageTitle.data(), static_cast<qsizetype>(kPageTitle.size())),
                  ToQt(text), QMessageBox::Ok, parent_);
  box.exec();
}

void GuiHost::Exit(int status) {
  QApplication::closeAllWindows();
  std::exit(status);
}

std::string GuiHost::DocumentsFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (folder.isEmpty() || !QDir(folder).exists()) folder = QDir::homePath();
  return FromQt(QDir::toNativeSeparators(folder));
}

void GuiHost::Sleep(int milliseconds) { QThread::msleep(static_cast<unsigned long>(milliseconds)); }

void GuiHost::ShowInViewer(const std::string& path) {
  // A desktop without a viewer for C files simply shows nothing.
  QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
}

Host::ResetWarningAnswer GuiHost::AskResetWarning(const std::string& text) {
  WarningDialog dialog(ToQt(text), "OK", true, parent_);
  ResetWarningAnswer answer;
  answer.ok = dialog.exec() == QDialog::Accepted;
  answer.doNotShowAgain = dialog.DoNotShowAgain();
  return answer;
}

bool GuiHost::AskInvokeIde(const std::string& text) {
  WarningDialog dialog(ToQt(text), "Invoke ORV", false, parent_);
  return dialog.exec() == QDialog::Accepted;
}

bool GuiHost::RunProjectDetectedDialog(ProjectDetectedDialogModel& model) {
  ProjectDetectedDialog dialog(model, *this, parent_);
  return dialog.exec() == QDialog::Accepted;
}

bool GuiHost::RunGenerateDialog(GenerateDialogModel& model, OutputState& output) {
  GenerateDialog dialog(model, output, *this, parent_);
  return dialog.exec() == QDialog::Accepted;
}

std::string GuiHost::AskOpenFile(const std::string& title, const std::string& filter,
                                 const std::string& initialFolder) {
  QString path = QFileDialog::getOpenFileName(parent_, ToQt(title), ToQt(initialFolder),
                                              QtFileFilter(filter.c_str()));
  return FromQt(path);
}

std::string GuiHost::AskSaveFile(const std::string& title, const std::string& filter,
                                 const std::string& initialPath) {
  QFileDialog dialog(parent_, ToQt(title), ToQt(initialPath), QtFileFilter(filter.c_str()));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(DefaultSuffix(filter.c_str()));
  QFileInfo initial(ToQt(initialPath));
  if (initial.isDir()) {
    dialog.setDirectory(initial.filePath());
  } else {
    dialog.setDirectory(initial.absolutePath());
    dialog.selectFile(initial.fileName());
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  return FromQt(dialog.selectedFiles().first());
}

}  // namespace tessara
