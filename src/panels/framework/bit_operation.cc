#include "panels/framework/bit_operation.h"

#include "core/text.h"

namespace tessara {

BitOperation BitOperation::Parse(std::string_view text) {
  BitOperation operation;
  if (text.empty()) return operation;
  operation.op = text.front();
  operation.operand = ParseNumber(text.substr(1), 16);
  return operation;
}

std::uint32_t BitOperation::Apply(std::uint32_t value, bool toggleKeepsZero) const {
  switch (op) {
    case '^': return toggleKeepsZero && value == 0 ? 0 : value ^ operand;
    case '|': return value | operand;
    default: return operand;
  }
}

std::uint32_t RegisterRowValue(std::string_view row) {
  std::size_t equals = row.find('=');
  if (equals == std::string_view::npos) return 0;
  return ParseNumber(row.substr(equals + 1), 16);
}

std::string RegisterRowText(std::string_view name, std::uint32_t value) {
  return FormatC("%s=0x%02X", std::string(name).c_str(), static_cast<unsigned>(value));
}

}  // namespace tessara
