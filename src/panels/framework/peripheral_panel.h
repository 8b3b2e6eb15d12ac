#ifndef TESSARA_PANELS_FRAMEWORK_PERIPHERAL_PANEL_H_
#define TESSARA_PANELS_FRAMEWORK_PERIPHERAL_PANEL_H_

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "database/peripheral_identity.h"
#include "panels/framework/control_model.h"
#include "panels/framework/enable_mask.h"
#include "panels/framework/error_tables.h"
#include "panels/framework/numeric_entry.h"
#include "panels/framework/panel_context.h"
#include "panels/framework/panel_kind_traits.h"
#include "panels/framework/row_table.h"

namespace tessara {

class ParameterList;
struct RowKeyLayout;

// A control as a panel kind declares it: its kind, its database key, how many
// options, fields or boxes it has, and the places of the mask that its row carries.
struct ControlSpec {
  ControlKind kind = ControlKind::kLabel;
  std::string key;
  int parts = 1;
  // What the places of the control's EnableMask (cells 8 and 9 of a group's row) steer,
  // as (database key, part); part -1 is the whole control.
  std::vector<std::pair<std::string, int>> maskTargets;
  // Cell of the row with the EnableDigits; -1 takes the kind's usual cell (7 for a
  // RadioGroup, 4 for a ComboEditbox) or none.
  int enableDigitsCell = -1;
  FieldClass fieldClass = FieldClass::kNone;  // ComboEditbox fields
  int itemCount = 0;  // Combobox: items of the usual row layout, for its item cells
  // Combobox: item j has one row at cell j + itemCount and its comment at
  // j + 2 x itemCount, instead of the usual two rows.
  bool oneRowPerItem = false;
  // A RadioGroup that is one option button of its own (a pair made of two keys).
  bool singleOption = false;
};

// Mask places for both options of each named group, in order.
std::vector<std::pair<std::string, int>> BothOptionsOf(std::initializer_list<const char*> keys);

// Where the common handlers of a kind differ.
struct PanelBehaviour {
  bool groupOneWritesRow = false;  // RadioGroup 1 has a row of its own
  // A group without a mask writes its row only while its checked option is enabled.
  bool checkedOptionMustBeEnabled = false;
  bool refreshGuard = false;  // RefreshParameters waits while a mask re-runs handlers
  MaskVariant maskVariant = MaskVariant::kStandard;
  // An empty mask re-runs no dependent handler.
  bool emptyMaskSkipsRerun = false;
  // An ExtraComment item of a Combobox gives its first text while the box is enabled.
  bool listGivesFirstText = false;
  // WriteOptionRow leaves the rows alone when the option's cell is empty.
  bool emptyOptionCellWritesNothing = false;
  // Every non-empty slot is a row of the list and of the code: the kinds whose rows
  // hold whole register bytes keep no ActiveKeys.
  bool showAllRows = false;
  bool extraSettingsRows = true;  // the refresh lists the rows of the popup
};

// One tooltip text and the control it goes to; part -1 is all parts of the control.
struct TooltipBinding {
  std::string text;
  int control = 0;
  int part = -1;
};

struct TooltipSet {
  static constexpr int kMaxTipWidth = 50;
  static constexpr int kInitialDelay = 200;
  static constexpr int kAutopopTime = 4000;
  bool active = false;
  std::vector<TooltipBinding> bindings;
};

// A field name of the error tables and the control part it stands for; a name bound
// twice stands for either part.
struct ErrorFieldName {
  std::string name;
  std::string key;
  int part = -1;
};

// One value of a panel's save line. A RadioGroup gives the check states of its first
// two options, or with kAllOptions of every option it has; a list index is a
// Combobox's selection or that of a ComboEditbox field; a field text is written as it
// stands, followed by a blank; a box is the check state of box `part` of a Checkbox block.
enum class SavedForm { kOptions, kAllOptions, kIndex, kText, kBox };

// The next value of a save line as decimal, the way atoi reads it; an empty token reads
// as 0. The value is taken off the front of `text`.
int NextSavedInteger(std::string& text);

struct SavedValue {
  int control = 0;
  SavedForm form = SavedForm::kOptions;
  int part = 0;  // the field of a ComboEditbox, the box of a Checkbox block
};

// A Combobox whose items follow an option: its own item texts and the last mask
// applied, so that a user's selection lives as long as the list does not change.
struct RefillableCombo {
  std::vector<std::string> itemTexts;
  std::string rememberedMask;
};

// The configuration face of one on-chip peripheral: a table of text cells from the
// chip's data, a set of controls, and the rows (name=value with comments) that the
// generator takes. Every kind is this machine; a kind's class supplies its controls,
// its masks and the handlers that differ.
class PeripheralPanel {
 public:
  PeripheralPanel(PanelKind kind, std::vector<ControlSpec> controls,
                  PanelBehaviour behaviour = PanelBehaviour());
  virtual ~PeripheralPanel() = default;
  PeripheralPanel(const PeripheralPanel&) = delete;
  PeripheralPanel& operator=(const PeripheralPanel&) = delete;

