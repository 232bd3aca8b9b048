#pragma once

#include <string>
#include <vector>

/// Loading of modules for a program that drives the embedded host.
namespace host {

/// Loads a module, as AcRxDynamicLinker::loadModule does; `path` is UTF-8. On failure false, one
/// line in `error` that names file and cause, and nothing loaded.
bool loadModule(const std::string& path, std::string& error);

/// Unloads a module by its name or path, as AcRxDynamicLinker::unloadModule does. On failure false
/// and one line in `error`.
bool unloadModule(const std::string& path, std::string& error);

/// The `appId` of a loaded module, by its name or path; nullptr for one that is not loaded.
void* moduleId(const std::string& path);

/// File names of the loaded modules without folders, in the order of their loading.
std::vector<std::string> loadedModules();

} // namespace host
