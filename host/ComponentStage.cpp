// Statements, sessions and shows on a real connection.
#include "host/ComponentStage.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "platform/ado/Recordset.h"

namespace payslate::host {

namespace {

// Takes the errand's own statements out of the count, whatever way they end.
class Uncounted {
 public:
  explicit Uncounted(bool& counts) : counts_(counts), before_(std::exchange(counts, false)) {}
  ~Uncounted() { counts_ = before_; }
  Uncounted(const Uncounted&) = delete;
  Uncounted& operator=(const Uncounted&) = delete;

 private:
  bool& counts_;
  bool before_;
};

// A line of a set-up file without blanks around it; empty for one that holds no statement.
std::string statementOf(std::string line) {
  constexpr const char* blanks = " \t\r";
  line.erase(line.find_last_not_of(blanks) + 1);
  line.erase(0, line.find_first_not_of(blanks));
  return line.starts_with("--") ? std::string() : line;
}

}  // namespace

clspayslate makeComponent(ui::Desktop& desktop, const SharedConnection& connection,
                          const scripted::HostSession& session) {
  clspayslate component(desktop);
  component.adocon(connection);
  component.MsgboxTitle = session.title;
  component.ProcessDate = session.date;
  component.intUserID = session.user;
  component.intInterfaceID = session.interfaceId;
  component.intCompanyID = session.company;
  component.intfinancialid = session.year;
  return component;
}

ComponentStage::ComponentStage(ui::Desktop& desktop, SharedConnection connection, std::string folder)
    : desktop_(&desktop), connection_(std::move(connection)), folder_(std::move(folder)) {
  connection_->StatementSent = [this](std::string_view statement) {
    if (!countsStatements_) return;
    ++sent_;
    if (StatementSent) StatementSent(statement);
  };
}

ComponentStage::~ComponentStage() {
  connection_->StatementSent = nullptr;  // The component keeps the connection until its next show.
}

void ComponentStage::runFile(const std::string& path) {
  const std::filesystem::path file = std::filesystem::path(folder_) / path;
  std::ifstream in(file);
  if (!in || std::filesystem::is_directory(file))
    throw std::runtime_error("the file " + file.string() + " cannot be read");
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    const std::string statement = statementOf(line);
    try {
      if (!statement.empty()) runStatement(statement);
    } catch (const ado::Error& error) {
      throw std::runtime_error(file.string() + ":" + std::to_string(number) + ": " + error.Description);
    }
  }
}

void ComponentStage::runStatement(const std::string& statement) {
  const Uncounted uncounted(countsStatements_);
  ado::Recordset answer = connection_->Execute(statement);
  // A query runs as its rows are read: one that fails is to fail here.
  if (answer.State() == ado::ObjectState::Open)
    while (!answer.Eof()) answer.MoveNext();
}

std::vector<std::vector<basic::Value>> ComponentStage::rows(const std::string& statement) {
  const Uncounted uncounted(countsStatements_);
  std::vector<std::vector<basic::Value>> found;
  ado::Recordset answer = connection_->Execute(statement);
  if (answer.State() == ado::ObjectState::Closed) throw std::runtime_error("the statement returns no rows");
  for (; !answer.Eof(); answer.MoveNext()) {
    auto& row = found.emplace_back();
    for (std::size_t field = 0; field < answer.FieldCount(); ++field)
      row.push_back(answer.Fields(field).Value());
  }
  return found;
}

void ComponentStage::show() {
  sent_ = 0;
  makeComponent(*desktop_, connection_, session_).Show();
}

long ComponentStage::takeSentCount() {
  return std::exchange(sent_, 0);
}

}  // namespace payslate::host
