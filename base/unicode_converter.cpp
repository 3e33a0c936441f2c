#include "vantry/base/unicode_converter.h"

#include <langinfo.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>
#include <string>
#include <string_view>

namespace vantry::base {
namespace {

constexpr const char* nativeEncoding = "UTF-8";

// ---- The two forms of Unicode ----

constexpr char16_t firstHighSurrogate = 0xD800;
constexpr char16_t firstLowSurrogate = 0xDC00;
constexpr char16_t lastLowSurrogate = 0xDFFF;
constexpr std::uint32_t firstOfPairs = 0x10000;
constexpr std::uint32_t lastOfPairs = 0x10FFFF;
constexpr char16_t replacement = 0xFFFD;

bool isHighSurrogate(char16_t unit) {
  return unit >= firstHighSurrogate && unit < firstLowSurrogate;
}
bool isLowSurrogate(char16_t unit) { return unit >= firstLowSurrogate && unit <= lastLowSurrogate; }

// The bytes of a character by its first one, which has as many leading ones. A byte that cannot be
// the first one counts as a character.
std::size_t sequenceLength(unsigned char first) {
  return static_cast<std::size_t>(std::clamp(std::countl_one(first), 1, 6));
}

// The value of one character: the bits of all its bytes, without what marks them as first or
// following.
std::uint32_t decodeUtf8(std::span<const char> bytes) {
  constexpr std::array<std::uint32_t, 7> marks = {0,         0,          0x3080,    0xE2080,
                                                  0x3C82080, 0xFA082080, 0x82082080};
  std::uint32_t value = 0;
  for (const char byte : bytes) value = (value << 6) + static_cast<unsigned char>(byte);
  return value - marks[bytes.size()];
}

std::size_t convertUtf8ToUtf16(std::span<const char> source, std::span<char16_t> target) {
  auto out = target.begin();
  const auto put = [&](std::uint32_t unit) {
    if (out == target.end()) throw BadBufferLength();
    *out++ = static_cast<char16_t>(unit);
  };
  while (!source.empty()) {
    const std::size_t length = sequenceLength(static_cast<unsigned char>(source.front()));
    if (length > source.size()) throw BadUnicodeString();
    const std::uint32_t value = decodeUtf8(source.first(length));
    source = source.subspan(length);
    if (value < firstOfPairs) {
      put(value);
    } else if (value > lastOfPairs) {
      put(replacement);
    } else {
      put(firstHighSurrogate + ((value - firstOfPairs) >> 10));
      put(firstLowSurrogate + ((value - firstOfPairs) & 0x3FF));
    }
  }
  return static_cast<std::size_t>(out - target.begin());
}

std::size_t convertUtf16ToUtf8(std::span<const char16_t> source, std::span<char> target) {
  constexpr std::array<std::uint32_t, 6> largest = {0x7F,     0x7FF,     0xFFFF,
                                                    0x1FFFFF, 0x3FFFFFF, 0xFFFFFFFF};
  constexpr std::array<unsigned char, 6> firstMarks = {0x00, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};
  std::size_t written = 0;
  for (std::size_t i = 0; i < source.size(); ++i) {
    std::uint32_t value = source[i];
    if (isHighSurrogate(source[i]) && i + 1 < source.size() && isLowSurrogate(source[i + 1])) {
      ++i;
      value = firstOfPairs + ((value - firstHighSurrogate) << 10) + (source[i] - firstLowSurrogate);
    }
    const auto following = static_cast<std::size_t>(
        std::lower_bound(largest.begin(), largest.end(), value) - largest.begin());
    if (target.size() - written <= following) throw BadBufferLength();
    for (std::size_t k = following; k > 0; --k, value >>= 6) {
      target[written + k] = static_cast<char>(0x80 | (value & 0x3F));
    }
    target[written] = static_cast<char>(firstMarks[following] | value);
    written += following + 1;
  }
  return written;
}

// ---- The rules that all conversions share ----

// Room for a text, in the object itself while the text is short.
template <class Unit>
class Scratch {
 public:
  // What it held before is lost.
  std::span<Unit> room(std::size_t size) {
    if (size <= fixed_.size()) return std::span(fixed_).first(size);
    heap_ = std::make_unique_for_overwrite<Unit[]>(size);
    return {heap_.get(), size};
  }

