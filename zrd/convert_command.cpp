#include <algorithm>
#include <atomic>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

#include "zrd/commands.h"
#include "zrd/common_options.h"
#include "zrd/convert/conversion.h"
#include "zrd/convert/output_names.h"
#include "zrd/convert/report.h"
#include "zrd/convert/settings.h"
#include "zrd/option_values.h"
#include "zrd/output_file.h"
#include "zrd/plot_search.h"

namespace vantry::zrd {

namespace {

/// The words of the command line.
struct ConvertArguments {
  ConvertSettings settings;
  std::vector<std::string> plots;
  std::string listName;
};

/// The date that the variable SOURCE_DATE_EPOCH asks for.
std::optional<std::time_t> dateOfEnvironment() {
  constexpr std::time_t endOfYear9999 = 253'402'300'799;
  const char* const variable = std::getenv("SOURCE_DATE_EPOCH");
  if (!variable) return {};
  const std::string_view text = variable;
  std::time_t date = 0;
  const auto [end, failure] = std::from_chars(text.begin(), text.end(), date);
  if (failure != std::errc{} || end != text.end() || date < 0 || date > endOfYear9999) {
    throw Failure(wrongUsage, "SOURCE_DATE_EPOCH is not a number of seconds since 1970");
  }
  return date;
}

/// Refuses a pattern in which something is to be replaced that is not known.
void checkPattern(const std::string& pattern) {
  const auto refuse = [](const std::string& reason) {
    const std::string known =
        "; {name} stands for the name of the plot without its extension, {ext} for jvx or jvd";
    throw CLI::ValidationError("--name", reason + known);
  };
  if (pattern.empty()) refuse("a pattern cannot be empty");
  std::size_t close = 0;
  for (std::size_t open = pattern.find_first_of("{}"); open != pattern.npos;
       open = pattern.find_first_of("{}", close + 1)) {
    close = pattern.find('}', open);
    if (close == open) refuse("there is a } without a {");
    if (close == pattern.npos) refuse("there is a { without a }");
    const std::string placeholder = pattern.substr(open, close + 1 - open);
    if (placeholder != "{name}" && placeholder != "{ext}") refuse("there is no " + placeholder);
  }
}

ConvertSettings settingsOf(const ConvertArguments& arguments) {
  if (arguments.plots.empty() && arguments.listName.empty()) {
    throw CLI::ValidationError("PLOT is missing");
  }
  ConvertSettings settings = arguments.settings;
  const auto writes = [&settings](OutputKind kind) {
    return std::ranges::find(settings.kinds, kind) != settings.kinds.end();
  };
  checkPattern(settings.pattern);
  if (settings.pattern.front() == '/') {
    throw CLI::ValidationError("--name", "a pattern is relative to the folder of the outputs");
  }
  if (settings.kinds.size() > 1 && settings.pattern.find("{ext}") == std::string::npos) {
    throw CLI::ValidationError("--name", "two kinds of outputs need an {ext} in the pattern");
  }
  if (settings.frames > 0 && !writes(OutputKind::jvx)) {
    throw CLI::ValidationError("--frames", "only JVX files can be animated");
  }
  settings.date = dateOfEnvironment();
  return settings;
}

/// Answers an option of vantry, which many outputs have no use for, with those that there are.
void refuseOutput(CLI::App& command) {
  const auto refuse = [](const std::string&) {
    throw CLI::ValidationError(
        "-o",
        "use --output-dir for the folder of the outputs and --name for their names, or "
        "vantry -o for a single file");
  };
  command.add_option_function<std::string>("-o,--output", refuse)->expected(0, 1)->group("");
}

/// Lets as many threads as asked for, this one among them, take document after document.
void convertAll(const std::vector<PlannedConversion>& plans, const Converter& converter,
                const ConvertSettings& settings) {
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> isEnough = false;
  const auto work = [&] {
    for (std::size_t at; !isEnough && (at = next++) < plans.size();) {
      if (!converter.convert(plans[at]) && !settings.keepGoing) isEnough = true;
    }
  };
  std::vector<std::jthread> others;
  try {
    while (others.size() + 1 < std::min<std::size_t>(settings.jobs, plans.size())) {
      others.emplace_back(work);
    }
  } catch (const std::system_error&) {  // there are no more threads to be had
  }
  work();
}

int run(const ConvertArguments& arguments) {
  const ConvertSettings settings = settingsOf(arguments);
  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away is a failure like any other
  const CleanInterruption cleanInterruption;

  ConvertReport report;
  const FoundPlots found = findPlots(arguments.plots, arguments.listName);
  for (const SearchFailure& failure : found.failures) report.fail(failure.sentence);
  for (const std::string& line : found.warnings) report.warn(line);
  OutputNames names(found.plots);
  report.begin(found.plots.size());
  const auto plans = planConversions(found.plots, settings, names, report);
  if (report.failures() == 0 || settings.keepGoing) {
    convertAll(plans, Converter(settings, names, report), settings);
  }
  report.summarise();
  return report.failures() == 0 ? success : badDocument;
}

}  // namespace

Command addConvertCommand(CLI::App& program) {
  CLI::App* options = program.add_subcommand("convert", "Convert plots, many at once");
  auto arguments = std::make_shared<ConvertArguments>();
  ConvertSettings& settings = arguments->settings;
  settings.jobs = std::max(1U, std::thread::hardware_concurrency());

  const Choices<std::vector<OutputKind>> kinds = {{"jvx", {OutputKind::jvx}},
                                                  {"jvd", {OutputKind::jvd}},
                                                  {"both", {OutputKind::jvx, OutputKind::jvd}}};
  addChoice(*options, "--to", settings.kinds, kinds, "What to write")->default_str("jvx");
  options
      ->add_option("--output-dir", settings.outputFolder,
                   "The folder of the outputs, which lie in it as the plots do in the folder "
                   "that was named; without it each lies beside its plot")
      ->type_name("DIR")
      ->check(mustNotBeEmpty);
  options->add_option("--name", settings.pattern, "How outputs are called")
      ->type_name("PATTERN")
      ->capture_default_str();
  addWholeNumber(*options, "--jobs", settings.jobs, 1, 1000,
                 "How many plots to convert at the same time")
      ->default_str("as many as there are processors");
  addFrames(*options, settings.frames, "Write animations, with so many frames in a unit of time");
  addTime(*options, settings.time);
  options->add_flag("--if-changed", settings.ifChanged,
                    "Leave outputs alone that are newer than their plot and this program");
  options->add_flag("--keep-going", settings.keepGoing, "Try the other plots after a failure");
  options
      ->add_option("--files-from", arguments->listName,
                   "A file with the names of plots, a line each; - is standard input")
      ->type_name("FILE")
      ->check(mustNotBeEmpty);
  options
      ->add_option("PLOT", arguments->plots,
                   "A plot, a folder with plots, or - for a list of them on standard input")
      ->check(mustNotBeEmpty);
  refuseOutput(*options);
  return {options, [options, arguments] {
            refuseTimeBesideFrames(*options);
            return run(*arguments);
          }};
}

}  // namespace vantry::zrd
