// The locale, for a while.
#pragma once

#include <clocale>
#include <string>

/// Takes text in the encoding of a locale while it lives: "C.UTF-8" knows all letters, "C" only
/// those of ASCII.
class InLocale {
 public:
  explicit InLocale(const char* name) : before_(std::setlocale(LC_CTYPE, nullptr)) {
    std::setlocale(LC_CTYPE, name);
  }
  InLocale(const InLocale&) = delete;
  InLocale& operator=(const InLocale&) = delete;
  ~InLocale() { std::setlocale(LC_CTYPE, before_.c_str()); }

 private:
  std::string before_;
};
