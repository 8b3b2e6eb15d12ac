// Turning a configuration's section lines into a panel's tables and controls. One
// routine serves every kind; the kinds differ in the limits of their traits, in the row
// keys of their layouts and in the few additions below.

#include <cstdlib>
#include <optional>

#include "core/host.h"
#include "core/text.h"
#include "database/device_database.h"
#include "pages/parameter_list.h"
#include "panels/framework/peripheral_panel.h"
#include "panels/framework/section_layout.h"

namespace tessara {

namespace {

// Kinds whose over-long cells and initial_value rows have messages of their own.
struct CellLimits {
  PanelKind kind;
  int cellLimit;           // a longer cell shows a message
  int cellCode;            // ... with this code
  int lastCellCode;        // ... or this one for the last cell of a row
  int initialValueLimit;   // a longer initial_value row is cut
  int initialValueCode;    // ... after this message; 0 cuts without a word
};

constexpr CellLimits kCellLimits[] = {
    {PanelKind::kTimerRD, 1000, 1114, 1115, 499, 0},
    {PanelKind::kTimerRC, 1000, 1114, 1115, 499, 0},
    {PanelKind::kUART3, 2500, 1116, 1117, 2000, 1119},
};

const CellLimits* CellLimitsOf(PanelKind kind) {
  for (const CellLimits& limits : kCellLimits) {
    if (limits.kind == kind) return &limits;
  }
  return nullptr;
}

// The format marker of a long-layout section.
constexpr std::string_view kLongLayoutMarker = "v1.31";

constexpr int kClockItemLimit = 20;
constexpr int kDtcSources = 24;

struct ControlWordEntry {
  unsigned bit;
  std::string_view word;
};

// "ComboEditbox" is tested before "Combobox" and "Editbox" only for clarity: the three
// words do not begin with one another.
constexpr ControlWordEntry kControlWords[] = {
    {kWordComboEditbox, "ComboEditbox"}, {kWordRadiobox, "Radiobox"},
    {kWordCombobox, "Combobox"},         {kWordEditbox, "Editbox"},
    {kWordCheckbox, "Checkbox"},         {kWordLabel, "Label"},
};

std::vector<std::string> SplitValue(std::string_view value, int maxCells) {
  std::vector<std::string> cells;
  while (static_cast<int>(cells.size()) < maxCells) {
    std::size_t at = value.find(';');
    cells.emplace_back(value.substr(0, at));
    if (at == std::string_view::npos) break;
    value.remove_prefix(at + 1);
  }
  return cells;
}

bool IsClockKind(PanelKind kind) { return kind == PanelKind::kClock || kind == PanelKind::kClock2; }

std::string OverrunText(std::string_view separator, int code) {
  return std::string(kStringBufferOverrun) + std::string(separator) + "\n\n" + std::to_string(code);
}

}  // namespace

void PeripheralPanel::ShowMessage(const std::string& text) const {
  if (context_ != nullptr && context_->host != nullptr) context_->host->MessageBox(text);
}

bool PeripheralPanel::IsDialogValue(std::string_view value) const {
  const ResourceTag& tag = TagOf(kind_);
  return (!tag.dialogValue.empty() && EqualsNoCase(value, tag.dialogValue)) ||
         (!tag.alternativeDialogValue.empty() && EqualsNoCase(value, tag.alternativeDialogValue));
}

void PeripheralPanel::LoadSection() {
  ParameterList* list = List();
  if (list != nullptr) list->DeleteAllRows();
  for (LoadedLists& lists : loaded_) lists = LoadedLists();
  longLayout_ = false;

  std::optional<SectionStore::Row> lines;
  int k = context_ == nullptr ? 0 : context_->configuration;
  if (context_ != nullptr && context_->group != nullptr && k >= 0 && k <= kMaxConfigurations) {
    lines = context_->group->SectionLines[static_cast<std::size_t>(k)];
  }
  bool armed = false;
  int nextInitialValue = 0;
  const int lineLimit = LineLengthLimit(kind_);
  for (int place = 1; lines.has_value() && place <= traits_.linesRead; ++place) {
    if (place > static_cast<int>(lines->size())) break;
    std::string_view line = (*lines)[static_cast<std::size_t>(place - 1)];
    if (static_cast<int>(line.size()) > lineLimit) {
      if (traits_.overrunCode != 0) ShowMessage(OverrunText(",", traits_.overrunCode));
      line = line.substr(0, static_cast<std::size_t>(lineLimit));
    }
    std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    std::string_view key = line.substr(0, equals);
    std::string_view value = line.substr(equals + 1);
    if (EqualsNoCase(key, "Dialog") && IsDialogValue(value)) {
      armed = true;
      peripheralName_ = context_->group->Configuration[static_cast<std::size_t>(k)];
    }
    if (!armed) continue;

    bool controlWord = false;
    for (const ControlWordEntry& entry : kControlWords) {
      if ((traits_.controlWords & entry.bit) != 0 && StartsWithNoCase(key, entry.word)) {
        controlWord = true;
      }
    }
    if (controlWord) {
      LoadControlRow(place, key, value);
    } else if (StartsWithNoCase(key, "initial_value")) {
      if ((traits_.absentKeys & kNoInitialValue) == 0) {
        LoadInitialValue(place, key, value, nextInitialValue);
      }
    } else {
      LoadNamedKey(key, value, line);
    }
  }

  if (!hasWindow_) CreateWindow();
  if (traits_.refresh == LoadRefresh::kBeforeFill) RefreshParameters("");
  FillBoxes();
  ApplyKindAdditions();
  if (traits_.refresh == LoadRefresh::kAfterFill) RefreshParameters("");
}

void PeripheralPanel::LoadControlRow(int place, std::string_view key, std::string_view value) {
  if (place >= rowTable_.RowCount()) return;
  std::vector<std::string> cells = SplitValue(value, traits_.cellsPerRow);
  const CellLimits* limits = CellLimitsOf(kind_);
  const std::size_t cellLength = static_cast<std::size_t>(traits_.cellSize - 1);
  for (std::size_t c = 0; c < cells.size(); ++c) {
    std::string& cell = cells[c];
    if (limits != nullptr && static_cast<int>(cell.size()) > limits->cellLimit) {
      bool last = c + 1 == cells.size();
      ShowMessage(OverrunText("", last ? limits->lastCellCode : limits->cellCode));
    }
    if (cell.size() > cellLength) cell.resize(cellLength);
  }
  rowTable_.MutableRow(place).SetCells(std::move(cells));
  if (const RowKeyLayout* layout = RowKeyFor(key)) ApplyRowKey(place, *layout);
}

const RowKeyLayout* PeripheralPanel::RowKeyFor(std::string_view key) const {
  return FindRowKey(kind_, key);
}

void PeripheralPanel::ApplyRowKey(int place, const RowKeyLayout& layout) {
  const PanelRow& row = rowTable_.Row(place);
  int index = ControlIndex(layout.key);
  if (index >= 0 && !layout.copied.empty()) {
    Control& control = controls_[static_cast<std::size_t>(index)];
    control.texts.clear();
    for (int cell : layout.copied) control.texts.push_back(row.Cell(cell));
    if (layout.copied.front() == 0) control.frame.text = control.texts.front();
    for (std::size_t t = 1; t < control.texts.size(); ++t) {
      if (control.kind == ControlKind::kComboEditbox) {
        if (t == 1) control.unitText = control.texts[t];
      } else if (control.kind == ControlKind::kRadioGroup ||
                 control.kind == ControlKind::kCheckbox) {
        if (t - 1 < control.parts.size()) control.parts[t - 1].text = control.texts[t];
      }
    }
    if (control.kind == ControlKind::kLabel && !control.parts.empty()) {
      control.parts[0].text = control.texts.front();
    }
  }
  for (int cell : layout.links) {
    if (row.HasCell(cell)) AddInitialValue(row.Cell(0), row.Cell(cell));
  }
  for (const auto& [captionCell, parameterCell] : layout.pairs) {
    if (row.HasCell(captionCell) && row.HasCell(parameterCell)) {
      AddInitialValue(row.Cell(captionCell), row.Cell(parameterCell));
    }
  }
  if (layout.kind == ControlKind::kRadioGroup) {
    if (!layout.availability.empty()) {
      longLayout_ = row.Cell(layout.availability.front()) == kLongLayoutMarker;
    }
    return;
  }
  if (index < 0) return;
  LoadedLists& lists = loaded_[static_cast<std::size_t>(index)];
  if (layout.kind == ControlKind::kCombobox) {
    lists.hasItems = true;
    for (int cell : layout.items) lists.items.push_back(row.Cell(cell));
    if (!layout.availability.empty()) lists.availability = row.Cell(layout.availability.front());
    if (!layout.selectIndex.empty()) {
      lists.selectIndex = std::atoi(row.Cell(layout.selectIndex.front()).c_str());
    }
  } else if (layout.kind == ControlKind::kComboEditbox) {
    lists.hasItems = true;
    for (int cell : layout.availability) lists.presets.push_back(row.Cell(cell));
  }
}

void PeripheralPanel::LoadInitialValue(int place, std::string_view key, std::string_view value,
                                       int& nextEntry) {
  if (place >= rowTable_.RowCount()) return;
  if (traits_.skipFilledInitialValue && !rowTable_.Row(place).IsEmpty()) return;
  std::size_t slashes = value.find("//");
  std::string parameter(value.substr(0, slashes));
  std::string comment = slashes == std::string_view::npos ? std::string()
                                                          : std::string(value.substr(slashes));
  if (const CellLimits* limits = CellLimitsOf(kind_)) {
    if (static_cast<int>(parameter.size()) > limits->initialValueLimit) {
      if (limits->initialValueCode != 0) ShowMessage(OverrunText("", limits->initialValueCode));
      parameter.resize(static_cast<std::size_t>(limits->initialValueLimit));
    }
  }
  if (ParameterList* list = List()) list->AppendRow(parameter, comment);
  if (nextEntry < static_cast<int>(parameterRows_.size())) {
    parameterRows_[static_cast<std::size_t>(nextEntry)] = parameter;
    parameterComments_[static_cast<std::size_t>(nextEntry)] = comment;
    ++nextEntry;
  }
  std::string cell = parameter;
  const std::size_t cellLength = static_cast<std::size_t>(traits_.cellSize - 1);
  if (cell.size() > cellLength) cell.resize(cellLength);
  rowTable_.MutableRow(place).SetCells({cell});
  if (IsClockKind(kind_) && StartsWithNoCase(key, "initial_value_1")) {
    AddInitialValue(key, parameter);
  }
}

void PeripheralPanel::LoadTooltips(std::string_view value) {
  tooltipTexts_.clear();
  const std::size_t limit = static_cast<std::size_t>(traits_.tooltipTexts);
  for (;;) {
    std::size_t at = value.find(';');
    if (at == std::string_view::npos) {
      // The clock panels keep only the texts that a ";" closes.
      if (!IsClockKind(kind_) && tooltipTexts_.size() < limit) {
        tooltipTexts_.emplace_back(value);
      }
      break;
    }
    if (tooltipTexts_.size() >= limit) break;
    tooltipTexts_.emplace_back(value.substr(0, at));
    value.remove_prefix(at + 1);
  }
}

void PeripheralPanel::LoadNamedKey(std::string_view key, std::string_view value,
                                   std::string_view line) {
  const unsigned absent = traits_.absentKeys;
  if (EqualsNoCase(key, "Peripheral_Heading")) {
    peripheralHeading_ = std::string(value);
  } else if (EqualsNoCase(key, "Tooltip")) {
    LoadTooltips(value);
  } else if (EqualsNoCase(key, "ExtraComment")) {
    if ((absent & kNoExtraComment) == 0) extraComment_ = std::string(value);
  } else if (EqualsNoCase(key, "Parameter_Sort")) {
    parameterSort_ = std::string(value);
  } else if (EqualsNoCase(key, "ExtraParameter")) {
    if ((absent & kNoExtraParameter) == 0) extraParameter_ = std::string(value);
  } else if (StartsWithNoCase(key, "File_")) {
    static constexpr std::string_view kSuffixes[] = {"", "2", "3", "4"};
    for (int set = 0; set < traits_.fileKeySets && set < 4; ++set) {
      std::string suffix(kSuffixes[set]);
      if (EqualsNoCase(key, "File_Pragma" + suffix)) filePragma_[set] = std::string(value);
      if (EqualsNoCase(key, "File_Function_Declaration" + suffix)) {
        fileFunctionDeclaration_[set] = std::string(value);
      }
      if (EqualsNoCase(key, "File_Function" + suffix)) fileFunction_[set] = std::string(value);
    }
  } else if (StartsWithNoCase(key, "ExtraSetting_")) {
    if ((absent & kNoExtraSetting) != 0) return;
    for (auto [prefix, specs] :
         {std::pair{std::string_view("ExtraSetting_Combobox_"), &extraComboSpecs_},
          std::pair{std::string_view("ExtraSetting_Checkbox_"), &extraCheckSpecs_}}) {
      if (!StartsWithNoCase(key, prefix)) continue;
      std::string number(key.substr(prefix.size()));
      if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos) return;
      long slot = std::strtol(number.c_str(), nullptr, 10);
      if (slot >= 1 && slot < static_cast<long>(specs->size())) {
        (*specs)[static_cast<std::size_t>(slot)] = std::string(line);
      }
    }
  } else if (StartsWithNoCase(key, "Error")) {
    if ((absent & kNoError) != 0) return;
    if (EqualsNoCase(key, "Error_Null")) errorNullRows_.Load(value);
    if (EqualsNoCase(key, "Error_Min")) errorMinRows_.Load(value);
    if (EqualsNoCase(key, "Error_Max")) errorMaxRows_.Load(value);
  }
}

