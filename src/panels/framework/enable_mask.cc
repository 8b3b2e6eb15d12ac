#include "panels/framework/enable_mask.h"

namespace tessara {

namespace {

ControlModel* PartOf(Control& control, int part) {
  if (part < 0 || part >= static_cast<int>(control.parts.size())) return nullptr;
  return &control.parts[static_cast<std::size_t>(part)];
}

void DisableOption(Control& group, int option, MaskVariant variant) {
  ControlModel* target = PartOf(group, option);
  if (target == nullptr) return;
  switch (variant) {
    case MaskVariant::kComparator:
      if (option == 0) {
        target->checked = true;
      } else {
        target->checked = false;
      }
      break;
    case MaskVariant::kInvertFirstOption:
      if (option == 0 && group.parts.size() > 1) {
        group.CheckOption(1);
      } else {
        group.CheckOption(0);
      }
      break;
    default:
      group.CheckOption(0);
      break;
  }
  target->enabled = false;
}

void DisableBoxPart(ControlModel& box, ControlKind kind) {
  if (kind == ControlKind::kCheckbox) {
    box.checked = false;
  } else if (kind == ControlKind::kCombobox || kind == ControlKind::kComboEditbox) {
    box.Select(0);
  }
  box.enabled = false;
}

void SetEnabled(Control& control, int part, bool enabled, MaskVariant variant) {
  if (control.kind == ControlKind::kRadioGroup) {
    if (enabled) {
      if (ControlModel* option = PartOf(control, part)) option->enabled = true;
    } else {
      DisableOption(control, part, variant);
    }
    return;
  }
  if (part >= 0) {
    ControlModel* box = PartOf(control, part);
    if (box == nullptr) return;
    if (enabled) {
      box->enabled = true;
    } else {
      DisableBoxPart(*box, control.kind);
    }
    return;
  }
  for (ControlModel& box : control.parts) {
    if (enabled) {
      box.enabled = true;
    } else {
      DisableBoxPart(box, control.kind);
    }
  }
}

}  // namespace

namespace {

void ApplyDigit(char digit, const MaskTarget& target, std::vector<Control>& controls,
                MaskVariant variant) {
  if (target.control < 0 || target.control >= static_cast<int>(controls.size())) return;
  bool enable;
  if (variant == MaskVariant::kAnyNonZeroEnables) {
    enable = digit != '0';
  } else if (digit == '0' || digit == '1') {
    enable = digit == '1';
  } else {
    return;
  }
  SetEnabled(controls[static_cast<std::size_t>(target.control)], target.part, enable, variant);
}

}  // namespace

void ApplyEnableMask(std::string_view mask, const std::vector<MaskTarget>& targets,
                     std::vector<Control>& controls, MaskVariant variant) {
  for (std::size_t place = 0; place < mask.size() && place < targets.size(); ++place) {
    ApplyDigit(mask[place], targets[place], controls, variant);
  }
}

void ApplyPlacedMask(std::string_view mask, const std::vector<PlacedTarget>& placed,
                     std::vector<Control>& controls) {
  for (const PlacedTarget& entry : placed) {
    if (entry.place < 0 || entry.place >= static_cast<int>(mask.size())) continue;
    ApplyDigit(mask[static_cast<std::size_t>(entry.place)], entry.target, controls, entry.variant);
  }
}

void ApplyShowMask(std::string_view mask, const std::vector<MaskTarget>& targets,
                   std::vector<Control>& controls) {
  for (std::size_t place = 0; place < mask.size() && place < targets.size(); ++place) {
    const MaskTarget& target = targets[place];
    if (target.control < 0 || target.control >= static_cast<int>(controls.size())) continue;
    char letter = mask[place];
    if (letter != 'H' && letter != 'S') continue;
    Control& control = controls[static_cast<std::size_t>(target.control)];
    bool visible = letter == 'S';
    if (target.part < 0) {
      for (ControlModel& part : control.parts) part.visible = visible;
      control.frame.visible = visible;
    } else if (ControlModel* part = PartOf(control, target.part)) {
      part->visible = visible;
    }
  }
}

void ApplyShowPlaces(std::string_view mask, const std::vector<ShowPlace>& places,
                     const std::vector<ShowBox>& boxes, std::vector<Control>& controls) {
  for (std::size_t place = 0; place < mask.size() && place < places.size(); ++place) {
    const ShowPlace& showPlace = places[place];
    const MaskTarget& target = showPlace.target;
    if (target.control < 0 || target.control >= static_cast<int>(controls.size())) continue;
    ShowEffect effect = mask[place] == 'H'   ? showPlace.onH
                        : mask[place] == 'S' ? showPlace.onS
                                             : ShowEffect::kLeave;
    if (effect == ShowEffect::kLeave) continue;
    Control& control = controls[static_cast<std::size_t>(target.control)];
    bool visible = effect == ShowEffect::kShow;
    if (target.part < 0) {
      for (ControlModel& part : control.parts) part.visible = visible;
      control.frame.visible = visible;
    } else if (ControlModel* part = PartOf(control, target.part)) {
      part->visible = visible;
    }
  }
  for (const ShowBox& box : boxes) {
    if (box.control < 0 || box.control >= static_cast<int>(controls.size())) continue;
    bool allH = !box.places.empty();
    bool anyS = false;
    for (int place : box.places) {
      char letter = place >= 0 && place < static_cast<int>(mask.size())
                        ? mask[static_cast<std::size_t>(place)]
                        : '\0';
      allH = allH && letter == 'H';
      anyS = anyS || letter == 'S';
    }
    ControlModel& frame = controls[static_cast<std::size_t>(box.control)].frame;
    switch (box.rule) {
      case BoxRule::kHiddenIfAllHShownIfAnyS:
        if (allH) frame.visible = false;
        if (anyS) frame.visible = true;
        break;
      case BoxRule::kShownIfAllHOrAnyS:
        if (allH || anyS) frame.visible = true;
        break;
      case BoxRule::kShownIfAllH:
        if (allH) frame.visible = true;
        break;
    }
  }
}

}  // namespace tessara
