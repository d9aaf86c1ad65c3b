// Options and commands, and the one place where failures become sentences and exit codes.
#include "host/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <limits>
#include <ostream>

#include "host/Commands.h"
#include "platform/ado/ConnectionString.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"

namespace payslate::host {

namespace {

constexpr const char* description =
    "Runs the monthly entry of a payroll: shows it, sets its database up, performs errands on it.";
constexpr const char* connectHelp = "The database: the path of a file, or a connection string";

/// The parsed words; which command was given, CLI11 knows.
struct Words {
  DemoWish demo;
  std::string initConnect;
  std::string upgradeConnect;
  ErrandWish errand;
  std::string errandConnect;
  ShowWish show;
  std::string showDate;
  MonthWish month;
  std::string monthDate;
  ReviewWish review;
  std::string reviewDate;
  std::string reviewPercent;
  std::string reviewAmount;
  JournalWish journal;
  ExplainWish explain;
  std::string explainDate;
  ReportFormat explainFormat = ReportFormat::Table;
};

const CLI::Range shortNumber(0, int{std::numeric_limits<std::int16_t>::max()});
const CLI::Range longNumber(0, int{std::numeric_limits<std::int32_t>::max()});

using Command = std::function<ExitCode()>;

// Adds the commands to the parser and returns what each of them does.
class Commands {
 public:
  Commands(CLI::App& app, const ScreenMaker& makeScreen, std::ostream& out, std::ostream& err)
      : app_(app), makeScreen_(makeScreen), out_(out), err_(err) {
    app.require_subcommand(0, 1);  // None is told apart below, after wrong options.
    addDemo();
    addInit();
    addUpgrade();
    addErrand();
    addExplain();
    addJournal();
    addMonth();
    addReview();
    addShow();
  }

  ExitCode perform() {
    for (const auto& [parser, command] : commands_)
      if (parser->parsed()) return command();
    throw Refusal(
        "A command is missing: demo, init, upgrade, errand, show, month, review, explain or journal.");
  }

 private:
  void addDemo() {
    CLI::App* parser =
        app_.add_subcommand("demo", "Opens the demo company, which is made if it is not there");
    CLI::Option* connect =
        parser->add_option("--connect", words_.demo.connect,
                           "An empty database to fill with the demo companies, without opening it");
    parser->add_option("--database", words_.demo.database, "The demo company's database file")
        ->capture_default_str()
        ->excludes(connect);
    parser->add_option("--screens", words_.demo.screens, "A folder for pictures of every window")
        ->excludes(connect);
    commands_.emplace_back(parser, [this] { return demo(words_.demo, makeScreen_, out_); });
  }

  void addInit() {
    CLI::App* parser = app_.add_subcommand("init", "Creates the payroll tables in a database without them");
    parser->add_option("--connect", words_.initConnect, connectHelp)->required();
    commands_.emplace_back(parser, [this] { return init(words_.initConnect, out_); });
  }

  void addUpgrade() {
    CLI::App* parser = app_.add_subcommand(
        "upgrade",
        "Takes the payroll tables of an earlier program to the present schema, all of it or nothing");
    parser->add_option("--connect", words_.upgradeConnect, connectHelp)->required();
    commands_.emplace_back(parser, [this] { return upgrade(words_.upgradeConnect, out_); });
  }

  void addErrand() {
    CLI::App* parser =
        app_.add_subcommand("errand", "Performs errands: files that say what a clerk does and sees");
    parser->add_option("FILE", words_.errand.files, "Errand files")->required();
    CLI::Option* connect = parser->add_option("--connect", words_.errandConnect, connectHelp);
    parser->add_flag("--window", words_.errand.window, "Through real windows");
    commands_.emplace_back(parser, [this, connect] {
      if (connect->count() > 0) words_.errand.connect = words_.errandConnect;
      return errand(words_.errand, makeScreen_, out_);
    });
  }

  void addExplain() {
    CLI::App* parser = app_.add_subcommand("explain", "Says of every figure of an entry where it comes from");
    ExplainWish& wish = words_.explain;
    addSession(parser, wish.connect, wish.session, words_.explainDate);
    parser->add_option("--entry", wish.entry, "The number of the entry")->required();
    CLI::Option* format = addFormat(parser, words_.explainFormat);
    commands_.emplace_back(parser, [this, format] {
      words_.explain.session.date = dateOf(words_.explainDate);
      if (format->count() > 0) words_.explain.format = words_.explainFormat;
      return explain(words_.explain, out_);
    });
  }

