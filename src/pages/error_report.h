#ifndef TESSARA_PAGES_ERROR_REPORT_H_
#define TESSARA_PAGES_ERROR_REPORT_H_

#include <array>
#include <string>
#include <vector>

#include "panels/framework/error_tables.h"

namespace tessara {

class PeripheralPage;

// Runs every panel kind's collection of bad fields, in the order of the report, over
// the instances that have a window. True when all are fine.
bool CollectErrors(const PeripheralPage& page, ErrorReport& report);

// The report as the error window lists it: three columns ("Error Code", "Description",
// "Help ..."), a "'" in a text continuing it on the next list row, and a blank list row
// between two report rows.
using ErrorListRow = std::array<std::string, 3>;
std::vector<ErrorListRow> ErrorReportListRows(const ErrorReport& report);

inline constexpr const char* kErrorReportTitle = "Error Report";
inline constexpr std::array<const char*, 3> kErrorReportHeadings = {
    "Error Code", "Description", "Help [Please refer to user's manual for details]"};
inline constexpr std::array<int, 3> kErrorReportWidths = {70, 240, 500};

}  // namespace tessara

#endif  // TESSARA_PAGES_ERROR_REPORT_H_
