#include "project_detected_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include "core/host.h"
#include "idelink/ide_link.h"
#include "qt_text.h"

namespace tessara {

ProjectDetectedDialog::ProjectDetectedDialog(ProjectDetectedDialogModel& model, Host& host,
                                             QWidget* parent)
    : QDialog(parent), model_(model), host_(host) {
  setWindowTitle(ProjectDetectedDialogModel::kTitle);
  setModal(true);
  path_ = new QComboBox(this);
  path_->setEditable(true);
  path_->setMinimumContentsLength(40);
  auto* browse = new QPushButton("...", this);
  auto* ok = new QPushButton("OK", this);
  auto* cancel = new QPushButton("Cancel", this);
  ok->setDefault(true);
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel(ProjectDetectedDialogModel::kProjectLabel, this), 0, 0);
  layout->addWidget(new QLabel(ToQt(model_.ProjectName), this), 0, 1, 1, 2);
  layout->addWidget(new QLabel(ToQt(model_.FileListText), this), 1, 0, 1, 3);
  layout->addWidget(new QLabel(ProjectDetectedDialogModel::kPathLabel, this), 2, 0);
  layout->addWidget(path_, 2, 1);
  layout->addWidget(browse, 2, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons, 3, 0, 1, 3);
  connect(path_, &QComboBox::editTextChanged, this,
          [this](const QString& text) { model_.PathText = FromQt(text); });
  connect(browse, &QPushButton::clicked, this, [this] {
    model_.Browse(host_.AskSaveFile("Save As", ProjectDetectedDialogModel::kBrowseFilter, model_.PathText));
    Redraw();
  });
  connect(ok, &QPushButton::clicked, this, &ProjectDetectedDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Redraw();
}

void ProjectDetectedDialog::Redraw() {
  QSignalBlocker block(path_);
  path_->clear();
  if (model_.HasPathItem) path_->addItem(ToQt(model_.PathText));
  path_->setEditText(ToQt(model_.PathText));
}

void ProjectDetectedDialog::accept() {
  if (model_.Ok(host_)) QDialog::accept();
}

}  // namespace tessara
