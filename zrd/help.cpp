#include "zrd/help.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace vantry::zrd {

namespace {

constexpr std::size_t lineWidth = 80;
constexpr const char* margin = "  ";

using Options = std::vector<const CLI::Option*>;

/// A line of a table, or more of them where it is long.
struct Row {
  std::string name;
  std::string about;
};

struct Table {
  std::string title;
  std::vector<Row> rows;
};

/// The words of a text in lines that begin at a column; the first one is at it already.
std::string wrapped(const std::string& text, std::size_t column) {
  std::istringstream words(text);
  std::string lines;
  std::size_t end = column;
  for (std::string word; words >> word; end += word.size()) {
    if (end > column && end + 1 + word.size() > lineWidth) {
      lines += '\n' + std::string(column, ' ');
      end = column;
    } else if (end > column) {
      lines += ' ';
      ++end;
    }
    lines += word;
  }
  return lines;
}

bool isShown(const CLI::Option& option) { return !option.get_group().empty(); }

Options positionalsOf(const CLI::App& app) {
  return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

Options optionsOf(const CLI::App& app) {
  return app.get_options(
      [](const CLI::Option* option) { return isShown(*option) && option->nonpositional(); });
}

bool takesMany(const CLI::Option& option) {
  return option.get_expected_max() == CLI::detail::expected_max_vector_size;
}

std::string withValue(const std::string& name, const CLI::Option& option) {
  return option.get_expected_max() == 0 ? name : name + ' ' + option.get_type_name();
}

/// As in "-o FILE".
std::string shortSyntaxOf(const CLI::Option& option) {
  const bool isShort = !option.get_snames().empty();
  return withValue(isShort ? '-' + option.get_snames().front() : option.get_name(), option);
}

/// As in "-o, --output FILE".
std::string syntaxOf(const CLI::Option& option) {
  std::string names;
  for (const std::string& name : option.get_snames()) names += '-' + name + ", ";
  for (const std::string& name : option.get_lnames()) names += "--" + name + ", ";
  names.erase(names.size() - 2);
  return withValue(names, option);
}

std::string aboutOption(const CLI::Option& option) {
  const std::string standard = option.get_default_str();
  return option.get_description() + (standard.empty() ? "" : " (default: " + standard + ')');
}

/// As in "Usage: zrd picture [OPTION]... -o FILE PLOT".
std::string usageOf(const CLI::App& app, const std::string& name) {
  std::string usage = "Usage: " + name;
  if (!app.get_subcommands({}).empty()) return usage + " COMMAND [OPTION]... [FILE]...";
  const Options options = optionsOf(app);
  if (options.size() > 1) usage += " [OPTION]...";
  for (const CLI::Option* option : options) {
    if (option->get_required()) usage += ' ' + shortSyntaxOf(*option);
  }
  for (const CLI::Option* option : positionalsOf(app)) {
    const std::string word = option->get_name(true);
    usage += option->get_required() ? ' ' + word : " [" + word + ']';
    if (takesMany(*option)) usage += "...";
  }
  return usage;
}

std::vector<Table> tablesOf(const CLI::App& app) {
  Table arguments{"Arguments", {}};
  for (const CLI::Option* option : positionalsOf(app)) {
    arguments.rows.push_back({option->get_name(true), option->get_description()});
  }
  Table options{"Options", {}};
  for (const CLI::Option* option : optionsOf(app)) {
    options.rows.push_back({syntaxOf(*option), aboutOption(*option)});
  }
  Table commands{"Commands", {}};
  for (const CLI::App* command : app.get_subcommands({})) {
    commands.rows.push_back({command->get_name(), command->get_description()});
  }
  return {arguments, options, commands};
}

/// Writes the tables that are not empty, all with the second column at one place.
void write(std::ostream& out, const std::vector<Table>& tables) {
  std::size_t widest = 0;
  for (const Table& table : tables) {
    for (const Row& row : table.rows) widest = std::max(widest, row.name.size());
  }
  const std::size_t column = 2 * std::string_view(margin).size() + widest;
  for (const auto& [title, rows] : tables) {
    if (!rows.empty()) out << '\n' << title << ":\n";
    for (const auto& [name, about] : rows) {
      const std::string gap(widest - name.size(), ' ');
      out << margin << name << gap << margin << wrapped(about, column) << '\n';
    }
  }
}

class HelpFormatter final : public CLI::FormatterBase {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode /*mode*/) const override {
    std::ostringstream out;
    out << usageOf(*app, name) << "\n\n" << wrapped(app->get_description() + '.', 0) << '\n';
    write(out, tablesOf(*app));
    if (!app->get_footer().empty()) out << '\n' << wrapped(app->get_footer(), 0) << '\n';
    return out.str();
  }
};

}  // namespace

std::shared_ptr<CLI::FormatterBase> helpFormatter() { return std::make_shared<HelpFormatter>(); }

}  // namespace vantry::zrd
