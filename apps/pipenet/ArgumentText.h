#pragma once

#include "EmbeddedHost.h"

#include <optional>
#include <string>
#include <vector>

namespace pipenet {

/// The handle in an argument; throws Failure naming `option` for anything but 1 to 16 hexadecimal
/// digits, or zero.
AcDbHandle handleArgument(const std::string& option, const std::string& text);

/// The handles between the commas of an argument, in their order; throws Failure.
std::vector<AcDbHandle> handlesArgument(const std::string& option, const std::string& text);

/// The number in an argument, whole text, `.` as the decimal point; throws Failure for anything
/// else, for what is not finite, and for a number below `least` (or equal to it with `above`).
double numberArgument(const std::string& option, const std::string& text,
                      std::optional<double> least = std::nullopt, bool above = false);

/// The whole number in an argument, 32 bits; throws Failure.
int integerArgument(const std::string& option, const std::string& text);

/// `X,Y` as a point of height 0; throws Failure.
AcGePoint3d pickArgument(const std::string& text);

/// `X,Y` (height 0) or `X,Y,Z`; throws Failure.
AcGePoint3d pointArgument(const std::string& text);

} // namespace pipenet
