// Is loaded into the program before its libraries, and lets calls fail as the environment says:
//   FAIL_CLOSE=1         the file of that number cannot be closed
//   FAIL_READ_AFTER=1000 nothing can be read behind that many bytes
//   FAIL_FSYNC=1         no file can be brought to the disk
//   READ_TOKENS_AGAIN=1  the XML parser reads a token that is not complete again with each block,
//   as
//                        it did before it knew how to wait

#include <dlfcn.h>
#include <expat.h>
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace {

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" int close(int descriptor) {
  const char* failing = std::getenv("FAIL_CLOSE");
  const int result = next<int(int)>("close")(descriptor);
  if (!failing || std::atoi(failing) != descriptor) return result;
  errno = EIO;
  return -1;
}

extern "C" ssize_t read(int descriptor, void* target, size_t size) {
  static long sum = 0;
  if (const char* limit = std::getenv("FAIL_READ_AFTER")) {
    if (sum >= std::atol(limit)) {
      errno = EIO;
      return -1;
    }
    size = std::min(size, static_cast<size_t>(std::atol(limit) - sum));
  }
  const ssize_t count = next<ssize_t(int, void*, size_t)>("read")(descriptor, target, size);
  if (count > 0) sum += count;
  return count;
}

extern "C" int fsync(int descriptor) {
  if (!std::getenv("FAIL_FSYNC")) return next<int(int)>("fsync")(descriptor);
  errno = EIO;
  return -1;
}

extern "C" XML_Bool XML_SetReparseDeferralEnabled(XML_Parser parser, XML_Bool isEnabled) {
  if (std::getenv("READ_TOKENS_AGAIN")) isEnabled = XML_FALSE;
  return next<XML_Bool(XML_Parser, XML_Bool)>("XML_SetReparseDeferralEnabled")(parser, isEnabled);
}
