#ifndef TESSARA_CLI_CONTROL_PRINTER_H_
#define TESSARA_CLI_CONTROL_PRINTER_H_

#include <string>

namespace tessara {

class ParameterList;
class PeripheralPanel;

// The `controls` listing: every control of the panel in control order, one line per
// control (a RadioGroup adds one line per option), fields separated by one tab.
std::string FormatControls(const PeripheralPanel& panel);

// The `rows` listing: one line per row of the list, column 0, a tab, column 1.
std::string FormatRows(const ParameterList& list);

}  // namespace tessara

#endif  // TESSARA_CLI_CONTROL_PRINTER_H_
