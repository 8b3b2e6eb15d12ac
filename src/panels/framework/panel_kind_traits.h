#ifndef TESSARA_PANELS_FRAMEWORK_PANEL_KIND_TRAITS_H_
#define TESSARA_PANELS_FRAMEWORK_PANEL_KIND_TRAITS_H_

#include <string_view>

#include "database/peripheral_identity.h"

namespace tessara {

// Control words a section key may begin with, as bits.
enum ControlWordBit : unsigned {
  kWordRadiobox = 1u << 0,
  kWordCombobox = 1u << 1,
  kWordEditbox = 1u << 2,
  kWordCheckbox = 1u << 3,
  kWordComboEditbox = 1u << 4,
  kWordLabel = 1u << 5,
};

// Section keys a kind does not know, as bits.
enum AbsentKeyBit : unsigned {
  kNoExtraParameter = 1u << 0,
  kNoExtraSetting = 1u << 1,
  kNoError = 1u << 2,
  kNoInitialValue = 1u << 3,
  kNoExtraComment = 1u << 4,
};

// Where a kind's section load runs its first refresh.
enum class LoadRefresh { kBeforeFill, kAfterFill, kByCaller };

// What the loading of one kind's section differs in, and the sizes of its tables.
struct PanelKindTraits {
  PanelKind kind;
  std::string_view className;
  int linesRead;     // highest place of the section that is looked at
  int cellsPerRow;   // cells a row keeps; the rest of a value is ignored
  int cellSize;      // bytes of a cell, terminator included
  int overrunCode;   // number in the over-long line message; 0 for none
  int tooltipTexts;  // most texts a Tooltip line fills
  unsigned controlWords;
  int fileKeySets;   // 0: no File_ keys; 1: the plain keys; up to 4 with suffixes 2 to 4
  unsigned absentKeys;
  int parameterSlots;  // N
  int rows;            // R
  int tooltips;        // M
  std::string_view saveTag;  // "%d" stands for the instance, from 0
  LoadRefresh refresh;
  bool skipFilledInitialValue;  // an initial_value line on a row that holds a cell is skipped
};

// The longest section line that is read whole; what stands behind it is not used.
inline constexpr int kMaxSectionLineLength = 2500;
inline constexpr int kMaxLongSectionLineLength = 3600;  // Timer RD and Timer RC
inline constexpr std::string_view kStringBufferOverrun = "String Buffer over-run!!!";

const PanelKindTraits& TraitsOf(PanelKind kind);
// The longest line of the kind's sections that is used whole.
int LineLengthLimit(PanelKind kind);
// The rows of the kind's RowTable: enough for every place that is read.
int RowTableRows(const PanelKindTraits& traits);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_PANEL_KIND_TRAITS_H_
