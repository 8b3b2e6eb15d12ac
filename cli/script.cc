#include "script.h"

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

}  // namespace tessara