void PeripheralPanel::FillBoxes() {
  const bool clock = IsClockKind(kind_);
  for (std::size_t c = 0; c < controls_.size(); ++c) {
    Control& control = controls_[c];
    const LoadedLists& lists = loaded_[c];
    if (control.kind == ControlKind::kCombobox) {
      ControlModel& box = control.parts[0];
      box.ClearItems();
      for (std::size_t j = 0; j < lists.items.size(); ++j) {
        const std::string& item = lists.items[j];
        if (clock && (j >= kClockItemLimit || item.empty())) break;
        if (item.empty()) continue;
        if (!lists.availability.empty() &&
            (j >= lists.availability.size() || lists.availability[j] != '1')) {
          continue;
        }
        box.AddItem(item);
      }
      box.Select(clock ? lists.selectIndex : 0);
    } else if (control.kind == ControlKind::kComboEditbox) {
      for (std::size_t f = 0; f < control.parts.size(); ++f) {
        ControlModel& field = control.parts[f];
        field.ClearItems();
        if (f < lists.presets.size()) {
          // Each preset value is closed by a vertical bar.
          std::string_view presets = lists.presets[f];
          for (std::size_t bar = presets.find('|'); bar != std::string_view::npos;
               bar = presets.find('|')) {
            if (bar > 0) field.AddItem(std::string(presets.substr(0, bar)));
            presets.remove_prefix(bar + 1);
          }
        }
        field.Select(0);
      }
    }
  }
}

