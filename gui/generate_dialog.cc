#include "generate_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "core/host.h"
#include "generator/generate_dialog.h"
#include "generator/output_target.h"
#include "qt_text.h"

namespace tessara {

namespace {

void Fill(QComboBox* box, const RecentPathList& list, int selection, const std::string& text) {
  QSignalBlocker block(box);
  box->clear();
  for (const std::string& entry : list.Entries()) box->addItem(ToQt(entry));
  box->setCurrentIndex(selection);
  if (box->isEditable()) box->setEditText(ToQt(text));
}

}  // namespace

GenerateDialog::GenerateDialog(GenerateDialogModel& model, OutputState& output, Host& host,
                               QWidget* parent)
    : QDialog(parent), model_(model), output_(output), host_(host) {
  setWindowTitle(GenerateDialogModel::kTitle);
  setModal(true);
  folderOption_ = new QRadioButton(GenerateDialogModel::kFolderOption, this);
  projectOption_ = new QRadioButton(GenerateDialogModel::kProjectOption, this);
  pathBox_ = new QComboBox(this);
  pathBox_->setEditable(true);
  pathBox_->setInsertPolicy(QComboBox::NoInsert);
  pathBox_->setMinimumContentsLength(40);
  workspaceBox_ = new QComboBox(this);
  workspaceBox_->setMinimumContentsLength(40);
  pathBrowse_ = new QPushButton("...", this);
  workspaceBrowse_ = new QPushButton("...", this);
  ok_ = new QPushButton("OK", this);
  auto* cancel = new QPushButton("Cancel", this);
  ok_->setDefault(true);

  auto* layout = new QGridLayout(this);
  layout->addWidget(folderOption_, 0, 0, 1, 2);
  layout->addWidget(pathBox_, 1, 0);
  layout->addWidget(pathBrowse_, 1, 1);
  layout->addWidget(projectOption_, 2, 0, 1, 2);
  layout->addWidget(workspaceBox_, 3, 0);
  layout->addWidget(workspaceBrowse_, 3, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  layout->addLayout(buttons, 4, 0, 1, 2);

  connect(folderOption_, &QRadioButton::clicked, this, [this] {
    model_.ProjectInsertion = 0;
    Redraw();
  });
  connect(projectOption_, &QRadioButton::clicked, this, [this] {
    model_.ProjectInsertion = 1;
    Redraw();
  });
  connect(pathBox_, &QComboBox::activated, this, [this](int index) { model_.PathSelection = index; });
  connect(pathBox_, &QComboBox::editTextChanged, this, [this](const QString& text) {
    model_.PathText = FromQt(text);
    // A typed text that is no entry selects none, so that OK takes what was typed.
    model_.PathSelection = pathBox_->findText(text, Qt::MatchFixedString);
  });
  connect(workspaceBox_, &QComboBox::activated, this, [this](int index) {
    model_.WorkspaceSelection = index;
    model_.WorkspaceText = FromQt(workspaceBox_->itemText(index));
  });
  connect(pathBrowse_, &QPushButton::clicked, this, [this] {
    std::string name = model_.ConfigName.empty() ? "Config.c" : model_.ConfigName;
    std::string folder = output_.OutputPath;
    std::size_t separator = folder.rfind('/');
    folder = separator == std::string::npos ? std::string() : folder.substr(0, separator + 1);
    model_.BrowsePath(host_, host_.AskSaveFile("Save As", GenerateDialogModel::kPathFilter, folder + name),
                      output_);
    Redraw();
  });
  connect(workspaceBrowse_, &QPushButton::clicked, this, [this] {
    model_.BrowseWorkspace(host_, host_.AskSaveFile("Save As", GenerateDialogModel::kWorkspaceFilter,
                                                    output_.OutputPath));
    Redraw();
  });
  connect(ok_, &QPushButton::clicked, this, &GenerateDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Redraw();
}

void GenerateDialog::Redraw() {
  Fill(pathBox_, model_.Paths, model_.PathSelection, model_.PathText);
  Fill(workspaceBox_, model_.Workspaces, model_.WorkspaceSelection, model_.WorkspaceText);
  folderOption_->setChecked(model_.PathControlsEnabled());
  projectOption_->setChecked(model_.WorkspaceControlsEnabled());
  pathBox_->setEnabled(model_.PathControlsEnabled());
  pathBrowse_->setEnabled(model_.PathControlsEnabled());
  workspaceBox_->setEnabled(model_.WorkspaceControlsEnabled());
  workspaceBrowse_->setEnabled(model_.WorkspaceControlsEnabled());
}

void GenerateDialog::accept() {
  // Without a target the dialog stays open, and says nothing.
  if (model_.Ok()) QDialog::accept();
  Redraw();
}

}  // namespace tessara
