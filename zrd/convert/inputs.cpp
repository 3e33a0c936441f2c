#include "zrd/convert/inputs.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

#include "zrd/commands.h"
#include "zrd/file_content.h"

namespace vantry::zrd {

namespace {

namespace fs = std::filesystem;

class Search {
 public:
  explicit Search(ConvertReport& report) : report_(report) {}

  void addNamed(const fs::path& name) {
    std::error_code failure;
    const fs::file_status status = fs::status(name, failure);
    if (fs::is_directory(status)) {
      addFolder(name);
    } else if (fs::exists(status)) {
      add({name, {}});
    } else {
      report_.fail(name.string() + ": cannot be opened: " + failure.message());
    }
  }

  void addList(const std::string& name) try {
    const std::string text = contentOf(name);
    const char end = text.find('\0') == std::string::npos ? '\n' : '\0';
    std::istringstream names(text);
    for (std::string entry; std::getline(names, entry, end);) {
      if (entry == "-") entry = "./-";  // in a list it is a file like any other
      if (!entry.empty()) addNamed(entry);
    }
  } catch (const Failure& failure) {
    report_.fail(failure.what());
  }

  std::vector<Input> take() { return std::move(inputs_); }

 private:
  void addFolder(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code failure;
    fs::recursive_directory_iterator entries(folder, failure);
    while (!failure && entries != fs::recursive_directory_iterator()) {
      std::error_code unknown;
      if (entries->path().extension() == ".zrd" && !entries->is_directory(unknown)) {
        found.push_back(entries->path());
      }
      entries.increment(failure);
    }
    if (failure) {
      report_.fail(folder.string() + ": cannot be searched: " + failure.message());
    } else if (found.empty()) {
      report_.fail("no plot documents (*.zrd) in " + folder.string());
    }
    std::ranges::sort(found);
    for (const fs::path& name : found) {
      add({name, name.parent_path().lexically_relative(folder)});
    }
  }

  void add(Input input) {
    if (known_.insert(fs::absolute(input.name).lexically_normal()).second) {
      inputs_.push_back(std::move(input));
    }
  }

  ConvertReport& report_;
  std::vector<Input> inputs_;
  std::set<fs::path> known_;
};

}  // namespace

std::vector<Input> findInputs(const std::vector<std::string>& names, const std::string& listName,
                              ConvertReport& report) {
  Search search(report);
  for (const std::string& name : names) {
    if (name == "-") {
      search.addList(name);
    } else {
      search.addNamed(name);
    }
  }
  if (!listName.empty()) search.addList(listName);
  return search.take();
}

}  // namespace vantry::zrd
