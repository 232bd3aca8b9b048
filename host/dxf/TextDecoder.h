#pragma once

#include "dxf/CodePage.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace host_dxf {

/// Turns text values of one drawing into wide text: the bytes by the drawing's encoding, then the
/// escapes of the format (\U+hhhh, \M+nhhhh, ^J). Any thread may decode at any time.
class TextDecoder {
public:
    /// `dwgCodePage` is the value of $DWGCODEPAGE, empty when the drawing has none; `utf8` says
    /// that the drawing's version stores UTF-8 whatever its code page is.
    TextDecoder(std::string_view dwgCodePage, bool utf8);

    /// The text that `bytes` stands for. What is no valid character gives U+FFFD; a zero byte too,
    /// so that the result never hides text behind a terminator. Linear.
    std::wstring decode(std::string_view bytes) const;
    /// The bytes stand for themselves, one for each character, whatever the encoding.
    static bool isPlain(std::string_view bytes);

    bool isUtf8() const { return utf8_; }
    /// The drawing's code page; nullptr when its texts are UTF-8.
    const CodePage* page() const { return page_ ? &*page_ : nullptr; }

private:
    struct LazyPage {
        std::once_flag built;
        std::unique_ptr<const CodePage> page;
    };

    std::wstring decodeBytes(std::string_view bytes) const;
    std::wstring decodeEscapes(const std::wstring& text) const;
    std::size_t decodeEscapeAt(std::wstring_view rest, std::wstring& decoded) const;
    std::size_t decodeUnicodeAt(std::wstring_view rest, std::wstring& decoded) const;
    std::size_t decodeMultibyteAt(std::wstring_view rest, std::wstring& decoded) const;
    const CodePage* multibytePage(wchar_t digit) const;

    bool utf8_;
    std::optional<CodePage> page_;
    /// The pages that \M+1 to \M+5 name: few drawings use them, so they are built when first met.
    mutable std::array<LazyPage, 5> multibytePages_;
};

} // namespace host_dxf
