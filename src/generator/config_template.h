#ifndef TESSARA_GENERATOR_CONFIG_TEMPLATE_H_
#define TESSARA_GENERATOR_CONFIG_TEMPLATE_H_

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// The line that opens and closes the name lines of a block heading.
inline constexpr std::string_view kStarLine = "//**************************************";
// The template lines behind which the clock set-up goes, by family.
inline constexpr std::string_view kKbClockMarker = "set_imask_ccr(1);                        //Disable interrupts";
inline constexpr std::string_view kClockMarker = "prc0=1;                                  //Protect off";
inline constexpr std::string_view kInitFunction = "void init(void)";
inline constexpr int kPeripheralSlots = 41;

// Every occurrence of `from` (case counts) replaced by `to`.
std::string ReplaceAll(std::string text, std::string_view from, std::string_view to);

// Inserts the clock text behind the family's marker line. A template without the marker
// gets it at the marker's length minus one, counted from the start.
void InsertClockText(std::string& templateText, const std::string& clockText, bool kbFamily);

// Inserts the peripheral set-up behind the first "{" that follows "void init(void)".
void InsertInitBody(std::string& templateText, const std::string& initBody);

// Puts the slots' blocks in the order of the peripheral list: each list item takes the
// first slot whose first heading names it, and empties that slot.
std::string OrderBlocks(std::array<std::string, kPeripheralSlots>& slots,
                        const std::vector<std::string>& listItems);

}  // namespace tessara

#endif  // TESSARA_GENERATOR_CONFIG_TEMPLATE_H_
