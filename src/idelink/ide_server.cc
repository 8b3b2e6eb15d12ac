#include "idelink/ide_server.h"

namespace tessara {

std::unique_ptr<IdeServer> ConnectIdeServer() { return nullptr; }

}  // namespace tessara
