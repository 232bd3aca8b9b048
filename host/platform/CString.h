#pragma once

#include "platform/PlatformTypes.h"

#include <atomic>
#include <cstdarg>
#include <cstddef>
#include <functional>
#include <string_view>
#include <sys/single_threaded.h>
#include <utility>

/// Wide text of the platform's class library.
///
/// Copies share one reference-counted buffer and part when one of them is changed, so a copy
/// costs one addition, an atomic one once the process has had a second thread. An object is a
/// single pointer without reference into itself: it may be moved bitwise. Texts in different
/// objects may be used from different threads, even when they share a buffer.
///
/// Indices are in characters. An index outside the text throws CInvalidArgException where it is
/// said; storage that cannot be had throws CMemoryException or
/// std::bad_alloc. A null pointer counts as the empty
/// text. The null character ends a text given by pointer.
class CString {
public:
    CString() = default;
    CString(const CString& other) noexcept : buffer_(share(other.buffer_)) {}
    CString(CString&& other) noexcept : buffer_(std::exchange(other.buffer_, nullptr)) {}
    CString(const wchar_t* text);
    /// The first `length` characters of `text`, which has at least as many; `length` >= 0.
    CString(const wchar_t* text, int length);
    /// `repeat` times one character; none for `repeat` <= 0.
    explicit CString(wchar_t character, int repeat = 1);
    explicit CString(std::wstring_view text);
    ~CString() { release(buffer_); }

    CString& operator=(const CString& other) noexcept { // NOLINT(*-self-assignment)
        if (buffer_ != other.buffer_) {
            release(std::exchange(buffer_, share(other.buffer_)));
        }
        return *this;
    }
    CString& operator=(CString&& other) noexcept {
        std::swap(buffer_, other.buffer_);
        return *this;
    }
    CString& operator=(const wchar_t* text);
    CString& operator=(wchar_t character);

    int GetLength() const noexcept { return buffer_ == nullptr ? 0 : buffer_->length; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    void Empty() noexcept;

    /// The text, ended by a null character; valid until this object is changed or destroyed.
    const wchar_t* GetString() const noexcept { return buffer_ == nullptr ? L"" : chars(buffer_); }
    operator const wchar_t*() const noexcept { return GetString(); }
    std::wstring_view view() const noexcept {
        return {GetString(), static_cast<std::size_t>(GetLength())};
    }

    /// The character at `index`, 0 to GetLength() (there the null character). A bad index throws.
    wchar_t GetAt(int index) const;
    wchar_t operator[](int index) const { return GetAt(index); }
    /// Changes the character at `index`, 0 to GetLength() - 1. A bad index throws.
    void SetAt(int index, wchar_t character);

    void SetString(const wchar_t* text);
    void SetString(const wchar_t* text, int length);
    void Append(const wchar_t* text);
    void Append(const wchar_t* text, int length);
    void AppendChar(wchar_t character);
    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);

    /// Below, equal to or above 0 by character values.
    int Compare(const wchar_t* other) const noexcept;
    /// The same without regard to case.
    int CompareNoCase(const wchar_t* other) const noexcept;

    /// Pieces of the text. Counts and starts outside the text are brought to its ends.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    /// Index of the first (from `start` on) or last occurrence, -1 if there is none.
    int Find(wchar_t character, int start = 0) const noexcept;
    int Find(const wchar_t* text, int start = 0) const noexcept;
    int ReverseFind(wchar_t character) const noexcept;
    int FindOneOf(const wchar_t* characters) const noexcept;

