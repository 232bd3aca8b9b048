#pragma once

#include "database/AcDbDatabase.h"
#include "database/OpenObject.h"
#include "dxf/DxfDrawingSource.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dxf_test {

/// A drawing read for a test, with shortcuts to what tests look at.
class LoadedDrawing {
public:
    /// Reads the bytes; a failure fails the test and leaves an empty drawing.
    static LoadedDrawing fromBytes(const std::string& bytes);
    static LoadedDrawing fromFile(const std::string& path);

    AcDbDatabase& database() const { return *database_; }
    const host_dxf::FileOutline& outline() const;
    const host_dxf::DxfDrawingSource& source() const;

    std::vector<AcDbObjectId> modelSpace() const;
    std::vector<AcDbObjectId> entitiesOf(AcDbObjectId block) const;
    AcDbObjectId block(const wchar_t* name) const;
    /// The entity at an index of model space; nullptr, with the test failed, when there is no such
    /// entity or it is of another class.
    template<typename T>
    const T* modelEntity(std::size_t index) const {
        return host_db::peek<T>(modelEntityId(index));
    }
    AcDbObjectId modelEntityId(std::size_t index) const;
    /// The object with a handle, null id without one.
    AcDbObjectId byHandle(std::uint64_t handle) const;

private:
    LoadedDrawing(std::unique_ptr<AcDbDatabase> database, const std::string& error);

    std::unique_ptr<AcDbDatabase> database_;
};

/// The extended data of an object, one line an item: "code=value", points as "x,y,z".
std::vector<std::wstring> xdataLines(const AcDbObject& object,
                                     const wchar_t* application = nullptr);

/// The names of the records of a table in their order.
std::vector<std::wstring> recordNames(AcDbObjectId table);

/// The error that reading the bytes under the name "a.dxf" gives; "" with the test failed when the
/// bytes are read.
std::string loadError(const std::string& bytes);

} // namespace dxf_test
