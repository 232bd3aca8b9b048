#include "dxf/DxfSource.h"
#include "platform/LargePages.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace host_dxf {

namespace {

using namespace std::string_view_literals;

/// The bytes with which the format marks its binary form.
constexpr std::string_view binarySentinel = "AutoCAD Binary DXF\r\n\x1a\0"sv;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"sv;

/// Closes a file descriptor at the end of its scope.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

std::string systemMessage(int code) {
    return std::generic_category().message(code);
}

/// Fills `buffer` from the file; gives the number of bytes the file still had, or -1 on an error.
ssize_t readAll(int descriptor, char* buffer, std::size_t size) {
    std::size_t got = 0;
    while (got < size) {
        const ssize_t step = ::read(descriptor, buffer + got, size - got);
        if (step == 0) {
            break;
        }
        if (step < 0 && errno != EINTR) {
            return -1;
        }
        got += step > 0 ? static_cast<std::size_t>(step) : 0;
    }
    return static_cast<ssize_t>(got);
}

/// The size of what was opened, or the reason why it is no file to read.
bool regularSize(int descriptor, std::size_t& size, std::string& reason) {
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0) {
        reason = "cannot open: " + systemMessage(errno);
        return false;
    }
    if (!S_ISREG(facts.st_mode)) {
        reason = S_ISDIR(facts.st_mode) ? "cannot open: " + systemMessage(EISDIR)
                                        : "cannot open: not a regular file";
        return false;
    }
    size = static_cast<std::size_t>(facts.st_size);
    return true;
}

} // namespace

DxfSource::DxfSource(std::unique_ptr<const char[]> bytes, std::size_t size, std::string name)
    : bytes_(std::move(bytes)), size_(size), name_(std::move(name)) {
    recogniseForm();
}

std::shared_ptr<const DxfSource> DxfSource::read(const std::string& utf8Path, std::string& error) {
    const OpenFile file(utf8Path);
    if (file.descriptor() < 0) {
        error = utf8Path + ": cannot open: " + systemMessage(errno);
        return nullptr;
    }
    std::size_t size = 0;
    std::string reason;
    if (!regularSize(file.descriptor(), size, reason)) {
        error = utf8Path + ": " + reason;
        return nullptr;
    }
    // Read, not mapped: a file cut short by another program must not end this one.
    auto buffer = std::make_unique_for_overwrite<char[]>(size);
    platform_memory::askForLargePages(buffer.get(), size);
    const ssize_t got = readAll(file.descriptor(), buffer.get(), size);
    if (got < 0) {
        error = utf8Path + ": cannot read: " + systemMessage(errno);
        return nullptr;
    }
    return std::make_shared<const DxfSource>(std::move(buffer), static_cast<std::size_t>(got),
                                             utf8Path);
}

std::shared_ptr<const DxfSource> DxfSource::fromBytes(std::string_view bytes, std::string name) {
    auto buffer = std::make_unique_for_overwrite<char[]>(bytes.size());
    if (!bytes.empty()) {
        std::memcpy(buffer.get(), bytes.data(), bytes.size());
    }
    return std::make_shared<const DxfSource>(std::move(buffer), bytes.size(), std::move(name));
}

void DxfSource::recogniseForm() {
    const std::string_view all = bytes();
    if (all.starts_with(binarySentinel)) {
        firstOffset_ = binarySentinel.size();
        // The first group is 0 SECTION or a comment: a two-byte 0 has a second zero byte, a
        // two-byte 999 is E7 03, and the one-byte form of 999 starts with the escape FF.
        const std::string_view first = all.substr(firstOffset_, 2);
        const bool wide = first == "\0\0"sv || first == "\xE7\x03"sv;
        form_ = wide ? FileForm::BinaryWideCodes : FileForm::BinaryShortCodes;
        return;
    }
    hasByteOrderMark_ = all.starts_with(byteOrderMark);
    firstOffset_ = hasByteOrderMark_ ? byteOrderMark.size() : 0;
    if (all.find('\n') == std::string_view::npos && all.find('\r') != std::string_view::npos) {
        lineEnd_ = '\r';
    }
}

} // namespace host_dxf
