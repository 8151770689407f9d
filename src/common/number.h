#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vrix {

// Converts text to a 16-bit number. Spaces around a decimal number are allowed; a fraction rounds to the nearest whole
// number, halves to even. Failure 6 beyond 16 bits, 13 for text that is no number.
std::int16_t toInt16(std::string_view text);

// Adds in 16 bits; failure 6 when the sum does not fit.
std::int16_t add16(std::int16_t value, int more);

// The number as a 16-bit count; failure 6 when it does not fit.
std::int16_t count16(std::size_t count);

// The number as a 16-bit count, or the largest such count. A loop that adds 1 and ignores the overflow stops there.
std::int16_t cappedCount16(std::size_t count);

// Half of a count, rounded to the nearest whole number, halves to even.
std::int16_t halved(std::int16_t count);

}  // namespace vrix
