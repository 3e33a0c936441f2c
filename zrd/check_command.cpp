#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "vantry/check/check.h"
#include "vantry/check/report.h"
#include "vantry/check/values.h"
#include "zrd/commands.h"
#include "zrd/file_content.h"
#include "zrd/messages.h"
#include "zrd/option_values.h"
#include "zrd/plot_search.h"

namespace vantry::zrd {

namespace {

namespace fs = std::filesystem;
using check::counted;
using check::Diagnostic;
using check::FileReport;
using check::Severity;

enum class Format { text, json, sarif };
enum class Color { automatic, always, never };

const Choices<Format> formats = {
    {"text", Format::text}, {"json", Format::json}, {"sarif", Format::sarif}};
const Choices<Color> colors = {
    {"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}};

struct Options {
  std::vector<std::string> files;
  Format format = Format::text;
  Color color = Color::automatic;
  std::size_t most = 0;  ///< 0: all are shown
  bool isStrict = false;
};

/// https://no-color.org: a variable that is there and not empty.
bool isColored(Color color) {
  if (color != Color::automatic) return color == Color::always;
  const char* const noColor = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool isRefused = noColor && *noColor != '\0';
  const bool isDumb = !terminal || std::string_view(terminal) == "dumb";
  return isatty(STDOUT_FILENO) == 1 && !isRefused && !isDumb;
}

/// Whether there may be more to find than there is.
bool isCut(const std::vector<Diagnostic>& diagnostics) {
  std::map<std::string_view, std::size_t> counts;
  for (const Diagnostic& diagnostic : diagnostics) ++counts[diagnostic.code];
  return std::ranges::any_of(counts,
                             [](const auto& count) { return count.second >= check::mostOfAKind; });
}

/// Checks the files one after the other, and shows what it finds.
class Checker {
 public:
  explicit Checker(const Options& options) : options_(options) {}

  int run() {
    for (const std::string& name : options_.files) checkFileOrFolder(name);
    if (options_.format == Format::sarif) check::writeSarif(std::cout, reports_, VANTRY_VERSION);
    if (options_.format == Format::text) writeSummary();
    if (!std::cout.flush()) throw Failure(badDocument, "standard output cannot be written");
    if (unreadable_ + notSearched_ + withoutPlots_ > 0) return badDocument;
    return errors_ > 0 || (options_.isStrict && warnings_ > 0) ? hasMistakes : success;
  }

 private:
  void checkFileOrFolder(const std::string& name) {
    std::error_code unknown;
    if (name == "-" || !fs::is_directory(name, unknown)) return checkOnce(name);
    const FoundPlots found = findPlots({name});
    for (const FoundPlot& plot : found.plots) checkOnce(plot.name);
    for (const SearchFailure& failure : found.failures) {
      noteFailure(name, failure.sentence);
      ++countOf(failure.kind);
    }
  }

  std::int64_t& countOf(SearchFailure::Kind kind) {
    switch (kind) {
      case SearchFailure::Kind::notSearched:
        return notSearched_;
      case SearchFailure::Kind::withoutPlots:
        return withoutPlots_;
      case SearchFailure::Kind::unreadable:
        break;
    }
    return unreadable_;
  }

  /// A file may be named again, or be in a folder that is named too.
  void checkOnce(const std::string& name) {
    if (checked_.insert(name == "-" ? fs::path(name) : comparable(name)).second) check(name);
  }

  void check(const std::string& name) try {
    const std::string text = contentOf(name);
    ++read_;
    FileReport report{name, check::check(text)};
    const auto errors =
        std::ranges::count(report.diagnostics, Severity::error, &Diagnostic::severity);
    errors_ += errors;
    warnings_ += std::ssize(report.diagnostics) - errors;
    report.mayHaveMore = isCut(report.diagnostics);
    isCut_ = isCut_ || report.mayHaveMore;
    limit(report);
    show(report, text);
  } catch (const Failure& failure) {
    ++unreadable_;
    noteFailure(name, failure.what());
  }

  /// Programs may not read what is on standard error: their reports hold the sentence as well.
  void noteFailure(const std::string& name, const std::string& sentence) {
    say(sentence);
    const std::size_t prefix = sentence.starts_with(name + ": ") ? name.size() + 2 : 0;
    FileReport report{.name = name, .failure = sentence.substr(prefix)};
    if (options_.format != Format::text) show(report, {});
  }

  void limit(FileReport& report) {
    const std::size_t all = report.diagnostics.size();
    const std::size_t most =
        options_.most > 0 ? options_.most - std::min(shown_, options_.most) : all;
    report.diagnostics.resize(std::min(all, most));
    report.omitted = all - report.diagnostics.size();
    shown_ += report.diagnostics.size();
  }

  void show(FileReport& report, const std::string& text) {
    switch (options_.format) {
      case Format::text:
        return check::writeText(std::cout, report, text, isColored(options_.color));
      case Format::json:
        return check::writeJsonLines(std::cout, report);
      case Format::sarif:
        reports_.push_back(std::move(report));
    }
  }

  void writeSummary() const {
    std::vector<std::string> parts;
    if (read_ > 0) parts.push_back(findingsInWords());
    if (unreadable_ > 0) parts.push_back(counted(unreadable_, "file") + " could not be read");
    if (notSearched_ > 0) {
      parts.push_back(counted(notSearched_, "folder") + " could not be searched to the end");
    }
    if (withoutPlots_ > 0) parts.push_back("no plots in " + counted(withoutPlots_, "folder"));
    for (std::size_t i = 0; i < parts.size(); ++i) std::cout << (i > 0 ? "; " : "") << parts[i];
    std::cout << '\n';
  }

  std::string findingsInWords() const {
    std::string words = std::string(isCut_ ? "at least " : "") + counted(errors_, "error") +
                        " and " + counted(warnings_, "warning");
    if (std::cmp_less(shown_, errors_ + warnings_)) {
      words += ", of which " + std::to_string(shown_) + (shown_ == 1 ? " is" : " are") + " shown";
    }
    return words;
  }

  const Options& options_;
  std::vector<FileReport> reports_;
  std::int64_t errors_ = 0;
  std::int64_t warnings_ = 0;
  std::size_t shown_ = 0;
  bool isCut_ = false;
  std::set<fs::path> checked_;
  std::int64_t read_ = 0;          ///< files
  std::int64_t unreadable_ = 0;    ///< files
  std::int64_t notSearched_ = 0;   ///< folders
  std::int64_t withoutPlots_ = 0;  ///< folders
};

}  // namespace

Command addCheckCommand(CLI::App& program) {
  CLI::App* command =
      program.add_subcommand("check", "Find what is wrong with documents, and say how to mend it");
  auto options = std::make_shared<Options>();
  command
      ->add_option("FILE", options->files,
                   "The plot documents, folders with them, or - for standard input")
      ->required()
      ->check(mustNotBeEmpty);
  addChoice(*command, "--format", options->format, formats,
            "Sentences for people, a JSON object a line, or a SARIF log")
      ->default_str("text");
  addWholeNumber(*command, "--max", options->most, 1, 1'000'000, "Show at most so many");
  addChoice(*command, "--color", options->color, colors, "Whether text has colours")
      ->default_str("auto");
  command->add_flag("--strict", options->isStrict, "Warnings count as errors for the exit status");
  return {command, [options] { return Checker(*options).run(); }};
}

}  // namespace vantry::zrd
