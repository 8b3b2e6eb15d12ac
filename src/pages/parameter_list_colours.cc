#include "pages/parameter_list_colours.h"

#include <climits>
#include <cstdlib>
#include <string>

#include "core/text.h"
#include "database/device_database.h"

namespace tessara {

namespace {

constexpr std::array<std::string_view, kListColourCount> kKeyNames = {
    "Foreground_NotFocus_Valid",  "Foreground_NotFocus_Invalid", "Foreground_Focus_Valid",
    "Foreground_Focus_Invalid",   "Background_NotFocus_Valid",   "Background_NotFocus_InValid",
    "Background_Focus_Valid",     "Background_Focus_InValid",
};

constexpr std::array<std::string_view, 3> kMarkerWords = {"NULL", "INVALID_MAX", "INVALID_MIN"};

// atoi as the colour lines were always read: leading blanks, a sign, digits; anything
// else ends the number. Out-of-range values are held at the int limits instead of
// overflowing.
int AtoiOf(std::string_view text) {
  std::string copy(text);
  long value = std::strtol(copy.c_str(), nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

}  // namespace

std::string_view ListColourKeyName(ListColourKey key) {
  return kKeyNames[static_cast<std::size_t>(key)];
}

ParameterListColours::ParameterListColours(ListColour selectedItemColour)
    : colours_{Rgb(0, 0, 0),       Rgb(255, 0, 0),       Rgb(255, 255, 255), Rgb(255, 255, 255),
               Rgb(255, 255, 255), Rgb(255, 255, 255), selectedItemColour, Rgb(255, 0, 0)} {}

void ParameterListColours::ReadColourLines(const DatabaseEntry& entry) {
  for (int i = 1; i <= kMaxColors; ++i) {
    const std::string& line = entry.Color[static_cast<std::size_t>(i)];
    if (line.empty()) continue;
    ApplyColourLine(line);
  }
}

void ParameterListColours::ApplyColourLine(std::string_view line) {
  std::size_t equals = line.find('=');
  std::string_view key = equals == std::string_view::npos ? std::string_view() : line.substr(0, equals);
  std::string_view value =
      equals == std::string_view::npos ? std::string_view() : line.substr(equals + 1);
  if (value == "Default") return;

  std::size_t firstComma = value.find(',');
  std::string_view red = value.substr(0, firstComma);
  std::string_view green;
  std::string_view blue;
  if (firstComma != std::string_view::npos) {
    std::string_view rest = value.substr(firstComma + 1);
    std::size_t secondComma = rest.find(',');
    green = rest.substr(0, secondComma);
    if (secondComma != std::string_view::npos) blue = rest.substr(secondComma + 1);
  }
  ListColour colour = Rgb(AtoiOf(red), AtoiOf(green), AtoiOf(blue));
  for (std::size_t k = 0; k < kKeyNames.size(); ++k) {
    if (key == kKeyNames[k]) colours_[k] = colour;
  }
}

bool IsInvalidRowText(std::string_view rowText) {
  for (std::string_view word : kMarkerWords) {
    if (rowText.find(word) != std::string_view::npos) return true;
  }
  return false;
}

CellColours ParameterListColours::ForRow(std::string_view rowText,
                                         std::string_view highlightRow) const {
  const bool invalid = IsInvalidRowText(rowText);
  const bool highlighted = EqualsNoCase(rowText, highlightRow);
  using K = ListColourKey;
  if (invalid) {
    return highlighted ? CellColours{Colour(K::kForegroundFocusInvalid), Colour(K::kBackgroundFocusInvalid)}
                       : CellColours{Colour(K::kForegroundNotFocusInvalid),
                                     Colour(K::kBackgroundNotFocusInvalid)};
  }
  return highlighted ? CellColours{Colour(K::kForegroundFocusValid), Colour(K::kBackgroundFocusValid)}
                     : CellColours{Colour(K::kForegroundNotFocusValid), Colour(K::kBackgroundNotFocusValid)};
}

}  // namespace tessara
