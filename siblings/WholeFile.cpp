#include "WholeFile.h"

#include "platform/FileReplacement.h"
#include "platform/OpenFile.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace siblings {

std::optional<std::string> readWholeFile(const std::string& path) {
    // Without O_NONBLOCK, opening a pipe that nobody writes to would never come back.
    const host_files::OpenFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    std::string bytes;
    std::array<char, 16384> block;
    for (;;) {
        const ssize_t got = ::read(file.descriptor(), block.data(), block.size());
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
