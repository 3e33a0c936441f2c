// The namespace of documents that this program writes or describes.
#pragma once

namespace vantry::zrd {

inline constexpr const char* formatNamespace = "http://www.example.org/xml/Corvane";

}  // namespace vantry::zrd
