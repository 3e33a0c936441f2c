#include "driver/last_words.h"

#include <cstdlib>
#include <exception>
#include <new>

#include "driver/reporting.h"

namespace Driver {

namespace {

const Xml::Parser* reading = nullptr;
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

[[noreturn]] void end() {
  if (std::current_exception()) announce();
  lastWordsOfTheLanguage();
  std::abort();  // is not reached: no such handler returns
}

}  // namespace

void announceAbnormalEnds() { lastWordsOfTheLanguage = std::set_terminate(end); }

PlaceInInput::PlaceInInput(const Xml::Parser& parser) { reading = &parser; }

PlaceInInput::~PlaceInInput() { reading = nullptr; }

}  // namespace Driver
