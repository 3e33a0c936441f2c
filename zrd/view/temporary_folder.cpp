#include "zrd/view/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "zrd/commands.h"

namespace vantry::zrd {

namespace {

std::filesystem::path parentFolder() {
  const char* const chosen = std::getenv("TMPDIR");
  const std::filesystem::path parent = chosen && *chosen ? chosen : "/tmp";
  std::error_code unknown;  // where the current folder is gone
  const std::filesystem::path absolute = std::filesystem::absolute(parent, unknown);
  return unknown ? parent : absolute;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  const std::filesystem::path parent = parentFolder();
  // mkdtemp() puts a name that is not taken in the place of the six letters.
  path_ = parent / ("zrd-" + std::string(6, 'X'));
  if (mkdtemp(path_.data())) return;
  throw Failure(badDocument, "no temporary folder can be made in " + parent.string() + ": " +
                                 std::generic_category().message(errno) +
                                 " (the variable TMPDIR can name another one)");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code none;
  if (!isKept_) std::filesystem::remove_all(path_, none);
}

}  // namespace vantry::zrd
