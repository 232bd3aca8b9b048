#pragma once

#include "platform/InstanceHandle.h"
#include "platform/PlatformTypes.h"

/// Reasons for which a library's entry function is called.
inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

/// The entry function, which each library that is linked with the host's entry code defines. It is
/// called with DLL_PROCESS_ATTACH after the static constructors of the library's own object files,
/// and with DLL_PROCESS_DETACH before their static destructors; static archives that the library
/// takes in have to stand before the entry code in its link line for theirs to keep that order too.
/// `instance` is the library's own handle; `reserved` is always null. The result is not looked at:
/// a library cannot refuse to be mapped. Each library has its own, which no other must find.
extern "C" [[gnu::visibility("hidden")]] int DllMain(HINSTANCE instance, DWORD reason,
                                                     void* reserved);
