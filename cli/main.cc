// tessara-cli: the headless face of Tessara, for build pipelines and tests.

#include <CLI/CLI.hpp>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "cli_host.h"
#include "core/application.h"
#include "core/text.h"
#include "script_runner.h"

namespace tessara {
namespace {

constexpr int kStatusBadUsage = 2;
constexpr int kStatusFileError = 4;

std::vector<std::string> SplitAtSemicolons(const std::string& text) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  while (true) {
    std::size_t end = text.find(';', start);
    fields.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return fields;
}

int StartOrFail(Application& application) {
  return application.StartUp() == Application::StartResult::kRunning ? 0 : 1;
}

int Catalogue(Application& application) {
  if (int status = StartOrFail(application)) return status;
  for (int slot = 1; slot <= application.DataFileCount(); ++slot) {
    const DatabaseEntry& entry = application.database().Entry(slot);
    for (int j = 1; j <= kMaxParts && !entry.Part[static_cast<std::size_t>(j)].empty(); ++j) {
      std::vector<std::string> fields = SplitAtSemicolons(entry.Part[static_cast<std::size_t>(j)]);
      fields.resize(4);
      std::printf("%s\t%s\t%s\t%s\t%s\t%s\n", entry.Series.c_str(), entry.Group.c_str(),
                  fields[0].c_str(), fields[1].c_str(), fields[2].c_str(), fields[3].c_str());
    }
  }
  return 0;
}

int Checksums(Application& application, bool write) {
  int end = application.VerifyDataFiles(write ? Application::VerifyMode::kWrite
                                              : Application::VerifyMode::kComputeOnly);
  if (end == 1) {
    application.host().MessageBox(kNoDatabaseMessage);
    return 1;
  }
  for (int slot = 1; slot < end; ++slot) {
    std::printf("%s\tH'%04X\n", application.DataFileName[static_cast<std::size_t>(slot)].c_str(),
                application.DataFileChecksum[static_cast<std::size_t>(slot)]);
  }
  return 0;
}

// Runs commands one after the other as a script would, ending at the first that ends
// the run.
int RunCommands(ScriptRunner& runner, const std::vector<std::vector<std::string>>& commands) {
  for (const std::vector<std::string>& words : commands) {
    ScriptRunner::Outcome outcome = runner.Execute(words);
    if (!outcome.failure.empty()) {
      std::fflush(stdout);
      std::fprintf(stderr, "%s\n", outcome.failure.c_str());
      return kStatusBadUsage;
    }
    if (outcome.status != 0) return outcome.status;
  }
  std::fflush(stdout);
  return runner.FinalStatus();
}

int LoadAndRun(Application& application, CliHost& host, const std::string& project,
               std::vector<std::string> lastCommand) {
  if (!FileExists(project)) {
    host.MessageBox("Unable to open file: \n" + project);
    return kStatusFileError;
  }
  if (int status = StartOrFail(application)) return status;
  ScriptRunner runner(application, host);
  return RunCommands(runner, {{"load", project}, {"next"}, std::move(lastCommand)});
}

int RunScript(Application& application, const std::string& scriptPath) {
  std::ifstream file;
  if (scriptPath != "-") {
    file.open(scriptPath);
    if (!file) {
      std::fprintf(stderr, "Unable to open script: %s\n", scriptPath.c_str());
      return kStatusFileError;
    }
  }
  if (int status = StartOrFail(application)) return status;
  ScriptRunner runner(application, static_cast<CliHost&>(application.host()));
  int status = runner.Run(scriptPath == "-" ? std::cin : file);
  std::fflush(stdout);
  return status;
}

int Main(int argc, char** argv) {
  CLI::App app{"tessara-cli: configure a microcontroller and generate its C start-up code "
               "without a display.",
               "tessara-cli"};
  app.set_version_flag("--version", TESSARA_VERSION_TEXT);
  app.require_subcommand(1);
  std::string home;
  app.add_option("--home", home, "Folder that stands in for the program folder (holds Tessara.ini and IO Files)");

  CLI::App* catalogue = app.add_subcommand("catalogue", "List every part of every listed data file");
  CLI::App* checksums = app.add_subcommand("checksums", "Compute the sum of every listed data file");
  bool write = false;
  checksums->add_flag("--write", write, "Store the sums in Tessara.ini");
  CLI::App* run = app.add_subcommand("run", "Run a script of page actions (from a file, or - for standard input)");
  std::string script = "-";
  run->add_option("script", script, "Script file, or - for standard input");
  CLI::App* generate = app.add_subcommand("generate", "Load a project and generate its C files into a folder");
  std::string project, outFolder, outName = "Config.c";
  generate->add_option("project", project, "Project file (.tsr)")->required();
  generate->add_option("--out", outFolder, "Folder for the generated files")->required();
  generate->add_option("--name", outName, "Name of the C source file (default Config.c)");
  CLI::App* check = app.add_subcommand("check", "Load a project and print its error report");
  check->add_option("project", project, "Project file (.tsr)")->required();

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return kStatusBadUsage;
  }

  if (!home.empty()) SetModuleFolder(home);
  CliHost host;
  Application application(host);
  if (*catalogue) return Catalogue(application);
  if (*checksums) return Checksums(application, write);
  if (*run) return RunScript(application, script);
  if (*generate) return LoadAndRun(application, host, project, {"generate", outFolder, outName});
  if (*check) return LoadAndRun(application, host, project, {"errors"});
  return kStatusBadUsage;
}

}  // namespace
}  // namespace tessara

int main(int argc, char** argv) { return tessara::Main(argc, argv); }
