// File names in addresses.
#pragma once

#include <string>
#include <string_view>

namespace vantry::base {

/// A path as a part of an address, as in "two%20words.zrd": all bytes but those of plain letters,
/// digits and "-._~/" are escaped.
std::string percentEscaped(std::string_view path);

}  // namespace vantry::base
