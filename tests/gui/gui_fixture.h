#ifndef TESSARA_TESTS_GUI_GUI_FIXTURE_H_
#define TESSARA_TESTS_GUI_GUI_FIXTURE_H_

#include <QComboBox>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "generate_dialog.h"
#include "main_window.h"
#include "parameter_list_view.h"
#include "scripted_host.h"

namespace tessara {

// The test double of the desktop's services: file questions and the reset warning take
// queued answers, and the "Generate" dialog is the real widget, driven by `drive`
// instead of the user.
class GuiTestHost : public ScriptedHost {
 public:
  bool RunGenerateDialog(GenerateDialogModel& model, OutputState& output) override {
    ++generateDialogs;
    GenerateDialog dialog(model, output, *this, nullptr);
    if (drive) drive(dialog);
    return dialog.result() == QDialog::Accepted;
  }
  std::function<void(GenerateDialog&)> drive;
};

// The program on a copy of the bundled sample data, with its window open.
struct GuiSession {
  GuiSession() {
    std::filesystem::copy(std::string(TESSARA_SOURCE_DIR) + "/data", home.path().toStdString(),
                          std::filesystem::copy_options::recursive);
    SetModuleFolder(home.path().toStdString());
    application = std::make_unique<Application>(host);
    if (application->StartUp() != Application::StartResult::kRunning) qFatal("sample data do not start");
    window = std::make_unique<MainWindow>(*application, host);
    window->show();
    window->Start();
  }
  ~GuiSession() {
    window.reset();
    SetModuleFolder("");
  }

  QTemporaryDir home;
  QTemporaryDir out;
  GuiTestHost host;
  std::unique_ptr<Application> application;
  std::unique_ptr<MainWindow> window;
};

// The offscreen platform has no window stacking, window shapes or size hints for the
// window system; it says so at every raise, mask and minimum size of the drawer beside
// the peripheral page. Those notes are dropped, every other message passes on.
inline void QuietOffscreenWarnings() {
  static QtMessageHandler previous = nullptr;
  previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtWarningMsg && (text == "This plugin does not support raise()" ||
                                 text == "This plugin does not support setting window masks" ||
                                 text == "This plugin does not support propagateSizeHints()")) {
      return;
    }
    if (previous != nullptr) previous(type, context, text);
  });
}

// Chooses the item with `text` in a box as the user does: the box shows it and reports
// its activation.
inline bool Activate(QComboBox* box, const QString& text) {
  int index = box->findText(text);
  if (index < 0) return false;
  box->setCurrentIndex(index);
  emit box->activated(index);
  return true;
}

// The colour the list shows at the right end of a row's cell in column `column`, where
// no text is drawn.
inline QColor RowColour(ParameterListView* list, int row, int column = 1) {
  QRect cell = list->visualRect(list->model()->index(row, column));
  QImage image = list->viewport()->grab().toImage();
  return image.pixelColor(cell.right() - 3, cell.center().y());
}

}  // namespace tessara

#endif  // TESSARA_TESTS_GUI_GUI_FIXTURE_H_
