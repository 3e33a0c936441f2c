// Conversion of text between the native multibyte encoding, UTF-8 and UTF-16.
//
// All conversions have one shape, convert(source, sourceLength, target, targetSize):
// - Lengths and sizes count units: bytes of native text and UTF-8, 16-bit units of UTF-16.
// - A source length below 0 means that the source ends with a NUL. The target gets a NUL too, then,
//   and must have room for it.
// - A null target means that nothing is written, only measured.
// - The result is the number of units of the converted text, without a NUL.
// - They throw BadUnicodeString for a text that cannot be converted, BadBufferLength for a target
//   that is too small, and std::bad_alloc. What the target holds then is not defined.
#pragma once

#include <iconv.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>

#include "vantry/base/text_errors.h"

namespace vantry::base {

/// A code point above U+10FFFF becomes U+FFFD. A text that ends within a character cannot be
/// converted; other than that, its bytes are not checked.
std::size_t utf8ToUtf16(const char* source, std::ptrdiff_t sourceLength, char16_t* target,
                        std::size_t targetSize);

/// A surrogate without its partner passes as its own value, in three bytes.
std::size_t utf16ToUtf8(const char16_t* source, std::ptrdiff_t sourceLength, char* target,
                        std::size_t targetSize);

/// The codeset of the process's locale: what follows the first "." of its name, or all of it.
const char* nativeCodeset();

/// How many bytes the first character of a native text has, as the locale of the process divides
/// it: 0 at the NUL, -1 if it is no character. Unlike std::mblen() it keeps nothing between calls,
/// which other threads would share.
int nativeCharacterLength(const char* text);

/// Converts from and to the native encoding, directly where the C library can, otherwise by way of
/// the other Unicode form. Throws BadLocale where neither is possible. Any number of threads may
/// use one converter.
class UnicodeConverter {
 public:
  using OpenConversion = iconv_t (*)(const char* to, const char* from);

  /// The process's converter; its native encoding is UTF-8. Never destroyed, as the destructors of
  /// static objects may still write text.
  static UnicodeConverter& instance();

  /// Ends the process, after a message, if nothing converts between `nativeName` and Unicode.
  explicit UnicodeConverter(const char* nativeName, OpenConversion open = iconv_open);

  /// Text of native and UTF-8 form is the same, and is copied unchecked.
  bool nativeIsUtf8() const { return nativeIsUtf8_; }

  std::size_t utf8ToNativeText(const char* source, std::ptrdiff_t sourceLength, char* target,
                               std::size_t targetSize) const;
  std::size_t nativeTextToUtf8(const char* source, std::ptrdiff_t sourceLength, char* target,
                               std::size_t targetSize) const;
  std::size_t nativeTextToUtf16(const char* source, std::ptrdiff_t sourceLength, char16_t* target,
                                std::size_t targetSize) const;
  std::size_t utf16ToNativeText(const char16_t* source, std::ptrdiff_t sourceLength, char* target,
                                std::size_t targetSize) const;

 private:
  // One direction of the C library's conversion, open or not.
  class Direction {
   public:
    Direction() = default;
    Direction(const Direction&) = delete;
    Direction& operator=(const Direction&) = delete;
    ~Direction();

    void open(OpenConversion how, const char* to, const char* from);
    bool isOpen() const { return handle_ != closed(); }

    // Converts one blank, so that no later text gets the byte order mark of a first conversion.
    template <class Source>
    void prime() const;

    // Gives the number of units written.
    template <class Source, class Target>
    std::size_t operator()(std::span<const Source> source, std::span<Target> target) const;

   private:
    static iconv_t closed() { return std::bit_cast<iconv_t>(std::intptr_t{-1}); }

    // Gives the number of bytes left in the target, or nothing and the reason in errno.
    std::optional<std::size_t> run(const void* source, std::size_t sourceBytes, void* target,
                                   std::size_t targetBytes) const;

    iconv_t handle_ = closed();
    mutable std::mutex mutex_;  // the C library's conversion keeps a state
  };

  bool convertsUtf8() const { return nativeToUtf8_.isOpen() && utf8ToNative_.isOpen(); }
  bool convertsUtf16() const { return nativeToUtf16_.isOpen() && utf16ToNative_.isOpen(); }

  Direction nativeToUtf8_;
  Direction nativeToUtf16_;
  Direction utf8ToNative_;
  Direction utf16ToNative_;
  bool nativeIsUtf8_ = false;
};

}  // namespace vantry::base
