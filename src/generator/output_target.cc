#include "generator/output_target.h"

#include <cstdio>
#include <fstream>

#include "core/host.h"
#include "core/text.h"

namespace tessara {

OutputState::OutputState() : OutputPath(GeneratedFolder()) {}

void OutputState::SetTarget(const std::string& path, const std::string& fileName) {
  OutputPath = path;
  OutputFileName = fileName;
  OutputFolder = path;
  std::size_t at = fileName.empty() ? std::string::npos : OutputFolder.find(fileName);
  if (at != std::string::npos) OutputFolder.erase(at, fileName.size());
}

std::string GeneratedFolder() {
  return JoinPath(ModuleFolder(), "Generated") + kPathSeparator;
}

std::string HeaderNameOf(const std::string& fileName) {
  if (fileName.size() <= 1) return fileName;
  return fileName.substr(0, fileName.size() - 1) + "h";
}

std::string HeaderPathOf(const std::string& path) { return HeaderNameOf(path); }

std::string RegisterHeaderNameFor(const std::string& group, bool kbFamily) {
  if (group.empty()) return "sfr_QTL6Pconfig.h";
  if (kbFamily) return "iodefine.h";
  std::size_t blank = group.find(' ');
  // A name without a blank has no part before one: the base is empty.
  std::string base = blank == std::string::npos ? "" : group.substr(0, blank);
  std::string cleaned;
  for (char c : base) {
    if (c != '/') cleaned.push_back(c);
  }
  return "sfr_" + cleaned + "config.h";
}

int WriteGeneratedFile(Host& host, const std::string& path, const std::string& text) {
  if (WriteTextFileReplacing(path, text)) return 0;
  host.MessageBox(FormatC("Error opening file: \"%s\"", path.c_str()));
  return 1;
}

}  // namespace tessara
