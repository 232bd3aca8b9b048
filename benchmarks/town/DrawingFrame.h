#pragma once

#include "town/TagText.h"

#include <string>
#include <vector>

namespace benchmark_town {

/// What stands around the entities of a drawing file of the 2010 form: header, tables, blocks and
/// objects. Handles of these count up from 1, below those of the entities.
class DrawingFrame {
public:
    /// @param last the highest handle among the entities.
    DrawingFrame(Place low, Place high, std::uint64_t last);

    /// Everything up to the begin of the entities.
    void addHead(TagText& tags);
    /// Everything behind the last entity.
    void addTail(TagText& tags);
    /// The owner of the entities.
    const std::string& modelSpace() const { return modelSpace_; }

private:
    std::string newHandle();
    void addHeader(TagText& tags) const;
    void addTables(TagText& tags);
    std::string beginTable(TagText& tags, const char* kind, std::size_t count);
    std::string beginRecord(TagText& tags, const char* kind, const std::string& table,
                            const char* subclass, const std::string& name);
    void addViewport(TagText& tags);
    void addLinetypes(TagText& tags);
    void addLayers(TagText& tags);
    void addStyle(TagText& tags);
    void addApplications(TagText& tags);
    void addDimensionStyle(TagText& tags);
    void addBlockRecords(TagText& tags);
    void addBlocks(TagText& tags);
    void addDictionary(TagText& tags, const std::string& handle, const std::string& owner) const;
    void addLayout(TagText& tags, const std::string& handle, const char* name, int order,
                   const std::string& space) const;

    Place low_;
    Place high_;
    std::uint64_t last_;
    std::uint64_t next_ = 1;
    std::string modelSpace_;
    std::string paperSpace_;
    std::vector<std::string> blockRecords_;
    std::string rootDictionary_;
    std::string groups_;
    std::string layouts_;
    std::string modelLayout_;
    std::string paperLayout_;
};

} // namespace benchmark_town
