#include "platform/KeptBytes.h"

#include "platform/LargePages.h"
#include "platform/OpenFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <linux/magic.h>
#include <string>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/vfs.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace platform_memory {

namespace {

using host_files::OpenFile;

/// Gives what the call gave once no signal came in between.
template<typename Call>
ssize_t uninterrupted(const Call& call) {
    ssize_t result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Reads into `buffer` from the offset on; gives the number of bytes, fewer than `size` at the end
/// of the file alone.
std::size_t readFrom(int descriptor, std::size_t offset, char* buffer, std::size_t size) {
    std::size_t got = 0;
    while (got < size) {
        const ssize_t step = uninterrupted([&] {
            return ::pread(descriptor, buffer + got, size - got, static_cast<off_t>(offset + got));
        });
        if (step < 0) {
            throw std::system_error(errno, std::generic_category());
        }
        if (step == 0) {
            break;
        }
        got += static_cast<std::size_t>(step);
    }
    return got;
}

bool writeAll(int descriptor, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t step = uninterrupted([&] { return ::write(descriptor, bytes, size); });
        if (step <= 0) {
            return false;
        }
        bytes += step;
        size -= static_cast<std::size_t>(step);
    }
    return true;
}

/// A file that grows beyond the process's limit would end the process.
bool mayGrowTo(std::size_t size) {
    rlimit limit{};
    return ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && size <= limit.rlim_cur;
}

/// File systems that lie in memory, and those across a network or of another program's making,
/// which may tell that there is no room only when what was written has long been let go.
bool isUnfit(const struct statfs& system) {
    constexpr std::array<std::uint32_t, 11> magics = {
        TMPFS_MAGIC,      RAMFS_MAGIC,      NFS_SUPER_MAGIC, SMB_SUPER_MAGIC,
        CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, AFS_SUPER_MAGIC, CEPH_SUPER_MAGIC,
        CODA_SUPER_MAGIC, V9FS_MAGIC,       FUSE_SUPER_MAGIC};
    const auto type = static_cast<std::uint32_t>(system.f_type);
    return std::find(magics.begin(), magics.end(), type) != magics.end();
}

/// A new file in the folder for temporary files that has lost its name already; a descriptor of -1
/// where that folder allows none or is unfit.
OpenFile namelessFile() {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
    struct statfs system {};
    if (failure || ::statfs(folder.c_str(), &system) != 0 || isUnfit(system)) {
        return OpenFile(-1);
    }
    std::string name = folder / "tkvlt-";
    name.append(6, 'X'); // replaced by what makes the name unique
    OpenFile file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.descriptor() >= 0) {
        ::unlink(name.c_str());
    }
    return file;
}

/// Copies the first `size` bytes of a file, fewer when it has no more; false when the other cannot
/// take them.
bool copyFile(int from, int to, std::size_t size, std::size_t& copied) {
    std::vector<char> buffer(std::size_t{256} << 10);
    copied = 0;
    std::size_t got = buffer.size();
    while (copied < size && got == buffer.size()) {
        got = readFrom(from, copied, buffer.data(), std::min(buffer.size(), size - copied));
        if (!writeAll(to, buffer.data(), got)) {
            return false;
        }
        copied += got;
    }
    return true;
}

} // namespace

void KeptBytes::Unmap::operator()(const char* first) const noexcept {
    ::munmap(const_cast<char*>(first), size);
}

KeptBytes KeptBytes::ofFile(int descriptor, std::size_t size, std::size_t large) {
    if (size >= large) {
        Mapping mapping = mapped(descriptor, size);
        if (mapping != nullptr) {
            const std::size_t held = mapping.get_deleter().size;
            return {std::move(mapping), held};
        }
    }
    return inMemory(descriptor, size);
}

KeptBytes KeptBytes::copyOf(std::string_view bytes) {
    auto memory = std::make_unique_for_overwrite<char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), memory.get());
    return {std::move(memory), bytes.size()};
}

KeptBytes KeptBytes::inMemory(int descriptor, std::size_t size) {
    auto memory = std::make_unique_for_overwrite<char[]>(size);
    askForLargePages(memory.get(), size);
    const std::size_t got = readFrom(descriptor, 0, memory.get(), size);
    return {std::move(memory), got};
}

KeptBytes::Mapping KeptBytes::mapped(int descriptor, std::size_t size) {
    const OpenFile kept = namelessFile();
    std::size_t copied = 0;
    if (kept.descriptor() < 0 || !mayGrowTo(size) ||
        !copyFile(descriptor, kept.descriptor(), size, copied) || copied == 0) {
        return {nullptr, {0}};
    }
    void* first = ::mmap(nullptr, copied, PROT_READ, MAP_SHARED, kept.descriptor(), 0);
    return {first == MAP_FAILED ? nullptr : static_cast<const char*>(first), {copied}};
}

void KeptBytes::enterPiece() const noexcept {
    constexpr std::size_t mostPieces = 128; // eight mebibytes
    if (++entered_ > mostPieces) {
        ::madvise(const_cast<char*>(mapping_.get()), size_, MADV_DONTNEED);
        entered_ = 0;
    }
}

} // namespace platform_memory
