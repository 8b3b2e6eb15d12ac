#include "warning_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "pictures.h"

namespace tessara {

WarningDialog::WarningDialog(const QString& text, const QString& okText, bool withCheckBox,
                             QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(kTitle);
  setModal(true);
  auto* picture = new QLabel(this);
  picture->setPixmap(WarningPicture());
  auto* message = new QLabel(text, this);
  message->setObjectName("warningText");
  ok_ = new QPushButton(okText, this);
  cancel_ = new QPushButton("Cancel", this);
  cancel_->setDefault(true);
  connect(ok_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);

  auto* top = new QHBoxLayout;
  top->addWidget(picture, 0, Qt::AlignTop);
  top->addWidget(message, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  if (withCheckBox) {
    check_ = new QCheckBox(kDoNotShowAgain, this);
    layout->addWidget(check_);
  }
  layout->addLayout(buttons);
  // The dialog moves the focus one control on as it opens, from OK to Cancel.
  QTimer::singleShot(0, cancel_, [this] { cancel_->setFocus(Qt::TabFocusReason); });
}

bool WarningDialog::DoNotShowAgain() const { return check_ != nullptr && check_->isChecked(); }

}  // namespace tessara
