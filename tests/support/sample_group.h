#ifndef TESSARA_TESTS_SAMPLE_GROUP_H_
#define TESSARA_TESTS_SAMPLE_GROUP_H_

#include <memory>
#include <string>

#include "core/text.h"
#include "database/device_database.h"
#include "database/peripheral_identity.h"
#include "pages/parameter_list.h"
#include "panels/framework/panel_context.h"
#include "recording_host.h"

namespace tessara {

// A bundled sample group ("KB/77161 Group" unless another data file is named) as the
// catalogue reads it, and a panel context for its configuration `name`.
class SampleGroup {
 public:
  explicit SampleGroup(const std::string& name, const std::string& dataFile = "KB77161.ini")
      : database_(std::make_unique<DeviceDatabase>()) {
    SetModuleFolder(std::string(TESSARA_SOURCE_DIR) + "/data");
    LoadCatalogue(host, *database_, {"", dataFile});
    LoadGroupTables(host, *database_, 1, dataFile);
    SetModuleFolder("");
    const DatabaseEntry& group = database_->Entry(1);
    flags.SetFromGroupName(group.Group);
    context.host = &host;
    context.group = &group;
    context.flags = &flags;
    context.parameterList = &list;
    for (int k = 1; k <= kMaxConfigurations && !group.Configuration[k].empty(); ++k) {
      if (group.Configuration[k] == name) context.configuration = k;
    }
  }

  const DatabaseEntry& Group() const { return database_->Entry(1); }

  RecordingHost host;
  FamilyFlags flags;
  ParameterList list;
  PanelContext context;

 private:
  std::unique_ptr<DeviceDatabase> database_;
};

}  // namespace tessara

#endif  // TESSARA_TESTS_SAMPLE_GROUP_H_
