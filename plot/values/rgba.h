// Colours.
#pragma once

#include <cstdint>

namespace vantry::plot {

/// A colour as one word, 0xAARRGGBB; alpha 255 is opaque. Opaque black by default.
class RGBA {
 public:
  constexpr RGBA() = default;
  constexpr explicit RGBA(std::uint32_t word) : word_(word) {}
  constexpr RGBA(int red, int green, int blue, int alpha = 255)
      : word_(byte(alpha) << 24 | byte(red) << 16 | byte(green) << 8 | byte(blue)) {}

  constexpr std::uint32_t word() const { return word_; }
  constexpr int red() const { return channel(16); }
  constexpr int green() const { return channel(8); }
  constexpr int blue() const { return channel(0); }
  constexpr int alpha() const { return channel(24); }

  friend constexpr bool operator==(RGBA, RGBA) = default;

 private:
  static constexpr std::uint32_t byte(int value) { return static_cast<std::uint32_t>(value) & 255; }
  constexpr int channel(int shift) const { return static_cast<int>(word_ >> shift & 255); }

  std::uint32_t word_ = 0xFF000000;
};

inline constexpr RGBA black{0, 0, 0};
inline constexpr RGBA white{255, 255, 255};
inline constexpr RGBA red{255, 0, 0};
inline constexpr RGBA yellow{255, 255, 0};
inline constexpr RGBA blue{0, 0, 255};

}  // namespace vantry::plot
