#pragma once

#include <memory>
#include <string>

class AcDbDatabase;

namespace host_dxf {

/// Reads a drawing file, text or binary, of any version from R12 to R2018.
///
/// The database keeps the file's bytes for as long as it lives: texts are decoded from them when
/// asked for, and what did not change can be saved from them unchanged. The file itself is closed
/// when this returns.
///
/// On failure returns nullptr, never a part of the drawing, and sets `error` to one line without
/// line end: `FILE: cause` for a file that cannot be opened, else `FILE:LINE: cause`, where a
/// binary file has `offset N` (bytes from its start) for LINE. Throws nothing. Cost: linear in the
/// file's size; memory for the file and for its objects.
std::unique_ptr<AcDbDatabase> loadDrawing(const std::string& utf8Path, std::string& error);

/// The same for a drawing in memory; `name` stands for the file in messages.
std::unique_ptr<AcDbDatabase> loadDrawingFromBytes(const std::string& bytes,
                                                   const std::string& name, std::string& error);

} // namespace host_dxf
