#pragma once

#include <string>

/// What an instance handle points to; it has no contents.
struct HINSTANCE__;
/// Identifies a library or program that is loaded: the address at which it begins.
using HINSTANCE = HINSTANCE__*;
using HMODULE = HINSTANCE;

namespace host {

/// The handle of the library or program that `address` lies in; nullptr for an address in none.
HINSTANCE instanceOf(const void* address);

/// The name of a library's file without folders, UTF-8; empty for nullptr and for a foreign value.
std::string fileNameOf(HINSTANCE instance);

} // namespace host
