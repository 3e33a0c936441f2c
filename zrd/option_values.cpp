#include "zrd/option_values.h"

#include <charconv>
#include <limits>
#include <sstream>
#include <system_error>

namespace vantry::zrd {

namespace {

template <class Number>
bool isNumber(const std::string& text, Number& value) {
  const char* const end = text.data() + text.size();
  const auto [behind, failure] = std::from_chars(text.data(), end, value);
  return failure == std::errc{} && behind == end;
}

CLI::Option* addNumberWithin(CLI::App& command, const std::string& name, double& value,
                             double least, double most, const std::string& expected,
                             const std::string& about) {
  const auto take = [&value, least, most](const std::string& text) {
    double number = 0;
    if (!isNumber(text, number) || !(number >= least && number <= most)) return false;
    value = number;
    return true;
  };
  return addValue(command, name, expected, take, about);
}

}  // namespace

CLI::Option* addValue(CLI::App& command, const std::string& name, const std::string& expected,
                      TakeValue take, const std::string& about) {
  const auto takeOrRefuse = [name, expected, take = std::move(take)](const std::string& text) {
    if (!take(text)) throw CLI::ValidationError(name, '"' + text + "\" is not " + expected);
  };
  return command.add_option_function<std::string>(name, takeOrRefuse, about);
}

bool takeWholeNumber(const std::string& text, std::int64_t least, std::int64_t most,
                     std::int64_t& value) {
  return isNumber(text, value) && value >= least && value <= most;
}

CLI::Option* addNumber(CLI::App& command, const std::string& name, double& value,
                       const std::string& about) {
  constexpr double most = std::numeric_limits<double>::max();
  return addNumberWithin(command, name, value, -most, most, "a finite number", about);
}

CLI::Option* addNumber(CLI::App& command, const std::string& name, double& value, double least,
                       double most, const std::string& about) {
  std::ostringstream expected;
  expected << "a number from " << least << " to " << most;
  return addNumberWithin(command, name, value, least, most, expected.str(), about);
}

std::string mustNotBeEmpty(const std::string& name) {
  return name.empty() ? "a name cannot be empty" : "";
}

}  // namespace vantry::zrd
