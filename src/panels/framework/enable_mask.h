#ifndef TESSARA_PANELS_FRAMEWORK_ENABLE_MASK_H_
#define TESSARA_PANELS_FRAMEWORK_ENABLE_MASK_H_

#include <string_view>
#include <vector>

#include "panels/framework/control_model.h"

namespace tessara {

// One place of a mask: a part of a control (an option, a field, a box of a block),
// or with part -1 the whole control (a Combobox, a ComboEditbox with all its fields,
// a lone Checkbox).
struct MaskTarget {
  int control = 0;
  int part = -1;
};

// How a "0" acts on the options of a group.
enum class MaskVariant {
  kStandard,
  // The comparator panels: a first option is checked without clearing the second, a
  // second option is cleared without checking the first.
  kComparator,
  // A "0" at the first option of a group checks the second option and clears the first.
  kInvertFirstOption,
  // Any digit other than "0" enables.
  kAnyNonZeroEnables,
};

// Applies an EnableMask from its first place on: "0" disables the target (a group's
// selection falls back to its first option, a box goes to item 0, a check box is
// cleared), "1" enables it; other characters and places behind the mask leave their
// target alone. Runs no handler.
void ApplyEnableMask(std::string_view mask, const std::vector<MaskTarget>& targets,
                     std::vector<Control>& controls, MaskVariant variant = MaskVariant::kStandard);

// A target with the mask place that steers it and how that place's digit acts. One
// place may steer several targets, and places that no entry names are not read.
struct PlacedTarget {
  int place = 0;  // from 0
  MaskTarget target;
  MaskVariant variant = MaskVariant::kStandard;
};

// Applies a mask whose places map to targets through `placed`, each entry with its
// own variant. Runs no handler.
void ApplyPlacedMask(std::string_view mask, const std::vector<PlacedTarget>& placed,
                     std::vector<Control>& controls);

// Applies a ShowMask: "H" hides the target, "S" shows it, anything else leaves it.
void ApplyShowMask(std::string_view mask, const std::vector<MaskTarget>& targets,
                   std::vector<Control>& controls);

// What one letter of a ShowMask does to its target. Some panels read "H" as "show"
// for targets that must never vanish.
enum class ShowEffect { kLeave, kShow, kHide };

// One place of a ShowMask with the effect of each letter. The target's group box goes
// along when the place stands for the whole control (part -1).
struct ShowPlace {
  MaskTarget target;
  ShowEffect onH = ShowEffect::kHide;
  ShowEffect onS = ShowEffect::kShow;
};

// How the group box of a control follows the letters of its places.
enum class BoxRule {
  kHiddenIfAllHShownIfAnyS,  // all "H" hides the box, any "S" shows it
  kShownIfAllHOrAnyS,        // both cases show the box
  kShownIfAllH,              // only all "H" shows it
};

struct ShowBox {
  int control = 0;
  std::vector<int> places;  // from 0
  BoxRule rule = BoxRule::kHiddenIfAllHShownIfAnyS;
};

// Applies a ShowMask place by place with the effects of `places`, then sets the group
// boxes by their rules. A box whose places the mask does not reach, or that match no
// case of its rule, is left as it is.
void ApplyShowPlaces(std::string_view mask, const std::vector<ShowPlace>& places,
                     const std::vector<ShowBox>& boxes, std::vector<Control>& controls);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_ENABLE_MASK_H_
