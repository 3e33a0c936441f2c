// Tests that choose a locale give the earlier one back.
#pragma once

#include <clocale>
#include <string>

class LocaleGuard {
 public:
  explicit LocaleGuard(int category)
      : category_(category), before_(std::setlocale(category, nullptr)) {}
  LocaleGuard(int category, const char* name) : LocaleGuard(category) {
    std::setlocale(category, name);
  }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;
  ~LocaleGuard() { std::setlocale(category_, before_.c_str()); }

 private:
  int category_;
  std::string before_;
};
