#ifndef TESSARA_TESTS_SCRIPTED_HOST_H_
#define TESSARA_TESTS_SCRIPTED_HOST_H_

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "recording_host.h"

namespace tessara {

// A recording host whose questions take the answers a test queued: the file dialogs
// return the next path (an empty queue cancels), the reset warning the next answer,
// and the "Generate" dialog runs what the test put in `generateDialog`.
class ScriptedHost : public RecordingHost {
 public:
  struct FileQuestion {
    std::string title;
    std::string filter;
    std::string initial;
  };

  std::string AskOpenFile(const std::string& title, const std::string& filter,
                          const std::string& initialFolder) override {
    asked.push_back({title, filter, initialFolder});
    return Next(openAnswers);
  }
  std::string AskSaveFile(const std::string& title, const std::string& filter,
                          const std::string& initialPath) override {
    asked.push_back({title, filter, initialPath});
    return Next(saveAnswers);
  }
  ResetWarningAnswer AskResetWarning(const std::string& text) override {
    warnings.push_back(text);
    if (resetAnswers.empty()) return {};
    ResetWarningAnswer answer = resetAnswers.front();
    resetAnswers.pop_front();
    return answer;
  }
  bool RunGenerateDialog(GenerateDialogModel& dialog, OutputState& output) override {
    ++generateDialogs;
    return generateDialog ? generateDialog(dialog, output) : false;
  }

  std::deque<std::string> openAnswers;
  std::deque<std::string> saveAnswers;
  std::deque<ResetWarningAnswer> resetAnswers;
  std::function<bool(GenerateDialogModel&, OutputState&)> generateDialog;
  std::vector<FileQuestion> asked;
  std::vector<std::string> warnings;
  int generateDialogs = 0;

 private:
  static std::string Next(std::deque<std::string>& answers) {
    if (answers.empty()) return "";
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace tessara

#endif  // TESSARA_TESTS_SCRIPTED_HOST_H_
