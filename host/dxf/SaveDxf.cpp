#include "dxf/SaveDxf.h"

#include "database/AcDbDatabase.h"
#include "dxf/DrawingWriter.h"
#include "dxf/EmptyDrawing.h"
#include "dxf/LoadDxf.h"
#include "dxf/SaveFailure.h"
#include "platform/FileReplacement.h"

#include <exception>
#include <memory>
#include <new>

namespace host_dxf {

namespace {

std::string writtenFrom(const AcDbDatabase& database, const AcDbDatabase& base) {
    const auto* const source = dynamic_cast<const DxfDrawingSource*>(base.source());
    if (source == nullptr) {
        throw SaveFailure("the drawing has no file behind it");
    }
    SaveContext context(database, base, *source);
    return DrawingWriter(context).write();
}

std::string written(const AcDbDatabase& database) {
    if (dynamic_cast<const DxfDrawingSource*>(database.source()) != nullptr) {
        return writtenFrom(database, database);
    }
    std::string error;
    const std::unique_ptr<AcDbDatabase> base =
        loadDrawingFromBytes(emptyDrawing(database), "empty drawing", error);
    if (base == nullptr) {
        throw SaveFailure(error);
    }
    return writtenFrom(database, *base);
}

} // namespace

bool drawingBytes(const AcDbDatabase& database, const std::string& name, std::string& bytes,
                  std::string& error) {
    try {
        bytes = written(database);
        return true;
    } catch (const SaveFailure& failure) {
        error = name + ": cannot save: " + failure.what();
    } catch (const std::bad_alloc&) {
        error = name + ": not enough memory";
    } catch (const DxfFailure& failure) {
        error = name + ": cannot save: " + failure.cause();
    } catch (const std::exception& unexpected) {
        error = name + ": cannot save: " + unexpected.what();
    }
    return false;
}

bool saveDrawing(const AcDbDatabase& database, const std::string& utf8Path, std::string& error) {
    std::string bytes;
    if (!drawingBytes(database, utf8Path, bytes, error)) {
        return false;
    }
    std::string cause;
    if (!host_files::replaceFile(utf8Path, bytes, cause)) {
        error = utf8Path + ": cannot save: " + cause;
        return false;
    }
    return true;
}

} // namespace host_dxf
