#include "vantry/page/packed_text.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <ostream>
#include <span>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include "vantry/page/differences.h"

namespace vantry::page {

namespace {

constexpr std::size_t blockSize = std::size_t{48} * 1024;
static_assert(blockSize % 3 == 0, "so that only the last block is padded");

/// Three bytes become four letters; what is missing at the end, an equals sign each.
void writeBase64(std::ostream& out, std::span<const std::uint8_t> bytes) {
  constexpr char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<char, blockSize / 3 * 4> text;
  char* at = text.data();
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto part = bytes.subspan(i, std::min<std::size_t>(3, bytes.size() - i));
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) bits = bits << 8 | (k < part.size() ? part[k] : 0U);
    for (std::size_t k = 0; k < 4; ++k) {
      *at++ = k > part.size() ? '=' : letters[bits >> (18 - 6 * k) & 63];
    }
  }
  out.write(text.data(), at - text.data());
}

/// What is written to it becomes shorter by differences, is compressed, and goes on in base64.
class PackingBuffer final : public std::streambuf {
 public:
  explicit PackingBuffer(std::ostream& out) : out_(out), packed_(blockSize) {
    constexpr int gzip = 16;
    if (deflateInit2(&zip_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS + gzip, MAX_MEM_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
    beginBlock();
  }
  PackingBuffer(const PackingBuffer&) = delete;
  PackingBuffer& operator=(const PackingBuffer&) = delete;
  ~PackingBuffer() override { deflateEnd(&zip_); }

  /// Writes what is left. Nothing may be written after it.
  void finish() {
    differences_.finish(encoded_);
    packEncoded();
    while (deflate(&zip_, Z_FINISH) != Z_STREAM_END) endBlock();
    endBlock();
  }

 protected:
  std::streamsize xsputn(const char* data, std::streamsize size) override {
    const std::string_view text(data, static_cast<std::size_t>(size));
    for (std::size_t at = 0; at < text.size(); at += blockSize) encode(text.substr(at, blockSize));
    return size;
  }

  int_type overflow(int_type letter) override {
    const char c = traits_type::to_char_type(letter);
    if (!traits_type::eq_int_type(letter, traits_type::eof())) encode({&c, 1});
    return traits_type::not_eof(letter);
  }

 private:
  void encode(std::string_view text) {
    differences_.encode(text, encoded_);
    if (encoded_.size() >= blockSize) packEncoded();
  }

  void packEncoded() {
    zip_.next_in = reinterpret_cast<Bytef*>(encoded_.data());
    zip_.avail_in = static_cast<uInt>(encoded_.size());
    while (zip_.avail_in > 0) {
      deflate(&zip_, Z_NO_FLUSH);
      if (zip_.avail_out == 0) endBlock();
    }
    encoded_.clear();
  }

  void beginBlock() {
    zip_.next_out = packed_.data();
    zip_.avail_out = static_cast<uInt>(packed_.size());
  }

  void endBlock() {
    writeBase64(out_, std::span(packed_).first(packed_.size() - zip_.avail_out));
    beginBlock();
  }

  std::ostream& out_;
  DifferenceEncoder differences_;
  std::string encoded_;  // and not yet compressed
  std::vector<std::uint8_t> packed_;
  z_stream zip_{};
};

}  // namespace

void writePacked(std::ostream& out, const std::function<void(std::ostream& text)>& write) {
  PackingBuffer packing(out);
  std::ostream text(&packing);
  text.exceptions(std::ios::badbit);  // what the buffer throws passes
  write(text);
  packing.finish();
}

}  // namespace vantry::page
