#include <algorithm>
#include <array>
#include <clocale>
#include <csignal>
#include <exception>
#include <ios>
#include <new>
#include <string>

#include "vantry/base/standard_descriptors.h"
#include "vantry/base/text_errors.h"
#include "zrd/commands.h"
#include "zrd/help.h"
#include "zrd/messages.h"
#include "zrd/whole_output.h"
#include "zrd/wrong_usage.h"

namespace vantry::zrd {

namespace {

constexpr std::array commands = {addCheckCommand,  addCommandCommand, addConvertCommand,
                                 addFormatCommand, addPictureCommand, addReferenceCommand,
                                 addSchemaCommand, addShowCommand,    addViewCommand};

int run(int argc, char** argv) {
  CLI::App program("Work with plot documents", "zrd");
  program.formatter(helpFormatter());
  program.require_subcommand(1);
  program.option_defaults()->disable_flag_override();  // no flag has a value
  program.set_help_flag("-h,--help", "Print this help");
  program.set_version_flag("--version", "zrd " VANTRY_VERSION, "Print the version");

  std::array<Command, commands.size()> added;
  std::ranges::transform(commands, added.begin(), [&program](auto add) { return add(program); });
  program.footer("zrd COMMAND --help says what a command takes.");  // which they would inherit
  try {
    program.parse(argc, argv);
    const auto chosen = std::ranges::find_if(
        added, [](const Command& command) { return command.options->parsed(); });
    return chosen->run();
  } catch (const CLI::Success& question) {  // for help, or the version
    writeOut([&](std::ostream& out) { program.exit(question, out); });
    return success;
  } catch (const CLI::ParseError& refusal) {
    throw Failure(wrongUsage, describe(program, refusal));
  }
}

}  // namespace

}  // namespace vantry::zrd

int main(int argc, char** argv) {
  vantry::base::occupyStandardDescriptors();
  std::setlocale(LC_CTYPE, "");
  std::ios::sync_with_stdio(false);
  std::signal(SIGXFSZ, SIG_IGN);  // a limit on the size of files is a failure like any other
  try {
    return vantry::zrd::run(argc, argv);
  } catch (const vantry::zrd::BadDocument& failure) {
    vantry::zrd::say(std::string(failure.what()) + vantry::zrd::wayOut);
    return failure.status();
  } catch (const vantry::zrd::Failure& failure) {
    vantry::zrd::say(failure.what());
    return failure.status();
  } catch (const vantry::base::BadUnicodeString&) {
    vantry::zrd::say(
        "the locale's character set does not hold a text of the document: run zrd in a locale with "
        "UTF-8, such as LC_ALL=C.UTF-8");
    return vantry::zrd::badDocument;
  } catch (const std::bad_alloc&) {
    vantry::zrd::say("out of memory");
    return vantry::zrd::badDocument;
  } catch (const std::exception& failure) {
    vantry::zrd::say(failure.what());
    return vantry::zrd::badDocument;
  }
}
