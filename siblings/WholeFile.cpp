#include "WholeFile.h"

#include "platform/FileReplacement.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace siblings {

namespace {

/// Owner of an open file.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (isOpen()) {
            ::close(descriptor_);
        }
    }

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

} // namespace

std::optional<std::string> readWholeFile(const std::string& path) {
    // Without O_NONBLOCK, opening a pipe that nobody writes to would never come back.
    const OpenFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string bytes;
    std::array<char, 16384> block;
    for (;;) {
        const ssize_t got = ::read(file.get(), block.data(), block.size());
        if (got == 0) {
            return bytes;
        }
        if (got > 0) {
            bytes.append(block.data(), static_cast<std::size_t>(got));
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
}

bool replaceWholeFile(const std::string& path, std::string_view bytes) {
    std::string cause;
    return host_files::replaceFile(path, bytes, cause);
}

} // namespace siblings
