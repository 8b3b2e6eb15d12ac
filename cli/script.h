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

// The position an argument P names in a list: digits only are a position from 0;
// "=TEXT" names the item whose text is TEXT (for items made of digits); any other
// argument is an item text, matched whole without regard to case. Returns -1 with a
// reason when the list holds no such position or item; `listName` names the list in it.
int ResolveItemArgument(const std::string& argument, const std::vector<std::string>& items,
                        const std::string& listName, std::string& reason);

// A whole number of digits only, or -1.
int ParseScriptNumber(const std::string& argument);

}  // namespace tessara

#endif  // TESSARA_CLI_SCRIPT_H_
