#include "zrd/file_content.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>

#include "zrd/commands.h"

namespace vantry::zrd {

std::ifstream openFile(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) throw Failure(badDocument, name + ": cannot be opened: " + std::strerror(errno));
  return file;
}

std::istream& openInput(const std::string& name, std::ifstream& file) {
  if (name == "-") return std::cin;
  file = openFile(name);
  return file;
}

std::size_t readBlock(std::istream& in, const std::string& name, std::span<char> block) {
  in.read(block.data(), std::ssize(block));
  if (in.bad()) throw Failure(badDocument, name + ": cannot be read: " + std::strerror(errno));
  return static_cast<std::size_t>(in.gcount());
}

std::string contentOf(const std::string& name) {
  std::ifstream file;
  std::istream& in = openInput(name, file);
  std::string text;
  std::array<char, std::size_t{64} * 1024> block;
  std::size_t size = 0;
  do {
    size = readBlock(in, name, block);
    text.append(block.data(), size);
  } while (size == block.size());
  return text;
}

}  // namespace vantry::zrd
