// What the program reports to its user, on standard error.
#pragma once

namespace vantry::driver {

/// Prints how the program is used and ends it with status 1.
[[noreturn]] void usage();

/// Prints an error and ends the program with status 2.
[[noreturn]] void error(const char* message);

/// Prints a warning.
void warning(const char* message);

/// Warns of a document that is not well formed, with the XML parser's number for the error and the
/// place, in lines from 1 and columns from 0.
void parserWarning(int code, int line, int column);

/// Says why the program is about to end abnormally, and at which place of the input if that is
/// known, in lines from 1 and columns from 0.
void badData(const char* reason);
void badData(const char* reason, int line, int column);
void outOfMemory();

/// Says of which type an exception is that ends the program, and what it says itself.
void uncaught(const char* type, const char* what);

}  // namespace vantry::driver
