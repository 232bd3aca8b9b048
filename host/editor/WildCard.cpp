#include "editor/WildCard.h"

#include "platform/WideCharacters.h"

#include <algorithm>

namespace host_ed {
namespace {

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Everything that has a case, and beyond ASCII every other character but blanks, so that
/// ideographs count as letters.
bool isLetter(wchar_t c) {
    const bool isAscii = c < 0x80;
    return isAscii ? (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') : !host_text::isSpace(c);
}

} // namespace

WildCard::WildCard(std::wstring_view pattern) {
    std::size_t at = 0;
    bool more = true;
    while (more) {
        Alternative alternative;
        if (at < pattern.size() && pattern[at] == L'~') {
            alternative.negated = true;
            ++at;
        }
        while (at < pattern.size() && pattern[at] != L',') {
            alternative.tokens.push_back(readToken(pattern, at));
        }
        alternatives_.push_back(std::move(alternative));
        more = at < pattern.size();
        ++at;
    }
}

WildCard::Token WildCard::readToken(std::wstring_view pattern, std::size_t& at) {
    Token token;
    const wchar_t c = pattern[at];
    if (c == L'[' && readSet(pattern, at, token)) {
        return token;
    }
    ++at;
    constexpr std::wstring_view kSigns = L"*?#@.";
    constexpr Kind kKinds[] = {Kind::Run, Kind::Any, Kind::Digit, Kind::Letter, Kind::Other};
    const std::size_t sign = kSigns.find(c);
    if (sign != std::wstring_view::npos) {
        token.kind = kKinds[sign];
    } else if (c == L'`' && at < pattern.size()) {
        token.character = host_text::lowerCase(pattern[at++]);
    } else {
        token.character = host_text::lowerCase(c);
    }
    return token;
}

bool WildCard::readSet(std::wstring_view pattern, std::size_t& at, Token& token) {
    std::size_t i = at + 1;
    token.kind = Kind::OneOf;
    if (i < pattern.size() && pattern[i] == L'~') {
        token.kind = Kind::NoneOf;
        ++i;
    }
    std::wstring ranges;
    while (i < pattern.size() && pattern[i] != L']') {
        if (pattern[i] == L'`' && i + 1 < pattern.size()) {
            ++i;
        }
        const wchar_t first = host_text::lowerCase(pattern[i++]);
        wchar_t last = first;
        if (i + 1 < pattern.size() && pattern[i] == L'-' && pattern[i + 1] != L']') {
            last = host_text::lowerCase(pattern[i + 1]);
            i += 2;
        }
        ranges += {first, last};
    }
    if (i >= pattern.size() || ranges.empty()) {
        token = Token();
        return false;
    }
    token.ranges = std::move(ranges);
    at = i + 1;
    return true;
}

bool WildCard::fits(const Token& token, wchar_t character) {
    const wchar_t c = host_text::lowerCase(character);
    bool inSet = false;
    for (std::size_t i = 0; i < token.ranges.size() && !inSet; i += 2) {
        inSet = token.ranges[i] <= c && c <= token.ranges[i + 1];
    }
    switch (token.kind) {
    case Kind::Literal:
        return token.character == c;
    case Kind::Digit:
        return isDigit(c);
    case Kind::Letter:
        return isLetter(c);
    case Kind::Other:
        return !isDigit(c) && !isLetter(c);
    case Kind::OneOf:
        return inSet;
    case Kind::NoneOf:
        return !inSet;
    case Kind::Run:
    case Kind::Any:
        break;
    }
    return true;
}

bool WildCard::matches(const std::vector<Token>& tokens, std::wstring_view text) {
    std::size_t token = 0;
    std::size_t at = 0;
    // After a run everything that follows it is tried at one place after another; an earlier run
    // needs no second try once a later one was reached.
    std::size_t run = tokens.size();
    std::size_t runAt = 0;
    while (at < text.size()) {
        if (token < tokens.size() && tokens[token].kind == Kind::Run) {
            run = token++;
            runAt = at;
        } else if (token < tokens.size() && fits(tokens[token], text[at])) {
            ++token;
            ++at;
        } else if (run < tokens.size()) {
            token = run + 1;
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (token < tokens.size() && tokens[token].kind == Kind::Run) {
        ++token;
    }
    return token == tokens.size();
}

bool WildCard::matches(std::wstring_view text) const {
    return std::any_of(alternatives_.begin(), alternatives_.end(), [&](const Alternative& it) {
        return matches(it.tokens, text) != it.negated;
    });
}

} // namespace host_ed
