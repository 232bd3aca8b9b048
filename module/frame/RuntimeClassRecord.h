#pragma once

#include <cstddef>

#include "platform.h"

namespace tkvlt {

/// Schema number of a class that has dynamic identity but is never written to an archive.
inline constexpr unsigned kNoSchema = 0xFFFF;

/// A run-time class record with dynamic identity and without dynamic creation.
constexpr CRuntimeClass RuntimeClassRecord(const char* name, std::size_t size,
                                           CRuntimeClass* (*baseClass)()) {
    return CRuntimeClass{name, static_cast<int>(size), kNoSchema, nullptr, baseClass, nullptr};
}

} // namespace tkvlt
