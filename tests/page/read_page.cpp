#include "read_page.h"

#include <zlib.h>

#include <array>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "../javaview/conversion.h"

namespace vantry::page {

namespace {

std::string fromBase64(std::string_view text) {
  constexpr std::string_view letters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (text.size() % 4 != 0) throw std::runtime_error("base64 is cut off");
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char letter : text.substr(0, text.find('='))) {
    const std::size_t value = letters.find(letter);
    if (value == letters.npos) throw std::runtime_error("no letter of base64");
    bits = bits << 6 | static_cast<unsigned>(value);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> count & 255);
  }
  return bytes;
}

bool isInteger(std::string_view word) {
  const std::string_view digits = word.substr(word.starts_with('-') ? 1 : 0);
  return !digits.empty() && digits.size() < 10 &&
         digits.find_first_not_of("0123456789") == digits.npos &&
         (digits.front() != '0' || word == "0");
}

/// Each integer is the sum of all differences in its column so far.
std::string fromDifferences(std::string_view encoded) {
  constexpr std::string_view separators = "\n <>";
  std::array<long, 16> sums{};
  std::size_t column = 0;
  std::string text;
  while (!encoded.empty()) {
    const std::string word(encoded.substr(0, encoded.find_first_of(separators)));
    encoded.remove_prefix(word.size());
    if (isInteger(word)) {
      long& sum = sums[column % sums.size()];
      sum += std::stol(word);
      if (std::abs(sum) >= 1'000'000'000) sum += sum < 0 ? 1'999'999'999 : -1'999'999'999;
      text += std::to_string(sum);
    } else {
      text += word;
    }
    if (!word.empty()) ++column;
    if (encoded.empty()) break;
    if (encoded.front() == '\n') column = 0;
    text += encoded.front();
    encoded.remove_prefix(1);
  }
  return text;
}

/// Removes a text from the front.
bool skip(std::string_view& rest, std::string_view text) {
  if (!rest.starts_with(text)) return false;
  rest.remove_prefix(text.size());
  return true;
}

/// Removes and returns all up to a text, and removes that text.
std::string takeUpTo(std::string_view& rest, std::string_view end) {
  const std::size_t at = rest.find(end);
  if (at == rest.npos) throw std::runtime_error("no " + std::string(end));
  std::string taken(rest.substr(0, at));
  rest.remove_prefix(at + end.size());
  return taken;
}

void compose(std::ostream& out, std::string_view source, const Options& options) {
  const javaview::ReadDocument document(source);
  Page page;
  page.add(*document.get(), {"plot", "plot.zrd"});
  page.write(out, smallTemplate, options);
}

}  // namespace

std::string unpacked(std::string_view base64) {
  std::string packed = fromBase64(base64);
  z_stream zip{};
  if (inflateInit2(&zip, 15 + 16) != Z_OK) throw std::runtime_error("no zlib");
  zip.next_in = reinterpret_cast<Bytef*>(packed.data());
  zip.avail_in = static_cast<uInt>(packed.size());
  std::string text;
  std::array<char, 4096> block;
  int state = Z_OK;
  while (state == Z_OK) {
    zip.next_out = reinterpret_cast<Bytef*>(block.data());
    zip.avail_out = block.size();
    state = inflate(&zip, Z_NO_FLUSH);
    text.append(block.data(), block.size() - zip.avail_out);
  }
  inflateEnd(&zip);
  if (state != Z_STREAM_END || zip.avail_in != 0) throw std::runtime_error("not one gzip text");
  return fromDifferences(text);
}

ReadPage::ReadPage(std::string_view page) {
  if (!skip(page, "before")) return;
  while (skip(page, R"(<script type="application/octet-stream" data-name=")")) {
    const std::string name = takeUpTo(page, "\">");
    blocks[name] = unpacked(takeUpTo(page, "</script>\n"));
  }
  if (!skip(page, R"(<script type="application/json" data-name="page">)")) return;
  text = nlohmann::json::parse(takeUpTo(page, "</script>\n"));
  isWhole = page == "after";
}

const std::string& ReadPage::block(std::size_t panel, std::size_t frame,
                                   const std::string& kind) const {
  return blocks.at(text.at("panels").at(panel).at("frames").at(frame).at(kind));
}

const nlohmann::json& ReadPage::runs(std::size_t panel, std::size_t frame) const {
  const nlohmann::json& frames = text.at("panels").at(panel).at("frames");
  while (frame > 0 && !frames.at(frame).contains("runs")) --frame;
  return frames.at(frame).at("runs");
}

ReadPage pageOf(std::string_view document, const Options& options) {
  std::ostringstream out;
  compose(out, document, options);
  return ReadPage(out.str());
}

std::string refusal(std::string_view document, const Options& options) {
  std::ostringstream out;
  try {
    compose(out, document, options);
  } catch (const PageError& failure) {
    return failure.what();
  } catch (const TooManyFrames& failure) {
    return failure.what();
  }
  return "no error";
}

}  // namespace vantry::page
