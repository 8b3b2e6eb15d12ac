// Loads an arbitrary project file on the bundled sample data and goes on to the
// peripheral page, where every panel the file names restores itself from its line;
// then saves it and loads the saved file again, twice. The input is the file behind its
// checksum line, which is written to match, so that the text gets past the check.
#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "fuzz_support.h"
#include "pages/page_flow.h"
#include "recording_host.h"

namespace {

using namespace tessara;

// The text a load reads behind the checksum line: CR LF as LF, a last line closed.
std::string LoadedText(const std::string& body) {
  std::string text;
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (body[i] == '\r' && i + 1 < body.size() && body[i + 1] == '\n') continue;
    text.push_back(body[i]);
  }
  if (!text.empty() && text.back() != '\n') text.push_back('\n');
  return text;
}

// The application started once on the sample data, given back for each run in the
// state a fresh start leaves: the selection and the family flags of the first group.
// The group tables it has read stay, as they would be read alike.
Application& StartedApplication() {
  static RecordingHost host;
  static Application application(host);
  static const bool started = application.StartUp() == Application::StartResult::kRunning;
  static const FamilyFlags flags = application.Flags;
  FUZZ_CHECK(started);
  application.SelectedFile = application.SelectedSeries = application.SelectedGroup = application.SelectedPart = 1;
  application.Flags = flags;
  host.messages.clear();
  return application;
}

// Loads the file and opens the peripheral page; returns the project text a save would
// write then.
std::string LoadAndNext(const std::string& path) {
  Application& application = StartedApplication();
  PageFlow flow(application);
  flow.Start();
  PageFlow::LoadResult result = flow.LoadFile(path);
  FUZZ_CHECK(result != PageFlow::LoadResult::kUnreadable);
  FUZZ_CHECK(result != PageFlow::LoadResult::kChecksumFailed);
  flow.Next();
  return flow.ProjectText();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string body(reinterpret_cast<const char*>(data), size);
  SetModuleFolder(TESSARA_SOURCE_DIR "/data");
  TempFolder& folder = ScratchFolder();
  const std::string path = folder.Write("project.tsr", ProjectChecksumLine(LoadedText(body)) + "\n" + body);
  const std::string saved = LoadAndNext(path);

  // A saved project settles after one round: the save of its load loads back to
  // itself. (The first save need not: a file may hold what no panel shows, such as an
  // A/D clock option that the conversion mode rules out, and lack lines that a save
  // writes, such as the selection line. The load keeps the option, the save writes it
  // with the lines the file lacked, and the next load settles it. See the seed
  // "finding_contradicting_options".)
  const std::string settled = LoadAndNext(folder.Write("saved.tsr", saved));
  FUZZ_CHECK(LoadAndNext(folder.Write("settled.tsr", settled)) == settled);
  return 0;
}
