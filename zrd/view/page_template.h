// The page without plots, which is part of the program.
#pragma once

#include <string_view>

namespace vantry::zrd {

/// What the build has made of the folder `page`. Throws Failure if the program was built without.
std::string_view pageTemplate();

}  // namespace vantry::zrd
