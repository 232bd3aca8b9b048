#include "dxf/SaveContext.h"

#include "database/ObjectIdPacking.h"
#include "dxf/RawRecord.h"

#include <algorithm>

namespace host_dxf {

namespace {

constexpr std::string_view firstLightPolylineVersion = "AC1014";
constexpr std::string_view firstOwnedVersion = "AC1015";
constexpr std::string_view firstNumberedVersion = "AC1024";

ItemTranslator translatorFor(const AcDbDatabase& database, const TextDecoder& decoder) {
    const std::uint32_t serial = database.serial();
    const host_db::ObjectTable& objects = database.objects();
    return {decoder,
            [serial, &objects](std::uint64_t handle) -> std::int64_t {
                const std::uint32_t place = objects.find(handle);
                return place == host_db::ObjectTable::kNone ? 0 : host_db::packId(serial, place);
            },
            [&objects](std::int64_t id) { return objects.handleAt(host_db::placeOf(id)); }};
}

} // namespace

SaveContext::SaveContext(const AcDbDatabase& database, const AcDbDatabase& baseDatabase,
                         const DxfDrawingSource& base)
    : database_(database), baseDatabase_(baseDatabase), base_(base), encoder_(base.decoder()),
      style_(TagStyle::of(base.file())), writer_(style_, encoder_),
      items_(translatorFor(database, base.decoder())),
      nextHandle_(std::max(database.handseed().value(), baseDatabase.handseed().value())) {
    for (const FilePart& part : outline().parts) {
        if (part.kind == FilePart::Kind::Block) {
            blockParts_.emplace(part.block.handle().value(), &part);
        }
    }
}

OriginalObjects& SaveContext::originals() {
    if (!originals_) {
        originals_ = std::make_unique<OriginalObjects>(base_);
    }
    return *originals_;
}

bool SaveContext::hasMarkers() const {
    return outline().hasMarkers();
}

bool SaveContext::hasOwners() const {
    return outline().version >= firstOwnedVersion;
}

bool SaveContext::hasVersions() const {
    return outline().version >= firstNumberedVersion;
}

bool SaveContext::hasLightPolylines() const {
    return outline().version >= firstLightPolylineVersion;
}

bool SaveContext::hasHandles() const {
    return hasMarkers() || outline().hasHandles;
}

const AcDbObject* SaveContext::objectOf(AcDbObjectId id) const {
    return id.database() == &database_ ? database_.objects().at(host_db::placeOf(id.asOldId()))
                                       : nullptr;
}

SourceRange SaveContext::rangeOf(const AcDbObject& object) const {
    if (!isStandIn()) {
        return object.sourceRange();
    }
    const host_db::ObjectTable& objects = baseDatabase_.objects();
    const std::uint32_t place = objects.find(object.objectId().handle().value());
    const AcDbObject* const standing = objects.at(place);
    return standing == nullptr ? SourceRange() : standing->sourceRange();
}

SourceRange SaveContext::copyOriginOf(const AcDbObject& object) const {
    const CopyOrigin origin = object.copyOrigin();
    return !isStandIn() && origin.database == database_.serial() ? origin.record : SourceRange();
}

bool SaveContext::isImplied(const AcDbObject& object) const {
    return !isStandIn() && object.sourceRange().isEmpty() && object.replacedRange().isEmpty() &&
           host_db::placeOf(object.objectId().asOldId()) < outline().objectCount &&
           !created_.contains(object.objectId());
}

bool SaveContext::isNew(const AcDbObject& object) const {
    return rangeOf(object).isEmpty() && !isImplied(object);
}

bool SaveContext::isGone(const AcDbObject& object) const {
    // Owners of damaged files may lead round in a circle.
    constexpr int deepestNesting = 1000;
    const AcDbObject* each = &object;
    for (int depth = 0; each != nullptr && depth < deepestNesting; ++depth) {
        if (each->isErased()) {
            return true;
        }
        each = objectOf(each->ownerId());
    }
    return false;
}

std::uint64_t SaveContext::standingHandle(const AcDbObject& object) const {
    const RawRecord record(file(), rangeOf(object));
    const bool has = record.field(5) != nullptr || record.field(105) != nullptr;
    return has ? object.objectId().handle().value() : 0;
}

std::uint64_t SaveContext::handleOf(AcDbObjectId id) const {
    const AcDbObject* const object = objectOf(id);
    if (object == nullptr || !hasHandles() || isImplied(*object)) {
        return 0;
    }
    if (isNew(*object)) {
        return id.handle().value();
    }
    const auto [known, isFirst] = handles_.try_emplace(id, 0);
    if (isFirst) {
        known->second = standingHandle(*object);
    }
    return known->second;
}

std::uint64_t SaveContext::newHandle() {
    if (!hasHandles()) {
        return 0;
    }
    tookHandles_ = true;
    return nextHandle_++;
}

const FilePart* SaveContext::blockPart(AcDbObjectId block) const {
    const auto known = blockParts_.find(block.handle().value());
    return known == blockParts_.end() ? nullptr : known->second;
}

const FilePart* SaveContext::part(FilePart::Kind kind, std::string_view name) const {
    for (const FilePart& each : outline().parts) {
        if (each.kind == kind && each.name == name) {
            return &each;
        }
    }
    return nullptr;
}

} // namespace host_dxf
