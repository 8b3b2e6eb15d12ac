#include "panels/framework/register_emission.h"

#include "core/text.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

namespace {

const Control* FindByKey(const std::vector<Control>& controls, std::string_view key) {
  for (const Control& control : controls) {
    if (EqualsNoCase(control.key, key)) return &control;
  }
  return nullptr;
}

int SelectedCell(const Control& box, const RowTable& rows, int cellsPerRow) {
  const std::string* item = box.parts.empty() ? nullptr : box.parts[0].SelectedItem();
  if (item == nullptr) return 0;
  const PanelRow& row = rows.Row(rows.FindRowByCaption(box.Caption(), 1));
  for (int cell = 1; cell < row.CellCount() && cell < cellsPerRow; ++cell) {
    if (EqualsNoCase(row.Cell(cell), *item)) return cell;
  }
  return 0;
}

std::vector<std::string_view> SplitTexts(std::string_view text) {
  std::vector<std::string_view> texts;
  while (static_cast<int>(texts.size()) < kExtraCommentTexts) {
    std::size_t comma = text.find(',');
    texts.push_back(text.substr(0, comma));
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return texts;
}

// Text k (from 1) of the list, or empty.
std::string_view TextNumber(const std::vector<std::string_view>& texts, int k) {
  if (k < 1 || k > static_cast<int>(texts.size())) return {};
  return texts[static_cast<std::size_t>(k - 1)];
}

bool GateHolds(std::string_view gate, const std::vector<Control>& controls, const RowTable& rows,
               int cellsPerRow) {
  std::size_t open = gate.find('(');
  std::string_view gateKey = gate.substr(0, open);
  int n = -1;
  if (open != std::string_view::npos && open + 1 < gate.size() && gate[open + 1] >= '0' &&
      gate[open + 1] <= '9') {
    n = gate[open + 1] - '0';
  }
  const Control* control = FindByKey(controls, gateKey);
  if (control == nullptr) return false;
  switch (control->kind) {
    case ControlKind::kRadioGroup:
      return n >= 1 && n <= static_cast<int>(control->parts.size()) &&
             control->parts[static_cast<std::size_t>(n - 1)].checked;
    case ControlKind::kCombobox: return SelectedCell(*control, rows, cellsPerRow) == n;
    case ControlKind::kComboEditbox: return control->AnyPartEnabled();
    default: return false;
  }
}

std::string EvaluateItem(std::string_view left, std::string_view right,
                         const std::vector<Control>& controls, const RowTable& rows,
                         int cellsPerRow, const std::vector<int>& textOptions,
                         bool listGivesFirstText) {
  std::string_view key = left;
  std::string_view gate;
  std::size_t comma = left.find(',');
  if (comma != std::string_view::npos) {
    key = left.substr(0, comma);
    gate = left.substr(comma + 1);
  }
  std::vector<std::string_view> texts = SplitTexts(right);
  const Control* control = FindByKey(controls, key);
  std::string_view chosen;
  if (control != nullptr) {
    const std::size_t index = static_cast<std::size_t>(control - controls.data());
    switch (control->kind) {
      case ControlKind::kRadioGroup: {
        const int option = control->CheckedPart() + 1;
        const bool chooses = index >= textOptions.size() || option <= textOptions[index];
        if (control->AnyPartEnabled() && chooses) chosen = TextNumber(texts, option);
        break;
      }
      case ControlKind::kCombobox:
        if (control->parts[0].enabled) {
          if (listGivesFirstText) return std::string(TextNumber(texts, 1));
          chosen = TextNumber(texts, SelectedCell(*control, rows, cellsPerRow));
        }
        break;
      case ControlKind::kComboEditbox:
        if (control->AnyPartEnabled()) chosen = TextNumber(texts, 1);
        break;
      default: break;
    }
  }
  if (!gate.empty() && !GateHolds(gate, controls, rows, cellsPerRow)) return {};
  return std::string(chosen);
}

}  // namespace

std::string EmitRegisterCode(std::string_view extraComment, const std::vector<Control>& controls,
                             const RowTable& rows, int cellsPerRow,
                             const std::vector<int>& textOptions, bool listGivesFirstText) {
  std::string out;
  if (extraComment.empty()) return out;
  std::string_view work = extraComment.substr(0, kExtraCommentLength);
  for (int item = 0; item < kExtraCommentItems; ++item) {
    std::size_t semicolon = work.find(';');
    std::string_view text = work.substr(0, semicolon);
    std::size_t equals = text.find('=');
    if (equals != std::string_view::npos) {
      std::string t = EvaluateItem(text.substr(0, equals), text.substr(equals + 1), controls,
                                   rows, cellsPerRow, textOptions, listGivesFirstText);
      if (!t.empty()) {
        out = "\t" + out + "\n\t" + t;
        out.erase(0, out.find_first_not_of(" \t\n\r\v\f"));
      }
    }
    if (semicolon == std::string_view::npos) break;
    work.remove_prefix(semicolon + 1);
  }
  return out;
}

std::string EmitExtraCode(std::string_view extraParameter) {
  std::string out;
  for (std::size_t comma = extraParameter.find(','); comma != std::string_view::npos;
       comma = extraParameter.find(',')) {
    out += extraParameter.substr(0, comma);
    out += "\n\t";
    extraParameter.remove_prefix(comma + 1);
  }
  return out;
}

void PeripheralPanel::EmitRegisterCode(std::string& out) const {
  // A control that the kind does not accept as a key is as unknown as any other word.
  std::vector<Control> keys;
  std::vector<int> textOptions;
  for (const Control& control : controls_) {
    if (!IsEmissionKey(control)) continue;
    keys.push_back(control);
    textOptions.push_back(EmissionTextOptions(control));
  }
  out = tessara::EmitRegisterCode(extraComment_, keys, rowTable_, Traits().cellsPerRow,
                                  textOptions, behaviour_.listGivesFirstText);
}

void PeripheralPanel::EmitExtraCode(std::string& out) const {
  out = tessara::EmitExtraCode(extraParameter_);
}

}  // namespace tessara
