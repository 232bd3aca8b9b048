#pragma once

#include "TKVltSearchModule18.h"

#include <memory>
#include <utility>
#include <vector>

namespace module_tests {

/// A gravity search as its rules are worded, step by step: loops over plain arrays, recursion, and
/// every record read as a whole when it is collected. It shares the records and the host with the
/// module and nothing of the module's search, so that what is wrong there is not wrong here too.
class LiteralGravity {
public:
    /// Thrown by a search that would try more ways than one can wait for.
    struct TooManyWays {};

    LiteralGravity(GravitySearchObject& result, AcDbObjectId start, AcDbObjectId end,
                   AcGePoint3d pick);

    int run();

    /// The stretch around one pipe, without any network: on an object that has not run.
    int buildSingle(GravitySeg& seg, AcDbObjectId pipe, const CString& system);

    int abortFlag = 0;
    int sideJoins = 0; ///< chains that were followed into the side of a pipe or along an overlap

private:
    enum Kind { kWell, kTank, kPipe };
    /// A well (1) or tank (0) by its place in its pool; -1 for none.
    struct Target {
        int kind = 0;
        int index = -1;
    };
    /// What a trace may go on with: a pipe, how it is left, and where it is entered.
    struct Entry {
        int pipe;
        int outThroughStart;
        AcGePoint3d at;
    };
    enum class Way { kFound, kNothing, kStopped };

    bool validateEnds();
    bool collect();
    void collectEntity(AcDbObjectId id);

    bool placeRoot();
    bool findRoot(Target& root);
    bool findRootFromPipe(Target& root);
    Target targetFrom(int pipe, int outThroughStart);
    _Block& blockOf(const Target& target);
    Well makeNode(const Target& target);

    int walk(int well);
    void merge(int well);
    bool isNode(AcDbObjectId block);
    bool touches(const _Pipe& pipe, Well& node, bool& nearStart, AcGePoint3d& seed);
    bool isTargetNew();
    int commit(int well);
    void takePipes(GravitySeg& seg);
    void readAttributes(GravitySeg& seg);

    void resetChain(int pipe);
    int trace(int pipe, int outThroughStart, AcGePoint3d seed);
    bool meetsNode(const AcGePoint3d& end);
    bool endsAtBlock(int pipe, const AcGePoint3d& seed, const AcGePoint3d& end);
    Way followEnds(int pipe, const AcGePoint3d& seed, const AcGePoint3d& end);
    Way followSides(int pipe, const AcGePoint3d& seed, const AcGePoint3d& end);
    Way followSide(int pipe, int other, const AcGePoint3d& seed);
    Way followOverlap(int pipe, int other, const AcGePoint3d& seed);
    Way follow(int pipe, const AcGePoint3d& seed, const Entry& entry);
    bool mayJoin(int pipe, int other);
    void addLink(int pipe, int next, const AcGePoint3d& from, const AcGePoint3d& to);

    void placeLabel(GravitySeg& seg, AcGePoint3d reference);
    void labelOn(_Pipe& pipe, AcGePoint3d from, AcGePoint3d to, double distance, GravitySeg& seg);

    void readSingle(GravitySeg& seg, AcDbObjectId pipe);
    int closeOpenStretch(GravitySeg& seg, int pipe, const Target& beforeStart,
                         const Target& behindEnd);

    bool traceEndPath();
    int endNode();
    void orderHeights();

    GravitySearchObject& result_;
    AcDbObjectId start_;
    AcDbObjectId end_;
    AcGePoint3d pick_;
    Kind startKind_ = kWell;
    Kind endKind_ = kWell;
    CString system_;
    double snapDist_;
    int lengthMode_;

    std::vector<std::unique_ptr<_Pipe>> pipes_;
    std::vector<std::unique_ptr<_Block>> wells_;
    std::vector<std::unique_ptr<_Block>> tanks_;

    std::vector<int> marks_;
    std::vector<int> chain_;
    double chainLength_ = 0.0;
    Target target_;
    long waysLeft_ = 200000;
};

} // namespace module_tests
