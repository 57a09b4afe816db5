#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <ostream>

#include "base/system/workstation.h"
#include "books/demo/demo_books.h"
#include "books/demo/demo_data.h"
#include "books/logon/password_file.h"
#include "books/making/books_creation.h"
#include "data/engines/open_engine.h"
#include "session/failure_texts.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/parameters_texts.h"
#include "tool/password_input.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct NewOptions {
    NewBooks books;
    std::string chart{chartWord(ChartTemplate::smallEnterprise)};
    std::string passwordFile;
    bool isUnlisted = false;
    bool isJson = false;
};

ExitCode create(Tool& tool, NewOptions& options) {
    const auto chart = chartOfWord(options.chart);
    if (!chart)
        return tellRefusal(tool, inputRefusal(fmt::format(tool_texts::unknownChart, options.chart),
                                              books_field::chart));
    options.books.chart = *chart;
    if (const auto refusal = readNewPassword(options.passwordFile, options.books.password))
        return tellRefusal(tool, *refusal);
    const BooksRegistry registry(booksHome());
    CreatedBooks created;
    const BooksCreation creation(options.isUnlisted ? nullptr : &registry);
    if (const auto refusal = creation.create(options.books, created))
        return tellRefusal(tool, *refusal);
    const std::string location = shownLocation(created.year.location);
    if (options.isJson)
        tool.out << jsonText(
            {{"location", location}, {"set", created.setId}, {"year", created.year.year}});
    else
        tool.out << fmt::format(tool_texts::created, options.books.name, location);
    tool.out << '\n';
    if (const auto warning = passwordFileWarning(options.passwordFile))
        tool.err << *warning << '\n';
    return ExitCode::done;
}

/// The file that tells the password of the demo's operators, made beside the books and taken
/// away again when these come to nothing.
class PasswordNote {
  public:
    explicit PasswordNote(const std::string& books) {
        if (isServerAddress(books)) return;
        const std::filesystem::path folder = std::filesystem::path(books).parent_path();
        m_path = folder / tool_texts::demoPasswordFile;
        std::error_code unseen;
        m_isNew = !std::filesystem::exists(m_path, unseen);
        m_status = makeOwnedFolder(folder);
        if (m_status) m_status = replaceOwnedFile(m_path, std::string(demo::password) + '\n');
    }
    ~PasswordNote() {
        std::error_code unseen;
        if (m_isNew && !m_isKept) std::filesystem::remove(m_path, unseen);
    }
    PasswordNote(const PasswordNote&) = delete;
    PasswordNote& operator=(const PasswordNote&) = delete;

    const Status& status() const { return m_status; }
    const std::string& path() const { return m_path; }
    void keep() { m_isKept = true; }

  private:
    std::string m_path;
    Status m_status;
    bool m_isNew = false;
    bool m_isKept = false;
};

struct DemoOptions {
    std::string books;
    std::string lastYear;
};

ExitCode makeDemo(Tool& tool, const std::string& given, DemoYear year) {
    constexpr std::int32_t onlySet = 1;
    const int number = year == DemoYear::finished ? demo::year - 1 : demo::year;
    const std::string location = placeOfBooks(given, "", onlySet, number);
    PasswordNote note(location);
    if (!note.status()) return tellFailure(tool, note.status(), note.path());
    if (const auto refusal = makeDemoBooks(location, {.year = year}))
        return tellRefusal(tool, *refusal);
    note.keep();
    tool.out << fmt::format(tool_texts::demoCreated, shownLocation(location), demo::supervisor,
                            demo::password)
             << '\n';
    if (!note.path().empty())
        tool.out << fmt::format(tool_texts::demoPasswordNoted, note.path()) << '\n';
    return ExitCode::done;
}

ExitCode makeDemos(Tool& tool, const DemoOptions& options) {
    if (!options.lastYear.empty()) {
        const ExitCode before = makeDemo(tool, options.lastYear, DemoYear::finished);
        if (before != ExitCode::done) return before;
    }
    return makeDemo(tool, options.books, DemoYear::present);
}

}  // namespace

void addNewCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<NewOptions>();
    NewBooks& books = options->books;
    CLI::App* command = app.add_subcommand("new", tool_texts::newCommand);
    command->add_option("BOOKS", books.location, tool_texts::newPlaceArgument);
    command->add_option("--name", books.name, tool_texts::nameOption)->required();
    command->add_option("--company", books.company, tool_texts::companyOption)->required();
    // What years and months books may have is said by the books, in their own words.
    addNumber(*command, "--year", books.year, {0, 9999}, tool_texts::yearOption)->required();
    addNumber(*command, "--start-month", books.startMonth, {0, 99}, tool_texts::startMonthOption);
    command->add_option("--level-pattern", books.levelPattern, tool_texts::levelPatternOption);
    addOnOff(
        *command, "--foreign", [&books](bool isOn) { books.hasForeignCurrency = isOn; },
        tool_texts::foreignOption);
    command->add_option("--chart", options->chart, tool_texts::chartOption);
    command->add_option("--supervisor", books.supervisor, tool_texts::supervisorOption)->required();
    command->add_option("--password-file", options->passwordFile, tool_texts::passwordFileOption);
    command->add_flag("--unlisted", options->isUnlisted, tool_texts::unlistedOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return create(tool, *options); }; });
}

void addDemoCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<DemoOptions>();
    CLI::App* command = app.add_subcommand("demo", tool_texts::demoCommand);
    command->add_option("BOOKS", options->books, tool_texts::newBooksArgument)->required();
    command->add_option("--last-year", options->lastYear, tool_texts::demoLastYearOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return makeDemos(tool, *options); }; });
}

}  // namespace chengheng
