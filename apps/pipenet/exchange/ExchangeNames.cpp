#include "exchange/ExchangeNames.h"

#include "exchange/ModelFile.h"
#include "HandleText.h"

#include <algorithm>
#include <map>
#include <set>

namespace pipenet {

namespace {

/// Names already given, in capitals: one engine tells no cases apart.
class NamePool {
public:
    /// Numbers that stand once, and are legal, are kept for those that have them.
    template<class Items>
    NamePool(const Items& items, std::size_t longest) : longest_(longest) {
        for (const auto& item : items) {
            ++counts_[capitals(item.number)];
        }
    }

    bool isOwn(const std::string& number) const {
        const auto found = counts_.find(capitals(number));
        return isLegalName(number, longest_) && found != counts_.end() && found->second == 1;
    }

    std::string unused(const std::string& wanted) {
        std::string name = wanted;
        for (int i = 2; isOwn(name) || !taken_.insert(capitals(name)).second; ++i) {
            name = wanted + "_" + std::to_string(i);
        }
        return name;
    }

private:
    std::size_t longest_;
    std::map<std::string, int> counts_;
    std::set<std::string> taken_;
};

} // namespace

bool isLegalName(const std::string& name, std::size_t longest) {
    const auto isBad = [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code <= ' ' || code == 127 || letter == '"' || letter == ';' || letter == ',';
    };
    return !name.empty() && name.size() <= longest && name.front() != '[' && name != "*" &&
           std::none_of(name.begin(), name.end(), isBad);
}

void nameNetwork(ExchangeNetwork& network, std::size_t longest) {
    NamePool nodes(network.nodes, longest);
    int joints = 0;
    for (ExchangeNode& node : network.nodes) {
        const std::string other =
            node.entity.isNull() ? "J" + std::to_string(++joints) : handleText(node.entity);
        node.name = nodes.isOwn(node.number) ? node.number : nodes.unused(other);
    }
    NamePool links(network.links, longest);
    for (ExchangeLink& link : network.links) {
        link.name =
            links.isOwn(link.number) ? link.number : links.unused(handleText(link.pipes.front()));
    }
}

} // namespace pipenet
