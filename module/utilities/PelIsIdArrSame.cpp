#include "utilities/PelIsIdArrSame.h"

#include <unordered_map>

int PelIsIdArrSame(const AcDbObjectIdArray& a, const AcDbObjectIdArray& b) {
    if (a.length() != b.length()) {
        return 0;
    }
    std::unordered_map<AcDbObjectId, int> unmatched;
    for (int i = 0; i < a.length(); ++i) {
        ++unmatched[a.at(i)];
    }
    for (int i = 0; i < b.length(); ++i) {
        const auto match = unmatched.find(b.at(i));
        if (match == unmatched.end() || match->second == 0) {
            return 0;
        }
        --match->second;
    }
    return 1; // of equal lengths, so nothing is left unmatched in either
}
