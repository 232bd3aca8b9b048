#pragma once

#include "dxf/RecordDescription.h"
#include "dxf/SaveContext.h"

#include <string>

class AcDbEntity;

namespace host_dxf {

struct RawRecord;
class RecordEditor;

/// Writes an entity that was copied from one of the file: the record of that one with what the host
/// does not model of it, brought up to date group by group.
///
/// Handle, owner, space and extended data are the copy's own. What one record alone may have is
/// left out: the extension dictionary, reactors, and objects that the record owns.
class RecordCopier {
public:
    RecordCopier(SaveContext& context, const AcDbEntity& entity);

    /// False when the entity is no copy of an entity of this file, or has become of another class
    /// than that one; it is to be written from what the host models then. An arc that was cut out
    /// of a circle is a copy of it.
    bool canCopy() const { return !origin_.isEmpty(); }
    /// The entity's record with the vertices of a heavy polyline; attributes are entities of their
    /// own. `vertices` are the records of vertices that were added to the copy.
    std::string copied(const std::string& vertices);
    /// Number of the vertices that a heavy polyline had in the file.
    std::size_t standingVertices() const;

private:
    bool isInPlace() const;
    void changeHead(RecordEditor& editor, std::uint64_t handle, AcDbObjectId extension,
                    AcDbObjectId owner);
    void setHandle(RecordEditor& editor, std::uint64_t handle);
    void dropUnshared(RecordEditor& editor);
    bool setOwner(RecordEditor& editor, AcDbObjectId owner);
    void setSpace(RecordEditor& editor);
    void changeFields(RecordEditor& editor);
    void copyPart(const SourceRange& part);

    SaveContext& context_;
    const AcDbEntity& entity_;
    SourceRange origin_;
    RecordDescription before_;
    RecordDescription now_;
    TagWriter writer_;
    FileEdits edits_;
};

} // namespace host_dxf