  PanelKind Kind() const { return kind_; }
  const PanelKindTraits& Traits() const { return traits_; }
  void SetContext(PanelContext* context) { context_ = context; }
  PanelContext* Context() const { return context_; }

  // --- Life of a panel, in the order the page drives it.
  void ClearTables();
  // Reads the section of the context's configuration into the tables and controls,
  // creates the window on first use and fills the lists.
  void LoadSection();
  bool HasWindow() const { return hasWindow_; }
  // A new window brings fresh controls (captions stay) and runs OnInitDialog.
  void CreateWindow();
  void DestroyWindow() { hasWindow_ = false; }
  virtual void OnInitDialog();
  virtual void ApplyDefaults();
  virtual void BuildTooltips();
  void AddInitialValue(std::string_view caption, std::string_view cellText);
  virtual void RefreshParameters(std::string_view changedName);
  // Appends this panel's values and " \n"; the page writes the tag in front.
  virtual void SaveState(std::string& text) const;
  // Replays the values stored behind this panel's tag through the handlers.
  virtual void LoadState(const std::string& projectText);
  std::string SaveTag() const;
  void EmitRegisterCode(std::string& out) const;
  void EmitExtraCode(std::string& out) const;
  // Adds a report row for every shown marker row that an error row names; false when
  // any did.
  bool CollectErrors(ErrorReport& report) const;

  // --- User actions, as a front-end reports them. Each sets the control as the
  // toolkit would and runs its handler; an action on a disabled or hidden part, or on
  // an unknown key, does nothing and gives false.
  bool ChooseOption(std::string_view key, int option);
  bool ChooseItem(std::string_view key, int index, int field = 0);
  bool EditFieldText(std::string_view key, int field, std::string text);
  bool CloseDropDown(std::string_view key, int field);
  bool ToggleCheckbox(std::string_view key, int box, bool checked);

  // Sets the check marks that a click on `option` gives and runs the handler; kinds
  // whose groups hold more than one pair of options decide what a click clears.
  virtual void OnOptionClick(int control, int option);

  // Runs a control's handler by name, as masks and LoadState do.
  void RunHandler(int control);

  // --- What the page, the generator and the tests read.
  const std::vector<Control>& Controls() const { return controls_; }
  int ControlIndex(std::string_view key) const;  // -1 when the panel has no such key
  const Control* FindControl(std::string_view key) const;
  Control* MutableControl(std::string_view key);
  const RowTable& Rows() const { return rowTable_; }
  const std::vector<std::string>& ParameterRows() const { return parameterRows_; }
  const std::vector<std::string>& ParameterComments() const { return parameterComments_; }
  // The generator sorts the rows and comments in place by Parameter_Sort, which does
  // no harm because every look-up goes by name.
  std::vector<std::string>& MutableParameterRows() { return parameterRows_; }
  std::vector<std::string>& MutableParameterComments() { return parameterComments_; }
  const std::vector<std::string>& ActiveKeys() const { return activeKeys_; }
  const std::vector<std::string>& InitialValueLinks() const { return initialValueLinks_; }
  const std::vector<std::string>& TooltipTexts() const { return tooltipTexts_; }
  const TooltipSet& Tooltips() const { return tooltips_; }
  const std::string& PeripheralHeading() const { return peripheralHeading_; }
  const std::string& ExtraComment() const { return extraComment_; }
  const std::string& ExtraParameter() const { return extraParameter_; }
  const std::string& ParameterSort() const { return parameterSort_; }
  const std::string& PeripheralName() const { return peripheralName_; }
  // set 0 is the plain key, sets 1 to 3 the keys with the suffix 2 to 4.
  const std::string& FilePragma(int set = 0) const { return filePragma_.at(set); }
  const std::string& FileFunctionDeclaration(int set = 0) const {
    return fileFunctionDeclaration_.at(set);
  }
  const std::string& FileFunction(int set = 0) const { return fileFunction_.at(set); }
  // Empties the File texts; the page does it for some kinds when it is left.
  void ClearFileTexts();
  const std::vector<std::string>& ExtraComboSpecs() const { return extraComboSpecs_; }
  const std::vector<std::string>& ExtraCheckSpecs() const { return extraCheckSpecs_; }
  const std::vector<std::vector<std::string>>& ExtraComboRows() const { return extraComboRows_; }
  const std::vector<std::vector<std::string>>& ExtraComboComments() const {
    return extraComboComments_;
  }
  const std::vector<std::vector<std::string>>& ExtraCheckRows() const { return extraCheckRows_; }
  const std::vector<std::vector<std::string>>& ExtraCheckComments() const {
    return extraCheckComments_;
  }
  const std::array<int, 4>& ExtraComboSelection() const { return extraComboSelection_; }
  const std::array<int, 16>& ExtraCheckState() const { return extraCheckState_; }
  // Empties the rows the popup added; the page does it when it is left.
  void ClearExtraRows();
  const ErrorTable& ErrorNullRows() const { return errorNullRows_; }
  const ErrorTable& ErrorMinRows() const { return errorMinRows_; }
  const ErrorTable& ErrorMaxRows() const { return errorMaxRows_; }
  int CurrentChoice() const { return currentChoice_; }
  // The format marker of a RadioGroup row said "v1.31".
  bool LongLayout() const { return longLayout_; }
  // Links of each DTC source with each caption, beside the common links.
  const std::vector<std::string>& SourceLinks() const { return sourceLinks_; }
  int RefreshGuard() const { return refreshGuard_; }

