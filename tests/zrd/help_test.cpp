// The help of zrd and of each of its commands, whole.

#include <string>
#include <vector>

#include "../driver/program.h"

namespace {

struct Page {
  std::string command;
  std::string text;
};

const Page pages[] = {
    {"", R"(Usage: zrd COMMAND [OPTION]... [FILE]...

Work with plot documents.

Options:
  -h, --help  Print this help
  --version   Print the version

Commands:
  check       Find what is wrong with documents, and say how to mend it
  command     Print the plot as a command of the algebra system
  convert     Convert plots, many at once
  format      Write a plot document back, sorted and indented, without comments
  picture     Draw a plot as a PNG, by Chromium
  reference   Say what elements there are, or what an element may hold
  schema      Write a RELAX NG schema, for editors and validators
  show        Show the tree of a document, with the values and their origins
  view        Show plots on a page, in a browser

zrd COMMAND --help says what a command takes.
)"},
    {"check", R"(Usage: zrd check [OPTION]... FILE...

Find what is wrong with documents, and say how to mend it.

Arguments:
  FILE                       The plot documents, folders with them, or - for
                             standard input

Options:
  -h, --help                 Print this help
  --format text|json|sarif   Sentences for people, a JSON object a line, or a
                             SARIF log (default: text)
  --max N                    Show at most so many
  --color auto|always|never  Whether text has colours (default: auto)
  --strict                   Warnings count as errors for the exit status
)"},
    {"command", R"(Usage: zrd command FILE

Print the plot as a command of the algebra system.

Arguments:
  FILE        The plot document, or - for standard input

Options:
  -h, --help  Print this help
)"},
    {"convert", R"(Usage: zrd convert [OPTION]... [PLOT]...

Convert plots, many at once.

Arguments:
  PLOT               A plot, a folder with plots, or - for a list of them on
                     standard input

Options:
  -h, --help         Print this help
  --to jvx|jvd|both  What to write (default: jvx)
  --output-dir DIR   The folder of the outputs, which lie in it as the plots do
                     in the folder that was named; without it each lies beside
                     its plot
  --name PATTERN     How outputs are called (default: {name}.{ext})
  --jobs N           How many plots to convert at the same time (default: as
                     many as there are processors)
  --frames N         Write animations, with so many frames in a unit of time
  --time T           Take animated plots as they are at this time
  --if-changed       Leave outputs alone that are newer than their plot and this
                     program
  --keep-going       Try the other plots after a failure
  --files-from FILE  A file with the names of plots, a line each; - is standard
                     input
)"},
    {"format", R"(Usage: zrd format [OPTION]... FILE

Write a plot document back, sorted and indented, without comments.

Arguments:
  FILE               The plot document, or - for standard input

Options:
  -h, --help         Print this help
  -o, --output FILE  Write to this file in place of standard output
  -i, --in-place     Write to the file itself
  --minimal          Drop values that are inherited or default anyway
)"},
    {"picture", R"(Usage: zrd picture [OPTION]... -o FILE PLOT

Draw a plot as a PNG, by Chromium.

Arguments:
  PLOT                 A plot document, a JVX file with a JVD file beside it, or
                       - for standard input

Options:
  -h, --help           Print this help
  -o, --output FILE    The picture, or - for standard output
  --size WIDTHxHEIGHT  Width and height, in pixels of a page (default: 1200x900)
  --scale FACTOR       Pixels of the picture per pixel of a page (default: 1)
  --time T             Take animated plots as they are at this time
  --transparent        Leave the ground transparent
)"},
    {"reference", R"(Usage: zrd reference [OPTION]... [NAME]

Say what elements there are, or what an element may hold.

Arguments:
  NAME            The element that is described; all are listed without it

Options:
  -h, --help      Print this help
  --element NAME  The element that is described; all are listed without it
  --markdown      Write a page of the manual
)"},
    {"schema", R"(Usage: zrd schema

Write a RELAX NG schema, for editors and validators.

Options:
  -h, --help  Print this help
)"},
    {"show", R"(Usage: zrd show [OPTION]... FILE

Show the tree of a document, with the values and their origins.

Arguments:
  FILE            The plot document, or - for standard input

Options:
  -h, --help      Print this help
  --json          Write a JSON object for each element that is shown
  --depth N       Show so many levels below the Canvas, or below what is asked
                  for
  --element NAME  Show the elements of this name alone
  --path PATH     Show what is at this path alone, as in Canvas/Scene2d[1]
  --all           Show values that are defaults too
)"},
    {"view", R"(Usage: zrd view [OPTION]... PLOT...

Show plots on a page, in a browser.

Arguments:
  PLOT               A plot document, a JVX file with a JVD file beside it, or -
                     for standard input

Options:
  -h, --help         Print this help
  -o, --output FILE  Write the page into this file, or with - to standard
                     output, and open no browser
  --time T           Take animated plots as they are at this time
  --frames N         The frames of animations in a unit of time (default: 25)
)"},
};

class Help : public ProgramTest {};

TEST_F(Help, SaysHowACommandIsCalledAndWhatItTakes) {
  setProgram(ZRD_PROGRAM);
  for (const auto& [command, text] : pages) {
    std::vector<std::string> arguments = {"--help"};
    if (!command.empty()) arguments.insert(arguments.begin(), command);
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0) << command;
    EXPECT_EQ(outcome.out, text) << command;
    EXPECT_EQ(outcome.err, "") << command;
  }
}

TEST_F(Help, HasAShortOption) {
  setProgram(ZRD_PROGRAM);
  EXPECT_EQ(run({"schema", "-h"}).out, run({"schema", "--help"}).out);
}

}  // namespace
