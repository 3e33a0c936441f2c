// Chromium or Chrome without a window.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vantry::zrd {

/// A running browser, which is controlled through its developer tools. All operations throw Failure
/// if the browser fails or its answer makes no sense, and Interrupted if a signal has come. The
/// destructor ends it.
class Chrome {
 public:
  /// Starts the browser that the environment variable VANTRY_BROWSER or CHROME names, or else the
  /// first one that is installed. It keeps its own files in `folder`.
  explicit Chrome(const std::string& folder);
  Chrome(const Chrome&) = delete;
  Chrome& operator=(const Chrome&) = delete;
  ~Chrome();

  /// Calls a method of the tools and returns its result.
  nlohmann::json call(const std::string& method, const nlohmann::json& parameters = {});

  /// The value of an expression in the page.
  nlohmann::json evaluate(const std::string& expression);

  /// Shows a file, with what is behind the # of its address.
  void open(const std::string& file, const std::string& fragment);

  /// What is seen, as the bytes of a PNG.
  std::string photograph();

  /// Throws Failure: the reason, and what can be done.
  [[noreturn]] void fail(const std::string& how) const;

 private:
  Chrome() = default;
  void start(const std::string& folder);
  bool startProgram(const std::string& program, const std::string& folder);
  void openTab();
  std::string textIn(const nlohmann::json& result, const char* member) const;
  void send(const nlohmann::json& message);
  nlohmann::json receive();
  void note(const nlohmann::json& event) const;
  void drain() const;

  std::string program_;
  int process_ = -1;
  int input_ = -1;   // of the browser
  int output_ = -1;  // of the browser
  int lastCall_ = 0;
  std::string session_;   // of the tab
  std::string received_;  // of messages that are not yet taken
};

}  // namespace vantry::zrd
