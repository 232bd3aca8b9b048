#include "database/UndoJournal.h"

#include "database/AcDbDatabase.h"
#include "database/ObjectIdPacking.h"
#include "database/OpenObject.h"
#include "database/OpenObjects.h"

#include <algorithm>
#include <iterator>

namespace host_db {

UndoJournal::UndoJournal(AcDbDatabase& database) : database_(database) {}

UndoJournal::~UndoJournal() = default;

std::unique_ptr<AcDbObject> UndoJournal::copyOf(const AcDbObject& object) {
    std::unique_ptr<AcDbObject> copy = object.savedCopy();
    copy->ownerId_ = object.ownerId_;
    copy->source_ = object.source_;
    copy->extra_ = object.extra_ ? std::make_unique<AcDbObject::Extra>(*object.extra_) : nullptr;
    copy->applicationSet_ = object.applicationSet_;
    copy->erased_ = object.erased_;
    copy->modified_ = object.modified_;
    copy->ownXdata_ = object.ownXdata_;
    return copy;
}

void UndoJournal::noteSettings() {
    if (!running_.begun) {
        running_.begun = true;
        running_.handleSeed = database_.handleSeed_;
        running_.currentLayer = database_.currentLayer_;
    }
}

void UndoJournal::noteChange(const AcDbObject& object) {
    noteSettings();
    if (running_.seen.insert(object.objectId()).second) {
        running_.formers.push_back({object.objectId(), copyOf(object)});
    }
}

void UndoJournal::noteAdded(AcDbObjectId id) {
    noteSettings();
    running_.seen.insert(id);
    running_.formers.push_back({id, nullptr});
}

bool UndoJournal::settingsChanged() const {
    return running_.begun && (running_.handleSeed != database_.handleSeed_ ||
                              running_.currentLayer != database_.currentLayer_);
}

void UndoJournal::closeStep() {
    if (!running_.formers.empty() || settingsChanged()) {
        // Looking objects up serves the running step alone.
        running_.seen = {};
        steps_.push_back(std::move(running_));
    }
    running_ = Step();
}

void UndoJournal::beginGroup() {
    endGroup();
    closeStep();
    groupStart_ = steps_.size();
}

void UndoJournal::endGroup() {
    if (!groupStart_.has_value()) {
        return;
    }
    closeStep();
    const auto first = steps_.begin() + static_cast<std::ptrdiff_t>(*groupStart_);
    groupStart_.reset();
    if (first == steps_.end()) {
        return;
    }
    for (auto step = first + 1; step != steps_.end(); ++step) {
        std::move(step->formers.begin(), step->formers.end(), std::back_inserter(first->formers));
    }
    steps_.erase(first + 1, steps_.end());
}

bool UndoJournal::isFree(const Step& step) const {
    return std::none_of(step.formers.begin(), step.formers.end(), [](const Former& former) {
        const AcDbObject* object = OpenObjects::find(former.id);
        return object != nullptr && object->isReadEnabled();
    });
}

bool UndoJournal::undo(std::size_t count) {
    closeStep();
    const std::size_t kept = groupStart_.value_or(0);
    const std::size_t taken = std::min(count, steps_.size() - kept);
    if (!std::all_of(steps_.end() - static_cast<std::ptrdiff_t>(taken), steps_.end(),
                     [&](const Step& step) { return isFree(step); })) {
        return false;
    }
    for (std::size_t i = 0; i < taken; ++i) {
        takeBack(steps_.back());
        steps_.pop_back();
    }
    return true;
}

bool UndoJournal::rollBack() {
    if (!isFree(running_)) {
        return false;
    }
    takeBack(running_);
    running_ = Step();
    return true;
}

void UndoJournal::clear() {
    running_ = Step();
    steps_.clear();
    if (groupStart_.has_value()) {
        groupStart_ = 0;
    }
}

void UndoJournal::takeBack(Step& step) {
    for (auto former = step.formers.rbegin(); former != step.formers.rend(); ++former) {
        if (former->copy == nullptr) {
            drop(former->id);
        } else {
            restore(*former);
        }
    }
    if (step.begun) {
        database_.handleSeed_ = step.handleSeed;
        database_.currentLayer_ = step.currentLayer;
        ++database_.revision_;
    }
}

void UndoJournal::restore(Former& former) {
    const auto place = static_cast<std::uint32_t>(placeOf(former.id.asOldId()));
    const std::unique_ptr<AcDbObject> changed = database_.objects_.take(place);
    AcDbObject& restored = *former.copy;
    restored.id_ = former.id;
    database_.objects_.fill(place, std::move(former.copy));
    restored.takeLists(*changed);
}

void UndoJournal::drop(AcDbObjectId id) {
    const auto place = static_cast<std::uint32_t>(placeOf(id.asOldId()));
    const std::unique_ptr<AcDbObject> dropped = database_.objects_.take(place);
    if (AcDbObject* owner = OpenObjects::find(dropped->ownerId_)) {
        owner->disown(*dropped);
    }
    if (const auto* application = AcDbRegAppTableRecord::cast(dropped.get())) {
        database_.applications_.forget(application->name());
    }
    database_.objects_.forgetHandle(place);
}

} // namespace host_db
