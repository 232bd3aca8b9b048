#include "WholeFile.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
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
    ~OpenFile() { close(); }

    int get() const { return descriptor_; }
    bool isOpen() const { return descriptor_ >= 0; }

    /// Gives false when the system reports that something written did not arrive.
    bool close() {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int descriptor_;
};

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

/// The file that a symbolic link stands for; the path itself where nothing stands yet.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    return real ? std::string(real.get()) : path;
}

/// Access rights for the new file: those of the present one, else what the process's mask leaves.
/// Nothing when the present one is no regular file or may not be written.
std::optional<mode_t> rightsFor(const std::string& path) {
    struct stat present {};
    if (::stat(path.c_str(), &present) == 0) {
        const bool usable = S_ISREG(present.st_mode) && ::access(path.c_str(), W_OK) == 0;
        return usable ? std::optional<mode_t>(present.st_mode & 07777) : std::nullopt;
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

bool writeTemporary(OpenFile& file, mode_t rights, std::string_view bytes) {
    return ::fchmod(file.get(), rights) == 0 && writeAll(file.get(), bytes) &&
           ::fsync(file.get()) == 0 && file.close();
}

/// Makes the rename itself last. Its failure changes nothing for any reader, so it is not reported.
void flushFolder(const std::string& folder) {
    const OpenFile opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen()) {
        ::fsync(opened.get());
    }
}

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
    const std::string target = resolved(path);
    const auto rights = rightsFor(target);
    if (!rights) {
        return false;
    }
    std::string temporary = target + ".XXXXXX";
    OpenFile file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen()) {
        return false;
    }
    const bool done =
        writeTemporary(file, *rights, bytes) && ::rename(temporary.c_str(), target.c_str()) == 0;
    if (!done) {
        ::unlink(temporary.c_str());
        return false;
    }
    flushFolder(folderOf(target));
    return true;
}

} // namespace siblings
