#pragma once

#include "Messages.h"

#include <stdexcept>

namespace pipenet {

/// Exit statuses of the program.
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1; ///< the module said no
inline constexpr int kFailed = 2;  ///< usage, input or output

/// Ends a command with status 2. `what()` is the one line that goes to standard error.
class Failure : public std::runtime_error {
public:
    template<class... Arguments>
    explicit Failure(const Message& message, const Arguments&... arguments)
        : std::runtime_error(textOf(message, arguments...)) {}
};

} // namespace pipenet
