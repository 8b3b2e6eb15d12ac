#include "panels/framework/section_layout.h"

#include <array>
#include <cstdlib>

#include "core/text.h"

namespace tessara {

namespace {

struct KindLayoutText {
  PanelKind kind;
  std::string_view text;
};

// The row keys of every kind: the control word, the key numbers, then what the load
// does with which cells. C: copied into named fields; I: item texts; L: with cell 0 to
// AddInitialValue; D: index to select; A: availability digits, preset list or format
// marker; P: caption cell and parameter cell for AddInitialValue.
constexpr std::array<KindLayoutText, kPanelKindCount> kLayoutTexts{{
    {PanelKind::kClock,
     "Radiobox 1: C 0-3; L 4,7 / Radiobox 2: C 0-2; L 3 / "
     "Combobox 1: C 0; I 1-5; L 6; D 18; A 19 / Combobox 2,3: C 0-2; I 3-7; D 20; A 21"},
    {PanelKind::kClock2,
     "Radiobox 1: C 0-4; L 5,9 / Radiobox 2,3: C 0-2; L 3 / "
     "Combobox 1,6: C 0; I 1-5; L 6; D 18; A 19 / Combobox 2: C 0-2; I 3-8; D 17; A 18 / "
     "Combobox 3: C 0-2; I 3-5; L 6; D 17; A 18 / Combobox 4: C 0; I 1-8; L 9; D 35; A 36 / "
     "Combobox 5: C 0-3; L 5,8; D 21; A 22"},
    {PanelKind::kPort,
     "Radiobox 1,2,3,4,5,6,7,8: C 0-4 / Checkbox 1,2,3: C 0 / Combobox 1: C 0; I 1-3"},
    {PanelKind::kInterrupt,
     "Radiobox 1,2,5: C 0-2 / Radiobox 3: C 0-4 / Radiobox 4: C 0-8 / "
     "Combobox 1: C 0; I 1-5; L 6 / Label 1: C 0"},
    {PanelKind::kKeyInput,
     "Radiobox 1: C 0-8 / Radiobox 2,3,4,5: C 0 / Combobox 1,2: C 0; I 1-4"},
    {PanelKind::kLCD,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-1 / Radiobox 3,4,5: C 0-2; L 3 / "
     "Combobox 1,2: C 0; I 1-7; L 8 / Combobox 3: C 0; I 1-11; L 12 / "
     "Combobox 4: C 0; I 1-10; L 11"},
    {PanelKind::kTimerA2,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-2; L 3 / ComboEditbox 1: C 0-1; L 2; A 8 / "
     "Combobox 1,3,4: C 0; I 1-4; L 5 / Combobox 2: C 0; I 1-8; L 9 / "
     "Combobox 5: C 0; I 1-5; L 6"},
    {PanelKind::kTimerF,
     "Radiobox 1,2,3,4,5,6,7,8: C 0-2; L 3 / Combobox 1: C 0; I 1-5; L 6 / "
     "Combobox 2: C 0; I 1-3 / Combobox 3: C 0; I 1-4; L 5 / "
     "ComboEditbox 4,5,6,7: C 0-1; L 2; A 8 / ComboEditbox 8: C 0-1; L 2-3; A 2,9 / "
     "ComboEditbox 9: C 0-1; L 2-3; A 9 / Checkbox 1: C 0-2"},
    {PanelKind::kTimerC,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4,5,6: C 0-2; L 3 / Combobox 1: C 0; I 1-5; L 6 / "
     "Combobox 2: C 0; I 1-3; L 4-5 / Combobox 3,4: C 0; I 1-3 / "
     "Combobox 5: C 0; I 1-4; L 5 / ComboEditbox 1: C 0-4; L 5-6; A 22-23 / "
     "Checkbox 1: C 0-6; L 7,9,11,13,15,17"},
    {PanelKind::kTimerC2,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4: C 0-2; L 3 / ComboEditbox 1: C 0-1; L 2; A 8 / "
     "Combobox 1: C 0; I 1-3; L 4 / Combobox 2: C 0; I 1-7; L 8"},
    {PanelKind::kTimerY,
     "Radiobox 1: C 0-2 / Radiobox 2,4,5,6: C 0-2; L 3 / Radiobox 3: C 0-1 / "
     "ComboEditbox 1: C 0-1; L 2-3; A 11 / ComboEditbox 2: C 0-4; L 5-7; A 15-16 / "
     "Combobox 1: C 0; I 1-4; L 5"},
    {PanelKind::kTimerZ,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-1 / Radiobox 3,4,5: C 0-2; L 3 / "
     "Radiobox 6: C 0-3; L 4 / ComboEditbox 1: C 0-1; L 2-3; A 11 / "
     "ComboEditbox 2,3: C 0-4; L 5-7; A 15-16 / Combobox 1,2: C 0; I 1-4; L 5"},
    {PanelKind::kTimerX,
     "Radiobox 1: C 0-2 / Radiobox 2,5,6: C 0-2; L 3 / Radiobox 3: C 0-1 / "
     "Radiobox 4: C 0-3; L 4 / ComboEditbox 1: C 0-1; L 2-3; A 11 / "
     "ComboEditbox 2: C 0-2; L 3-4; A 19-20 / Combobox 1: C 0; I 1-5; L 6; A 17 / "
     "Combobox 2: C 0; I 1-5; L 6; A 22"},
    {PanelKind::kTimerA,
     "Radiobox 1: C 0-2 / Radiobox 2,4,5,7,8,9: C 0-2; L 3 / Radiobox 3,6: C 0-1 / "
     "Combobox 1: C 0; I 1-4; L 5; A 14 / Combobox 2: C 0; I 1-7; L 8-9; A 30 / "
     "Combobox 3: C 0; I 1-4; L 5 / ComboEditbox 1,2,4,5: C 0-1; L 2; A 8 / "
     "ComboEditbox 3: C 0; L 1; A 7"},
    {PanelKind::kTimerS,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-2; L 3 / "
     "Radiobox 3,4,5: C 0-2; L 3,5,7,9,11,13,15,17 / Combobox 1: C 0; I 1-2; L 3 / "
     "Combobox 2: C 0; I 1-8; L 9 / Combobox 3: C 0; I 1-3 / "
     "Combobox 4: C 0; I 1-3; L 5,9,13,17,21,25,29,33 / "
     "Combobox 5: C 0-3; L 4,7,10,13,16,19,22,25 / ComboEditbox 1: C 0; L 1; A 7 / "
     "ComboEditbox 2: C 0-1; L 2-9; A 15 / ComboEditbox 3: C 0-4; L 5-12; A 23-24"},
    {PanelKind::kTimerRA,
     // The Timer RA panel links every group but the first to its cell 3, groups 2 and 5
     // included: the panel's own rule holds over the general table here.
     "Radiobox 1: C 0-2; A 12 / Radiobox 2,5: C 0-1; L 3 / Radiobox 3,4,6,7,8: C 0-2; L 3 / "
     "ComboEditbox 1: C 0-1; L 2-3; A 11 / ComboEditbox 2: C 0-2; L 3-4; A 19-20 / "
     "Combobox 1: C 0; I 1-5; L 6; A 17 / Combobox 2: C 0,2; I 1-8; L 6,9; A 22,34 / "
     "Combobox 3,4,5: C 0; I 1-4; L 5; A 14"},
    {PanelKind::kTimerRE,
     "Radiobox 1: C 0-2 / Radiobox 2,4,6,7,8: C 0-2; L 3 / Radiobox 3: C 0-7; L 8 / "
     "Radiobox 5: C 0-1 / Combobox 1: C 0; I 1-7; L 8; A 23 / "
     "Combobox 2: C 0; I 1-4; L 5; A 14 / ComboEditbox 1,2,4: C 0-1; L 2; A 8 / "
     "ComboEditbox 3: C 0-1; L 2; A 11"},
    {PanelKind::kTimerRD,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4,5: C 0-2; L 3 / "
     "Combobox 1: C 0; I 1-6; L 7; A 20 / Combobox 2,3,4: C 0; I 1-7; L 8; A 30 / "
     "Combobox 5,6,7,8: C 0; I 1-12; L 13; A 38 / Combobox 9: C 0; I 1-3 / "
     "Combobox 10: C 0; I 1-3; L 4; A 11 / "
     "ComboEditbox 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,21,22,23,24: C 0-1; L 2; A 8 / "
     "ComboEditbox 20: C 0-1; L 2-3; A 10 / Checkbox 1,2: C 0-8; L 9,11,13,15,17,19,21,23 / "
     "Checkbox 3: C 0-6; L 7,9,11,13,15,17 / Checkbox 4: C 0-7; L 8,10,12,14,16,18,20,22 / "
     "Checkbox 5,6: C 0-2; L 3,5 / "
     "Checkbox 7: C 0-8; P 1:9,2:11,3:13,4:15,5:17,6:19,7:21,8:23"},
    {PanelKind::kTimerRC,
     "Radiobox 1: C 0-2 / "
     "Radiobox 2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21: C 0-2; L 3 / "
     "Combobox 1,3,4,5,6,7,8,9,10,14,15: C 0; I 1-4; L 5; A 14 / "
     "Combobox 2: C 0; I 1-7; L 8; A 30 / Combobox 11,12,13,16: C 0; I 1-3; L 4; A 11 / "
     "Combobox 17: C 0; I 1-5; L 6; A 17 / Combobox 18: C 0; I 1-7; L 8; A 23 / "
     "Combobox 19: C 0; I 1-6 / Combobox 20: C 0; I 1-6; L 7; A 20 / "
     "ComboEditbox 1,2,3,4,5,6,7,8,9,10: C 0-1; L 2; A 8"},
    {PanelKind::kTimerRF,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4,5: C 0-2; L 3 / "
     "ComboEditbox 1,2: C 0-1; L 2; A 8 / Combobox 1,2: C 0; I 1-3 / "
     "Combobox 3,4,5: C 0; I 1-4; L 5; A 14 / Combobox 6: C 0; I 1-3; L 4; A 11 / "
     "Checkbox 1: C 0-6; L 7,9,11,13,15,17"},
    {PanelKind::kTimerG,
     "Radiobox 1: C 0-2 / Radiobox 2,3: C 0-2; L 3 / Combobox 1,2: C 0; I 1-4; L 5"},
    {PanelKind::kMotorTimer,
     "Radiobox 1: C 0-1 / Radiobox 2: C 0-2; L 3,5,7,9 / Radiobox 3,4,5: C 0-2; L 3 / "
     "Radiobox 6,7,8,9: C 0 / Combobox 1,2: C 0; I 1-6; L 7 / "
     "ComboEditbox 1,2,4: C 0-1; L 2; A 8 / ComboEditbox 3: C 0-6; L 7-12; A 27-29"},
    {PanelKind::kUART2,
     "Radiobox 1,3,4,5,6,7,8,9,10: C 0-2; L 3 / Radiobox 2: C 0-4; L 5 / "
     "Radiobox 11: C 0-2; L 3-4 / ComboEditbox 1: C 0-4; L 5; A 16-17 / "
     "ComboEditbox 2: C 0-1; L 2-3; A 9 / Combobox 1,2,4: C 0; I 1-4 / "
     "Combobox 3: C 0; I 1-5; L 6"},
    {PanelKind::kUART3,
     "Radiobox 1: C 0-2; L 3; A 8 / Radiobox 2,5,8,11,14,17,20,23: C 0-1 / "
     "Radiobox 3,4,6,7,9,10,12,13,15,16,18,19,21,22,24,25,26: C 0-2; L 3 / "
     "ComboEditbox 1: C 0-4; L 5; A 16-17 / ComboEditbox 2: C 0-1; L 2-3; A 9 / "
     "Combobox 1: C 0; I 1-9; L 10 / Combobox 2: C 0; I 1-4; L 5 / "
     "Combobox 3: C 0; I 1-8; L 9 / Combobox 4: C 0; I 1-2; L 3 / Combobox 5: C 0; I 1"},
    {PanelKind::kSCI,
     "Radiobox 1,3,4,6,7,9,10,11: C 0-2; L 3 / Radiobox 2,5,8: C 0-1 / "
     "Combobox 1: C 0; I 1-5; L 6 / Combobox 2: C 0; I 1-4; L 5 / "
     "ComboEditbox 1: C 0-4; L 5-6; A 16-17"},
    {PanelKind::kSCI1,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4: C 0-2; L 3 / Combobox 1: C 0; I 1-5; L 6 / "
     "Combobox 2: C 0; I 1-8; L 9"},
    {PanelKind::kSIO,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-2; L 3,5 / Radiobox 3,4: C 0-2; L 3 / "
     "Radiobox 5: C 0-2; L 3-4 / Combobox 1: C 0; I 1-4; L 5-6 / "
     "ComboEditbox 1,2: C 0-1; L 2; A 8"},
    {PanelKind::kSSU,
     "Radiobox 1,2,3,4,5,7,8,9,10,11,12,13,14,15,16,17,18,19,20: C 0-2; L 3 / "
     "Radiobox 6: C 0-2; L 3,5 / Radiobox 21,22: C 0-3; L 4 / Combobox 1: C 0; I 1-3; L 4 / "
     "Combobox 2: C 0; I 1-8; L 9 / Combobox 3: C 0; I 1-15 / Combobox 4: C 0; I 1-4; L 5 / "
     "Combobox 5: C 0-16; L 17 / Combobox 6: C 0; I 2-10; L 11 / "
     "ComboEditbox 1,2: C 0-1; L 2-3; A 12"},
    {PanelKind::kMultiMasterI2C,
     "Radiobox 1: C 0-1 / Radiobox 2,3,4: C 0-2; L 3 / ComboEditbox 1,2: C 0-1; L 2; A 8 / "
     "Combobox 1: C 0; I 1-7; L 8"},
    {PanelKind::kLIN,
     "Radiobox 1: C 0-2; L 3-4 / Radiobox 2: C 0-3; L 4 / Radiobox 3: C 0-1 / "
     "Radiobox 4,5,6: C 0-2; L 3 / Combobox 1: C 0; I 1-3; L 4-8 / "
     "ComboEditbox 1: C 0-1; L 2-3; A 9 / ComboEditbox 2: C 0-1; L 2; A 8"},
    {PanelKind::kCAN,
     "Radiobox 1,2,4,5,6: C 0-2; L 3 / Radiobox 3: C 0-1 / Combobox 1: C 0; I 1-5; L 6 / "
     "Combobox 2: C 0; I 1-16; L 17 / Combobox 3: C 0; I 1-4; L 5 / "
     "Combobox 4: C 0-1; I 2-9; L 10 / Combobox 5,6: C 0-1; I 2-8; L 9 / "
     "Combobox 7: C 0-1; I 2-5; L 6"},
    {PanelKind::kADC,
     "Radiobox 1: C 0-2 / Radiobox 2,4,5: C 0-2; L 3 / Radiobox 3: C 0-4; L 5 / "
     "Combobox 1: C 0; I 1-12; L 13-14"},
    {PanelKind::kADC2,
     "Radiobox 1: C 0-2 / Radiobox 2,3: C 0-2; L 3 / Combobox 1,7: C 0-4; L 5 / "
     "Combobox 2: C 0-8; L 9 / Combobox 3: C 0; I 1-8; L 9; A 26 / "
     "Combobox 4: C 0; I 1-6; L 7; A 20 / Combobox 5,6: C 0; I 1-4; L 5"},
    {PanelKind::kADC3,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-2; L 3 / Combobox 1: C 0; I 1-3 / "
     "Combobox 2: C 0; I 1-12"},
    {PanelKind::kADC4,
     "Radiobox 1: C 0-2 / Radiobox 2,3,4,7: C 0-2; L 3 / Radiobox 5: C 0-2; L 4 / "
     "Radiobox 6,8: C 0-1 / Combobox 1: C 0; I 1-5; L 6 / "
     "Combobox 2,4,5,6: C 0; I 1-4; L 5 / Combobox 3: C 0; I 1-8; L 9 / "
     "Checkbox 1: C 0-4; L 5,7,9,11 / Checkbox 2: C 0-8; L 9,11,13,15,17,19,21,23"},
    {PanelKind::kDAC,
     "Radiobox 1: C 0-2 / Radiobox 2,3: C 0-2; L 3 / ComboEditbox 1,2: C 0-1; L 2; A 8"},
    {PanelKind::kComparator,
     "Radiobox 1: C 0-2 / Radiobox 2,3,5,6,7: C 0-2; L 3 / Radiobox 4: C 0-1 / "
     "Combobox 1,2: C 0; I 1-4; L 5 / Checkbox 1: C 0-2; L 3,5"},
    {PanelKind::kComparatorVDC,
     "Radiobox 1: C 0-2 / Radiobox 2,4,5,8,9,11,12,13: C 0-2; L 3 / "
     "Radiobox 3,7,10: C 0-1 / Radiobox 6: C 0-2; L 3-5 / Radiobox 14: C 0-2; L 3-4 / "
     "Combobox 1,2: C 0; I 1-4; L 5 / Checkbox 1: C 0-2; L 3,5"},
    {PanelKind::kComparatorB,
     "Radiobox 1,3: C 0-2 / Radiobox 2: C 0-2; L 3"},
    {PanelKind::kDMA,
     "Radiobox 1: C 0-2 / Radiobox 2,3: C 0-2; L 3 / Radiobox 4: C 0-3; L 4 / "
     "Combobox 1: C 0; I 1-28; L 29 / ComboEditbox 1: C 0; L 1-2; A 11 / "
     "ComboEditbox 2: C 0-4; L 5-6; A 15-16"},
    {PanelKind::kDTC,
     "Radiobox 1: C 0-1 / Radiobox 2,3,4,5,6,7: C 0-2 / Radiobox 8: C 0-2; L 3 / "
     "Combobox 1: C 0; I 1-24 / Combobox 2: C 0; I 1-7 / "
     "ComboEditbox 1,2,3,4,5: C 0-1; A 8 / Checkbox 1: C 0-5; L 6,8,10,12,14 / "
     "Checkbox 2,4: L 9,11,13,15,17,19,21,23 / Checkbox 3: L 7,9,11,13,15,17 / "
     "Checkbox 5: L 3,5 / Checkbox 6: L 2 / Checkbox 7: L 4,6,8"},
    {PanelKind::kWKP,
     "Radiobox 1,3,4,6,7,8,9: C 0-2; L 3 / Radiobox 2,5: C 0-1"},
    {PanelKind::kAEC,
     "Radiobox 1,3,4: C 0-2 / Radiobox 2: C 0-2; L 3"},
    {PanelKind::kPWM,
     "Radiobox 1: C 0-2 / Radiobox 2: C 0-2; L 3 / ComboEditbox 1: C 0-1; L 2; A 8 / "
     "Combobox 1: C 0; I 1-7; L 8; A 30"},
}};

std::string_view Trim(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    std::size_t at = text.find(separator);
    pieces.push_back(text.substr(0, at));
    if (at == std::string_view::npos) break;
    text.remove_prefix(at + separator.size());
  }
  return pieces;
}

int ToInt(std::string_view text) {
  return std::atoi(std::string(Trim(text)).c_str());
}

// "0-2,5" gives 0, 1, 2, 5.
std::vector<int> ParseCellList(std::string_view text) {
  std::vector<int> cells;
  for (std::string_view item : Split(text, ",")) {
    item = Trim(item);
    if (item.empty()) continue;
    std::size_t dash = item.find('-');
    if (dash == std::string_view::npos) {
      cells.push_back(ToInt(item));
      continue;
    }
    int first = ToInt(item.substr(0, dash));
    int last = ToInt(item.substr(dash + 1));
    for (int c = first; c <= last; ++c) cells.push_back(c);
  }
  return cells;
}

bool KindOfWord(std::string_view word, ControlKind& kind) {
  for (ControlKind k : {ControlKind::kRadioGroup, ControlKind::kCombobox,
                        ControlKind::kComboEditbox, ControlKind::kCheckbox, ControlKind::kLabel}) {
    if (word == ControlWord(k)) {
      kind = k;
      return true;
    }
  }
  return false;
}

void ParseMarks(std::string_view marks, RowKeyLayout& layout) {
  for (std::string_view mark : Split(marks, ";")) {
    mark = Trim(mark);
    if (mark.size() < 2) continue;
    std::string_view cells = mark.substr(1);
    switch (mark.front()) {
      case 'C': layout.copied = ParseCellList(cells); break;
      case 'I': layout.items = ParseCellList(cells); break;
      case 'L': layout.links = ParseCellList(cells); break;
      case 'D': layout.selectIndex = ParseCellList(cells); break;
      case 'A': layout.availability = ParseCellList(cells); break;
      case 'P':
        for (std::string_view pair : Split(cells, ",")) {
          std::size_t colon = pair.find(':');
          if (colon == std::string_view::npos) continue;
          layout.pairs.emplace_back(ToInt(pair.substr(0, colon)), ToInt(pair.substr(colon + 1)));
        }
        break;
      default: break;
    }
  }
}

}  // namespace

