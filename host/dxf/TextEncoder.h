#pragma once

#include "dxf/TextDecoder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host_dxf {

/// Turns wide text into the text values of one drawing, so that its TextDecoder reads the same text
/// again: in the drawing's encoding, with \U+hhhh for characters that the code page lacks and ^J
/// for control characters.
class TextEncoder {
public:
    /// For the encoding of `decoder`. A code page costs a table of 128 KiB.
    explicit TextEncoder(const TextDecoder& decoder);

    /// Linear. Half a surrogate pair alone stands for no character and becomes U+FFFD.
    std::string encode(std::wstring_view text) const;

private:
    void encodeCharacter(wchar_t character, std::string& bytes) const;

    bool utf8_;
    std::vector<std::uint16_t> codes_; ///< by character, 0 for one that the page lacks
};

} // namespace host_dxf
