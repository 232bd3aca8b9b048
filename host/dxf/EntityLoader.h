#pragma once

#include "database/AcDbObjectId.h"
#include "dxf/DxfRecord.h"

#include <memory>

class AcDb2dPolyline;
class AcDb3dPolyline;
class AcDbBlockReference;
class AcDbEntity;

namespace host_dxf {

class LoadContext;

/// Reads entities and adds them to the database, each with the records that belong to it: the
/// vertices of a heavy polyline, the attributes of a reference.
class EntityLoader {
public:
    explicit EntityLoader(LoadContext& context) : context_(context) {}

    /// Reads the record at which the reader stands. Throws DxfFailure for damage and for a record
    /// that can only stand behind another one.
    void readRecord();
    const DxfRecord& record() const { return record_; }

    /// Adds the entity of the record read last, and reads on through what belongs to it.
    void addTo(AcDbObjectId block);

private:
    void addPolyline(AcDbObjectId block);
    template<typename Polyline, typename AddVertex>
    std::unique_ptr<Polyline> readVertices(std::unique_ptr<Polyline> polyline, AddVertex addVertex);
    std::unique_ptr<AcDbEntity> flatPolyline();
    std::unique_ptr<AcDbEntity> spatialPolyline();
    std::unique_ptr<AcDbEntity> meshPolyline();

    void addReference(AcDbObjectId block);
    std::unique_ptr<AcDbBlockReference> makeReference();
    void addAttributes(AcDbObjectId reference);

    std::unique_ptr<AcDbEntity> makeUnknown();
    void requireSequenceEnd(const DxfRecord& head);

    LoadContext& context_;
    DxfRecord record_;
    DxfRecord part_; ///< a vertex, an attribute or an end mark of `record_`
};

} // namespace host_dxf
