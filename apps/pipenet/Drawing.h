#pragma once

#include "EmbeddedHost.h"
#include "NetworkEntity.h"

#include <string>
#include <vector>

namespace pipenet {

/// The drawing of the command, open and current for as long as this lives.
class Drawing {
public:
    /// Reads the file. Throws Failure when it cannot be read.
    explicit Drawing(std::string path);
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing();

    const std::string& path() const { return path_; }
    /// Path without its folders.
    std::string name() const;

    /// The entity with this handle; throws Failure when there is none or it is erased.
    AcDbObjectId entity(const AcDbHandle& handle) const;

    /// Ids of the entities of all spaces in drawing order, erased ones left out.
    std::vector<AcDbObjectId> entities() const;

    /// Those of them that belong to a network, each once.
    std::vector<NetworkEntity> networkEntities() const;

    /// Writes the drawing in one step: the file at `path` is the old one or the new one at any
    /// moment. Throws Failure when it cannot be written.
    void save(const std::string& path) const;

private:
    std::string path_;
    AcApDocument* document_;
};

} // namespace pipenet
