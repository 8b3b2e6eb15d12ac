#include "panels/panel_factory.h"

#include "panels/analog/adc2_panel.h"
#include "panels/analog/adc3_panel.h"
#include "panels/analog/adc4_panel.h"
#include "panels/analog/adc_panel.h"
#include "panels/analog/aec_panel.h"
#include "panels/analog/wkp_panel.h"
#include "panels/system/interrupt_panel.h"
#include "panels/system/key_input_panel.h"
#include "panels/system/port_panel.h"
#include "panels/serial/uart2_panel.h"
#include "panels/timers/timer_ra_panel.h"

namespace tessara {

std::unique_ptr<PeripheralPanel> CreatePeripheralPanel(PanelKind kind) {
  switch (kind) {
    case PanelKind::kADC: return std::make_unique<ADCPanel>();
    case PanelKind::kADC2: return std::make_unique<ADC2Panel>();
    case PanelKind::kADC3: return std::make_unique<ADC3Panel>();
    case PanelKind::kADC4: return std::make_unique<ADC4Panel>();
    case PanelKind::kAEC: return std::make_unique<AECPanel>();
    case PanelKind::kWKP: return std::make_unique<WKPPanel>();
    case PanelKind::kPort: return std::make_unique<PortPanel>();
    case PanelKind::kInterrupt: return std::make_unique<InterruptPanel>();
    case PanelKind::kKeyInput: return std::make_unique<KeyInputPanel>();
    case PanelKind::kTimerRA: return std::make_unique<TimerRAPanel>();
    case PanelKind::kUART2: return std::make_unique<UART2Panel>();
    default: return nullptr;
  }
}

}  // namespace tessara
