#pragma once

class AcDbDatabase;

namespace host_db {

/// A drawing's file that knows whether its version has dictionaries. A DrawingSource derives
/// from it as well when there are versions that have none.
class DictionaryHolder {
public:
    virtual bool holdsDictionaries() const = 0;

protected:
    ~DictionaryHolder() = default;
};

/// Whether dictionaries and xrecords of a drawing can be saved: not in the version R12 of a drawing
/// that was read from a file, always in one made in this process.
bool holdsDictionaries(const AcDbDatabase& database);

} // namespace host_db
