#pragma once

#include "database/AcDbObject.h"

#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace host_db {

/// What is needed to take changes of one database back, step by step.
///
/// Before an object changes for the first time in a step, the journal copies it as it stands, with
/// its mark of being modified and its place in the file; of an object that enters the database it
/// keeps the id. Taking a step back puts the copies into the objects' places, drops what was added
/// and sets the next handle and the current layer back, so that the database is as it was before
/// the step: saving it gives the same bytes. Ids of dropped objects lead nowhere from then on and
/// are not given again.
///
/// Changes gather in a running step until closeStep. A copy takes as much memory as the object; of
/// lists of entities, records and attributes only what was added is kept.
class UndoJournal {
public:
    explicit UndoJournal(AcDbDatabase& database);
    UndoJournal(const UndoJournal&) = delete;
    UndoJournal& operator=(const UndoJournal&) = delete;
    ~UndoJournal();

    /// The object in the database is about to change.
    void noteChange(const AcDbObject& object);
    /// The object has entered the database.
    void noteAdded(AcDbObjectId id);
    /// The next handle or the current layer is about to change.
    void noteSettings();

    /// Makes what has changed since the last step one step. Nothing changed makes no step.
    void closeStep();
    /// Steps from here to endGroup become one. An open group is ended first.
    void beginGroup();
    /// Does nothing without an open group.
    void endGroup();
    bool isGroupOpen() const { return groupStart_.has_value(); }

    /// Takes the last steps back, as many of `count` as there are, within an open group not beyond
    /// its beginning; running changes count as a step. False, with nothing taken back, when an
    /// object concerned is open.
    bool undo(std::size_t count);
    /// Takes back what has changed since the last step. False when an object concerned is open.
    bool rollBack();

    /// Steps that can be taken back, those of an open group each for itself, without the running
    /// one.
    std::size_t stepCount() const { return steps_.size(); }
    bool hasRunningChanges() const { return !running_.formers.empty(); }
    /// Forgets all steps: what the copies refer to is no longer there.
    void clear();

private:
    /// An object before the step; without a copy it was not in the database.
    struct Former {
        AcDbObjectId id;
        std::unique_ptr<AcDbObject> copy;
    };
    struct Step {
        std::vector<Former> formers;
        std::unordered_set<AcDbObjectId> seen;
        bool begun = false;
        std::uint64_t handleSeed = 0;
        AcDbObjectId currentLayer;
    };

    static std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object);
    bool isFree(const Step& step) const;
    bool settingsChanged() const;
    void takeBack(Step& step);
    void restore(Former& former);
    void drop(AcDbObjectId id);

    AcDbDatabase& database_;
    Step running_;
    std::vector<Step> steps_;
    std::optional<std::size_t> groupStart_;
};

} // namespace host_db
