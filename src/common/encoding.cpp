#include "common/encoding.h"

#include <algorithm>
#include <array>

#include "common/utf8.h"

namespace vrix {

namespace {

// The characters of the bytes from 80 to 9F.
constexpr std::array<char32_t, 32> high{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                        0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

class WesternEncoding final : public Encoding {
public:
    std::string decode(std::string_view bytes) const override {
        std::string text;
        text.reserve(bytes.size());
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            append(text, byte >= 0x80 && byte < 0xA0 ? high.at(byte - 0x80u) : byte);
        }
        return text;
    }
    std::string encode(std::string_view utf8) const override {
        std::string bytes;
        bytes.reserve(utf8.size());
        for (std::size_t at = 0; at < utf8.size();) {
            const auto [number, size] = codePointAt(utf8, at);
            const auto* const place = std::find(high.begin(), high.end(), number);
            if (place != high.end()) {
                bytes += static_cast<char>(0x80 + (place - high.begin()));
            } else {
                bytes += number < 0x80 || (number >= 0xA0 && number < 0x100) ? static_cast<char>(number) : '?';
            }
            at += size;
        }
        return bytes;
    }
};

}  // namespace

const Encoding& westernEncoding() {
    static const WesternEncoding encoding;
    return encoding;
}

}  // namespace vrix
