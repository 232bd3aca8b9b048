#pragma once

#include "platform/HostEvents.h"

#include <cstddef>
#include <string>
#include <vector>

namespace host {

/// Keeps what happens in the host, in order, as long as it lives: for tests that compare the whole
/// sequence. What the host does by itself inside a command is not recorded, nor are failed calls
/// but those of commands and of loading a linetype.
///
/// Lines, with HANDLE for an entity in upper-case hexadecimal:
/// - `getvar NAME`, `setvar NAME VALUE`: names in upper case, texts as they are, points as x,y,z
/// - `command INPUT ... = RTNORM` or `= RTERROR`, one line for each acedCommand or acedCmd, of its
///   input: texts in double quotes, numbers, points x,y,z, `entity:HANDLE`, `set:COUNT`, `(`, `)`
/// - `typed TEXT`: a line that the command line handed on
/// - `message NUMBER WPARAM LPARAM`: a message as it is handled
/// - `lock MODE`, `unlock`: modes by name, such as kWrite
/// - `open read HANDLE`, `open write HANDLE`, `close HANDLE`, `erase HANDLE`, `unerase HANDLE`
/// - `linetype NAME FILE = STATUS`: a linetype asked of a file, also where that failed
/// - `redraw HANDLE MODE`: an entity by acedRedraw; `redraw all MODE` for the whole view
/// - `select MODE COUNT`, `free`: a set made by acedSSGet, a set freed
/// - `tblsearch TABLE NAME = found` or `= none`: a look-up by acdbTblSearch
/// - `regapp NAME`: an application by acdbRegApp, whether new or not
/// - `move X Y WIDTH HEIGHT repaint`: a window's new place, without `repaint` when none was asked
/// - `reactor added`, `reactor removed`: of the document manager
///
/// and, with NAME for a library's file name without folders:
/// - `load NAME`, before the file is mapped; `api version NAME VERSION`, the version in
/// hexadecimal;
///   `entry NAME MESSAGE = ANSWER`, when the message has been handled
/// - `lock application NAME`, `unlock application NAME`, `mdi aware NAME`, `not mdi aware NAME`
/// - `unload NAME`, before the file is unmapped; then `unmapped NAME`, or `still mapped NAME` when
///   something else in the process holds it
/// - `classes aside`: the raw entry of an extension library; `extension init NAME`, `extension
///   library NAME`: its record is initialised, its per-library object is made; `extension term
///   NAME`, `extension library gone NAME`: they end; `ui library ready`
class HostRecorder : private EventListener {
public:
    HostRecorder() { addListener(*this); }
    ~HostRecorder() override { removeListener(*this); }

    const std::vector<std::wstring>& lines() const { return lines_; }
    /// The lines that begin with `word`.
    std::vector<std::wstring> linesOf(const std::wstring& word) const;
    void clear() { lines_.clear(); }

private:
    void onEvent(const std::wstring& line) override { lines_.push_back(line); }

    std::vector<std::wstring> lines_;
};

/// What was taken from the host and not given back.
struct LiveCounts {
    /// Opens of objects not closed: readers and writers.
    std::size_t openObjects = 0;
    int selectionSets = 0;
    /// Items of chains not released.
    std::size_t resultBuffers = 0;
    /// Document locks over all documents.
    std::size_t locks = 0;
    /// Reactors of the document manager.
    std::size_t reactors = 0;
    /// Modules that the dynamic linker loaded.
    std::size_t modules = 0;
    /// Per-library objects of extension libraries.
    std::size_t extensionLibraries = 0;
    /// Classes registered by the host and by extension libraries.
    std::size_t classes = 0;

    friend bool operator==(const LiveCounts&, const LiveCounts&) = default;
};

LiveCounts liveCounts();

} // namespace host