std::vector<RowKeyLayout> ParseRowKeyLayouts(std::string_view text) {
  std::vector<RowKeyLayout> layouts;
  for (std::string_view entry : Split(text, " / ")) {
    std::size_t colon = entry.find(':');
    if (colon == std::string_view::npos) continue;
    std::string_view head = Trim(entry.substr(0, colon));
    std::size_t blank = head.find(' ');
    if (blank == std::string_view::npos) continue;
    RowKeyLayout layout;
    if (!KindOfWord(head.substr(0, blank), layout.kind)) continue;
    ParseMarks(entry.substr(colon + 1), layout);
    for (int number : ParseCellList(head.substr(blank + 1))) {
      RowKeyLayout keyed = layout;
      keyed.key = std::string(head.substr(0, blank)) + "_" + std::to_string(number);
      layouts.push_back(std::move(keyed));
    }
  }
  return layouts;
}

const std::vector<RowKeyLayout>& RowKeysOf(PanelKind kind) {
  static const std::array<std::vector<RowKeyLayout>, kPanelKindCount> parsed = [] {
    std::array<std::vector<RowKeyLayout>, kPanelKindCount> all;
    for (const KindLayoutText& entry : kLayoutTexts) {
      all[static_cast<std::size_t>(entry.kind)] = ParseRowKeyLayouts(entry.text);
    }
    return all;
  }();
  return parsed[static_cast<std::size_t>(kind)];
}

const RowKeyLayout* FindRowKey(PanelKind kind, std::string_view key) {
  for (const RowKeyLayout& layout : RowKeysOf(kind)) {
    if (EqualsNoCase(layout.key, key)) return &layout;
  }
  return nullptr;
}

}  // namespace tessara
