#pragma once

#include "database/AcDbDatabase.h"
#include "dxf/DxfDrawingSource.h"
#include "dxf/FileEdits.h"
#include "dxf/ItemGroups.h"
#include "dxf/OriginalObjects.h"
#include "dxf/TagWriter.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace host_dxf {

/// What all that write one drawing share: the file that the drawing started from, the changes to
/// it so far, and which object stands where.
class SaveContext {
public:
    /// `base` is the file behind `baseDatabase`. That is the drawing itself when it was read from a
    /// file, else a drawing of the same handles that stands in for one. All must outlive the
    /// context.
    SaveContext(const AcDbDatabase& database, const AcDbDatabase& baseDatabase,
                const DxfDrawingSource& base);

    const AcDbDatabase& database() const { return database_; }
    const DxfSource& file() const { return base_.file(); }
    const FileOutline& outline() const { return base_.outline(); }
    const TextDecoder& decoder() const { return base_.decoder(); }
    TagWriter& writer() { return writer_; }
    TagWriter newWriter() const { return {style_, encoder_}; }
    FileEdits& edits() { return edits_; }
    OriginalObjects& originals();
    const ItemTranslator& items() const { return items_; }

    /// Versions from which on records are written in the manner named.
    bool hasMarkers() const;  ///< subclass markers, an OBJECTS section: from R13
    bool hasOwners() const;   ///< owners of entities: from R2000
    bool hasVersions() const; ///< version numbers in attributes: from R2010
    bool hasLightPolylines() const;
    bool hasHandles() const;

    /// The object's bytes in the file; empty when the file does not hold it.
    SourceRange rangeOf(const AcDbObject& object) const;
    /// The record of this file that the object was copied from; empty for what is no copy, and for
    /// a copy that came from another drawing.
    SourceRange copyOriginOf(const AcDbObject& object) const;
    /// The object is to be added to the file: made by the user, or named by `create`.
    bool isNew(const AcDbObject& object) const;
    /// The object stands for what the file leaves unsaid.
    bool isImplied(const AcDbObject& object) const;
    /// From now on an implied object counts as new, because another one cannot stand without it.
    void create(const AcDbObject& object) { created_.insert(object.objectId()); }
    /// The file was made up for a drawing that was read from none.
    bool isStandIn() const { return &database_ != &baseDatabase_; }
    /// Erased, or owned by something erased.
    bool isGone(const AcDbObject& object) const;
    /// The object even when it was erased; nullptr for none.
    const AcDbObject* objectOf(AcDbObjectId id) const;

    /// The handle by which the written file knows the object, 0 when it has none there.
    std::uint64_t handleOf(AcDbObjectId id) const;
    /// A handle for a record that is no object of the drawing. 0 when the file has no handles.
    std::uint64_t newHandle();
    /// The least handle above all those given out.
    std::uint64_t nextHandle() const { return nextHandle_; }
    bool tookHandles() const { return tookHandles_; }
    void noteNewHandle() { tookHandles_ = true; }

    /// The definition's part of the BLOCKS section; nullptr when the file has none.
    const FilePart* blockPart(AcDbObjectId block) const;
    /// The part of that kind and name; nullptr when the file has none.
    const FilePart* part(FilePart::Kind kind, std::string_view name) const;

    /// Text to be added at the end of a section or table ("ENTITIES", "LAYER") or a definition.
    std::string& addition(const std::string& partName) { return additions_[partName]; }
    std::string& blockAddition(const FilePart& part) { return blockAdditions_[part.bodyEnd]; }
    const std::map<std::string, std::string>& additions() const { return additions_; }
    const std::map<std::size_t, std::string>& blockAdditions() const { return blockAdditions_; }

private:
    std::uint64_t standingHandle(const AcDbObject& object) const;

    const AcDbDatabase& database_;
    const AcDbDatabase& baseDatabase_;
    const DxfDrawingSource& base_;
    TextEncoder encoder_;
    TagStyle style_;
    TagWriter writer_;
    FileEdits edits_;
    ItemTranslator items_;
    std::unique_ptr<OriginalObjects> originals_;
    std::unordered_map<std::uint64_t, const FilePart*> blockParts_;
    mutable std::unordered_map<AcDbObjectId, std::uint64_t> handles_;
    std::unordered_set<AcDbObjectId> created_;
    std::map<std::string, std::string> additions_;
    std::map<std::size_t, std::string> blockAdditions_;
    std::uint64_t nextHandle_;
    bool tookHandles_ = false;
};

} // namespace host_dxf
