#include "zrd/view/chrome.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "vantry/base/percent_escapes.h"
#include "zrd/commands.h"
#include "zrd/view/interruption.h"
#include "zrd/view/process.h"

namespace vantry::zrd {

namespace {

using nlohmann::json;

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds longestSilence(300'000);
constexpr milliseconds longestFarewell(5'000);
constexpr milliseconds longestWait(200);  // until signals are looked for again

/// The descriptors at which the browser expects its pipes.
enum ChromeDescriptor : int { commands = 3, answers = 4 };

/// A pipe whose ends are none of the descriptors of the browser.
struct Pipe {
  int read = -1;
  int write = -1;

  Pipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
      throw Failure(noBrowser, std::string("no pipe to the browser: ") + std::strerror(errno));
    }
    read = moved(ends[0]);
    write = moved(ends[1]);
  }

 private:
  static int moved(int descriptor) {
    constexpr int beyond = answers + 1;
    const int other = fcntl(descriptor, F_DUPFD_CLOEXEC, beyond);
    close(descriptor);
    return other;
  }
};

constexpr std::string_view pngBegin = "\x89PNG\r\n\x1a\n";
constexpr std::string_view pngEnd = "IEND\xae\x42\x60\x82";

constexpr const char* nonsense = "what it answers makes no sense";

std::vector<std::string> candidates() {
  for (const char* variable : {"VANTRY_BROWSER", "CHROME"}) {
    const char* program = std::getenv(variable);
    if (program && *program) return {program};
  }
  return {"chromium", "chromium-browser", "google-chrome", "google-chrome-stable"};
}

std::string fromBase64(const std::string& text) {
  constexpr std::string_view letters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char letter : text) {
    const std::size_t value = letters.find(letter);
    if (value == letters.npos) break;
    bits = bits << 6 | static_cast<unsigned>(value);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> count & 255);
  }
  return bytes;
}

std::vector<std::string> commandOf(const std::string& program, const std::string& folder) {
  std::vector<std::string> command = {
      program,
      "--headless",
      "--remote-debugging-pipe",
      "--user-data-dir=" + folder + "/profile",
      "--no-first-run",
      "--no-default-browser-check",
      "--disable-background-networking",
      "--disable-component-update",
      "--disable-dev-shm-usage",
      "--disable-extensions",
      "--disable-sync",
      "--enable-unsafe-swiftshader",
      "--force-color-profile=srgb",
      "--hide-scrollbars",
      "--mute-audio",
  };
  // Its sandbox does not work for the system administrator.
  if (geteuid() == 0) command.emplace_back("--no-sandbox");
  return command;
}

}  // namespace

// From here on the destructor ends the browser, also if the tab cannot be opened.
Chrome::Chrome(const std::string& folder) : Chrome() {
  start(folder);
  std::signal(SIGPIPE, SIG_IGN);  // a browser that has ended gets a message of ours
  openTab();
}

Chrome::~Chrome() {
  if (process_ <= 0) return;
  close(input_);  // at this it puts everything away and ends
  drain();
  close(output_);
  endProcess(process_);
}

/// Takes what still comes, until the browser has ended or has had its time.
void Chrome::drain() const {
  const auto end = steady_clock::now() + longestFarewell;
  std::array<char, 4096> rest;
  pollfd waiting{output_, POLLIN, 0};
  for (;;) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now()).count();
    if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) <= 0) return;
    if (read(output_, rest.data(), rest.size()) <= 0) return;
  }
}

void Chrome::start(const std::string& folder) {
  const std::vector<std::string> programs = candidates();
  setenv("TMPDIR", folder.c_str(), 1);  // it leaves files there if it is in a hurry
  for (const std::string& program : programs) {
    if (startProgram(program, folder)) return;
  }
  throw Failure(noBrowser,
                (programs.size() == 1 ? programs[0] + " cannot be started"
                                      : std::string("neither Chromium nor Chrome was found")) +
                    ": install the Debian package chromium, or let the variable VANTRY_BROWSER "
                    "name the program");
}

bool Chrome::startProgram(const std::string& program, const std::string& folder) {
  const Pipe toBrowser;
  const Pipe fromBrowser;
  process_ = startProcess(commandOf(program, folder),
                          {{toBrowser.read, commands}, {fromBrowser.write, answers}}, true);
  close(toBrowser.read);
  close(fromBrowser.write);
  program_ = program;
  input_ = toBrowser.write;
  output_ = fromBrowser.read;
  if (process_ > 0) return true;
  close(input_);
  close(output_);
  return false;
}

