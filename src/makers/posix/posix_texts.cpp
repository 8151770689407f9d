#include "makers/posix/posix_texts.h"

#include <clocale>
#include <cwctype>

#include "common/code_page.h"
#include "common/utf8.h"
#include "makers/posix/iconv_encoding.h"

namespace vrix {

namespace {

// Without that locale letters are not folded.
char32_t smallLetter(char32_t letter) {
    static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (letters == nullptr) return letter;
    return static_cast<char32_t>(towlower_l(static_cast<std::wint_t>(letter), letters));
}

}  // namespace

void useSystemTexts() {
    constexpr unsigned utf8 = 65001;
    static const auto encoding = iconvEncoding(utf8);
    useCodePage(utf8, *encoding);
    useLetterFolder(&smallLetter);
}

}  // namespace vrix
