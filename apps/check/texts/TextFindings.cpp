#include "texts/TextFindings.h"

namespace pipenet {

void addTextFindings(const CheckContext& /*context*/, CheckReport& /*report*/) {}

} // namespace pipenet
