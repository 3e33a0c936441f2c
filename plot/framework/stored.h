// The members in which elements keep the values of their properties.
#pragma once

#include <cstdint>
#include <utility>

namespace vantry::plot {

/// The resolved value of one property. It is read as a call, `mesh.lineWidth()`; only a property
/// writes it.
template <class T>
class Stored {
 public:
  const T& operator()() const { return value_; }

 private:
  template <class Element, class Trait>
  friend class PropertyImpl;

  T value_{};
};

/// Base of the elements that keep properties in members: which of them were set, a bit for each.
struct MemberValues {
  std::uint32_t setBits = 0;
};

}  // namespace vantry::plot