 private:
  std::array<Unit, 512 / sizeof(Unit)> fixed_;
  std::unique_ptr<Unit[]> heap_;
};

// Converts into `scratch`, with more and more room until the text fits.
template <class Source, class Target, class Step>
std::span<const Target> convertToScratch(std::span<const Source> source, Scratch<Target>& scratch,
                                         const Step& step) {
  for (std::size_t size = source.size();; size *= 2) {
    const std::span<Target> room = scratch.room(size);
    try {
      return room.first(step(source, room));
    } catch (const BadBufferLength&) {
    }
  }
}

// A conversion in two steps, with the text between them in `Unit`s.
template <class Unit, class First, class Second>
auto byWayOf(const First& first, const Second& second) {
  return [&](auto source, auto target) {
    Scratch<Unit> scratch;
    return second(convertToScratch(source, scratch, first), target);
  };
}

template <class Unit>
std::span<const Unit> textOf(const Unit* source, std::ptrdiff_t length) {
  if (length < 0) return {source, std::char_traits<Unit>::length(source)};
  return {source, static_cast<std::size_t>(length)};
}

// Applies `step`, which converts exactly the units that it is given, or throws.
template <class Source, class Target, class Step>
std::size_t convert(const Source* source, std::ptrdiff_t sourceLength, Target* target,
                    std::size_t targetSize, const Step& step) {
  const std::span<const Source> text = textOf(source, sourceLength);
  if (!target) {
    Scratch<Target> scratch;
    return convertToScratch(text, scratch, step).size();
  }
  const std::size_t written = step(text, std::span(target, targetSize));
  if (sourceLength < 0) {
    if (written == targetSize) throw BadBufferLength();
    target[written] = Target();
  }
  return written;
}

// The text as it is.
std::size_t copyText(const char* source, std::ptrdiff_t sourceLength, char* target,
                     std::size_t targetSize) {
  if (!target) return textOf(source, sourceLength).size();
  const auto copy = [](std::span<const char> from, std::span<char> to) {
    if (from.size() > to.size()) throw BadBufferLength();
    std::copy(from.begin(), from.end(), to.begin());
    return from.size();
  };
  return convert(source, sourceLength, target, targetSize, copy);
}

}  // namespace

std::size_t utf8ToUtf16(const char* source, std::ptrdiff_t sourceLength, char16_t* target,
                        std::size_t targetSize) {
  return convert(source, sourceLength, target, targetSize, convertUtf8ToUtf16);
}

std::size_t utf16ToUtf8(const char16_t* source, std::ptrdiff_t sourceLength, char* target,
                        std::size_t targetSize) {
  return convert(source, sourceLength, target, targetSize, convertUtf16ToUtf8);
}

const char* nativeCodeset() {
  const char* name = nl_langinfo(CODESET);
  const char* point = std::strchr(name, '.');
  return point ? point + 1 : name;
}

int nativeCharacterLength(const char* text) {
  std::mbstate_t start{};
  const std::size_t length = std::mbrlen(text, MB_CUR_MAX, &start);
  return length <= MB_LEN_MAX ? static_cast<int>(length) : -1;
}

// ---- The native encoding ----

UnicodeConverter& UnicodeConverter::instance() {
  static UnicodeConverter& converter = *new UnicodeConverter(nativeEncoding);
  return converter;
}

UnicodeConverter::UnicodeConverter(const char* nativeName, OpenConversion open) {
  if (nativeName) {
    nativeToUtf8_.open(open, "UTF-8", nativeName);
    nativeToUtf16_.open(open, "UTF-16", nativeName);
    utf8ToNative_.open(open, nativeName, "UTF-8");
    utf16ToNative_.open(open, nativeName, "UTF-16");
    nativeIsUtf8_ = std::string_view(nativeName) == "UTF-8";
  }
  if (!nativeIsUtf8_ && !convertsUtf8() && !convertsUtf16()) {
    std::fputs(
        "The current locale does not support conversion to Unicode.\n"
        "Please choose another locale.\n",
        stderr);
    std::exit(1);
  }
  nativeToUtf8_.prime<char>();
  nativeToUtf16_.prime<char>();
  utf8ToNative_.prime<char>();
  utf16ToNative_.prime<char16_t>();
}

std::size_t UnicodeConverter::utf8ToNativeText(const char* source, std::ptrdiff_t sourceLength,
                                               char* target, std::size_t targetSize) const {
  if (nativeIsUtf8_) return copyText(source, sourceLength, target, targetSize);
  if (convertsUtf8()) return convert(source, sourceLength, target, targetSize, utf8ToNative_);
  if (convertsUtf16()) {
    return convert(source, sourceLength, target, targetSize,
                   byWayOf<char16_t>(convertUtf8ToUtf16, utf16ToNative_));
  }
  throw BadLocale();
}

std::size_t UnicodeConverter::nativeTextToUtf8(const char* source, std::ptrdiff_t sourceLength,
                                               char* target, std::size_t targetSize) const {
  if (nativeIsUtf8_) return copyText(source, sourceLength, target, targetSize);
  if (convertsUtf8()) return convert(source, sourceLength, target, targetSize, nativeToUtf8_);
  if (convertsUtf16()) {
    return convert(source, sourceLength, target, targetSize,
                   byWayOf<char16_t>(nativeToUtf16_, convertUtf16ToUtf8));
  }
  throw BadLocale();
}

std::size_t UnicodeConverter::nativeTextToUtf16(const char* source, std::ptrdiff_t sourceLength,
                                                char16_t* target, std::size_t targetSize) const {
  if (convertsUtf16()) return convert(source, sourceLength, target, targetSize, nativeToUtf16_);
  if (convertsUtf8()) {
    return convert(source, sourceLength, target, targetSize,
                   byWayOf<char>(nativeToUtf8_, convertUtf8ToUtf16));
  }
  throw BadLocale();
}

std::size_t UnicodeConverter::utf16ToNativeText(const char16_t* source, std::ptrdiff_t sourceLength,
                                                char* target, std::size_t targetSize) const {
  if (convertsUtf16()) return convert(source, sourceLength, target, targetSize, utf16ToNative_);
  if (convertsUtf8()) {
    return convert(source, sourceLength, target, targetSize,
                   byWayOf<char>(convertUtf16ToUtf8, utf8ToNative_));
  }
  throw BadLocale();
}

// ---- One direction ----

UnicodeConverter::Direction::~Direction() {
  if (isOpen()) iconv_close(handle_);
}

void UnicodeConverter::Direction::open(OpenConversion how, const char* to, const char* from) {
  handle_ = how(to, from);
}

std::optional<std::size_t> UnicodeConverter::Direction::run(const void* source,
                                                            std::size_t sourceBytes, void* target,
                                                            std::size_t targetBytes) const {
  char* in = static_cast<char*>(const_cast<void*>(source));  // iconv only reads it
  char* out = static_cast<char*>(target);
  constexpr auto failure = static_cast<std::size_t>(-1);
  const std::lock_guard lock(mutex_);
  if (iconv(handle_, &in, &sourceBytes, &out, &targetBytes) == failure) return std::nullopt;
  return targetBytes;
}

template <class Source>
void UnicodeConverter::Direction::prime() const {
  const Source blank = ' ';
  std::array<char, 36> room;
  if (isOpen()) run(&blank, sizeof(blank), room.data(), room.size());
}

template <class Source, class Target>
std::size_t UnicodeConverter::Direction::operator()(std::span<const Source> source,
                                                    std::span<Target> target) const {
  if (source.empty()) return 0;
  const auto left = run(source.data(), source.size_bytes(), target.data(), target.size_bytes());
  if (left) return target.size() - *left / sizeof(Target);
  if (errno == E2BIG) throw BadBufferLength();
  throw BadUnicodeString();
}

}  // namespace vantry::base
