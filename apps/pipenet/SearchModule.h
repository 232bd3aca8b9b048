#pragma once

namespace pipenet {

/// The search module as a module of the host, loaded and told so for as long as this lives.
///
/// The program is linked with the module's shared library, as every sibling module is, and calls
/// what it exports; the dynamic linker then loads that very file by its name.
class SearchModule {
public:
    /// Throws Failure when the host does not load it.
    SearchModule();
    SearchModule(const SearchModule&) = delete;
    SearchModule& operator=(const SearchModule&) = delete;
    /// Unloads it; a host that refuses is reported on standard error.
    ~SearchModule();
};

} // namespace pipenet
