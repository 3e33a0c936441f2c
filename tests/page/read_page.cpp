#include "read_page.h"

#include <zlib.h>

#include <array>
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
  return text;
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
  }
  return "no error";
}

}  // namespace vantry::page
