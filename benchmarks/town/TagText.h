#pragma once

#include "town/Town.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace benchmark_town {

/// Text of a drawing file, tag by tag. Real numbers have as many digits as they need to be read
/// back alike.
class TagText {
public:
    void add(int code, std::string_view value);
    void add(int code, const char* value) { add(code, std::string_view(value)); }
    void add(int code, int value);
    void add(int code, double value);
    /// A point in plan under the codes `code`, `code` + 10 and `code` + 20.
    void point(int code, const Place& place);

    const std::string& text() const { return text_; }
    void clear() { text_.clear(); }

private:
    void addCode(int code);

    std::string text_;
};

} // namespace benchmark_town