  void addJournal() {
    CLI::App* parser = app_.add_subcommand(
        "journal", "Shows who stored, changed and cancelled an entry; seals and proves the journal");
    JournalWish& wish = words_.journal;
    parser->add_option("--connect", wish.connect, connectHelp)->required();
    parser->add_option("--company", wish.company, "The company")->required()->check(shortNumber);
    parser->add_option("--user", wish.user, "The user who seals")->check(shortNumber);
    CLI::Option* entry = parser->add_option("--entry", wish.entry, "Shows the entry with this number");
    CLI::Option* verify = parser->add_flag("--verify", wish.verifies, "Proves the journal")->excludes(entry);
    CLI::Option* seal =
        parser
            ->add_option("--seal", wish.seal,
                         "Adds a seal and prints it; with --verify, the seal to hold it against")
            ->expected(0, 1)
            ->excludes(entry);
    addFormat(parser, wish.format);
    commands_.emplace_back(parser, [this, seal, verify] {
      JournalWish& given = words_.journal;
      given.seals = seal->count() > 0 && verify->count() == 0;
      if (given.seals && !given.seal.empty())
        throw Refusal("--seal adds a seal of its own: a text goes with --verify.");
      if (seal->count() > 0 && !given.seals && given.seal.empty())
        throw Refusal("With --verify --seal takes the text of a seal.");
      return journal(given, out_);
    });
  }

  void addMonth() {
    CLI::App* parser = app_.add_subcommand("month", "Enters the month for everybody who has no entry yet");
    MonthWish& wish = words_.month;
    addSession(parser, wish.connect, wish.session, words_.monthDate);
    parser->add_option("--department", wish.options.departments, "Only employees of these departments")
        ->check(longNumber);
    parser->add_option("--employee", wish.options.employees, "Only these employees")->check(longNumber);
    parser->add_flag("--facilities", wish.options.facilities, "Takes every open facility recovery");
    parser->add_flag("--no-balance{false}", wish.options.balance,
                     "Leaves salary that was carried forward where it is");
    parser->add_flag("--dry-run", wish.options.dryRun, "Stores nothing, and tells what would be stored");
    parser->add_flag("--with-findings", wish.options.withFindings,
                     "Stores also entries that should be looked at first");
    parser->add_flag("--explain", wish.options.explanations, "Tells where each amount comes from");
    addFormat(parser, wish.format);
    commands_.emplace_back(parser, [this] {
      words_.month.session.date = dateOf(words_.monthDate);
      return month(words_.month, out_, err_);
    });
  }

  void addReview() {
    CLI::App* parser = app_.add_subcommand(
        "review", "Shows the month beside the one before: who is missing, who is paid more or less, and why");
    ReviewWish& wish = words_.review;
    addSession(parser, wish.connect, wish.session, words_.reviewDate);
    parser->add_option("--department", wish.options.departments, "Only employees of these departments")
        ->check(longNumber);
    parser->add_option("--percent", words_.reviewPercent,
                       "A net pay has changed that differs by more percent; 25 if it is not given");
    parser->add_option("--amount", words_.reviewAmount,
                       "A net pay has also changed that differs by more than this");
    parser->add_option("--accept", wish.options.acceptAs,
                       "Closes the month under this name, and writes that to the journal");
    addFormat(parser, wish.format);
    commands_.emplace_back(parser, [this, parser] {
      ReviewWish& given = words_.review;
      given.session.date = dateOf(words_.reviewDate);
      if (parser->count("--percent") > 0)
        given.options.percent = decimalOf("--percent", words_.reviewPercent);
      if (parser->count("--amount") > 0) given.options.amount = decimalOf("--amount", words_.reviewAmount);
      if (parser->count("--accept") > 0 && basic::Trim(given.options.acceptAs).empty())
        throw Refusal("--accept takes the name under which the month is closed.");
      return review(given, out_);
    });
  }

