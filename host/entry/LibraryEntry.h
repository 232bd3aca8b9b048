#pragma once

#include "platform/InstanceHandle.h"
#include "platform/PlatformTypes.h"

/// Reasons for which a library's entry function is called.
inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;

/// The entry function, which each library that is linked with the host's entry code defines. It is
/// called with DLL_PROCESS_ATTACH after all static constructors of the library, and with
/// DLL_PROCESS_DETACH before its static destructors. `instance` is the library's own handle;
/// `reserved` is always null. The result is not looked at: a library cannot refuse to be mapped.
extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* reserved);
