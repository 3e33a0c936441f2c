// Where the result goes.
#pragma once

#include <fstream>
#include <iosfwd>

namespace vantry::driver {

/// A file, or standard output. What cannot be opened or written ends the program.
class Output {
 public:
  /// Creates the file `name`, or empties it if it exists. Null means standard output.
  explicit Output(const char* name);

  std::ostream& stream() { return stream_; }

  /// Hands all that was written on to the system and closes the file or standard output, for some
  /// systems say only then that it could not be written. Without this call the end of the program
  /// leaves behind what the file's buffer still holds.
  void close();

 private:
  std::ofstream file_;
  std::ostream& stream_;
};

}  // namespace vantry::driver
