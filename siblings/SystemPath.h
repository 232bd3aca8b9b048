#pragma once

#include <string>

namespace siblings {

/// Where the settings files lie, by the order told at `GetSystemPath`.
class SystemPath {
public:
    /// An empty text takes the setting away.
    void set(const std::string& path) { given_ = path; }

    /// The folder as it was given, UTF-8; valid until the next call. The variable is looked at
    /// every time, the program's surroundings at the first time they are needed.
    const std::string& current();

private:
    std::string given_;
    std::string variable_;
    std::string installed_;
};

} // namespace siblings
