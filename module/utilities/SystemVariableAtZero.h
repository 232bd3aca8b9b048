#pragma once

#include "platform.h"

namespace tkvlt {

/// Holds a system variable of type integer at 0 for as long as it lives, and writes back what was
/// read. Nested ones give their variables back in the reverse order of taking. Results of the host
/// are not looked at.
class SystemVariableAtZero {
public:
    explicit SystemVariableAtZero(const ACHAR* name);
    SystemVariableAtZero(const SystemVariableAtZero&) = delete;
    SystemVariableAtZero& operator=(const SystemVariableAtZero&) = delete;
    ~SystemVariableAtZero();

private:
    const ACHAR* name_;
    resbuf saved_{};
};

/// The variable that has commands echo what they do.
inline constexpr auto kCommandEcho = L"cmdEcho";

} // namespace tkvlt
