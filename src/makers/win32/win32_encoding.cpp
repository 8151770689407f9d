#include "makers/win32/win32_encoding.h"

#include <windows.h>

#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

class Win32Encoding final : public Encoding {
public:
    explicit Win32Encoding(UINT codePage) : codePage_(codePage) {}

    std::string decode(std::string_view bytes) const override { return wideToUtf8(wide(bytes, codePage_)); }
    std::string encode(std::string_view utf8) const override { return narrow(utf8ToWide(utf8), codePage_); }

private:
    UINT codePage_;
};

}  // namespace

std::unique_ptr<Encoding> win32Encoding(unsigned codePage) {
    return IsValidCodePage(codePage) != FALSE ? std::make_unique<Win32Encoding>(codePage) : nullptr;
}

}  // namespace vrix
