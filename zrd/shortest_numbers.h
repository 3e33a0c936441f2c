// Numbers in as few digits as give them back.
#pragma once

#include <locale>

namespace vantry::zrd {

/// The classic locale, but a stream with it writes each number in the fewest digits from which the
/// same number is read, whatever its precision.
std::locale withShortestNumbers();

}  // namespace vantry::zrd
