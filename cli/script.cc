#include "script.h"

#include "core/text.h"

namespace tessara {

bool IsIgnoredScriptLine(const std::string& line) {
  std::size_t first = line.find_first_not_of(" \t\r");
  return first == std::string::npos || line[first] == '#';
}

bool SplitScriptLine(const std::string& line, std::vector<std::string>& words, std::string& reason) {
  words.clear();
  std::string word;
  bool inWord = false;
  bool quoted = false;
  for (char c : line) {
    if (quoted) {
      if (c == '"') {
        quoted = false;
      } else {
        word.push_back(c);
      }
    } else if (c == '"') {
      quoted = true;
      inWord = true;
    } else if (c == ' ' || c == '\t' || c == '\r') {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word.push_back(c);
      inWord = true;
    }
  }
  if (quoted) {
    reason = "unclosed quote";
    return false;
  }
  if (inWord) words.push_back(word);
  return true;
}

int ParseScriptNumber(const std::string& argument) {
  if (argument.empty() || argument.size() > 9 ||
      argument.find_first_not_of("0123456789") != std::string::npos) {
    return -1;
  }
  return std::stoi(argument);
}

int ResolveItemArgument(const std::string& argument, const std::vector<std::string>& items,
                        const std::string& listName, std::string& reason) {
  const bool digitsOnly = !argument.empty() && argument.find_first_not_of("0123456789") == std::string::npos;
  if (digitsOnly) {
    int position = ParseScriptNumber(argument);
    if (position >= 0 && position < static_cast<int>(items.size())) return position;
    reason = "position " + argument + " is outside " + listName + " (" +
             std::to_string(items.size()) + " items)";
    return -1;
  }
  std::string text = argument.size() > 1 && argument[0] == '=' ? argument.substr(1) : argument;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (EqualsNoCase(items[i], text)) return static_cast<int>(i);
  }
  reason = "no item \"" + text + "\" in " + listName;
  return -1;
}

}  // namespace tessara
