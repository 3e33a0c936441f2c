// The texts with which JavaView documents begin.
#pragma once

#include <string_view>

#include "vantry/javaview/javaview_output.h"

namespace vantry::javaview {

/// The differences between the headers of the document types.
struct DocumentType {
  std::string_view root;
  std::string_view systemIdentifier;
  std::string_view dtdVersion;
};

/// The part of the header that all document types share: up to the empty abstract, within
/// `<description>`.
void beginHeader(JavaViewOutput& out, const DocumentType& type, std::string_view date);

/// The whole header of a model. All that it could say of the document stays empty.
void writeJvxHeader(JavaViewOutput& out, std::string_view date);

}  // namespace vantry::javaview
