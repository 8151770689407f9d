#include "makers/win32/win32_clock.h"

#include <windows.h>

#include <array>

#include "makers/win32/wide_text.h"

namespace vrix {

std::string Win32Clock::now() {
    SYSTEMTIME time;
    GetLocalTime(&time);
    std::array<wchar_t, 128> date{};
    std::array<wchar_t, 128> timeOfDay{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, date.data(), static_cast<int>(date.size()));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, timeOfDay.data(), static_cast<int>(timeOfDay.size()));
    return narrow(date.data()) + " " + narrow(timeOfDay.data());
}

}  // namespace vrix
