#pragma once

#include "database/AcDbDatabase.h"
#include "platform/CString.h"

#include <memory>
#include <string>
#include <vector>

/// Kinds of document lock.
namespace AcAp {
enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,
    kNotLocked = 0x02,
    kWrite = 0x04,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40
};
} // namespace AcAp

/// An open drawing. Documents are made and deleted by the document manager.
class AcApDocument {
public:
    AcApDocument(std::unique_ptr<AcDbDatabase> database, std::string path);
    AcApDocument(const AcApDocument&) = delete;
    AcApDocument& operator=(const AcApDocument&) = delete;
    ~AcApDocument();

    AcDbDatabase* database() const { return database_.get(); }
    /// Path of the file it was read from or written to last; empty for a new drawing.
    const ACHAR* fileName() const { return fileName_; }
    /// The file's name without folders, "Drawing" for a new one.
    const ACHAR* docTitle() const { return title_; }
    /// The strongest lock held, kNotLocked without one.
    AcAp::DocLockMode lockMode() const;
    /// Number of locks held and not given back.
    std::size_t lockCount() const { return locks_.size(); }
    /// What another holds on the document, kNotLocked for nothing.
    AcAp::DocLockMode lockModeOfOthers() const { return othersLock_; }

    /// Takes the path of the file that the drawing was written to.
    void setPath(const std::string& path);

private:
    friend class AcApDocManager;

    std::unique_ptr<AcDbDatabase> database_;
    CString fileName_;
    CString title_;
    std::vector<AcAp::DocLockMode> locks_;
    AcAp::DocLockMode othersLock_ = AcAp::kNotLocked;
};
