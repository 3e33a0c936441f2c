#include "driver/last_words.h"

#include <cstdlib>
#include <exception>
#include <new>

#include "driver/reporting.h"
#include "vantry/base/text_errors.h"
#include "vantry/dom/dom_exception.h"

namespace vantry::driver {

namespace {

const reader::Parser* reading = nullptr;
std::terminate_handler lastWordsOfTheLanguage = nullptr;

/// Announces the exception that ends the program.
void announce() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    outOfMemory();
  } catch (const std::exception& failure) {
    if (reading) {
      badData(failure.what(), reading->lineNumber(), reading->columnNumber());
    } else {
      badData(failure.what());
    }
  } catch (...) {  // nobody knows what it is, and the language says so
  }
}

/// Says what the language says of an exception that nobody catches. The names of ours are part of
/// the message, which scripts look for: they stay whatever our namespaces are called.
void sayLastWords() {
  try {
    throw;
  } catch (const dom::DomException& failure) {
    uncaught("Arbor::DomException", failure.what());
  } catch (const base::BadUnicodeString& failure) {
    uncaught("Ubase::BadUnicodeString", failure.what());
  } catch (const base::BadBufferLength& failure) {
    uncaught("Ubase::BadBufferLength", failure.what());
  } catch (const base::BadLocale& failure) {
    uncaught("Ubase::BadLocale", failure.what());
  } catch (...) {
    lastWordsOfTheLanguage();
  }
}

[[noreturn]] void end() {
  if (!std::current_exception()) lastWordsOfTheLanguage();
  announce();
  sayLastWords();
  std::abort();
}

}  // namespace

void announceAbnormalEnds() { lastWordsOfTheLanguage = std::set_terminate(end); }

PlaceInInput::PlaceInInput(const reader::Parser& parser) { reading = &parser; }

PlaceInInput::~PlaceInInput() { reading = nullptr; }

}  // namespace vantry::driver
