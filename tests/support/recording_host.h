#ifndef TESSARA_TESTS_RECORDING_HOST_H_
#define TESSARA_TESTS_RECORDING_HOST_H_

#include <string>
#include <vector>

#include "core/host.h"

namespace tessara {

// Thrown where the program would end; the test catches it and looks at the status.
struct HostExit {
  int status;
};

// A host that records every message box and turns an exit into HostExit.
class RecordingHost : public Host {
 public:
  void MessageBox(const std::string& text) override { messages.push_back(text); }
  [[noreturn]] void Exit(int status) override { throw HostExit{status}; }
  std::string DocumentsFolder() override { return documents; }
  void Sleep(int milliseconds) override { slept += milliseconds; }
  void ShowInViewer(const std::string& path) override { viewed.push_back(path); }

  std::vector<std::string> messages;
  std::vector<std::string> viewed;
  std::string documents = "/tmp";
  int slept = 0;
};

}  // namespace tessara

#endif  // TESSARA_TESTS_RECORDING_HOST_H_
