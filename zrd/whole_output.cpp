#include "zrd/whole_output.h"

#include <iostream>

#include "zrd/commands.h"
#include "zrd/output_file.h"

namespace vantry::zrd {

namespace {

/// Does what throws, with a Failure for what the file says.
template <class Work>
void onFile(Work work) {
  try {
    work();
  } catch (const Failure&) {
    throw;
  } catch (const std::runtime_error& failure) {
    throw Failure(badDocument, failure.what());
  }
}

}  // namespace

void writeWhole(const std::filesystem::path& name,
                const std::function<void(std::ostream& out)>& write) {
  if (name == "-") {
    write(std::cout);
    if (!std::cout.flush()) throw Failure(badDocument, "standard output cannot be written");
    return;
  }
  const CleanInterruption interruption;
  onFile([&] {
    OutputFile file(name);
    write(file.stream());
    file.close();
    file.appear();
  });
}

}  // namespace vantry::zrd
