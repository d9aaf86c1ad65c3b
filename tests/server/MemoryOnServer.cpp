// Linked into a test program, this makes its ":memory:" the empty database of a server where
// PAYSLATE_TEST_CONNECT holds a connection string; what the program created there is dropped when the
// connection closes.
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/ado/ConnectionString.h"
#include "platform/ado/Error.h"
#include "platform/basic/Numbers.h"
#include "tests/ado/ForwardingProvider.h"

namespace payslate::ado {
namespace {

const char* testServer() {
  return std::getenv("PAYSLATE_TEST_CONNECT");
}

/// Forwards everything and remembers what was created.
class CleaningProvider final : public ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;
  ~CleaningProvider() override {
    try {
      if (inTransaction()) CleaningProvider::rollback();
      while (!created_.empty()) {
        const std::string last = created_.back();
        created_.pop_back();
        ForwardingProvider::execute("drop " + last);
      }
    } catch (const Error& error) {
      std::cerr << "The test leaves something behind: " << error.Description << '\n';
    }
  }
  CleaningProvider(const CleaningProvider&) = delete;
  CleaningProvider& operator=(const CleaningProvider&) = delete;

  std::unique_ptr<Cursor> execute(std::string_view statement) override {
    std::unique_ptr<Cursor> cursor = ForwardingProvider::execute(statement);
    note(statement);
    return cursor;
  }
  void begin() override {
    ForwardingProvider::begin();
    createdBefore_ = created_;
  }
  void rollback() override {
    ForwardingProvider::rollback();
    created_ = createdBefore_;
  }

 private:
  void note(std::string_view statement) {
    std::istringstream words{std::string(statement)};
    std::string verb;
    std::string kind;
    std::string name;
    words >> verb >> kind >> name;
    kind = basic::lower(kind);
    if (kind != "table" && kind != "view" && kind != "procedure") return;
    const std::string object = kind + " " + basic::lower(name.substr(0, name.find_first_of("(;")));
    if (basic::sameName(verb, "create")) created_.push_back(object);
    if (basic::sameName(verb, "drop")) std::erase(created_, object);
  }

  std::vector<std::string> created_;
  std::vector<std::string> createdBefore_;  // the transaction
};

const bool registered = [] {
  if (testServer() == nullptr) return false;
  registerProvider({"test server", [](std::string_view text) { return text == inMemory; },
                    [](const std::string&) -> std::unique_ptr<Provider> {
                      return std::make_unique<CleaningProvider>(openProvider(testServer()));
                    }});
  return true;
}();

}  // namespace
}  // namespace payslate::ado
