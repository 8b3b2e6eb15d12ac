#include "about_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "pictures.h"

namespace tessara {

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
  setWindowTitle(kTitle);
  setModal(true);
  auto* icon = new QLabel(this);
  icon->setPixmap(ApplicationIcon().pixmap(32, 32));
  auto* version = new QLabel(TESSARA_VERSION_TEXT, this);
  version->setObjectName("version");
  auto* copyright = new QLabel(kCopyright, this);
  copyright->setObjectName("copyright");
  auto* ok = new QPushButton("OK", this);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QGridLayout(this);
  layout->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
  layout->addWidget(version, 0, 1);
  layout->addWidget(copyright, 1, 1);
  layout->addWidget(ok, 0, 2);
}

}  // namespace tessara