  void addShow() {
    CLI::App* parser = app_.add_subcommand("show", "Opens the list of monthly entries");
    scripted::HostSession& session = words_.show.session;
    session.title = "Payroll";
    addSession(parser, words_.show.connect, session, words_.showDate);
    parser->add_option("--title", session.title, "The title of message boxes")->capture_default_str();
    commands_.emplace_back(parser, [this] {
      words_.show.session.date = dateOf(words_.showDate);
      return show(words_.show, makeScreen_);
    });
  }

  static void addSession(CLI::App* parser, std::string& connect, scripted::HostSession& session,
                         std::string& date) {
    parser->add_option("--connect", connect, connectHelp)->required();
    parser->add_option("--company", session.company, "The company")->required()->check(shortNumber);
    parser->add_option("--user", session.user, "The user who works")->required()->check(shortNumber);
    parser->add_option("--interface", session.interfaceId, "This screen in the rights tables")
        ->required()
        ->check(longNumber);
    parser->add_option("--year", session.year, "The financial year")->required()->check(shortNumber);
    parser->add_option("--date", date, "The process date, yyyy/mm/dd")->required();
  }

  static CLI::Option* addFormat(CLI::App* parser, ReportFormat& format) {
    return parser->add_option("--format", format, "How to write: table, csv, json")
        ->transform(CLI::CheckedTransformer(reportFormats()));
  }

  static basic::Date dateOf(const std::string& text) {
    try {
      return basic::parseDate(text, "yyyy/mm/dd");
    } catch (const basic::ValueError&) {
      throw Refusal("--date is \"" + text + "\" and no date written yyyy/mm/dd.");
    }
  }

  static basic::Decimal decimalOf(const char* option, const std::string& text) {
    try {
      const auto number = basic::Decimal::parse(text);
      if (!number.isNegative()) return number;
    } catch (const basic::ValueError&) {
      // Told like a number below 0.
    }
    throw Refusal(std::string(option) + " is \"" + text + "\" and no number like 25 or 12.50.");
  }

  CLI::App& app_;
  const ScreenMaker& makeScreen_;
  std::ostream& out_;
  std::ostream& err_;
  Words words_;
  std::vector<std::pair<CLI::App*, Command>> commands_;
};

bool isCommand(const CLI::App& app, const std::string& word) {
  const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
  return std::any_of(commands.begin(), commands.end(),
                     [&word](const CLI::App* command) { return command->get_name() == word; });
}

// Of what is not understood only the names of options are repeated: a bare word may be a password.
std::string unexpected(const CLI::App& app) {
  std::string names;
  for (const std::string& word : app.remaining(true)) {
    if (!word.starts_with('-')) continue;
    constexpr std::size_t shortName = 2;  // Its value may follow at once.
    names +=
        (names.empty() ? "" : ", ") + word.substr(0, word.starts_with("--") ? word.find('=') : shortName);
  }
  return names.empty() ? "A word of the command line is not expected" : "There is no option " + names;
}

// One line; what stood on a line of its own is a sentence of its own.
std::string sentence(const std::string& text) {
  std::string result;
  for (const char character : text + '\n') {
    if (character != '\n' && character != '\r') {
      result += character;
      continue;
    }
    result.erase(result.find_last_not_of(" .") + 1);
    if (!result.empty()) result += ". ";
  }
  return basic::Trim(result);
}

}  // namespace

int run(int argc, const char* const* argv, const ScreenMaker& makeScreen, std::ostream& out,
        std::ostream& err) {
  CLI::App app(description, "payroll-host");
  Commands commands(app, makeScreen, out, err);
  std::string problem;
  try {
    app.parse(argc, argv);
    return static_cast<int>(commands.perform());
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error, out, err);
    const bool extra = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError);
    problem = extra ? unexpected(app) : error.what();
    if (argc > 1 && argv[1][0] != '-' && !isCommand(app, argv[1]))
      problem =
          "There is no such command; use demo, init, upgrade, errand, show, month, review, explain or journal, or --help";
  } catch (const std::exception& error) {
    problem = error.what();
  }
  // A connection string in the place of a file is repeated.
  err << "payroll-host: " << sentence(ado::blotSecrets(problem)) << '\n';
  return static_cast<int>(ExitCode::Refused);
}

}  // namespace payslate::host
