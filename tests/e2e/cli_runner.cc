#include "cli_runner.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace tessara {

namespace {

std::string Quote(const std::string& word) {
  std::string quoted = "'";
  for (char c : word) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

std::string Slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

bool HostCompilerPresent() { return std::system("command -v gcc >/dev/null 2>&1") == 0; }

std::string CompileErrors(const std::string& folder, const std::string& file) {
  std::string log = folder + ".log";
  std::string command = "LC_ALL=C gcc -std=c99 -fsyntax-only -Wall -Werror -Wno-unknown-pragmas -I" +
                        Quote(folder) + " " + Quote(folder + "/" + file) + " >" + Quote(log) + " 2>&1";
  int status = std::system(command.c_str());
  std::string messages = Slurp(log);
  std::filesystem::remove(log);
  if (status != 0 && messages.empty()) messages = "gcc failed with status " + std::to_string(status);
  return status == 0 ? "" : messages;
}

CliResult RunCli(const std::vector<std::string>& arguments, const std::string& input) {
  std::string base = (std::filesystem::temp_directory_path() /
                      ("tessara-cli-" + std::to_string(getpid()) + "-" + std::to_string(rand())))
                         .string();
  std::string inPath = base + ".in", outPath = base + ".out", errPath = base + ".err";
  std::ofstream(inPath, std::ios::binary) << input;
  std::string command = Quote(TESSARA_CLI);
  for (const std::string& argument : arguments) command += " " + Quote(argument);
  command += " <" + Quote(inPath) + " >" + Quote(outPath) + " 2>" + Quote(errPath);
  int raw = std::system(command.c_str());
  CliResult result;
  result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  result.out = Slurp(outPath);
  result.err = Slurp(errPath);
  std::filesystem::remove(inPath);
  std::filesystem::remove(outPath);
  std::filesystem::remove(errPath);
  return result;
}

std::string CopySampleHome(const std::string& folder) {
  namespace fs = std::filesystem;
  fs::copy(fs::path(TESSARA_SOURCE_DIR) / "data", folder,
           fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  return folder;
}

}  // namespace tessara
