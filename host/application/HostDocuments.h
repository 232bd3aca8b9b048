#pragma once

#include <string>

class AcApDocument;

/// The few operations by which a program drives the embedded host.
namespace host {

/// Makes an empty drawing in a document of its own, which becomes the current one. nullptr while a
/// document is open and a module is loaded that works with one document only, and when a reactor of
/// the document manager closes it at once.
AcApDocument* newDocument();

/// Reads a drawing from a file into a document, which becomes the current one. `path` is UTF-8. On
/// failure nullptr, and `error` is one line that names file, line and cause; nothing else changes.
/// A module that works with one document only forbids a second one, as for `newDocument`.
AcApDocument* openDocument(const std::string& path, std::string& error);

/// Writes the document's drawing to a file, which is replaced in one step; `path` is UTF-8 and
/// becomes the document's. What did not change since the drawing was read stays as it stood, byte
/// by byte. On failure false, one line in `error` that names file and cause, and the old file.
bool saveDocument(AcApDocument* document, const std::string& path, std::string& error);

/// Closes a document and deletes its drawing; another open one becomes the current one. A null or
/// foreign pointer does nothing. Ids into the drawing stay safe and open nothing any more.
void closeDocument(AcApDocument* document);

} // namespace host