    /// Drop white space, or the given characters, at the ends of the text.
    CString& Trim();
    CString& Trim(wchar_t target);
    CString& Trim(const wchar_t* targets);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t target);
    CString& TrimLeft(const wchar_t* targets);
    CString& TrimRight();
    CString& TrimRight(wchar_t target);
    CString& TrimRight(const wchar_t* targets);

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();

    /// Replaces every occurrence; gives their number. An empty `from` replaces nothing.
    int Replace(wchar_t from, wchar_t to);
    int Replace(const wchar_t* from, const wchar_t* to);
    /// Drops every occurrence of a character; gives their number.
    int Remove(wchar_t character);
    /// Inserts at `index`, brought to the text's ends; gives the new length.
    int Insert(int index, wchar_t character);
    int Insert(int index, const wchar_t* text);
    /// Deletes up to `count` characters from `index` on; gives the new length.
    int Delete(int index, int count = 1);

    /// The next piece of the text that holds none of `separators`, from `start` on; runs of
    /// separators count as one. `start` moves behind the piece and becomes -1 when nothing is
    /// left; the result is then empty. A negative `start` throws.
    CString Tokenize(const wchar_t* separators, int& start) const;

    /// Replaces the text by a formatted one. Conversions and flags are those of ISO C (d i u o x X
    /// c s e E f F g G a A p %, with h hh l ll z j t I64), except that, as on the platform, %s and
    /// %c take wide and %S, %C, %hs, %hc narrow (UTF-8) text. Numbers never depend on the locale. A
    /// null text reads "(null)"; an unknown conversion is copied as it stands. The text may be an
    /// argument of its own.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, va_list arguments);
    void AppendFormat(const wchar_t* format, ...);
    void AppendFormatV(const wchar_t* format, va_list arguments);

    /// A writable buffer of at least `minimumLength` characters and an ending null, holding the
    /// text; of this object alone. To be followed by ReleaseBuffer before other use.
    wchar_t* GetBuffer(int minimumLength = 0);
    /// Takes what was written: up to its null character, or `newLength` characters. More than
    /// the buffer holds throws.
    void ReleaseBuffer(int newLength = -1);
    /// A writable buffer of exactly `length` characters, which becomes the text's length.
    wchar_t* GetBufferSetLength(int length);

    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, const wchar_t* b);
    friend CString operator+(const wchar_t* a, const CString& b);
    friend CString operator+(const CString& a, wchar_t b);
    friend CString operator+(wchar_t a, const CString& b);

    friend bool operator==(const CString& a, const CString& b) noexcept {
        return a.buffer_ == b.buffer_ || a.view() == b.view();
    }
    friend bool operator==(const CString& a, const wchar_t* b) noexcept {
        return a.Compare(b) == 0;
    }
    friend bool operator==(const wchar_t* a, const CString& b) noexcept {
        return b.Compare(a) == 0;
    }
    friend bool operator!=(const CString& a, const CString& b) noexcept { return !(a == b); }
    friend bool operator!=(const CString& a, const wchar_t* b) noexcept { return !(a == b); }
    friend bool operator!=(const wchar_t* a, const CString& b) noexcept { return !(a == b); }
    friend bool operator<(const CString& a, const CString& b) noexcept { return a.Compare(b) < 0; }
    friend bool operator<(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) < 0; }
    friend bool operator<(const wchar_t* a, const CString& b) noexcept { return b.Compare(a) > 0; }
    friend bool operator>(const CString& a, const CString& b) noexcept { return a.Compare(b) > 0; }
    friend bool operator>(const CString& a, const wchar_t* b) noexcept { return a.Compare(b) > 0; }
    friend bool operator>(const wchar_t* a, const CString& b) noexcept { return b.Compare(a) < 0; }
    friend bool operator<=(const CString& a, const CString& b) noexcept {
        return a.Compare(b) <= 0;
    }
    friend bool operator<=(const CString& a, const wchar_t* b) noexcept {
        return a.Compare(b) <= 0;
    }
    friend bool operator<=(const wchar_t* a, const CString& b) noexcept {
        return b.Compare(a) >= 0;
    }
    friend bool operator>=(const CString& a, const CString& b) noexcept {
        return a.Compare(b) >= 0;
    }
    friend bool operator>=(const CString& a, const wchar_t* b) noexcept {
        return a.Compare(b) >= 0;
    }
    friend bool operator>=(const wchar_t* a, const CString& b) noexcept {
        return b.Compare(a) <= 0;
    }

private:
    /// Counts and sizes of a shared text; its characters and their null follow it in memory.
    struct Buffer {
        std::atomic<int> owners;
        int length;
        int capacity;
    };

    static wchar_t* chars(Buffer* buffer) noexcept {
        return reinterpret_cast<wchar_t*>(buffer + 1);
    }
    static Buffer* allocate(int capacity);
    static Buffer* share(Buffer* buffer) noexcept {
        if (buffer != nullptr) {
            addOwners(*buffer, 1);
        }
        return buffer;
    }
    static void release(Buffer* buffer) noexcept {
        if (buffer != nullptr && addOwners(*buffer, -1) == 0) {
            destroy(buffer);
        }
    }
    /// Gives how many there are then.
    static int addOwners(Buffer& buffer, int count) noexcept {
        if (__libc_single_threaded == 0) {
            return buffer.owners.fetch_add(count, std::memory_order_acq_rel) + count;
        }
        const int owners = buffer.owners.load(std::memory_order_relaxed) + count;
        buffer.owners.store(owners, std::memory_order_relaxed);
        return owners;
    }
    static void destroy(Buffer* buffer) noexcept;
    void assign(std::wstring_view text);
    void append(std::wstring_view text);
    /// Whether the buffer is this object's alone and holds `capacity` characters.
    bool isWritable(int capacity) const noexcept;
    void makeWritable(int capacity);
    CString piece(int first, int count) const;

    /// Null for the empty text.
    Buffer* buffer_ = nullptr;
};

template<>
struct std::hash<CString> {
    std::size_t operator()(const CString& text) const noexcept {
        return std::hash<std::wstring_view>{}(text.view());
    }
};
