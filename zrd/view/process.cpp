#include "zrd/view/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

namespace vantry::zrd {

namespace {

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }

  void hand(Handed descriptor) {
    posix_spawn_file_actions_adddup2(&actions_, descriptor.own, descriptor.number);
  }
  void silence(int descriptor) {
    posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_WRONLY, 0);
  }

  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

int startProcess(const std::vector<std::string>& command, const std::vector<Handed>& descriptors,
                 bool isQuiet) {
  std::vector<char*> words(command.size() + 1);
  std::ranges::transform(command, words.begin(),
                         [](const std::string& word) { return const_cast<char*>(word.c_str()); });
  FileActions actions;
  for (const Handed descriptor : descriptors) actions.hand(descriptor);
  if (isQuiet) {
    actions.silence(STDOUT_FILENO);
    actions.silence(STDERR_FILENO);
  }
  pid_t process = -1;
  errno = posix_spawnp(&process, words[0], actions.get(), nullptr, words.data(), environ);
  return errno == 0 ? process : -1;
}

int waitForProcess(int process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void endProcess(int process) {
  constexpr std::chrono::milliseconds pause(10);
  constexpr int mostPauses = 200;
  kill(process, SIGTERM);
  for (int i = 0; i < mostPauses; ++i) {
    if (waitpid(process, nullptr, WNOHANG) != 0) return;
    std::this_thread::sleep_for(pause);
  }
  kill(process, SIGKILL);
  waitForProcess(process);
}

}  // namespace vantry::zrd
