#ifndef TESSARA_CLI_SCRIPT_H_
#define TESSARA_CLI_SCRIPT_H_

#include <string>
#include <vector>

namespace tessara {

// One script line cut into its words: blanks separate, double quotes keep blanks in a
// word. Returns false (with a reason) for an unclosed quote.
bool SplitScriptLine(const std::string& line, std::vector<std::string>& words, std::string& reason);

// A line that holds nothing to run: blank, or a comment starting with "#".
bool IsIgnoredScriptLine(const std::string& line);

}  // namespace tessara

#endif  // TESSARA_CLI_SCRIPT_H_
