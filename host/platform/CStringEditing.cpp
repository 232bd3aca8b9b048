#include "platform/CString.h"
#include "platform/PlatformException.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace {

/// What is left of a text when the characters that `drop` accepts are taken off its ends.
template<class Drop>
std::wstring_view trimmed(std::wstring_view text, bool left, bool right, Drop drop) {
    while (left && !text.empty() && drop(text.front())) {
        text.remove_prefix(1);
    }
    while (right && !text.empty() && drop(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Accepts the characters of a text; a null pointer accepts none.
struct OneOf {
    std::wstring_view targets;
    explicit OneOf(const wchar_t* text) : targets(text == nullptr ? L"" : text) {}
    bool operator()(wchar_t character) const {
        return targets.find(character) != std::wstring_view::npos;
    }
};

struct Same {
    wchar_t target;
    bool operator()(wchar_t character) const { return character == target; }
};

} // namespace

CString& CString::Trim() {
    assign(trimmed(view(), true, true, host_text::isSpace));
    return *this;
}

CString& CString::Trim(wchar_t target) {
    assign(trimmed(view(), true, true, Same{target}));
    return *this;
}

CString& CString::Trim(const wchar_t* targets) {
    assign(trimmed(view(), true, true, OneOf(targets)));
    return *this;
}

CString& CString::TrimLeft() {
    assign(trimmed(view(), true, false, host_text::isSpace));
    return *this;
}

CString& CString::TrimLeft(wchar_t target) {
    assign(trimmed(view(), true, false, Same{target}));
    return *this;
}

CString& CString::TrimLeft(const wchar_t* targets) {
    assign(trimmed(view(), true, false, OneOf(targets)));
    return *this;
}

CString& CString::TrimRight() {
    assign(trimmed(view(), false, true, host_text::isSpace));
    return *this;
}

CString& CString::TrimRight(wchar_t target) {
    assign(trimmed(view(), false, true, Same{target}));
    return *this;
}

CString& CString::TrimRight(const wchar_t* targets) {
    assign(trimmed(view(), false, true, OneOf(targets)));
    return *this;
}

CString& CString::MakeUpper() {
    std::wstring text(view());
    std::transform(text.begin(), text.end(), text.begin(), host_text::upperCase);
    assign(text);
    return *this;
}

CString& CString::MakeLower() {
    std::wstring text(view());
    std::transform(text.begin(), text.end(), text.begin(), host_text::lowerCase);
    assign(text);
    return *this;
}

CString& CString::MakeReverse() {
    std::wstring text(view());
    std::reverse(text.begin(), text.end());
    assign(text);
    return *this;
}

int CString::Replace(wchar_t from, wchar_t to) {
    const auto count = static_cast<int>(std::count(view().begin(), view().end(), from));
    if (count > 0 && from != to) {
        std::wstring text(view());
        std::replace(text.begin(), text.end(), from, to);
        assign(text);
    }
    return count;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const std::wstring_view target = from == nullptr ? L"" : from;
    const std::wstring_view substitute = to == nullptr ? L"" : to;
    if (target.empty()) {
        return 0;
    }
    std::wstring replaced;
    int count = 0;
    std::size_t done = 0;
    for (std::size_t place = view().find(target); place != std::wstring_view::npos;
         place = view().find(target, done)) {
        replaced += view().substr(done, place - done);
        replaced += substitute;
        done = place + target.size();
        ++count;
    }
    if (count > 0) {
        replaced += view().substr(done);
        assign(replaced);
    }
    return count;
}

int CString::Remove(wchar_t character) {
    std::wstring text(view());
    const auto count = static_cast<int>(std::erase(text, character));
    if (count > 0) {
        assign(text);
    }
    return count;
}

int CString::Insert(int index, wchar_t character) {
    const wchar_t text[] = {character, L'\0'};
    return Insert(index, text);
}

int CString::Insert(int index, const wchar_t* text) {
    std::wstring changed(view());
    changed.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())),
                   text == nullptr ? L"" : text);
    assign(changed);
    return GetLength();
}

int CString::Delete(int index, int count) {
    const int begin = std::max(index, 0);
    if (begin < GetLength() && count > 0) {
        std::wstring text(view());
        text.erase(static_cast<std::size_t>(begin), static_cast<std::size_t>(count));
        assign(text);
    }
    return GetLength();
}

CString CString::Tokenize(const wchar_t* separators, int& start) const {
    if (start < 0) {
        AfxThrowInvalidArgException();
    }
    const std::wstring_view marks = separators == nullptr ? L"" : separators;
    const std::size_t begin = view().find_first_not_of(marks, static_cast<std::size_t>(start));
    if (begin == std::wstring_view::npos) {
        start = -1;
        return {};
    }
    const std::size_t end = std::min(view().find_first_of(marks, begin), view().size());
    start = static_cast<int>(std::min(end + 1, view().size()));
    return CString(view().substr(begin, end - begin));
}

wchar_t* CString::GetBuffer(int minimumLength) {
    if (minimumLength < 0) {
        AfxThrowInvalidArgException();
    }
    makeWritable(std::max(minimumLength, GetLength()));
    return chars(buffer_);
}

void CString::ReleaseBuffer(int newLength) {
    const int capacity = buffer_ == nullptr ? 0 : buffer_->capacity;
    if (newLength < -1 || newLength > capacity) {
        AfxThrowInvalidArgException();
    }
    if (buffer_ == nullptr) {
        return;
    }
    const int length =
        newLength >= 0
            ? newLength
            : static_cast<int>(wcsnlen(chars(buffer_), static_cast<std::size_t>(capacity)));
    chars(buffer_)[length] = L'\0';
    buffer_->length = length;
}

wchar_t* CString::GetBufferSetLength(int length) {
    wchar_t* text = GetBuffer(length);
    ReleaseBuffer(length);
    return text;
}
