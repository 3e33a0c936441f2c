#include "zrd/file_content.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "zrd/commands.h"

namespace vantry::zrd {

std::string contentOf(const std::string& name) {
  std::ifstream file;
  if (name != "-") file.open(name, std::ios::binary);
  if (!file) throw Failure(badDocument, name + ": cannot be opened: " + std::strerror(errno));
  std::istream& in = name == "-" ? std::cin : file;
  std::string text;
  std::array<char, std::size_t{64} * 1024> block;
  do {
    in.read(block.data(), std::ssize(block));
    text.append(block.data(), static_cast<std::size_t>(in.gcount()));
  } while (in);
  if (in.bad()) throw Failure(badDocument, name + ": cannot be read: " + std::strerror(errno));
  return text;
}

}  // namespace vantry::zrd
