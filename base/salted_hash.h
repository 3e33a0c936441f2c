// A hash of texts that nobody can foresee.
#pragma once

#include <cstddef>
#include <string_view>

namespace vantry::base {

/// SipHash-1-3 of the text under a key that each process draws anew, so that no document can be
/// made whose words all fall into one slot. Of no use for what outlives the process.
std::size_t saltedHash(std::string_view text);

}  // namespace vantry::base
