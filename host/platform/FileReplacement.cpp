#include "platform/FileReplacement.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace host_files {

namespace {

std::string systemMessage(int code) {
    return std::generic_category().message(code);
}

/// A pattern for the name of a temporary file in the folder of `target`: its name and a dot, cut
/// where the whole would be longer than a name may be, but not within a letter.
std::string patternBeside(const std::string& target) {
    const std::string ending = '.' + std::string(6, 'X');
    const std::size_t slash = target.rfind('/');
    const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
    std::size_t length = target.size();
    if (length - begin > NAME_MAX - ending.size()) {
        length = begin + NAME_MAX - ending.size();
        while (length > begin && (static_cast<unsigned char>(target[length]) & 0xC0U) == 0x80U) {
            --length;
        }
    }
    return target.substr(0, length).append(ending);
}

/// A temporary file that is gone at the end of its scope unless it took another one's place.
class TemporaryFile {
public:
    /// Beside `target`; check isOpen.
    explicit TemporaryFile(const std::string& target)
        : path_(patternBeside(target)), descriptor_(::mkostemp(path_.data(), O_CLOEXEC)) {}
    ~TemporaryFile() {
        close();
        if (exists_) {
            ::unlink(path_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool isOpen() const { return exists_; }

    /// Each gives false with the reason in errno.
    bool write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) {
                return false;
            }
            bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
        return true;
    }
    bool setRights(mode_t rights) const { return ::fchmod(descriptor_, rights) == 0; }
    bool flush() const { return ::fsync(descriptor_) == 0; }
    /// The system may report only here that something written did not arrive.
    bool close() {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }
    bool replace(const std::string& target) {
        exists_ = ::rename(path_.c_str(), target.c_str()) != 0;
        return !exists_;
    }

private:
    std::string path_;
    int descriptor_;
    bool exists_ = descriptor_ >= 0;
};

/// Where a path leads when it is a symbolic link, even one to a file that is not there yet.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    if (real) {
        return real.get();
    }
    char target[PATH_MAX];
    const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
    if (length <= 0 || static_cast<std::size_t>(length) == sizeof target) {
        return path;
    }
    const std::string aim(target, static_cast<std::size_t>(length));
    const std::size_t slash = path.rfind('/');
    return aim[0] == '/' || slash == std::string::npos ? aim : path.substr(0, slash + 1) + aim;
}

/// Access rights for the new file; false with the reason when the present one cannot be replaced.
bool findRights(const std::string& path, mode_t& rights, std::string& cause) {
    struct stat present {};
    if (::stat(path.c_str(), &present) != 0) {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        rights = 0666 & ~mask;
        return true;
    }
    rights = present.st_mode & 07777;
    if (S_ISDIR(present.st_mode)) {
        cause = systemMessage(EISDIR);
    } else if (!S_ISREG(present.st_mode)) {
        cause = "not a regular file";
    } else if (::access(path.c_str(), W_OK) != 0) {
        cause = systemMessage(errno);
    }
    return cause.empty();
}

/// Makes the rename itself last. Its failure changes nothing for any reader, so it is not reported.
void flushFolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace

bool replaceFile(const std::string& path, std::string_view bytes, std::string& cause) {
    cause.clear();
    const std::string target = resolved(path);
    mode_t rights = 0;
    if (!findRights(target, rights, cause)) {
        return false;
    }
    TemporaryFile file(target);
    const bool done = file.isOpen() && file.setRights(rights) && file.write(bytes) &&
                      file.flush() && file.close() && file.replace(target);
    if (!done) {
        cause = systemMessage(errno);
        return false;
    }
    flushFolderOf(target);
    return true;
}

} // namespace host_files
