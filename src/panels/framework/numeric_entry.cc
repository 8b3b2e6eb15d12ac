#include "panels/framework/numeric_entry.h"

#include <cctype>

#include "core/text.h"

namespace tessara {

std::string_view MarkerText(Marker marker) {
  switch (marker) {
    case Marker::kNull: return kMarkerNull;
    case Marker::kInvalidMin: return kMarkerInvalidMin;
    case Marker::kInvalidMax: return kMarkerInvalidMax;
    case Marker::kNone: break;
  }
  return "";
}

bool IsDigitsOnly(std::string_view text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

bool IsHexDigitsOnly(std::string_view text) {
  if (text.empty()) return false;
  for (char c : text) {
    if (!std::isxdigit(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

bool IsDecimalWithOnePoint(std::string_view text) {
  if (text.empty()) return false;
  std::string withoutPoint(text);
  std::size_t point = withoutPoint.find('.');
  if (point != std::string::npos) withoutPoint.erase(point, 1);
  for (char c : withoutPoint) {
    if (c < '0' || c > '9') return false;
  }
  return true;
}

std::string TrimBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return std::string(text);
}

double ReadReal(std::string_view text) { return ParseReal(text); }

FieldCheck CheckDecimalInteger(std::string_view text, std::uint32_t lowest, std::uint32_t highest) {
  std::uint32_t value = ParseNumber(text, 10);
  FieldCheck check{Marker::kNone, static_cast<double>(value)};
  if (value < lowest) {
    check.marker = Marker::kInvalidMin;
  } else if (value > highest) {
    check.marker = Marker::kInvalidMax;
  } else if (!IsDigitsOnly(text)) {
    check.marker = Marker::kNull;
  }
  return check;
}

FieldCheck CheckHexadecimal(std::string_view text, std::uint32_t lowest, std::uint32_t highest) {
  if (!IsHexDigitsOnly(text)) return FieldCheck{Marker::kNull, 0.0};
  std::uint32_t value = ParseNumber(text, 16);
  FieldCheck check{Marker::kNone, static_cast<double>(value)};
  if (value < lowest) {
    check.marker = Marker::kInvalidMin;
  } else if (value > highest) {
    check.marker = Marker::kInvalidMax;
  }
  return check;
}

FieldCheck CheckCountMinusOne(std::string_view text, std::uint32_t lowest, std::uint32_t highest) {
  if (!IsDigitsOnly(text)) return FieldCheck{Marker::kNull, 0.0};
  double value = ReadReal(text) - 1.0;
  FieldCheck check{Marker::kNone, value};
  if (value < static_cast<double>(lowest)) {
    check.marker = Marker::kInvalidMin;
  } else if (value > static_cast<double>(highest)) {
    check.marker = Marker::kInvalidMax;
  }
  return check;
}

FieldCheck CheckPercentage(std::string_view text, std::uint32_t lowest, std::uint32_t highest) {
  if (!IsDecimalWithOnePoint(text)) return FieldCheck{Marker::kNull, 0.0};
  double value = ReadReal(text);
  FieldCheck check{Marker::kNone, value};
  if (value < static_cast<double>(lowest)) {
    check.marker = Marker::kInvalidMin;
  } else if (value > static_cast<double>(highest)) {
    check.marker = Marker::kInvalidMax;
  }
  return check;
}

std::string RangeComment(std::string_view comment, double lowest, std::string_view joiner,
                         double highest) {
  std::string text(comment);
  text += ", ";
  text += FormatC("%.3f", lowest);
  text += joiner;
  text += FormatC("%.3f", highest);
  if (joiner == kUpperComputed) text += ")";
  return text;
}

}  // namespace tessara
