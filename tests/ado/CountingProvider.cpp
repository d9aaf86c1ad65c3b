// A database that counts what is asked of it.
#include "tests/ado/CountingProvider.h"

#include <utility>

#include "tests/ado/ForwardingProvider.h"

namespace payslate::ado {
namespace {

constexpr std::string_view prefix = "counting:";

class CountingCursor : public Cursor {
 public:
  explicit CountingCursor(std::unique_ptr<Cursor> real) : real_(std::move(real)) {}
  [[nodiscard]] const std::vector<Column>& columns() const override { return real_->columns(); }
  bool next() override {
    const bool any = real_->next();
    counts().rows += any ? 1 : 0;
    return any;
  }
  [[nodiscard]] basic::Value value(std::size_t column) const override { return real_->value(column); }

 private:
  std::unique_ptr<Cursor> real_;
};

class CountingProvider : public ForwardingProvider {
 public:
  using ForwardingProvider::ForwardingProvider;
  std::unique_ptr<Cursor> execute(std::string_view statement) override {
    std::unique_ptr<Cursor> cursor = ForwardingProvider::execute(statement);
    return cursor ? std::make_unique<CountingCursor>(std::move(cursor)) : nullptr;
  }
  std::optional<std::string> baseTable(std::string_view statement) override {
    ++counts().baseTables;
    return ForwardingProvider::baseTable(statement);
  }
};

}  // namespace

Counts& counts() {
  static Counts all;
  return all;
}

void openCounting(Connection& connection, const std::string& database) {
  static const bool registered = [] {
    registerProvider({"counting",
                      [](std::string_view text) { return text.substr(0, prefix.size()) == prefix; },
                      [](const std::string& text) -> std::unique_ptr<Provider> {
                        return std::make_unique<CountingProvider>(openProvider(text.substr(prefix.size())));
                      }});
    return true;
  }();
  if (registered) connection.Open(std::string(prefix) + database);
  counts() = {};
}

}  // namespace payslate::ado
