#include "makers/win32/win32_encoding.h"

#include <windows.h>

namespace vrix {

namespace {

std::optional<std::wstring> widened(UINT codePage, std::string_view text) {
    const int length = static_cast<int>(text.size());
    if (length == 0) return std::wstring();
    std::wstring wide(text.size(), L'\0');  // no character takes more units than bytes
    const int units = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), length);
    if (units <= 0) return std::nullopt;
    wide.resize(static_cast<std::size_t>(units));
    return wide;
}

std::optional<std::string> narrowed(UINT codePage, const std::wstring& wide) {
    if (wide.empty()) return std::string();
    const bool isUtf8 = codePage == CP_UTF8;
    BOOL replaced = FALSE;
    std::string text(4 * wide.size(), '\0');
    const int size = WideCharToMultiByte(codePage, isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, wide.data(),
                                         static_cast<int>(wide.size()), text.data(), static_cast<int>(text.size()),
                                         nullptr, isUtf8 ? nullptr : &replaced);
    if (size <= 0 || replaced != FALSE) return std::nullopt;
    text.resize(static_cast<std::size_t>(size));
    return text;
}

class Win32Encoding final : public Encoding {
public:
    explicit Win32Encoding(UINT codePage) : codePage_(codePage) {}

    std::optional<std::string> toUtf8(std::string_view text) const override {
        const auto wide = widened(codePage_, text);
        return wide ? narrowed(CP_UTF8, *wide) : std::nullopt;
    }
    std::optional<std::string> fromUtf8(std::string_view text) const override {
        const auto wide = widened(CP_UTF8, text);
        return wide ? narrowed(codePage_, *wide) : std::nullopt;
    }

private:
    UINT codePage_;
};

}  // namespace

std::unique_ptr<Encoding> win32Encoding(unsigned codePage) {
    if (IsValidCodePage(codePage) == FALSE) return nullptr;
    return std::make_unique<Win32Encoding>(codePage);
}

}  // namespace vrix
