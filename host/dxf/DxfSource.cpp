#include "dxf/DxfSource.h"

#include "platform/OpenFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace host_dxf {

namespace {

using namespace std::string_view_literals;
using platform_memory::KeptBytes;

/// The bytes with which the format marks its binary form.
constexpr std::string_view binarySentinel = "AutoCAD Binary DXF\r\n\x1a\0"sv;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"sv;

std::string systemMessage(int code) {
    return std::generic_category().message(code);
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

DxfSource::DxfSource(platform_memory::KeptBytes bytes, std::string name)
    : bytes_(std::move(bytes)), name_(std::move(name)) {
    recogniseForm();
}

std::shared_ptr<const DxfSource> DxfSource::read(const std::string& utf8Path, std::string& error) {
    const host_files::OpenFile file(::open(utf8Path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
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
    try {
        return std::make_shared<const DxfSource>(KeptBytes::ofFile(file.descriptor(), size),
                                                 utf8Path);
    } catch (const std::system_error& failure) {
        error = utf8Path + ": cannot read: " + systemMessage(failure.code().value());
        return nullptr;
    }
}

std::shared_ptr<const DxfSource> DxfSource::fromBytes(std::string_view bytes, std::string name) {
    return std::make_shared<const DxfSource>(KeptBytes::copyOf(bytes), std::move(name));
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
