#ifndef TESSARA_TESTS_PANEL_FIXTURE_H_
#define TESSARA_TESTS_PANEL_FIXTURE_H_

#include <memory>
#include <string>
#include <vector>

#include "database/device_database.h"
#include "database/peripheral_identity.h"
#include "pages/parameter_list.h"
#include "panels/framework/panel_context.h"
#include "recording_host.h"

namespace tessara {

// A group with one configuration (k = 1) whose section lines a test writes, and the
// context a page would give a panel of it.
struct PanelFixture {
  PanelFixture() : group(std::make_unique<DatabaseEntry>()) {
    group->Group = "TST/1 Group";
    group->Configuration[1] = "Peripheral One";
    context.host = &host;
    context.group = group.get();
    context.configuration = 1;
    context.flags = &flags;
    context.parameterList = &list;
  }

  void SetLines(const std::vector<std::string>& lines) { group->SectionLines.Assign(1, lines); }

  std::unique_ptr<DatabaseEntry> group;
  RecordingHost host;
  FamilyFlags flags;
  ParameterList list;
  PanelContext context;
};

}  // namespace tessara

#endif  // TESSARA_TESTS_PANEL_FIXTURE_H_
