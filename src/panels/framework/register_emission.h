#ifndef TESSARA_PANELS_FRAMEWORK_REGISTER_EMISSION_H_
#define TESSARA_PANELS_FRAMEWORK_REGISTER_EMISSION_H_

#include <string>
#include <string_view>
#include <vector>

#include "panels/framework/control_model.h"
#include "panels/framework/row_table.h"

namespace tessara {

// Limits of an ExtraComment: what stands behind 1024 characters is not seen, and at
// most 65 items are taken.
inline constexpr std::size_t kExtraCommentLength = 1024;
inline constexpr int kExtraCommentItems = 65;
inline constexpr int kExtraCommentTexts = 20;

// The lines that an ExtraComment selects in the present state of `controls`, joined by
// line feed and tab; empty for an empty ExtraComment. `rows` gives the cell of a
// Combobox's selected item.
// `textOptions`, where given, holds for each control how many of its options, from
// the first, choose a text as Key; a later checked option gives nothing. With
// `listGivesFirstText` an enabled Combobox gives its first text whatever item is
// selected, and its gate does not count.
std::string EmitRegisterCode(std::string_view extraComment, const std::vector<Control>& controls,
                             const RowTable& rows, int cellsPerRow,
                             const std::vector<int>& textOptions = {},
                             bool listGivesFirstText = false);

// The texts of an ExtraParameter that a "," closes, each followed by line feed and tab.
std::string EmitExtraCode(std::string_view extraParameter);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_REGISTER_EMISSION_H_
