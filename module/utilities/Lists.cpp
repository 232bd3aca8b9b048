#include "utilities/Lists.h"

#include "utilities/FarAway.h"

int PelIsIdInIdArr(AcDbObjectIdArray& ids, AcDbObjectId id) {
    for (int i = 0; i < ids.length(); ++i) {
        if (ids[i] == id) {
            return 1;
        }
    }
    return 0;
}

int PelIsCStringInCStringArray(const CStringArray& texts, const CString& text,
                               [[maybe_unused]] int index) {
    for (INT_PTR i = 0; i < texts.GetSize(); ++i) {
        if (texts[i].Compare(text) == 0) {
            index = static_cast<int>(i);
            return 1;
        }
    }
    return 0;
}

int PelFindMinIndex(CArray<double, double>& values) {
    double limit = tkvlt::kFarAway;
    int least = -1;
    for (INT_PTR i = 0; i < values.GetSize(); ++i) {
        if (values[i] < limit) {
            limit = values[i];
            least = static_cast<int>(i);
        }
    }
    return least;
}
