#include "vantry/dom/dom_exception.h"

#include <cstddef>

namespace vantry::dom {

namespace {

constexpr const char* domErrors[] = {
    "INDEX_SIZE_ERR",
    "DOMSTRING_SIZE_ERR",
    "HIERARCHY_REQUEST_ERR",
    "WRONG_DOCUMENT_ERR",
    "INVALID_CHARACTER_ERR",
    "NO_DATA_ALLOWED_ERR",
    "NO_MODIFICATION_ALLOWED_ERR",
    "NOT_FOUND_ERR",
    "NOT_SUPPORTED_ERR",
    "INUSE_ATTRIBUTE_ERR",
    "INVALID_STATE_ERR",
    "SYNTAX_ERR",
    "INVALID_MODIFICATION_ERR",
    "NAMESPACE_ERR",
    "INVALID_ACCESS_ERR",
};

constexpr const char* rangeErrors[] = {
    "BAD_BOUNDARYPOINTS_ERR",
    "INVALID_NODE_TYPE_ERR",
};

template <std::size_t size>
const char* nameOf(const char* const (&names)[size], int code) {
  return code >= 1 && code <= static_cast<int>(size) ? names[code - 1] : "<<invalid>>";
}

}  // namespace

DomException::DomException(int code, const std::string& about)
    : code_(code), text_(std::make_shared<const std::string>(name() + (": " + about))) {}

const char* DomException::name() const noexcept { return nameOf(domErrors, code_); }

const char* RangeException::name() const noexcept { return nameOf(rangeErrors, code_); }

}  // namespace vantry::dom
