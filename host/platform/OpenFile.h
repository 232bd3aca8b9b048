#pragma once

#include <unistd.h>
#include <utility>

namespace host_files {

/// Closes a file descriptor at the end of its scope; -1 stands for none.
class OpenFile {
public:
    explicit OpenFile(int descriptor) noexcept : descriptor_(descriptor) {}
    OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~OpenFile() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace host_files
