#include "tooltips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

namespace tessara {

int TooltipStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returnData) const {
  if (hint == QStyle::SH_ToolTip_WakeUpDelay) return kTooltipInitialDelay;
  return QProxyStyle::styleHint(hint, option, widget, returnData);
}

bool TooltipFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->toolTip().isEmpty()) return false;
  auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), widget->toolTip(), widget, QRect(), kTooltipVisibleTime);
  return true;
}

void InstallTooltipTimes() {
  static bool installed = false;
  if (installed) return;
  installed = true;
  QApplication::setStyle(new TooltipStyle(QApplication::style()->name()));
  qApp->installEventFilter(new TooltipFilter(qApp));
}

}  // namespace tessara
