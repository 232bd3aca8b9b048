#pragma once

/// What passes between the host and the entry points of a module.
namespace AcRx {

/// Messages to a module's entry point. This host sends the first two; a module answers any
/// other with kRetOK.
enum AppMsgCode { kNullMsg = 0, kInitAppMsg = 1, kUnloadAppMsg = 2 };

/// Answers. kRetError to kInitAppMsg makes the host unload the module again.
enum AppRetCode { kRetOK = 0, kRetError = 3 };

/// The generation of the programming interface: the major version in the upper half.
inline constexpr int kApiVersion = 0x120000;

} // namespace AcRx
