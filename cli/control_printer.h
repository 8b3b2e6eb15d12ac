#ifndef TESSARA_CLI_CONTROL_PRINTER_H_
#define TESSARA_CLI_CONTROL_PRINTER_H_

#include <string>

namespace tessara {

class ExtraSettingsPanel;
class ParameterList;
class PeripheralPanel;

// The `controls` listing: every control of the panel in control order, one line per
// control (a RadioGroup adds one line per option), fields separated by one tab.
std::string FormatControls(const PeripheralPanel& panel);

// The `extra controls` listing: the popup's mode, then its four combo boxes and sixteen
// check boxes, one line each: key (Combobox_k, Checkbox_k), visible=0/1, place= the place
// in the closed-up layout (-1 hidden), then selection= and items= (combo box) or checked=
// (check box), and text= the label.
std::string FormatExtraControls(const ExtraSettingsPanel& popup);

// The `rows` listing: one line per row of the list, column 0, a tab, column 1.
std::string FormatRows(const ParameterList& list);

}  // namespace tessara

#endif  // TESSARA_CLI_CONTROL_PRINTER_H_
