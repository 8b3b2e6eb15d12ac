#ifndef TESSARA_PANELS_FRAMEWORK_NUMERIC_ENTRY_H_
#define TESSARA_PANELS_FRAMEWORK_NUMERIC_ENTRY_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara {

// The values a parameter row takes when its field holds a bad text.
inline constexpr std::string_view kMarkerNull = "NULL";
inline constexpr std::string_view kMarkerInvalidMin = "INVALID_MIN";
inline constexpr std::string_view kMarkerInvalidMax = "INVALID_MAX";

// A field text of this length or longer is ignored and the row stays as it was.
inline constexpr std::size_t kMaxFieldTextLength = 20;

enum class Marker { kNone, kNull, kInvalidMin, kInvalidMax };
std::string_view MarkerText(Marker marker);

// How a field's text becomes a value.
enum class FieldClass {
  kNone,            // the panel evaluates the field itself
  kDecimalInteger,  // digits only; tested below, above, then malformed
  kHexadecimal,     // hex digits; malformed first, then below, above
  kCountMinusOne,   // digits only; the value less one is tested and written
  kPercentage,      // digits and at most one point; the panel writes the rows
};

// The outcome of testing one trimmed field text against the limits of its row.
struct FieldCheck {
  Marker marker = Marker::kNone;
  double value = 0.0;  // the value the row is built from when there is no marker
};

FieldCheck CheckDecimalInteger(std::string_view text, std::uint32_t lowest, std::uint32_t highest);
FieldCheck CheckHexadecimal(std::string_view text, std::uint32_t lowest, std::uint32_t highest);
FieldCheck CheckCountMinusOne(std::string_view text, std::uint32_t lowest, std::uint32_t highest);
FieldCheck CheckPercentage(std::string_view text, std::uint32_t lowest, std::uint32_t highest);

// Well-formedness of texts that allow a point: digits and at most one ".". One point
// is taken out before the digits are tested, so "1.5.2" is malformed.
bool IsDecimalWithOnePoint(std::string_view text);
bool IsDigitsOnly(std::string_view text);
bool IsHexDigitsOnly(std::string_view text);

// Blanks at both ends of a field text are not a fault.
std::string TrimBlanks(std::string_view text);

// The joiners of a range behind a comment.
inline constexpr std::string_view kBothIncluded = " <= Value <= ";
inline constexpr std::string_view kUpperExcluded = " <= Value < ";
inline constexpr std::string_view kUpperComputed = " <= Value < (";
inline constexpr std::string_view kLowerExcluded = " < Value <= ";

// comment, ", ", the bounds in the form "%.3f" with the joiner between them; the
// computed upper bound is closed by ")".
std::string RangeComment(std::string_view comment, double lowest, std::string_view joiner,
                         double highest);

// C's atof over a field or row text, whatever locale the front-end set.
double ReadReal(std::string_view text);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_NUMERIC_ENTRY_H_
