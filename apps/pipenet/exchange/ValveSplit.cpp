#include "exchange/ValveSplit.h"

#include "exchange/PipeRun.h"

#include <algorithm>

namespace pipenet {

namespace {

/// A fitting and how far along its pipe it stands, from 0 to 1.
struct OnPipe {
    ExchangeFitting fitting;
    double share;
};

/// One link being cut.
class LinkCutter {
public:
    LinkCutter(ExchangeNetwork& network, std::vector<ExchangeLink>& links,
               std::vector<ExchangeFitting>& fittings, const ExchangeLink& link)
        : network_(network), links_(links), fittings_(fittings), whole_(link), from_(link.from) {
        way_.points = link.path;
    }

    void run(const std::vector<OnPipe>& standing) {
        for (const OnPipe& one : standing) {
            if (one.fitting.isValve) {
                addPart(one.share, addJoint(one));
                addValve(one);
            } else {
                waiting_.push_back(one.fitting);
            }
        }
        addPart(1.0, whole_.to);
    }

    static double shareOf(const ExchangeLink& link, const PlanPoint& at) {
        PipePiece way;
        way.points = link.path;
        return nearestShare(way, at).share;
    }

private:
    double heightAt(double share) const {
        const double start = whole_.startElevation.value_or(0.0);
        return start + (whole_.endElevation.value_or(0.0) - start) * share;
    }
    std::size_t addJoint(const OnPipe& valve);
    void addValve(const OnPipe& valve);
    void addPart(double to, std::size_t node);

    ExchangeNetwork& network_;
    std::vector<ExchangeLink>& links_;
    std::vector<ExchangeFitting>& fittings_;
    const ExchangeLink& whole_;
    PipePiece way_;
    std::size_t from_; ///< node where the next part begins
    double share_ = 0.0;
    std::vector<ExchangeFitting> waiting_; ///< of the part being made
};

std::size_t LinkCutter::addJoint(const OnPipe& valve) {
    ExchangeNode joint;
    joint.at = valve.fitting.at;
    if (whole_.startElevation && whole_.endElevation) {
        joint.lowestPipe = heightAt(valve.share);
    }
    network_.nodes.push_back(joint);
    return network_.nodes.size() - 1;
}

void LinkCutter::addPart(double to, std::size_t node) {
    ExchangeLink part = whole_;
    part.from = from_;
    part.to = node;
    part.path = PiecePart{way_, share_, to}.points();
    part.length = whole_.length * (to - share_);
    for (ExchangeFitting& fitting : waiting_) {
        fitting.link = links_.size();
        fittings_.push_back(fitting);
    }
    waiting_.clear();
    links_.push_back(std::move(part));
    share_ = to;
    from_ = node;
}

void LinkCutter::addValve(const OnPipe& valve) {
    ExchangeLink link;
    link.device = ExchangeDevice::valve;
    link.pipes = {valve.fitting.entity};
    link.number = valve.fitting.number;
    link.from = from_;
    link.to = addJoint(valve);
    link.path = {valve.fitting.at, valve.fitting.at};
    link.diameter = whole_.diameter;
    from_ = link.to;
    links_.push_back(std::move(link));
}

} // namespace

void splitAtValves(ExchangeNetwork& network) {
    std::vector<std::vector<OnPipe>> standing(network.links.size());
    for (const ExchangeFitting& fitting : network.fittings) {
        const ExchangeLink& link = network.links[fitting.link];
        if (!fitting.isValve || link.device == ExchangeDevice::none) {
            standing[fitting.link].push_back({fitting, LinkCutter::shareOf(link, fitting.at)});
        }
    }
    const std::vector<ExchangeLink> whole = std::move(network.links);
    std::vector<ExchangeLink> links;
    std::vector<ExchangeFitting> fittings;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::stable_sort(standing[i].begin(), standing[i].end(),
                         [](const OnPipe& a, const OnPipe& b) { return a.share < b.share; });
        LinkCutter(network, links, fittings, whole[i]).run(standing[i]);
    }
    network.links = std::move(links);
    network.fittings = std::move(fittings);
}

} // namespace pipenet