void Chrome::openTab() {
  const std::string target =
      textIn(call("Target.createTarget", {{"url", "about:blank"}}), "targetId");
  session_ =
      textIn(call("Target.attachToTarget", {{"targetId", target}, {"flatten", true}}), "sessionId");
  call("Page.enable");
  call("Runtime.enable");
  call("Log.enable");
}

json Chrome::call(const std::string& method, const json& parameters) try {
  json message = {{"id", ++lastCall_}, {"method", method}, {"params", parameters}};
  if (parameters.is_null()) message["params"] = json::object();
  if (!session_.empty()) message["sessionId"] = session_;
  send(message);
  for (;;) {
    const json answer = receive();
    if (answer.contains("method")) note(answer);
    if (answer.value("id", 0) != lastCall_) continue;
    if (answer.contains("error")) fail(method + ": " + answer.at("error").value("message", ""));
    return answer.value("result", json::object());
  }
} catch (const json::exception&) {
  fail(nonsense);
}

/// A member of a result that has to be a text.
std::string Chrome::textIn(const json& result, const char* member) const {
  const auto found = result.find(member);
  if (found == result.end() || !found->is_string()) fail(nonsense);
  return *found;
}

json Chrome::evaluate(const std::string& expression) {
  const json answer =
      call("Runtime.evaluate", {{"expression", expression}, {"returnByValue", true}});
  const auto value = "/result/value"_json_pointer;
  return answer.contains(value) ? answer.at(value) : json();
}

void Chrome::open(const std::string& file, const std::string& fragment) {
  const std::string address = "file://" + base::percentEscaped(file) + '#' + fragment;
  const json opened = call("Page.navigate", {{"url", address}});
  if (!opened.contains("errorText")) return;
  throw Failure(noBrowser, program_ + " cannot read " + file + ": " + textIn(opened, "errorText") +
                               " (let the variable TMPDIR name a folder that it may read)");
}

std::string Chrome::photograph() {
  std::string picture =
      fromBase64(textIn(call("Page.captureScreenshot", {{"format", "png"}}), "data"));
  if (!picture.starts_with(pngBegin) || !picture.ends_with(pngEnd)) fail("its picture is no PNG");
  return picture;
}

// A message ends with a zero byte. A browser that has ended is noticed here or when nothing comes
// from it, whichever is first.
void Chrome::send(const json& message) {
  const std::string text = message.dump();
  std::size_t done = 0;
  while (done <= text.size()) {
    const ssize_t count = ::write(input_, text.c_str() + done, text.size() + 1 - done);
    if (count < 0 && errno != EINTR) fail("it has ended");
    if (count > 0) done += static_cast<std::size_t>(count);
  }
}

// A signal that comes just before poll() does not interrupt it.
json Chrome::receive() {
  std::array<char, 64 * 1024> block;
  auto end = steady_clock::now() + longestSilence;
  std::size_t searched = 0;
  for (;;) {
    const std::size_t size = received_.find('\0', searched);
    if (size != received_.npos) {
      json message = json::parse(received_.substr(0, size), nullptr, false);
      received_.erase(0, size + 1);
      if (message.is_object()) return message;
      searched = 0;
      continue;
    }
    searched = received_.size();
    pollfd waiting{output_, POLLIN, 0};
    Interruption::check();
    const bool isReady = poll(&waiting, 1, static_cast<int>(longestWait.count())) > 0;
    if (!isReady && steady_clock::now() > end) fail("it does not answer");
    if (!isReady) continue;
    const ssize_t count = ::read(output_, block.data(), block.size());
    if (count == 0) fail("it has ended");
    if (count > 0) received_.append(block.data(), static_cast<std::size_t>(count));
    end = steady_clock::now() + longestSilence;
  }
}

/// What a page complains of is the end of its picture.
void Chrome::note(const json& event) const {
  const std::string method = event.at("method");
  const json parameters = event.value("params", json::object());
  if (method == "Inspector.targetCrashed") fail("the page has crashed");
  if (method == "Runtime.exceptionThrown") {
    fail(parameters.value("/exceptionDetails/exception/description"_json_pointer,
                          "the page has failed"));
  }
  if (method != "Log.entryAdded") return;
  const json& entry = parameters.at("entry");
  if (entry.value("level", "") == "error") fail(entry.value("text", ""));
}

void Chrome::fail(const std::string& how) const {
  Interruption::check();  // which may have ended the browser too
  throw Failure(noBrowser, program_ + " cannot draw the plot: " + how +
                               " (run it by hand to see why, or let the variable VANTRY_BROWSER "
                               "name another Chromium or Chrome)");
}

}  // namespace vantry::zrd
