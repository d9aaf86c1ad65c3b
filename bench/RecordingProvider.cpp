// Forwarding, counting the rows on their way.
#include "bench/RecordingProvider.h"

#include <utility>

#include "platform/sqlite/SqliteProvider.h"

namespace payslate::bench {

namespace {

constexpr std::string_view scheme = "recorded:";

class CountedCursor : public ado::Cursor {
 public:
  CountedCursor(std::unique_ptr<ado::Cursor> real, std::shared_ptr<Operation> operation)
      : real_(std::move(real)), operation_(std::move(operation)) {}

  [[nodiscard]] const std::vector<ado::Column>& columns() const override { return real_->columns(); }
  bool next() override {
    if (!real_->next()) {
      operation_->readToEnd = true;
      return false;
    }
    ++operation_->rows;
    return true;
  }
  [[nodiscard]] basic::Value value(std::size_t column) const override { return real_->value(column); }

 private:
  std::unique_ptr<ado::Cursor> real_;
  std::shared_ptr<Operation> operation_;
};

class RecordingProvider : public ado::Provider {
 public:
  RecordingProvider(std::unique_ptr<ado::Provider> real, Recorder& recorder)
      : real_(std::move(real)), recorder_(recorder) {}

  std::unique_ptr<ado::Cursor> execute(std::string_view statement) override {
    auto operation = noted({Operation::Kind::Text, std::string(statement)});
    std::unique_ptr<ado::Cursor> cursor = real_->execute(statement);
    if (!cursor || !operation) return cursor;
    return std::make_unique<CountedCursor>(std::move(cursor), std::move(operation));
  }
  [[nodiscard]] std::optional<std::uint64_t> changedRows() const override { return real_->changedRows(); }
  void begin() override {
    noted({Operation::Kind::Begin});
    real_->begin();
  }
  void commit() override {
    noted({Operation::Kind::Commit});
    const auto start = Clock::now();
    real_->commit();
    recorder_.commits += Clock::now() - start;
  }
  void rollback() override {
    noted({Operation::Kind::Rollback});
    real_->rollback();
  }
  [[nodiscard]] bool inTransaction() const override { return real_->inTransaction(); }
  std::optional<std::string> baseTable(std::string_view statement) override {
    return real_->baseTable(statement);
  }
  std::vector<std::string> key(const std::string& table) override { return real_->key(table); }
  void insert(const std::string& table, const std::vector<ado::Assignment>& row) override {
    noted({Operation::Kind::Insert, table, {}, row});
    real_->insert(table, row);
  }
  void update(const std::string& table, const std::vector<ado::Assignment>& key,
              const std::vector<ado::Assignment>& row) override {
    noted({Operation::Kind::Update, table, key, row});
    real_->update(table, key, row);
  }

 private:
  std::shared_ptr<Operation> noted(Operation operation) {
    if (!recorder_.on) return nullptr;
    return recorder_.operations.emplace_back(std::make_shared<Operation>(std::move(operation)));
  }

  std::unique_ptr<ado::Provider> real_;
  Recorder& recorder_;
};

}  // namespace

void registerRecording(Recorder& recorder) {
  ado::ProviderEntry entry;
  entry.name = "recorded";
  entry.accepts = [](std::string_view connection) { return connection.starts_with(scheme); };
  entry.open = [&recorder](const std::string& connection) -> std::unique_ptr<ado::Provider> {
    return std::make_unique<RecordingProvider>(sqlite::providerEntry().open(connection.substr(scheme.size())),
                                               recorder);
  };
  ado::registerProvider(std::move(entry));
}

}  // namespace payslate::bench
