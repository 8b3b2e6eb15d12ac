#ifndef TESSARA_TESTS_CLI_RUNNER_H_
#define TESSARA_TESTS_CLI_RUNNER_H_

#include <string>
#include <vector>

namespace tessara {

struct CliResult {
  int status = -1;
  std::string out;
  std::string err;
};

// Runs tessara-cli with the arguments (and the text on its standard input), as a shell
// user would, and collects what it printed.
CliResult RunCli(const std::vector<std::string>& arguments, const std::string& input = "");

// Whether a host C compiler (gcc) is on PATH.
bool HostCompilerPresent();

// Compiles one generated C file against the generated headers beside it, as a user of the
// chip's own compiler would before building: syntax only, every warning an error. Returns
// the compiler's messages, empty when it passed.
std::string CompileErrors(const std::string& folder, const std::string& file);

// A copy of the bundled sample data (Tessara.ini and IO Files) in a fresh folder.
std::string CopySampleHome(const std::string& folder);

}  // namespace tessara

#endif  // TESSARA_TESTS_CLI_RUNNER_H_
