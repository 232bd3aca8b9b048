#include "module/support/Compare.h"

#include <cmath>
#include <ostream>

namespace module_tests {

namespace {

::testing::AssertionResult sameTriple(const double (&actual)[3], const double (&expected)[3],
                                      double tolerance) {
    for (int i = 0; i < 3; ++i) {
        // A NaN fails the comparison too.
        if (!(std::fabs(actual[i] - expected[i]) <= tolerance)) {
            return ::testing::AssertionFailure()
                   << "(" << actual[0] << ", " << actual[1] << ", " << actual[2] << ") is not ("
                   << expected[0] << ", " << expected[1] << ", " << expected[2] << ")";
        }
    }
    return ::testing::AssertionSuccess();
}

} // namespace

::testing::AssertionResult samePoint(const AcGePoint3d& actual, const AcGePoint3d& expected,
                                     double tolerance) {
    return sameTriple({actual.x, actual.y, actual.z}, {expected.x, expected.y, expected.z},
                      tolerance);
}

::testing::AssertionResult sameVector(const AcGeVector3d& actual, const AcGeVector3d& expected,
                                      double tolerance) {
    return sameTriple({actual.x, actual.y, actual.z}, {expected.x, expected.y, expected.z},
                      tolerance);
}

std::string utf8(const CString& text) {
    return host_text::toUtf8(static_cast<const wchar_t*>(text));
}

Ids idsOf(const AcArray<AcDbObjectId>& ids) {
    Ids list;
    for (int i = 0; i < ids.length(); ++i) {
        list.push_back(ids.at(i));
    }
    return list;
}

std::vector<int> intsOf(const CArray<int, int>& numbers) {
    std::vector<int> list;
    for (int i = 0; i < static_cast<int>(numbers.GetSize()); ++i) {
        list.push_back(numbers.GetAt(i));
    }
    return list;
}

} // namespace module_tests

void PrintTo(const AcDbObjectId& id, std::ostream* out) {
    ACHAR digits[17];
    id.handle().getIntoAsciiBuffer(digits);
    *out << "handle " << (id.isNull() ? std::string("none") : host_text::toUtf8(digits));
}
