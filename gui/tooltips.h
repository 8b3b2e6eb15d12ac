#ifndef TESSARA_GUI_TOOLTIPS_H_
#define TESSARA_GUI_TOOLTIPS_H_

#include <QObject>
#include <QProxyStyle>

namespace tessara {

// Tooltips of the pages and panels: they come up 200 ms after the pointer rests and
// stay 4000 ms. The delay is a style hint of the whole application; the time shown is
// set per tooltip by the filter below.
inline constexpr int kTooltipInitialDelay = 200;
inline constexpr int kTooltipVisibleTime = 4000;

class TooltipStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
};

// Shows a widget's tooltip for kTooltipVisibleTime. Installed on the application.
class TooltipFilter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// Installs both on the running application, once.
void InstallTooltipTimes();

}  // namespace tessara

#endif  // TESSARA_GUI_TOOLTIPS_H_
