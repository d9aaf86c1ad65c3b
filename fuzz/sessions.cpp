// Fuzz target: what two connections do to one database, an instruction a line: the connection's number, a
// word, and what the word wants. A line without a known word is a statement.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

#include "fuzz/Rows.h"
#include "fuzz/Target.h"
#include "platform/ado/ConnectionString.h"
#include "platform/sqlite/SqliteProvider.h"

using namespace payslate;

namespace {

constexpr const char* tables[] = {
    "create table pPrefix (CompanyID smallint not null, InterfaceID int not null, Prefix varchar(10),"
    " primary key (CompanyID, InterfaceID))",
    "create table psavingsdetails (sdCompanyID smallint not null, sdSavingsID int not null, sdDate datetime)",
    "create table pentry (emhID int not null primary key, emhNo varchar(30), emhDate datetime,"
    " emhbasicpay decimal(18,2) check (emhbasicpay >= 0), ecdAmount float, emhCancelled bit not null)",
    "create unique index uxNumber on pentry (emhNo) where emhNo is not null",
    "create view vwEntry as select emhID, emhNo, emhbasicpay from pentry where emhCancelled = 0",
    "create procedure spEntry @number int as select emhNo, emhDate from pentry where emhID = @number",
    "insert into pPrefix values (1, 40001, 'EN'), (2, 40001, 'KT')",
    "insert into psavingsdetails values (1, 1, '2026/03/15'), (1, 1, null), (2, 1, '2026/04/25')",
    "insert into pentry values (1, 'EN1', '2026/04/30', 28000, 0.1, 0), (2, 'EN2', null, 0.05, null, 1),"
    " (3, null, '2026/04/30 12:30:15', null, -1e300, 0)",
};

/// The database of an input, and the one that it is copied from.
class Files {
 public:
  Files()
      : folder_(std::filesystem::temp_directory_path() /
                ("payslate-fuzz-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(folder_);
    ado::Connection connection;
    connection.Open(original() + ado::createFile);
    for (const char* const statement : tables) connection.Execute(statement);
  }
  ~Files() {
    std::error_code ignored;  // What is left behind lies in the folder for temporary files.
    std::filesystem::remove_all(folder_, ignored);
  }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  [[nodiscard]] std::string current() const { return (folder_ / "current.db").string(); }
  void putBack() const {
    for (const char* const behind : {"-wal", "-shm"}) std::filesystem::remove(current() + behind);
    std::error_code failed;  // The fuzzer's clock may interrupt it.
    do {
      std::filesystem::copy_file(original(), current(), std::filesystem::copy_options::overwrite_existing,
                                 failed);
    } while (failed == std::errc::interrupted);
    if (failed) throw std::system_error(failed, "The database cannot be put back");
  }

 private:
  [[nodiscard]] std::string original() const { return (folder_ / "original.db").string(); }

  std::filesystem::path folder_;
};

/// A connection and the recordset open on it.
class Session {
 public:
  explicit Session(std::string connection) : text_(std::move(connection)) { connection_.Open(text_); }

  void perform(std::string_view line);
  /// May it have stored something?
  [[nodiscard]] bool hasChanged() const { return changed_; }
  /// Ready for another input.
  void clear() {
    rows_ = ado::Recordset();
    if (connection_.InTransaction()) connection_.RollbackTrans();
    if (connection_.State() == ado::ObjectState::Closed) connection_.Open(text_);
  }

 private:
  void execute(const std::string& statement);
  void open(const std::string& statement);
  void set(const std::string& what);
  void reopen();

  std::string text_;
  ado::Connection connection_;
  ado::Recordset rows_;
  bool changed_ = false;
};

std::string takeWord(std::string_view& text) {
  const std::size_t end = std::min(text.find(' '), text.size());
  std::string word(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return word;
}

void Session::execute(const std::string& statement) {
  ado::Recordset rows = connection_.Execute(statement);
  if (rows.State() == ado::ObjectState::Open)
    fuzz::readRows(rows);
  else
    changed_ = true;
}

void Session::open(const std::string& statement) {
  rows_ = ado::Recordset();
  const bool forward = statement.size() % 4 == 0;
  rows_.Open(statement, connection_, forward ? ado::CursorType::ForwardOnly : ado::CursorType::Keyset,
             ado::LockType::Optimistic);
}

/// FIELD VALUE; the value is Null where there is none, and a number where it begins with "=".
void Session::set(const std::string& what) {
  std::string_view rest = what;
  const std::string field = takeWord(rest);
  basic::Value value = basic::Null{};
  if (rest.starts_with('='))
    value = std::strtod(std::string(rest.substr(1)).c_str(), nullptr);
  else if (!rest.empty())
    value = std::string(rest);
  rows_.Fields(field) = std::move(value);
}

void Session::reopen() {
  connection_.Close();
  connection_.Open(text_);
}

void Session::perform(std::string_view line) {
  std::string_view rest = line;
  const std::string word = takeWord(rest);
  const std::string text(rest);
  const struct {
    const char* word;
    std::function<void()> action;
  } actions[] = {
      {"begin", [&] { connection_.BeginTrans(); }},
      {"commit",
       [&] {
         connection_.CommitTrans();
         changed_ = true;
       }},
      {"rollback", [&] { connection_.RollbackTrans(); }},
      {"reopen", [&] { reopen(); }},
      {"open", [&] { open(text); }},
      {"next", [&] { rows_.MoveNext(); }},
      {"read", [&] { fuzz::readRows(rows_); }},
      {"first", [&] { rows_.MoveFirst(); }},
      {"count", [&] { fuzz::require(rows_.RecordCount() >= -1, "rows are counted"); }},
      {"add", [&] { rows_.AddNew(); }},
      {"set", [&] { set(text); }},
      {"update",
       [&] {
         // Also a statement's first word.
         if (!text.empty()) return execute(std::string(line));
         rows_.Update();
         changed_ = true;
       }},
      {"cancel", [&] { rows_.CancelUpdate(); }},
      {"close", [&] { rows_.Close(); }},
  };
  const auto* const found =
      std::find_if(std::begin(actions), std::end(actions), [&](const auto& one) { return word == one.word; });
  if (found != std::end(actions)) return found->action();
  execute(std::string(line));
}

/// Both sessions, for as long as what they find is what the first ones found.
struct Pair {
  Session first;
  Session second;
  explicit Pair(const std::string& path)
      : first(path + ";BusyTimeout=0;StatementTimeout=500"),
        second(path + ";BusyTimeout=0;StatementTimeout=500") {}
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int mostLines = 60;
  [[maybe_unused]] static const bool registered = [] {
    ado::registerProvider(sqlite::providerEntry());
    return true;
  }();
  static const Files files;
  static std::unique_ptr<Pair> pair;
  if (!pair) {
    files.putBack();
    pair = std::make_unique<Pair>(files.current());
  }
  std::istringstream text(fuzz::textOf(data, size));
  std::string line;
  for (int lines = 0; lines < mostLines && std::getline(text, line); ++lines) {
    Session& session = line.starts_with('2') ? pair->second : pair->first;
    try {
      session.perform(std::string_view(line).substr(std::min(line.find(' ') + 1, line.size())));
    } catch (const ado::Error& error) {
      fuzz::requireTold(error);
    }
  }
  pair->first.clear();
  pair->second.clear();
  if (pair->first.hasChanged() || pair->second.hasChanged()) pair.reset();
  return 0;
}
