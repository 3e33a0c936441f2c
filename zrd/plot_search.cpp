#include "zrd/plot_search.h"

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

/// The names in a list that are not empty. Lines may end as on Windows.
std::vector<std::string> namesIn(const std::string& list) {
  const bool isOfLines = list.find('\0') == std::string::npos;
  std::vector<std::string> names;
  std::istringstream entries(list);
  for (std::string entry; std::getline(entries, entry, isOfLines ? '\n' : '\0');) {
    if (isOfLines && entry.ends_with('\r')) entry.pop_back();
    if (!entry.empty()) names.push_back(entry);
  }
  return names;
}

class Search {
 public:
  void addNamed(const fs::path& name) {
    std::error_code failure;
    const fs::file_status status = fs::status(name, failure);
    if (fs::is_directory(status)) {
      addFolder(name);
    } else if (fs::exists(status)) {
      add({name, {}});
    } else {
      fail(Kind::unreadable, name.string() + ": cannot be opened: " + failure.message());
    }
  }

  void addList(const std::string& name) try {
    const std::vector<std::string> names = namesIn(contentOf(name));
    if (names.empty()) found_.warnings.push_back(name + ": warning: there is no name in the list");
    for (const std::string& entry : names) {
      addNamed(entry == "-" ? "./-" : entry);  // in a list it is a file like any other
    }
  } catch (const Failure& failure) {
    fail(Kind::unreadable, failure.what());
  }

  FoundPlots take() { return std::move(found_); }

 private:
  using Kind = SearchFailure::Kind;

  void addFolder(const fs::path& folder) {
    std::vector<fs::path> plots;
    std::error_code failure;
    fs::recursive_directory_iterator entries(folder, failure);
    while (!failure && entries != fs::recursive_directory_iterator()) {
      std::error_code unknown;
      if (entries->path().extension() == ".zrd" && !entries->is_directory(unknown)) {
        plots.push_back(entries->path());
      }
      entries.increment(failure);
    }
    if (failure) {
      fail(Kind::notSearched, folder.string() + ": cannot be searched: " + failure.message());
    } else if (plots.empty()) {
      fail(Kind::withoutPlots, "no plots (*.zrd) in " + folder.string());
    }
    std::ranges::sort(plots);
    for (const fs::path& name : plots) {
      add({name, name.parent_path().lexically_relative(folder)});
    }
  }

  void add(FoundPlot plot) {
    if (known_.insert(comparable(plot.name)).second) found_.plots.push_back(std::move(plot));
  }

  void fail(Kind kind, std::string sentence) {
    found_.failures.push_back({kind, std::move(sentence)});
  }

  FoundPlots found_;
  std::set<fs::path> known_;
};

}  // namespace

fs::path comparable(const fs::path& name) {
  std::error_code failure;
  const fs::path absolute = fs::absolute(name, failure);
  return (failure ? name : absolute).lexically_normal();
}

FoundPlots findPlots(const std::vector<std::string>& names, const std::string& listName) {
  Search search;
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
