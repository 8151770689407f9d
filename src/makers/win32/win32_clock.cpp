#include "makers/win32/win32_clock.h"

#include <windows.h>

#include <array>

namespace vrix {

std::string Win32Clock::now() {
    SYSTEMTIME time;
    GetLocalTime(&time);
    std::array<char, 128> date{};
    std::array<char, 128> timeOfDay{};
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date.data(), static_cast<int>(date.size()));
    GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &time, nullptr, timeOfDay.data(), static_cast<int>(timeOfDay.size()));
    return std::string(date.data()) + " " + timeOfDay.data();
}

}  // namespace vrix
