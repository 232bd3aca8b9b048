#pragma once

#include "dxf/SaveContext.h"

class AcDbAttribute;
class AcDbBlockReference;
class AcDbBlockTableRecord;
class AcDbDictionary;
class AcDbEntity;
class AcDbSymbolTableRecord;
class AcDbXrecord;

namespace host_dxf {

/// Writes whole records of objects that the file does not hold yet, each as the file's version has
/// it. What a version cannot hold throws SaveFailure.
class RecordWriter {
public:
    explicit RecordWriter(SaveContext& context) : context_(context), writer_(context.newWriter()) {}

    /// An entity with the records that belong to it: vertices, attributes, the end mark.
    std::string entity(const AcDbEntity& entity);
    /// An attribute alone, for a reference that stands in the file.
    std::string attribute(const AcDbEntity& attribute);
    /// The end mark of the attributes or vertices of `owner`.
    std::string sequenceEnd(const AcDbEntity& owner);
    /// The vertices of a heavy polyline from index `first` on.
    std::string vertices(const AcDbEntity& polyline, std::size_t first);

    std::string tableRecord(const AcDbSymbolTableRecord& record);
    /// A definition from BLOCK to ENDBLK with its entities.
    std::string block(const AcDbBlockTableRecord& record);

    std::string dictionary(const AcDbDictionary& dictionary);
    std::string xrecord(const AcDbXrecord& record);

private:
    void head(std::string_view type, const AcDbObject& object, int handleCode = 5);
    void owner(AcDbObjectId owner);
    void marker(std::string_view name);
    void groups(const RecordDescription& description, std::size_t first);
    void xdata(const AcDbObject& object);
    void place(const AcDbEntity& entity);
    void entityRecord(const AcDbEntity& entity);
    bool copy(const AcDbEntity& entity);
    void describedRecord(const AcDbEntity& entity);
    void attributesOf(const AcDbBlockReference& reference);
    void lightPolyline(const AcDbEntity& entity);
    void vertex(const AcDbEntity& polyline, std::string_view kind, const Fields& fields);
    void ownedRecord(std::string_view type, const AcDbEntity& owner);
    void freshHandle();
    void allVertices(const AcDbEntity& polyline, std::size_t first);
    void endMark(const AcDbEntity& owner);
    void attributeVersion(const RecordDescription& description, std::string_view marker);
    void tableExtras(const AcDbSymbolTableRecord& record);
    void blockMark(std::string_view type, std::string_view marker,
                   const AcDbBlockTableRecord& record);
    void requireObjects(const AcDbObject& object, const char* kind) const;

    SaveContext& context_;
    TagWriter writer_;
};

} // namespace host_dxf
