#include "program.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace {

const std::string capturedOutput = ".stdout";

[[noreturn]] void fail(const char* call) {
  throw std::system_error(errno, std::generic_category(), call);
}

/// In the child: makes the file behind `opened` that of `descriptor`.
void redirect(int descriptor, int opened) {
  if (opened < 0 || dup2(opened, descriptor) < 0) _exit(127);
}

/// In the child: what goes beyond the limit fails, and raises no signal where a call can fail.
void limitTo(int resource, std::uint64_t limit) {
  const rlimit limits{limit, limit};
  signal(SIGXFSZ, SIG_IGN);
  if (setrlimit(static_cast<__rlimit_resource_t>(resource), &limits) != 0) _exit(127);
}

/// All that comes out of a pipe until its last writer has closed it.
std::string drained(int pipe) {
  std::string all;
  std::array<char, 4096> block;
  for (;;) {
    const ssize_t count = read(pipe, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("read");
    if (count == 0) return all;
    all.append(block.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("can not read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The sanitizer's library wants to be the first one otherwise.
void ProgramTest::setFailing(const std::string& name, const std::string& value) {
  setEnvironment("LD_PRELOAD", FAILING_CALLS);
  setEnvironment("ASAN_OPTIONS", "verify_asan_link_order=0");
  setEnvironment(name, value);
}

Outcome ProgramTest::run(const std::vector<std::string>& arguments) const {
  Outcome outcome = runInto(capturedOutput, arguments);
  outcome.out = read(capturedOutput);
  return outcome;
}

Outcome ProgramTest::runInto(const std::string& standardOutput,
                             const std::vector<std::string>& arguments) const {
  return outcomeOf(start(standardOutput, arguments));
}

ProgramTest::Started ProgramTest::start(const std::string& standardOutput,
                                        const std::vector<std::string>& arguments) const {
  std::vector<std::string> command = wrapper_;
  command.push_back(program_);
  command.insert(command.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (std::string& word : command) argv.push_back(word.data());
  argv.push_back(nullptr);

  // Errors come through a pipe, which no limit on the size of files cuts off.
  int errors[2];
  if (pipe2(errors, O_CLOEXEC) < 0) fail("pipe2");
  const pid_t child = fork();
  if (child < 0) fail("fork");
  if (child == 0) {
    if (chdir(folder_.path().c_str()) != 0) _exit(127);
    // Whoever runs the tests in the background may ignore these.
    for (const int ending : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) signal(ending, SIG_DFL);
    for (const auto& [name, value] : environment_) setenv(name.c_str(), value.c_str(), 1);
    for (const auto& [resource, limit] : limits_) limitTo(resource, limit);
    redirect(STDERR_FILENO, errors[1]);
    redirect(STDOUT_FILENO,
             open(standardOutput.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    for (const int descriptor : closed_) close(descriptor);
    execv(argv[0], argv.data());
    _exit(127);
  }

  close(errors[1]);
  return {child, errors[0]};
}

bool ProgramTest::hasEnded(const Started& started) {
  siginfo_t state{};
  waitid(P_PID, static_cast<id_t>(started.process), &state, WEXITED | WNOHANG | WNOWAIT);
  return state.si_pid != 0;
}

Outcome ProgramTest::outcomeOf(const Started& started) {
  const std::string err = drained(started.errors);
  close(started.errors);
  int status = 0;
  rusage usage{};
  while (wait4(started.process, &status, 0, &usage) < 0) {
    if (errno != EINTR) fail("wait4");
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
          WIFSIGNALED(status) ? WTERMSIG(status) : 0,
          {},
          err,
          std::int64_t{usage.ru_maxrss} * 1024};
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
  std::string list;
  for (const std::string& name : names) list.append(list.empty() ? "" : " ").append(name);
  return list;
}
