#include "ChainFromBytes.h"

#include <vector>

namespace fuzz {

namespace {

constexpr int kMostItems = 12;

void setText(resbuf& item, ByteReader& bytes) {
    item.resval.rstring = nullptr;
    // A chain that somebody filled in carelessly has items without a text.
    if (!bytes.oneIn(32)) {
        acutNewString(bytes.text(40).c_str(), item.resval.rstring);
    }
}

/// An item without a value stays as it was made.
void setValue(resbuf& item, ByteReader& bytes) {
    switch (host_db::valueKind(item.restype)) {
    case host_db::ValueKind::Text:
        setText(item, bytes);
        break;
    case host_db::ValueKind::Real:
        item.resval.rreal = bytes.coordinate();
        break;
    case host_db::ValueKind::Point:
        for (double& coordinate : item.resval.rpoint) {
            coordinate = bytes.coordinate();
        }
        break;
    case host_db::ValueKind::Short:
        item.resval.rint = static_cast<short>(bytes.number());
        break;
    case host_db::ValueKind::Long:
        item.resval.rlong = bytes.number();
        break;
    case host_db::ValueKind::Int64:
        item.resval.mnInt64 = bytes.number();
        break;
    default:
        break;
    }
}

} // namespace

Chain chainFromBytes(ByteReader& bytes, const std::function<int(ByteReader&)>& code) {
    Chain chain;
    resbuf* last = nullptr;
    for (int items = bytes.below(kMostItems + 1); items > 0; --items) {
        resbuf* const item = acutNewRb(code(bytes));
        setValue(*item, bytes);
        if (last == nullptr) {
            chain.reset(item);
        } else {
            last->rbnext = item;
        }
        last = item;
    }
    return chain;
}

} // namespace fuzz
