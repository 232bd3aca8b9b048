#pragma once

#include <string>

class AcDbDatabase;

namespace host_dxf {

/// Writes a drawing to a file.
///
/// A drawing that was read from a file is written as that file with the changes made since: what
/// did not change keeps its bytes, down to single groups of a changed object. It keeps version,
/// form, encoding and line ends. A drawing without a file becomes one of version R2018, UTF-8 text.
///
/// The file at `utf8Path` is replaced in one step and keeps its access rights; a symbolic link
/// stays, and the file it leads to is replaced. The database stays as it is, so that saving again
/// writes the same. On failure returns false, sets `error` to one line `FILE: cause`, and the file
/// is the old one. Throws nothing. Cost: linear in the size of the file and of the drawing.
bool saveDrawing(const AcDbDatabase& database, const std::string& utf8Path, std::string& error);

/// The bytes that saveDrawing writes; `name` stands for the file in messages.
bool drawingBytes(const AcDbDatabase& database, const std::string& name, std::string& bytes,
                  std::string& error);

} // namespace host_dxf
