#ifndef TESSARA_DATABASE_PERIPHERAL_IDENTITY_H_
#define TESSARA_DATABASE_PERIPHERAL_IDENTITY_H_

#include <array>
#include <cstddef>
#include <string_view>

namespace tessara {

struct DatabaseEntry;

// Every panel kind there is, in the order of the resource-tag table.
enum class PanelKind {
  kClock,
  kClock2,
  kSSU,
  kInterrupt,
  kKeyInput,
  kPort,
  kTimerX,
  kTimerY,
  kTimerZ,
  kTimerC,
  kUART2,
  kADC,
  kMultiMasterI2C,
  kCAN,
  kADC2,
  kSIO,
  kTimerA,
  kTimerS,
  kDMA,
  kTimerRA,
  kTimerRE,
  kLIN,
  kTimerRD,
  kUART3,
  kMotorTimer,
  kLCD,
  kTimerA2,
  kTimerF,
  kSCI,
  kWKP,
  kSCI1,
  kAEC,
  kPWM,
  kTimerC2,
  kTimerG,
  kADC3,
  kADC4,
  kTimerRC,
  kTimerRF,
  kDAC,
  kComparator,
  kComparatorVDC,
  kDTC,
  kComparatorB,
};
inline constexpr std::size_t kPanelKindCount = 44;

// One row of the resource-tag table: the link between a configuration's tag and the
// panel kind that serves it.
struct ResourceTag {
  std::string_view tag;
  PanelKind kind;
  std::string_view className;
  int dialogTemplate;
  int instances;
  // The values a section's Dialog line may give; the second is empty for most kinds.
  std::string_view dialogValue;
  std::string_view alternativeDialogValue;
};

extern const std::array<ResourceTag, kPanelKindCount> kResourceTags;

const ResourceTag& TagOf(PanelKind kind);
// The row whose tag equals `tag` without regard to case, or nullptr.
const ResourceTag* FindResourceTag(std::string_view tag);

// True when ResourceID slot k of the entry is not empty and equals the kind's tag.
bool IsPanelKind(PanelKind kind, const DatabaseEntry& group, int k);
// The first k whose configuration is "Clock" in any case, 0 when none.
int ConfigurationIndexOfClock(const DatabaseEntry& group);
// The count of configurations of k's kind among places 1 to k.
int PanelInstance(const DatabaseEntry& group, int k);

// Process-wide family flags, set from the group's name at each change of group.
struct FamilyFlags {
  int FlagQTLFamily = 0;
  int FlagZNR9Family = 0;
  int FlagKBFamily = 0;
  int FlagQTL4VW = 0;
  int FlagQTL4XY = 0;
  int FlagQTL4 = 0;
  int FlagQTL4EF = 0;
  int FlagQTL5 = 0;
  int FlagQTL5Z = 0;

  void SetFromGroupName(std::string_view groupName);
};

}  // namespace tessara

#endif  // TESSARA_DATABASE_PERIPHERAL_IDENTITY_H_