  // The text of a parameter row before its first "=".
  static std::string_view RowName(std::string_view row);

 protected:
  // Refresh step 3: one fixed slot of ActiveKeys per control. Kinds that give a
  // control more than one slot, or none, write the slots themselves.
  virtual void BuildActiveKeys();
  // --- Hooks: what kinds do differently.
  virtual void OnRadioGroup(int control);
  virtual void OnCombobox(int control);
  // ValueChanged of one field, with the text the event hands over.
  virtual void OnComboEditbox(int control, int field, const std::string& text);
  virtual void OnCheckbox(int control, int box);
  // Whether the control's caption goes into ActiveKeys now.
  virtual bool CountsAsActive(int control) const;
  // The controls whose state SaveState writes and LoadState replays, in order.
  virtual std::vector<int> SavedControls() const;
  // The values of the save line, in order; by default the groups and lists of
  // SavedControls. Kinds that save field indices or texts list them here.
  virtual std::vector<SavedValue> SavedValues() const;
  // The cells that the section load touches for a control row; kinds whose rows
  // change layout with the section's format marker choose here.
  virtual const RowKeyLayout* RowKeyFor(std::string_view key) const;
  // The control (and part) that tooltip text k goes to, in the order of the texts; by
  // default text k to the whole of control k.
  virtual std::vector<MaskTarget> TooltipTargets() const;
  // Gives tooltip text k (from 0) to one more control part, for kinds whose texts go to
  // many controls each.
  void BindTooltip(std::size_t k, int control, int part);
  // Whether an ExtraComment item may name this control, as key or as gate.
  virtual bool IsEmissionKey(const Control&) const { return true; }
  // How many options of a group choose a text of an ExtraComment item, from the first;
  // a later checked option gives nothing. By default every option does.
  virtual int EmissionTextOptions(const Control& control) const {
    return static_cast<int>(control.parts.size());
  }
  // Writes the rows of item cell j of a Combobox's row; returns the first row's name.
  virtual std::string ApplyComboItem(int control, const PanelRow& row, int cell);
  // A row and comment for a field's trimmed text; false leaves the row as it was.
  struct FieldOutcome {
    std::string row;
    std::string comment;
  };
  virtual bool EvaluateField(int control, int field, const PanelRow& row, const std::string& text,
                             FieldOutcome& outcome);
  virtual std::vector<ErrorFieldName> ErrorFieldNames() const { return {}; }
  // Whether error row r of a table names the parameter `name`.
  virtual bool ErrorRowMatches(const ErrorTable& table, int r, std::string_view name) const;

  // Applies the mask of RadioGroup 1's checked option and re-runs what it steers; kinds
  // whose switch mask is not one place per target supply their own.
  virtual void ApplyGroupOneMask(int control, std::string_view mask) {
    ApplyMaskAndRerun(control, mask);
  }

