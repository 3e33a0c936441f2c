#include "vantry/base/salted_hash.h"

#include <unistd.h>

#include <bit>
#include <cstdint>
#include <cstring>

namespace vantry::base {

namespace {

struct Key {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
};

/// Random bytes of the system; always the same ones on a system that has none.
Key keyOfProcess() {
  Key key;
  return getentropy(&key, sizeof key) == 0 ? key : Key();
}

struct SipState {
  std::uint64_t a, b, c, d;

  explicit SipState(const Key& key)
      : a(key.low ^ 0x736f6d6570736575),
        b(key.high ^ 0x646f72616e646f6d),
        c(key.low ^ 0x6c7967656e657261),
        d(key.high ^ 0x7465646279746573) {}

  void round() {
    a += b;
    c += d;
    b = std::rotl(b, 13) ^ a;
    d = std::rotl(d, 16) ^ c;
    a = std::rotl(a, 32);
    c += b;
    a += d;
    b = std::rotl(b, 17) ^ c;
    d = std::rotl(d, 21) ^ a;
    c = std::rotl(c, 32);
  }

  void take(std::uint64_t word) {
    d ^= word;
    round();
    a ^= word;
  }
};

}  // namespace

std::size_t saltedHash(std::string_view text) {
  static const Key key = keyOfProcess();
  SipState state(key);
  const char* at = text.data();
  std::size_t left = text.size();
  for (; left >= sizeof(std::uint64_t); left -= sizeof(std::uint64_t)) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    state.take(word);
    at += sizeof word;
  }
  std::uint64_t last = 0;
  std::memcpy(&last, at, left);
  state.take(last | static_cast<std::uint64_t>(text.size()) << 56);
  state.c ^= 0xff;
  for (int i = 0; i < 3; ++i) state.round();
  return state.a ^ state.b ^ state.c ^ state.d;
}

}  // namespace vantry::base
