#include "platform/CString.h"

#include "platform/PlatformException.h"
#include "platform/WideCharacters.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cwchar>
#include <new>
#include <utility>

namespace {

const wchar_t* orEmpty(const wchar_t* text) {
    return text == nullptr ? L"" : text;
}

int toLength(std::size_t length) {
    if (length > static_cast<std::size_t>(INT_MAX)) {
        AfxThrowMemoryException();
    }
    return static_cast<int>(length);
}

int toIndex(std::size_t place) {
    return place == std::wstring_view::npos ? -1 : static_cast<int>(place);
}

} // namespace

CString::Buffer* CString::allocate(int capacity) {
    const std::size_t bytes =
        sizeof(Buffer) + (static_cast<std::size_t>(capacity) + 1) * sizeof(wchar_t);
    void* storage = std::malloc(bytes);
    if (storage == nullptr) {
        AfxThrowMemoryException();
    }
    auto* buffer = ::new (storage) Buffer{{1}, 0, capacity};
    chars(buffer)[0] = L'\0';
    return buffer;
}

void CString::destroy(Buffer* buffer) noexcept {
    buffer->~Buffer();
    std::free(buffer);
}

bool CString::isWritable(int capacity) const noexcept {
    return buffer_ != nullptr && buffer_->owners.load(std::memory_order_acquire) == 1 &&
           buffer_->capacity >= capacity;
}

void CString::makeWritable(int capacity) {
    if (isWritable(capacity)) {
        return;
    }
    const int length = GetLength();
    Buffer* fresh = allocate(std::max(capacity, length));
    std::wmemcpy(chars(fresh), GetString(), static_cast<std::size_t>(length) + 1);
    fresh->length = length;
    release(std::exchange(buffer_, fresh));
}

void CString::assign(std::wstring_view text) {
    if (text.empty()) {
        Empty();
        return;
    }
    const int length = toLength(text.size());
    // The old text may hold what is assigned, so it is let go only after the copy.
    Buffer* target = isWritable(length) ? buffer_ : allocate(length);
    std::wmemmove(chars(target), text.data(), text.size());
    chars(target)[length] = L'\0';
    target->length = length;
    if (target != buffer_) {
        release(std::exchange(buffer_, target));
    }
}

void CString::append(std::wstring_view text) {
    if (text.empty()) {
        return;
    }
    const int oldLength = GetLength();
    const int length = toLength(static_cast<std::size_t>(oldLength) + text.size());
    Buffer* target = buffer_;
    if (!isWritable(length)) {
        target = allocate(std::max(length, toLength(std::size_t{3} * oldLength / 2)));
        std::wmemcpy(chars(target), GetString(), static_cast<std::size_t>(oldLength));
    }
    // The old text may hold what is appended, so it is let go only after the copy.
    std::wmemmove(chars(target) + oldLength, text.data(), text.size());
    chars(target)[length] = L'\0';
    target->length = length;
    if (target != buffer_) {
        release(std::exchange(buffer_, target));
    }
}

CString::CString(const wchar_t* text) {
    SetString(text);
}

CString::CString(const wchar_t* text, int length) {
    SetString(text, length);
}

CString::CString(wchar_t character, int repeat) {
    if (repeat > 0) {
        makeWritable(repeat);
        std::wmemset(chars(buffer_), character, static_cast<std::size_t>(repeat));
        chars(buffer_)[repeat] = L'\0';
        buffer_->length = repeat;
    }
}

CString::CString(std::wstring_view text) {
    assign(text);
}

CString& CString::operator=(const wchar_t* text) {
    SetString(text);
    return *this;
}

CString& CString::operator=(wchar_t character) {
    assign({&character, 1});
    return *this;
}

void CString::Empty() noexcept {
    release(std::exchange(buffer_, nullptr));
}

wchar_t CString::GetAt(int index) const {
    if (index < 0 || index > GetLength()) {
        AfxThrowInvalidArgException();
    }
    return GetString()[index];
}

void CString::SetAt(int index, wchar_t character) {
    if (index < 0 || index >= GetLength()) {
        AfxThrowInvalidArgException();
    }
    makeWritable(GetLength());
    chars(buffer_)[index] = character;
}

void CString::SetString(const wchar_t* text) {
    assign(orEmpty(text));
}

void CString::SetString(const wchar_t* text, int length) {
    if (length < 0 || (text == nullptr && length > 0)) {
        AfxThrowInvalidArgException();
    }
    assign({orEmpty(text), static_cast<std::size_t>(length)});
}

void CString::Append(const wchar_t* text) {
    append(orEmpty(text));
}

void CString::Append(const wchar_t* text, int length) {
    if (length < 0 || (text == nullptr && length > 0)) {
        AfxThrowInvalidArgException();
    }
    append({orEmpty(text), static_cast<std::size_t>(length)});
}

void CString::AppendChar(wchar_t character) {
    append({&character, 1});
}

CString& CString::operator+=(const CString& text) {
    append(text.view());
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    Append(text);
    return *this;
}

CString& CString::operator+=(wchar_t character) {
    AppendChar(character);
    return *this;
}

int CString::Compare(const wchar_t* other) const noexcept {
    const wchar_t* const own = GetString();
    return own == other ? 0 : std::wcscmp(own, orEmpty(other));
}

int CString::CompareNoCase(const wchar_t* other) const noexcept {
    return host_text::compareNoCase(GetString(), orEmpty(other));
}

CString CString::piece(int first, int count) const {
    const int begin = std::clamp(first, 0, GetLength());
    const int taken = std::clamp(count, 0, GetLength() - begin);
    if (taken == GetLength()) {
        return *this;
    }
    return CString(view().substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(taken)));
}

CString CString::Left(int count) const {
    return piece(0, count);
}

CString CString::Right(int count) const {
    const int taken = std::clamp(count, 0, GetLength());
    return piece(GetLength() - taken, taken);
}

CString CString::Mid(int first) const {
    return piece(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    return piece(first, count);
}

int CString::Find(wchar_t character, int start) const noexcept {
    if (start < 0 || start > GetLength()) {
        return -1;
    }
    return toIndex(view().find(character, static_cast<std::size_t>(start)));
}

int CString::Find(const wchar_t* text, int start) const noexcept {
    if (text == nullptr || start < 0 || start > GetLength()) {
        return -1;
    }
    return toIndex(view().find(text, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const noexcept {
    return toIndex(view().rfind(character));
}

int CString::FindOneOf(const wchar_t* characters) const noexcept {
    return toIndex(view().find_first_of(orEmpty(characters)));
}

CString operator+(const CString& a, const CString& b) {
    CString sum(a);
    sum += b;
    return sum;
}

CString operator+(const CString& a, const wchar_t* b) {
    CString sum(a);
    sum += b;
    return sum;
}

CString operator+(const wchar_t* a, const CString& b) {
    CString sum(a);
    sum += b;
    return sum;
}

CString operator+(const CString& a, wchar_t b) {
    CString sum(a);
    sum += b;
    return sum;
}

CString operator+(wchar_t a, const CString& b) {
    CString sum(a);
    sum += b;
    return sum;
}