  // --- Building blocks of handlers.
  void HandleGroupOne(int control);
  void HandleOptionGroup(int control);
  // Applies the control's EnableMask and re-runs the dependent handlers.
  void ApplyMaskAndRerun(int control, std::string_view mask);
  void RerunDependents(const std::vector<MaskTarget>& targets);
  void WriteOptionRow(int choice, int control);
  // Writes row and comment into the slot of the row's name; returns the slot.
  int WriteParameterRow(const std::string& row, const std::string& comment);
  // The first slot that is empty or holds `name`; 0 when all hold other names.
  int FindSlot(std::string_view name) const;
  // The same search, but -1 when all slots hold other names: for rows that are
  // dropped rather than written over another control's row.
  int FindOwnSlot(std::string_view name) const;
  // Writes row and comment into the row's own slot; false, and nothing written, when
  // there is none.
  bool WriteRowIfSlot(const std::string& row, const std::string& comment);
  void ValueChanged(int control, int field, std::string text);
  void RefillCombo(int control, RefillableCombo& combo, std::string_view mask);
  // The cell of a Combobox's row that holds its selected item; 0 for none.
  int SelectedItemCell(int control) const;
  const std::vector<MaskTarget>& MaskTargetsOf(int control) const {
    return maskTargets_.at(static_cast<std::size_t>(control));
  }
  const ControlSpec& SpecOf(int control) const {
    return specs_.at(static_cast<std::size_t>(control));
  }
  bool IsGroupOne(int control) const;

  std::vector<Control> controls_;
  RowTable rowTable_;
  std::vector<std::string> parameterRows_;
  std::vector<std::string> parameterComments_;
  std::vector<std::string> activeKeys_;
  std::vector<std::string> initialValueLinks_;
  int currentChoice_ = 0;
  int refreshGuard_ = 0;

 private:
  struct LoadedLists {
    std::vector<std::string> items;
    std::string availability;
    std::vector<std::string> presets;  // per field: the A cell of a ComboEditbox field
    int selectIndex = 0;
    bool hasItems = false;
  };

  ParameterList* List() const;
  // Loading, one step each.
  void LoadControlRow(int place, std::string_view key, std::string_view value);
  void ApplyRowKey(int place, const RowKeyLayout& layout);
  void LoadInitialValue(int place, std::string_view key, std::string_view value,
                        int& nextEntry);
  void LoadNamedKey(std::string_view key, std::string_view value, std::string_view line);
  void LoadTooltips(std::string_view value);
  void FillBoxes();
  void ApplyKindAdditions();
  bool IsDialogValue(std::string_view value) const;
  void ShowMessage(const std::string& text) const;
  // Refresh steps.
  void ResolveLinks();
  void ShowRows(ParameterList* list);
  void AddExtraSettingsRows(ParameterList* list);
  void MarkChangedRow(ParameterList* list, std::string_view changedName);
  void ResetControlState();
  bool FieldNameEnabled(std::string_view fieldName) const;

  PanelKind kind_;
  const PanelKindTraits& traits_;
  std::vector<ControlSpec> specs_;
  std::vector<std::vector<MaskTarget>> maskTargets_;
  PanelBehaviour behaviour_;
  PanelContext* context_ = nullptr;
  bool hasWindow_ = false;
  bool longLayout_ = false;
  std::vector<LoadedLists> loaded_;

  std::vector<std::string> tooltipTexts_;
  TooltipSet tooltips_;
  std::string peripheralHeading_;
  std::string extraComment_;
  std::string extraParameter_;
  std::string parameterSort_;
  std::string peripheralName_;
  std::array<std::string, 4> filePragma_;
  std::array<std::string, 4> fileFunctionDeclaration_;
  std::array<std::string, 4> fileFunction_;
  std::array<int, 4> extraComboSelection_{-1, -1, -1, -1};
  std::array<int, 16> extraCheckState_{};
  std::vector<std::string> extraComboSpecs_;
  std::vector<std::vector<std::string>> extraComboRows_;
  std::vector<std::vector<std::string>> extraComboComments_;
  std::vector<std::string> extraCheckSpecs_;
  std::vector<std::vector<std::string>> extraCheckRows_;
  std::vector<std::vector<std::string>> extraCheckComments_;
  ErrorTable errorNullRows_;
  ErrorTable errorMinRows_;
  ErrorTable errorMaxRows_;
  std::vector<std::string> sourceLinks_;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_PERIPHERAL_PANEL_H_
