#include "zrd/wrong_usage.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "vantry/check/names.h"

namespace vantry::zrd {

namespace {

using Names = std::vector<base::Token>;

Names commandsOf(const CLI::App& program) {
  Names names;
  for (const CLI::App* command : program.get_subcommands({})) {
    names.emplace_back(command->get_name().c_str(), true);
  }
  return names;
}

Names optionsOf(const CLI::App& command) {
  Names names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.emplace_back(("--" + name).c_str(), true);
    }
  }
  return names;
}

/// The option that must be there and is not; null if none is missing.
const CLI::Option* missingOption(const CLI::App& command) {
  const auto options = command.get_options(
      [](const CLI::Option* option) { return option->get_required() && option->count() == 0; });
  return options.empty() ? nullptr : options.front();
}

/// About an option that nothing takes. It may be one of the command, in front of it.
std::string aboutOption(const CLI::App& command, std::string word) {
  word.erase(std::min(word.find('='), word.size()));
  if (!command.get_option_no_throw(word)) {
    return "there is no option " + word + question(word, optionsOf(command));
  }
  return word + " has to be behind the command: " + command.get_name() + ' ' + word;
}

/// About a word of the line that nothing takes.
std::string aboutWord(const CLI::App& program, const CLI::App& command, const std::string& word) {
  if (word.starts_with('-') && word != "-") return aboutOption(command, word);
  if (&command == &program) {
    return "there is no command " + word + question(word, commandsOf(program));
  }
  const CLI::Option* missing = missingOption(command);
  const std::string meant =
      missing ? "; did you mean " + missing->get_name() + ' ' + word + '?' : "";
  return word + " is one argument too many" + meant;
}

/// The option with whose name, perhaps without dashes, a sentence begins; null if there is none.
const CLI::Option* subjectOf(const std::string& sentence, const CLI::App& command) {
  const std::string name = sentence.substr(0, sentence.find_first_of(": "));
  const CLI::Option* option = command.get_option_no_throw(name);
  return option ? option : command.get_option_no_throw("--" + name);
}

std::string reasonFor(const CLI::App& program, const CLI::App& command,
                      const CLI::ParseError& refusal) {
  if (refusal.get_name() == "ValidationError") return refusal.what();  // is ours
  const std::vector<std::string> unused = program.remaining(true);
  if (!unused.empty()) return aboutWord(program, command, unused.front());
  if (refusal.get_name() == "RequiredError") {
    const CLI::Option* missing = missingOption(command);
    return (missing ? missing->get_name() : "a command") + " is missing";
  }
  const CLI::Option* option = subjectOf(refusal.what(), command);
  if (!option) return refusal.what();
  if (option->get_expected_max() == 0) return option->get_name() + " takes no value";
  return option->get_name() + (option->count() > 1 ? " can be given only once" : " needs a value");
}

}  // namespace

std::string question(const std::string& word, std::span<const base::Token> names) {
  const std::string meant = check::question(check::nearestName(word, names));
  return meant.empty() ? "" : "; " + meant;
}

std::string describe(const CLI::App& program, const CLI::ParseError& refusal) {
  const auto commands = program.get_subcommands();
  const CLI::App& command = commands.empty() ? program : *commands.front();
  const std::string name = commands.empty() ? "" : ' ' + command.get_name();
  return reasonFor(program, command, refusal) + " (see zrd" + name + " --help)";
}

}  // namespace vantry::zrd
