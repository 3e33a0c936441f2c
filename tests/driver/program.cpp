#include "program.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <system_error>

namespace {

const std::string capturedOutput = ".stdout";
const std::string capturedErrors = ".stderr";

/// In the child: opens `file` as `descriptor`, or closes that if there is no name.
void redirect(int descriptor, const std::string& file) {
  if (file.empty()) {
    close(descriptor);
    return;
  }
  const int opened = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(127);
}

/// In the child: what goes beyond the limit fails, and raises no signal where a call can fail.
void limitTo(int resource, std::uint64_t limit) {
  const rlimit limits{limit, limit};
  signal(SIGXFSZ, SIG_IGN);
  if (setrlimit(static_cast<__rlimit_resource_t>(resource), &limits) != 0) _exit(127);
}

}  // namespace

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("can not read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

Outcome ProgramTest::run(const std::vector<std::string>& arguments) const {
  return runInto(capturedOutput, arguments);
}

Outcome ProgramTest::runInto(const std::string& standardOutput,
                             const std::vector<std::string>& arguments) const {
  std::vector<char*> argv = {const_cast<char*>(VANTRY_PROGRAM)};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  const pid_t child = fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) {
    if (chdir(folder_.path().c_str()) != 0) _exit(127);
    for (const auto& [name, value] : environment_) setenv(name.c_str(), value.c_str(), 1);
    for (const auto& [resource, limit] : limits_) limitTo(resource, limit);
    redirect(STDERR_FILENO, capturedErrors);
    redirect(STDOUT_FILENO, standardOutput);
    execv(VANTRY_PROGRAM, argv.data());
    _exit(127);
  }

  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, WIFSIGNALED(status) ? WTERMSIG(status) : 0,
          standardOutput == capturedOutput ? read(capturedOutput) : "", read(capturedErrors)};
}

void ProgramTest::write(const std::string& name, std::string_view text) const {
  std::ofstream file(folder_.path() / name, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("can not write " + name);
}

std::string ProgramTest::read(const std::string& name) const {
  return contentOf(folder_.path() / name);
}

bool ProgramTest::exists(const std::string& name) const {
  return std::filesystem::exists(folder_.path() / name);
}

std::string ProgramTest::files() const {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
    names.insert(entry.path().filename());
  }
  names.erase(capturedOutput);
  names.erase(capturedErrors);
  std::string list;
  for (const std::string& name : names) list.append(list.empty() ? "" : " ").append(name);
  return list;
}
