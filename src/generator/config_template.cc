#include "generator/config_template.h"

#include "core/text.h"

namespace tessara {

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
  if (from.empty()) return text;
  std::size_t at = 0;
  while ((at = text.find(from, at)) != std::string::npos) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
  return text;
}

void InsertClockText(std::string& templateText, const std::string& clockText, bool kbFamily) {
  std::string_view marker = kbFamily ? kKbClockMarker : kClockMarker;
  std::size_t found = templateText.find(marker);
  // A missing marker counts as found at -1, as the search reports it.
  long long at = found == std::string::npos ? -1 : static_cast<long long>(found);
  long long position = at + static_cast<long long>(marker.size());
  std::size_t clamped = std::min(static_cast<std::size_t>(position), templateText.size());
  templateText.insert(clamped, clockText);
}

void InsertInitBody(std::string& templateText, const std::string& initBody) {
  std::size_t function = templateText.find(kInitFunction);
  std::size_t brace = templateText.find('{', function == std::string::npos ? 0 : function);
  std::size_t position = brace == std::string::npos ? 0 : brace + 1;
  templateText.insert(position, initBody);
}

std::string OrderBlocks(std::array<std::string, kPeripheralSlots>& slots,
                        const std::vector<std::string>& listItems) {
  std::string body;
  for (const std::string& item : listItems) {
    std::string name = item;
    if (name.find("Port ") != std::string::npos || name.find("INT ") != std::string::npos) {
      name = RemoveBlanks(name);
    }
    for (std::string& slot : slots) {
      std::size_t p = slot.find(kStarLine);
      if (p == std::string::npos) continue;
      std::size_t q = slot.find(kStarLine, p + kStarLine.size());
      if (q == std::string::npos) continue;
      if (FindNoCase(std::string_view(slot).substr(0, q), name) != std::string_view::npos) {
        body += slot;
        slot.clear();
        break;
      }
    }
  }
  return body;
}

}  // namespace tessara
