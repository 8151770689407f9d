#include "common/number.h"

#include <algorithm>
#include <limits>

#include "common/runtime_failure.h"

namespace vrix {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// A parsed decimal number: its sign, and its digits before and behind the point.
struct Decimal {
    bool negative = false;
    std::string_view whole;
    std::string_view fraction;
};

Decimal parseDecimal(std::string_view text) {
    Decimal number;
    text = trimmed(text);
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        number.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const auto point = text.find('.');
    number.whole = text.substr(0, point);
    if (point != std::string_view::npos) number.fraction = text.substr(point + 1);
    const auto digits = [](std::string_view part) { return std::all_of(part.begin(), part.end(), isDigit); };
    const bool none = number.whole.empty() && number.fraction.empty();
    if (none || !digits(number.whole) || !digits(number.fraction)) {
        throw RuntimeFailure(FailureNumber::typeMismatch);
    }
    return number;
}

// Whether a fraction rounds up: above one half, or exactly one half behind an odd number.
bool roundsUp(std::string_view fraction, bool odd) {
    if (fraction.empty() || fraction.front() < '5') return false;
    const bool half = fraction.front() == '5' && fraction.find_first_not_of('0', 1) == std::string_view::npos;
    return !half || odd;
}

}  // namespace

std::int16_t toInt16(std::string_view text) {
    const Decimal number = parseDecimal(text);
    constexpr int tooLarge = 100'000;
    int value = 0;
    for (const char digit : number.whole) value = std::min(value * 10 + (digit - '0'), tooLarge);
    if (roundsUp(number.fraction, value % 2 != 0)) ++value;
    return add16(0, number.negative ? -value : value);
}

std::int16_t add16(std::int16_t value, int more) {
    const int sum = value + more;
    using Limits = std::numeric_limits<std::int16_t>;
    if (sum < Limits::min() || sum > Limits::max()) throw RuntimeFailure(FailureNumber::overflow);
    return static_cast<std::int16_t>(sum);
}

std::int16_t count16(std::size_t count) {
    constexpr std::size_t tooLarge = 100'000;
    return add16(0, static_cast<int>(std::min(count, tooLarge)));
}

std::int16_t cappedCount16(std::size_t count) {
    constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(count, most));
}

std::int16_t halved(std::int16_t count) {
    const int whole = count / 2;
    const int odd = count % 2;  // -1, 0 or 1
    return static_cast<std::int16_t>(odd != 0 && whole % 2 != 0 ? whole + odd : whole);
}

}  // namespace vrix
