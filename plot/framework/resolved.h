// The members in which elements keep the values of their properties.
#pragma once

#include <cstdint>

namespace vantry::plot {

/// The value of one property of an element: its own, or inherited, or the default. It is read as a
/// call, `mesh.lineWidth()`; only a property writes it.
template <class T>
class Resolved {
 public:
  const T& operator()() const { return value_; }

 private:
  template <class Type>
  friend class TypedValue;

  T value_{};
};

/// Base of the elements that keep properties in members: which of them were set on the element
/// itself, a bit for each.
struct MemberValues {
  std::uint32_t setBits = 0;
};

}  // namespace vantry::plot
