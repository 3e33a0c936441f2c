#include "vantry/plot/values/native_text.h"

#include "vantry/base/unicode_converter.h"

namespace vantry::plot {

std::string nativeText(const char* utf8) {
  const auto& converter = base::UnicodeConverter::instance();
  std::string native(converter.utf8ToNativeText(utf8, -1, nullptr, 0) + 1, '\0');
  native.resize(converter.utf8ToNativeText(utf8, -1, native.data(), native.size()));
  return native;
}

}  // namespace vantry::plot
