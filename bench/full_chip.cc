#include "full_chip.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "core/ini.h"
#include "core/text.h"
#include "database/device_database.h"
#include "database/peripheral_identity.h"
#include "panels/panel_factory.h"
#include "panels/framework/peripheral_panel.h"
#include "recording_host.h"

namespace tessara {

namespace {

// A data file cut at its header lines; the lines keep their line ends.
struct FileSection {
  std::string name;  // between the brackets; empty for the lines before the first header
  std::string header;
  std::string body;
};

std::vector<FileSection> SplitSections(const std::string& text) {
  std::vector<FileSection> sections(1);
  for (std::size_t start = 0; start < text.size();) {
    std::size_t end = text.find('\n', start);
    end = end == std::string::npos ? text.size() : end + 1;
    const std::string line = text.substr(start, end - start);
    const std::size_t close = line.find(']');
    if (!line.empty() && line[0] == '[' && close != std::string::npos) {
      sections.push_back({line.substr(1, close - 1), line, ""});
    } else {
      sections.back().body += line;
    }
    start = end;
  }
  return sections;
}

bool HasPanelClass(PanelKind kind) {
  return kind != PanelKind::kClock && kind != PanelKind::kClock2 && CreatePeripheralPanel(kind) != nullptr;
}

// The configurations of a group: name and tag, in list order.
struct Configuration {
  std::string name;
  std::string tag;
};

struct SampleGroup {
  std::string fileName;
  std::string group;
  std::vector<Configuration> configurations;
  int panels = 0;  // when every kind that has a panel class is there as often as it can be
};

std::vector<SampleGroup> ReadSampleGroups(const std::string& sampleFolder) {
  std::string iniText;
  ReadWholeFile(sampleFolder + "/Tessara.ini", iniText);
  IniText ini(iniText);
  std::vector<std::string> names = {""};
  for (int slot = 1; slot <= kMaxDataFiles; ++slot) {
    std::string name = ini.Read("Database_File", "File" + std::to_string(slot), "");
    if (name.empty()) break;
    names.push_back(name);
  }
  SetModuleFolder(sampleFolder);
  RecordingHost host;
  auto database = std::make_unique<DeviceDatabase>();
  LoadCatalogue(host, *database, names);
  std::vector<SampleGroup> groups;
  for (std::size_t slot = 1; slot < names.size(); ++slot) {
    LoadGroupTables(host, *database, static_cast<int>(slot), names[slot]);
    const DatabaseEntry& entry = database->Entry(static_cast<int>(slot));
    SampleGroup group{names[slot], entry.Group, {}, 0};
    std::vector<bool> counted(kPanelKindCount);
    for (int k = 1; k <= kMaxConfigurations && !entry.Configuration[k].empty(); ++k) {
      group.configurations.push_back({entry.Configuration[k], entry.ResourceID[k]});
      const ResourceTag* tag = FindResourceTag(entry.ResourceID[k]);
      if (tag != nullptr && HasPanelClass(tag->kind) && !counted[static_cast<std::size_t>(tag->kind)]) {
        counted[static_cast<std::size_t>(tag->kind)] = true;
        group.panels += tag->instances;
      }
    }
    groups.push_back(group);
  }
  SetModuleFolder("");
  return groups;
}

}  // namespace

FullChipHome WriteFullChipHome(const std::string& folder, const std::string& sampleFolder) {
  namespace fs = std::filesystem;
  std::vector<SampleGroup> groups = ReadSampleGroups(sampleFolder);
  const SampleGroup* sample = &groups.front();
  for (const SampleGroup& group : groups) {
    if (group.panels > sample->panels) sample = &group;
  }
  std::string text;
  ReadWholeFile(sampleFolder + "/IO Files/" + sample->fileName, text);
  const std::string lineEnd = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
  std::vector<FileSection> sections = SplitSections(text);
  auto sectionOf = [&](const std::string& configuration) -> const FileSection* {
    for (const FileSection& section : sections) {
      if (section.name == configuration + "_" + sample->group) return &section;
    }
    return nullptr;
  };

  // Each kind with a panel class gets as many configurations as it has panel objects,
  // the added ones copies of the group's own, in turn.
  std::vector<Configuration> configurations = sample->configurations;
  std::string added;
  for (int kindIndex = 0; kindIndex < static_cast<int>(kPanelKindCount); ++kindIndex) {
    const ResourceTag& tag = kResourceTags[static_cast<std::size_t>(kindIndex)];
    if (!HasPanelClass(tag.kind)) continue;
    std::vector<Configuration> ofKind;
    for (const Configuration& configuration : sample->configurations) {
      const ResourceTag* found = FindResourceTag(configuration.tag);
      if (found != nullptr && found->kind == tag.kind) ofKind.push_back(configuration);
    }
    for (int n = static_cast<int>(ofKind.size()); !ofKind.empty() && n < tag.instances; ++n) {
      const Configuration& source = ofKind[static_cast<std::size_t>(n) % ofKind.size()];
      const FileSection* section = sectionOf(source.name);
      if (section == nullptr) break;
      Configuration copy{source.name + " copy " + std::to_string(n + 1), source.tag};
      added += lineEnd + "[" + copy.name + "_" + sample->group + "]" + lineEnd + section->body;
      configurations.push_back(copy);
    }
  }

  std::string chip;
  for (const FileSection& section : sections) {
    chip += section.header;
    if (section.name == "Configuration_" + sample->group || section.name == "ResourceID_" + sample->group) {
      const bool names = section.name == "Configuration_" + sample->group;
      for (std::size_t k = 0; k < configurations.size(); ++k) {
        chip += (names ? "Configuration_" : "ResourceID_") + std::to_string(k + 1) + "=" +
                (names ? configurations[k].name : configurations[k].tag) + lineEnd;
      }
      chip += lineEnd;
    } else {
      chip += section.body;
    }
  }
  if (!chip.empty() && chip.back() != '\n') chip += lineEnd;
  chip += added;

  FullChipHome home;
  home.folder = folder;
  home.group = sample->group;
  fs::create_directories(fs::path(folder) / "IO Files");
  home.dataFile = (fs::path(folder) / "IO Files" / sample->fileName).string();
  std::ofstream(home.dataFile, std::ios::binary) << chip;
  std::ofstream(fs::path(folder) / "Tessara.ini", std::ios::binary)
      << "[Database_File]\nDebug=\nFile1=" << sample->fileName << "\nFile1_Checksum="
      << FormatC("H'%04X", TextChecksum(chip)) << "\n\n[Generate]\nEnhancedGenerate=0\n\n[Display]\nExtraSetting=0\n";
  return home;
}

}  // namespace tessara
