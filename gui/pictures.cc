#include "pictures.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace tessara {

namespace {

constexpr int kPictureWidth = 150;
constexpr int kPictureHeight = 110;

// How each picture number draws its package: pins on how many sides, pins per side,
// and whether it is a ball grid.
struct PackageShape {
  int bitmap;
  int sides;         // 4 quad, 2 dual in line, 0 leadless
  int pinsPerSide;
  bool balls;
  const char* label;
};

constexpr PackageShape kPackages[] = {
    {156, 4, 16, false, "QFP-64"}, {203, 4, 12, false, "QFP-48"}, {206, 0, 8, true, "BGA-64"},
    {207, 0, 10, false, "QFN-40"}, {238, 2, 10, false, "SOP-20"}, {239, 2, 14, false, "DIP-28"},
    {253, 4, 20, false, "LQFP-80"}, {254, 2, 16, false, "TSSOP-32"}, {209, 0, 8, false, "QFN-32"},
};

QPixmap Blank(int width, int height) {
  QPixmap pixmap(width, height);
  pixmap.fill(QApplication::palette().color(QPalette::Window));
  return pixmap;
}

void DrawPins(QPainter& painter, const QRectF& body, const PackageShape& shape) {
  const double pin = 4;
  if (shape.balls) {
    for (int row = 0; row < shape.pinsPerSide; ++row) {
      for (int column = 0; column < shape.pinsPerSide; ++column) {
        double x = body.left() + (column + 0.5) * body.width() / shape.pinsPerSide;
        double y = body.top() + (row + 0.5) * body.height() / shape.pinsPerSide;
        painter.drawEllipse(QPointF(x, y), 1.8, 1.8);
      }
    }
    return;
  }
  for (int i = 0; i < shape.pinsPerSide; ++i) {
    double fx = body.left() + (i + 0.5) * body.width() / shape.pinsPerSide;
    double fy = body.top() + (i + 0.5) * body.height() / shape.pinsPerSide;
    if (shape.sides == 0) {
      painter.drawRect(QRectF(fx - 1, body.bottom() - pin, 2, pin));
      painter.drawRect(QRectF(fx - 1, body.top(), 2, pin));
      continue;
    }
    painter.drawLine(QPointF(fx, body.top() - pin), QPointF(fx, body.top()));
    painter.drawLine(QPointF(fx, body.bottom()), QPointF(fx, body.bottom() + pin));
    if (shape.sides == 4) {
      painter.drawLine(QPointF(body.left() - pin, fy), QPointF(body.left(), fy));
      painter.drawLine(QPointF(body.right(), fy), QPointF(body.right() + pin, fy));
    }
  }
}

}  // namespace

QPixmap GroupPicture(int bitmap) {
  QPixmap pixmap = Blank(kPictureWidth, kPictureHeight);
  const PackageShape* shape = nullptr;
  for (const PackageShape& candidate : kPackages) {
    if (candidate.bitmap == bitmap) shape = &candidate;
  }
  // A group outside the table shows an empty picture.
  if (shape == nullptr) return pixmap;
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 1.2));
  QRectF body = shape->sides == 2 ? QRectF(35, 18, 80, 64) : QRectF(40, 12, 70, 70);
  painter.drawRoundedRect(body, 3, 3);
  painter.drawEllipse(QPointF(body.left() + 8, body.top() + 8), 3, 3);
  DrawPins(painter, body, *shape);
  QFont font = painter.font();
  font.setPointSize(8);
  painter.setFont(font);
  painter.drawText(QRectF(0, kPictureHeight - 20, kPictureWidth, 18), Qt::AlignCenter, shape->label);
  return pixmap;
}

QPixmap MakerPicture() {
  QPixmap pixmap = Blank(150, 40);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 2));
  // Three interlocking tiles: the mark of Tessara.
  for (int i = 0; i < 3; ++i) painter.drawRect(QRectF(6 + i * 9, 8 + (i % 2) * 9, 14, 14));
  QFont font = painter.font();
  font.setPointSize(14);
  font.setBold(true);
  painter.setFont(font);
  painter.drawText(QRectF(46, 0, 104, 40), Qt::AlignVCenter | Qt::AlignLeft, "Tessara");
  return pixmap;
}

QPixmap WarningPicture() {
  QPixmap pixmap = Blank(40, 40);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 2));
  QPainterPath triangle;
  triangle.moveTo(20, 4);
  triangle.lineTo(37, 35);
  triangle.lineTo(3, 35);
  triangle.closeSubpath();
  painter.drawPath(triangle);
  painter.drawLine(20, 14, 20, 25);
  painter.drawPoint(20, 30);
  return pixmap;
}

QIcon ApplicationIcon() {
  QIcon icon;
  for (int size : {16, 32, 64}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    double unit = size / 16.0;
    const QColor colours[] = {QColor(0x2e, 0x6d, 0xb4), QColor(0xe0, 0x8a, 0x1e), QColor(0x3a, 0x9a, 0x5b)};
    for (int i = 0; i < 3; ++i) {
      painter.setBrush(colours[i]);
      painter.setPen(Qt::NoPen);
      painter.drawRoundedRect(QRectF((1 + i * 4) * unit, (2 + (i % 2) * 5) * unit, 6 * unit, 6 * unit),
                              unit, unit);
    }
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace tessara
