#pragma once

#include "networks/Closing.h"
#include "pressure/PressureNetworkSearch.h"

#include <unordered_map>
#include <vector>

namespace pipenet {

/// A free end of a prepared pipe: nothing is in reach of it, so a search can begin there.
struct FreeEnd {
    int piece; ///< pool index
    AcDbObjectId pipe;
    AcGePoint3d place;
    bool isStart;             ///< the first end as drawn
    bool isSource;            ///< the flow text says that the water comes from here
    double reach;             ///< within which another end would have been found, drawing units
    AcDbObjectId foreignWell; ///< the well of another system that it lies in; null for none
};

/// Searches all networks of one pressure system out of one collection: from each pipe that no
/// earlier search took, beginning at free ends, so that a search comes to the whole network.
class PressureForest {
public:
    /// @param others names of further systems, in whose wells an end may lie by mistake.
    PressureForest(const CString& system, std::vector<CString> others);
    PressureForest(const PressureForest&) = delete;
    PressureForest& operator=(const PressureForest&) = delete;

    /// To be called once.
    NetworkPieces grow();

    /// Where the preparation cut pipes; complete after `grow`.
    const std::vector<tkvlt::PipeCut>& cuts() const { return cuts_; }
    /// First pipes of the runs that a search turns round and is misled by; complete after `grow`.
    const std::vector<AcDbObjectId>& turnedRuns() const { return turned_; }
    /// The ends of prepared pipes out of which nothing is in reach: those from which the water
    /// comes first, then those of pipes that are drawn away from there.
    const std::vector<FreeEnd>& freeEnds() const { return freeEnds_; }
    /// The prepared pipes and the search on them. After `grow` its pools hold no pipe.
    const tkvlt::PressureNetworkSearch& search() const { return search_; }
    /// Pool indices of the prepared pipes; their records stay as they were.
    const std::vector<int>& prepared() const { return prepared_; }

private:
    /// An end of a prepared pipe and the pipes of which an end is in reach of it.
    struct Joint {
        AcGePoint3d place;
        std::vector<AcDbObjectId> others;
    };
    using SegsOfPipe = std::unordered_multimap<AcDbObjectId, int>;

    void prepare();
    void findFreeEnds();
    void addJoint(int piece, const AcGePoint3d& place, const tkvlt::Indices& inReach);
    void growFrom(int piece, const AcGePoint3d& place);

    void makeNodes();
    int nodeAt(const AcGePoint3d& place);
    void joinMeetingEnds();
    Closing closingOf(int earlier, int later);
    void noticeRings();
    void noticePassedEnds();
    const Joint* jointAtEndOf(int index);
    Closing passingAt(const Joint& joint, int index, const SegsOfPipe& segsOfPipe);
    bool passes(int index, const AcGePoint3d& place);
    int pipesBefore(int index, const Joint& joint);
    void makeRuns();
    CheckedRun runOf(int seg);
    void addWellsOnRuns();
    void addFittings();
    int nodeOfWell(const AcDbObjectId& well, CheckedNodeKind kind, int companion);

    PressureSeg& seg(int index) { return segs_.ElementAt(index); }
    int segCount() const { return static_cast<int>(segs_.GetSize()); }
    int beginNode(int index);

    AcDbObjectId foreignWellAt(const AcGePoint3d& place) const;

    CString system_;
    std::vector<CString> others_;
    CArray<PressureSeg, PressureSeg&> segs_; ///< of all networks, one behind the other
    int rootSeg_ = -1;
    std::vector<tkvlt::PipeCut> cuts_;
    std::vector<AcDbObjectId> turned_;
    tkvlt::PressureNetworkSearch search_;
    std::vector<int> prepared_;
    std::vector<FreeEnd> freeEnds_;
    std::unordered_multimap<AcDbObjectId, Joint> joints_; ///< by the pipe whose end it is
    std::vector<int> roots_;                              ///< segments at which searches began
    std::vector<int> networkOf_; ///< of each segment, the index in `roots_`
    std::vector<int> rootNodes_; ///< node at the begin of each root
    std::vector<int> endNodes_;  ///< node at the search point of each segment
    std::vector<int> parents_;   ///< of each segment; -1 for a root
    std::vector<int> meets_;     ///< the earlier segment that it ends in one place with; -1
    std::unordered_map<AcDbObjectId, int> wellNodes_;
    NetworkPieces pieces_;
};

} // namespace pipenet
