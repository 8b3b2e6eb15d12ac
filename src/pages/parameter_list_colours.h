#ifndef TESSARA_PAGES_PARAMETER_LIST_COLOURS_H_
#define TESSARA_PAGES_PARAMETER_LIST_COLOURS_H_

#include <array>
#include <cstdint>
#include <string_view>

namespace tessara {

struct DatabaseEntry;

// A colour as the list paints it: red in the low byte, then green, then blue.
using ListColour = std::uint32_t;
constexpr ListColour Rgb(int red, int green, int blue) {
  return static_cast<ListColour>(red & 0xFF) | (static_cast<ListColour>(green & 0xFF) << 8) |
         (static_cast<ListColour>(blue & 0xFF) << 16);
}

// The host's colour for selected items, for a front-end that cannot ask its toolkit.
inline constexpr ListColour kDefaultSelectedItemColour = Rgb(0, 120, 215);
// Column backgrounds are always filled in white; this colour has no key.
inline constexpr ListColour kColumnBackground = Rgb(255, 255, 255);

// The eight colours of the ParameterList, in the order of their keys. A data file
// restyles the list with `Color_%d` lines of the form key=red,green,blue.
enum class ListColourKey {
  kForegroundNotFocusValid,
  kForegroundNotFocusInvalid,
  kForegroundFocusValid,
  kForegroundFocusInvalid,
  kBackgroundNotFocusValid,
  kBackgroundNotFocusInvalid,
  kBackgroundFocusValid,
  kBackgroundFocusInvalid,
};
inline constexpr int kListColourCount = 8;

// The key of a colour as a `Color_%d` line spells it. The background keys write
// "InValid" with a capital V, the foreground keys "Invalid": lines are matched with
// regard to case, so a data file must follow that spelling.
std::string_view ListColourKeyName(ListColourKey key);

// What one cell is painted with.
struct CellColours {
  ListColour text;
  ListColour background;
};

class ParameterListColours {
 public:
  // The defaults, with the host's colour for selected items as the focus background.
  explicit ParameterListColours(ListColour selectedItemColour = kDefaultSelectedItemColour);

  // Reads the `Color_%d` slots 1 to 9 of the entry; an empty slot is skipped and the
  // slots behind it are still read. A value of exactly "Default" keeps the default,
  // an unknown key is ignored.
  void ReadColourLines(const DatabaseEntry& entry);
  // One `Color_%d` value: key=red,green,blue.
  void ApplyColourLine(std::string_view line);

  ListColour Colour(ListColourKey key) const { return colours_[static_cast<std::size_t>(key)]; }

  // The colours of a cell of the row whose column-0 text is `rowText`. Both columns
  // decide by that text; `highlightRow` is the text of the row in focus.
  CellColours ForRow(std::string_view rowText, std::string_view highlightRow) const;

 private:
  std::array<ListColour, kListColourCount> colours_;
};

// A row whose text holds a marker word anywhere, name included, with regard to case.
bool IsInvalidRowText(std::string_view rowText);

}  // namespace tessara

#endif  // TESSARA_PAGES_PARAMETER_LIST_COLOURS_H_
