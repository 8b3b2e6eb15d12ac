#ifndef TESSARA_PANELS_FRAMEWORK_BIT_OPERATION_H_
#define TESSARA_PANELS_FRAMEWORK_BIT_OPERATION_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara {

// A cell that changes single bits of a register value: one operator character and
// hexadecimal digits, as in "^01" or "|80". "^" toggles, "|" sets, any other character
// makes the digits the new value.
struct BitOperation {
  char op = '\0';
  std::uint32_t operand = 0;

  // Reads an operation from its text; an empty text gives an operation that sets 0.
  static BitOperation Parse(std::string_view text);
  // The value after the operation. With `toggleKeepsZero` a "^" on 0 leaves 0, so a
  // register is only toggled while it holds something.
  std::uint32_t Apply(std::uint32_t value, bool toggleKeepsZero = false) const;
  bool IsMerge() const { return op == '^' || op == '|'; }
};

// The value of a register row name=value, read as hexadecimal (0x1F, H'1F).
std::uint32_t RegisterRowValue(std::string_view row);
// A register row in the form it has after its first write: "%s=0x%02X".
std::string RegisterRowText(std::string_view name, std::uint32_t value);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_BIT_OPERATION_H_
