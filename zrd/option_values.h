// Options of commands whose values are more than a text. What is no such value is refused in a
// sentence that says what is.
#pragma once

#include <CLI/CLI.hpp>
#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vantry/check/names.h"

namespace vantry::zrd {

/// Takes the value of an option. Returns false for a text that is none.
using TakeValue = std::function<bool(const std::string& text)>;

/// Adds an option. The text that is refused by `take` ends the reading of the command line with
/// CLI::ValidationError: that it is not what `expected` says.
CLI::Option* addValue(CLI::App& command, const std::string& name, const std::string& expected,
                      TakeValue take, const std::string& about);

/// Whether a text is a whole number within bounds, which is put into `value`.
bool takeWholeNumber(const std::string& text, std::int64_t least, std::int64_t most,
                     std::int64_t& value);

/// Adds an option whose value is a whole number from `least` to `most`.
template <std::integral Number>
CLI::Option* addWholeNumber(CLI::App& command, const std::string& name, Number& value,
                            std::int64_t least, std::int64_t most, const std::string& about) {
  const auto take = [&value, least, most](const std::string& text) {
    std::int64_t number = 0;
    if (!takeWholeNumber(text, least, most, number)) return false;
    value = static_cast<Number>(number);
    return true;
  };
  return addValue(command, name,
                  "a whole number from " + std::to_string(least) + " to " + std::to_string(most),
                  take, about)
      ->type_name("N");
}

/// Adds an option whose value is any number that is finite.
CLI::Option* addNumber(CLI::App& command, const std::string& name, double& value,
                       const std::string& about);

/// Adds an option whose value is a number from `least` to `most`.
CLI::Option* addNumber(CLI::App& command, const std::string& name, double& value, double least,
                       double most, const std::string& about);

/// A check of options: refuses an empty name, as that in a variable of a script which is not set.
std::string mustNotBeEmpty(const std::string& name);

/// The words that an option takes, and what each stands for.
template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

/// Adds an option whose value is a word of a closed list, which the help shows.
template <class Value>
CLI::Option* addChoice(CLI::App& command, const std::string& name, Value& value,
                       const Choices<Value>& choices, const std::string& about) {
  std::vector<std::string_view> words;
  for (const auto& [word, meaning] : choices) words.push_back(word);
  const auto take = [&value, choices](const std::string& text) {
    for (const auto& [word, meaning] : choices) {
      if (word != text) continue;
      value = meaning;
      return true;
    }
    return false;
  };
  return addValue(command, name, check::listOf(words, "or"), take, about)
      ->type_name(CLI::detail::join(words, "|"));  // for the completions of the shells too
}

}  // namespace vantry::zrd
