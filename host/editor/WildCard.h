#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host_ed {

/// A pattern of names, compared without regard to case.
///
/// `*` any run, `?` any character, `#` a digit, `@` a letter, `.` a character that is neither,
/// `[abc]`, `[a-c]` one of these, `[~...]` none of these; `~` at the beginning turns the pattern
/// round; `,` parts patterns of which one must match; a backquote takes the next character as it
/// stands. A bracket without its end is an ordinary character.
class WildCard {
public:
    explicit WildCard(std::wstring_view pattern);

    /// Cost: the pattern's length times the text's at most.
    bool matches(std::wstring_view text) const;

private:
    enum class Kind { Literal, Run, Any, Digit, Letter, Other, OneOf, NoneOf };
    struct Token {
        Kind kind = Kind::Literal;
        wchar_t character = 0;
        /// Pairs of first and last character.
        std::wstring ranges;
    };
    struct Alternative {
        bool negated = false;
        std::vector<Token> tokens;
    };

    static Token readToken(std::wstring_view pattern, std::size_t& at);
    static bool readSet(std::wstring_view pattern, std::size_t& at, Token& token);
    static bool fits(const Token& token, wchar_t character);
    static bool matches(const std::vector<Token>& tokens, std::wstring_view text);

    std::vector<Alternative> alternatives_;
};

} // namespace host_ed
