#ifndef TESSARA_IDELINK_IDE_SERVER_H_
#define TESSARA_IDELINK_IDE_SERVER_H_

#include <memory>
#include <string>

namespace tessara {

// The operations of the development environment's automation server that project mode
// uses. Every one returns a result code; a negative code is a failure.
class IdeServer {
 public:
  virtual ~IdeServer() = default;
  virtual int AddProjectFile(const std::string& path) = 0;
  virtual int RemoveProjectFile(const std::string& path) = 0;
  virtual int FinishProjectUpdate() = 0;
  virtual int StartIde() = 0;
  // 0 with the name when a project is active; another non-negative code when no
  // workspace is open.
  virtual int GetProjectName(std::string& name) = 0;
  // The project's files as a ","-separated list of paths; the first gives its folder.
  virtual int GetProjectFiles(std::string& files) = 0;
};

// Connects to the server once; null when there is none. This host has no such
// server, so the connector finds none and project mode ends in its message.
std::unique_ptr<IdeServer> ConnectIdeServer();

}  // namespace tessara

#endif  // TESSARA_IDELINK_IDE_SERVER_H_
