#include "zrd/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <set>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantry::zrd {

namespace {

/// The temporary files that there are. A file comes and goes under the lock together with its name
/// in the list, so that none is missing in it.
class TemporaryFiles {
 public:
  /// Creates a file in the folder of `target` and opens it. Returns its descriptor, or -1.
  int create(const std::filesystem::path& target, std::string& name) {
    const std::lock_guard lock(mutex_);
    int descriptor = -1;
    do {
      name = target.parent_path() /
             (".zrd-" + std::to_string(getpid()) + '-' + std::to_string(++count_) + ".tmp");
      descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EEXIST);
    if (descriptor >= 0) names_.insert(name);
    return descriptor;
  }

  bool move(const std::string& name, const std::filesystem::path& target) {
    const std::lock_guard lock(mutex_);
    if (std::rename(name.c_str(), target.c_str()) != 0) return false;
    names_.erase(name);
    return true;
  }

  void remove(const std::string& name) {
    const std::lock_guard lock(mutex_);
    if (names_.erase(name) > 0) unlink(name.c_str());
  }

  /// Removes all, and lets no thread make another one.
  void removeForGood() {
    mutex_.lock();
    for (const std::string& name : names_) unlink(name.c_str());
  }

 private:
  std::mutex mutex_;
  std::set<std::string> names_;
  std::size_t count_ = 0;
};

// Never destroyed, for a signal may come at any time.
TemporaryFiles& temporaryFiles() {
  static auto* const files = new TemporaryFiles;
  return *files;
}

// The file that is meant by the name of a link.
std::filesystem::path withoutLinks(std::filesystem::path name) {
  std::error_code failure;
  if (!std::filesystem::is_symlink(name, failure)) return name;
  std::filesystem::path target = std::filesystem::weakly_canonical(name, failure);
  return failure ? name : target;
}

void requireFolderOf(const std::filesystem::path& name) {
  const std::filesystem::path folder = name.parent_path();
  std::error_code unknown;
  if (folder.empty() || exists(folder, unknown) || unknown) return;
  throw std::runtime_error(name.string() + " cannot be written: there is no folder " +
                           folder.string());
}

}  // namespace

OutputFile::Descriptor::int_type OutputFile::Descriptor::overflow(int_type c) {
  const char character = traits_type::to_char_type(c);
  return xsputn(&character, 1) == 1 ? traits_type::not_eof(c) : traits_type::eof();
}

std::streamsize OutputFile::Descriptor::xsputn(const char* data, std::streamsize size) {
  std::streamsize written = 0;
  while (written < size) {
    const ssize_t count = ::write(number, data + written, static_cast<std::size_t>(size - written));
    if (count >= 0) {
      written += count;
    } else if (errno != EINTR) {
      if (failure == 0) failure = errno;
      break;
    }
  }
  return written;
}

OutputFile::OutputFile(std::filesystem::path name) : name_(withoutLinks(std::move(name))) {
  struct stat old {};
  const bool isThere = stat(name_.c_str(), &old) == 0;
  if (isThere && S_ISDIR(old.st_mode)) fail(EISDIR);
  if (isThere && !S_ISREG(old.st_mode)) {
    throw std::runtime_error(name_.string() + " cannot be written: it is not a regular file");
  }
  requireFolderOf(name_);
  descriptor_.number = temporaryFiles().create(name_, temporary_);
  if (descriptor_.number < 0) fail(errno);
  if (isThere) fchmod(descriptor_.number, old.st_mode & 0777);
}

OutputFile::~OutputFile() {
  if (descriptor_.number >= 0) ::close(descriptor_.number);
  temporaryFiles().remove(temporary_);
}

void OutputFile::close() {
  if (descriptor_.failure != 0) fail(descriptor_.failure);
  if (fsync(descriptor_.number) != 0) fail(errno);
  if (::close(std::exchange(descriptor_.number, -1)) != 0) fail(errno);
}

void OutputFile::appear() {
  if (!temporaryFiles().move(temporary_, name_)) fail(errno);
}

void OutputFile::fail(int reason) const {
  throw std::runtime_error(name_.string() +
                           " cannot be written: " + std::generic_category().message(reason));
}

CleanInterruption::CleanInterruption() {
  sigemptyset(&signals_);
  sigaddset(&signals_, SIGUSR2);  // from the destructor
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler != SIG_IGN) sigaddset(&signals_, signal);
  }
  pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
  watch_ = std::thread([this] { wait(); });
}

CleanInterruption::~CleanInterruption() {
  isOver_ = true;
  pthread_kill(watch_.native_handle(), SIGUSR2);
  watch_.join();
  pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
}

void CleanInterruption::wait() const {
  int signal = 0;
  sigwait(&signals_, &signal);
  if (isOver_) return;
  temporaryFiles().removeForGood();
  std::signal(signal, SIG_DFL);
  pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
  raise(signal);
}

}  // namespace vantry::zrd