void PeripheralPanel::ApplyKindAdditions() {
  if (kind_ == PanelKind::kUART2) {
    // The mode row decides which of the first five modes the chip offers.
    Control* modes = MutableControl("Combobox_1");
    for (int r = 2; modes != nullptr && r < rowTable_.RowCount(); ++r) {
      const PanelRow& row = rowTable_.Row(r);
      if (row.Cell(0) != "Serial Interface Mode") continue;
      const std::string& digits = row.Cell(16);
      std::vector<std::string>& items = modes->parts[0].items;
      for (int position = 4; position >= 0; --position) {
        if (position < static_cast<int>(digits.size()) && digits[position] == '0' &&
            position < static_cast<int>(items.size())) {
          items.erase(items.begin() + position);
        }
      }
      modes->parts[0].Select(0);
      break;
    }
  } else if (kind_ == PanelKind::kDMA) {
    Control* causes = MutableControl("Combobox_1");
    if (causes == nullptr) return;
    ControlModel& box = causes->parts[0];
    box.ClearItems();
    for (int r = 1; r < rowTable_.RowCount(); ++r) {
      const PanelRow& row = rowTable_.Row(r);
      if (row.Cell(0) != "DMA Request Cause" && row.Cell(0) != "Analog Input Pin") continue;
      const std::string& digits = row.Cell(86);
      for (std::size_t i = 1; i <= 28 && i <= digits.size(); ++i) {
        if (digits[i - 1] == '1' && !row.Cell(static_cast<int>(i)).empty()) {
          box.AddItem(row.Cell(static_cast<int>(i)));
        }
      }
    }
    box.Select(0);
  } else if (kind_ == PanelKind::kDTC) {
    // Each source's own copy of the captions that carry a parameter.
    const Control* sources = FindControl("Combobox_1");
    if (sources == nullptr) return;
    const PanelRow& sourceRow = rowTable_.Row(rowTable_.FindRowByCaption(sources->Caption(), 1));
    static constexpr std::pair<std::string_view, int> kCaptioned[] = {
        {"Radiobox_2", 3},     {"Radiobox_3", 3},     {"Radiobox_4", 3},
        {"Radiobox_5", 3},     {"Radiobox_6", 3},     {"Radiobox_7", 3},
        {"ComboEditbox_1", 2}, {"ComboEditbox_2", 2}, {"ComboEditbox_3", 2},
        {"ComboEditbox_4", 2}, {"ComboEditbox_5", 2},
    };
    for (int item = 1; item <= kDtcSources; ++item) {
      const std::string& source = sourceRow.Cell(item);
      if (source.empty()) continue;
      for (const auto& [key, parameterCell] : kCaptioned) {
        const Control* control = FindControl(key);
        if (control == nullptr || control->Caption().empty()) continue;
        const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(control->Caption(), 1));
        sourceLinks_.push_back(source + control->Caption() + "=" + source +
                               std::string(RowName(row.Cell(parameterCell))));
      }
    }
  }
}

}  // namespace tessara
