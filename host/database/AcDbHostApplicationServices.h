#pragma once

class AcDbDatabase;

/// What the application offers to the database: for one thing, which database is being worked on.
class AcDbHostApplicationServices {
public:
    /// The database of the current document, or the one set last; nullptr when there is none.
    AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

private:
    AcDbDatabase* working_ = nullptr;
};

/// The one object of its kind in the process.
AcDbHostApplicationServices* acdbHostApplicationServices();
