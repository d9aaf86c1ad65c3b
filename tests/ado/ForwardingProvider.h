// A database in front of another one, for tests that watch what passes or come in between.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ado/Provider.h"

namespace payslate::ado {

class ForwardingProvider : public Provider {
 public:
  explicit ForwardingProvider(std::unique_ptr<Provider> real) : real_(std::move(real)) {}

  std::unique_ptr<Cursor> execute(std::string_view statement) override { return real_->execute(statement); }
  [[nodiscard]] std::optional<std::uint64_t> changedRows() const override { return real_->changedRows(); }
  void begin() override { real_->begin(); }
  void commit() override { real_->commit(); }
  void rollback() override { real_->rollback(); }
  [[nodiscard]] bool inTransaction() const override { return real_->inTransaction(); }
  std::optional<std::string> baseTable(std::string_view statement) override {
    return real_->baseTable(statement);
  }
  std::vector<std::string> key(const std::string& table) override { return real_->key(table); }
  void insert(const std::string& table, const std::vector<Assignment>& row) override {
    real_->insert(table, row);
  }
  void update(const std::string& table, const std::vector<Assignment>& key,
              const std::vector<Assignment>& row) override {
    real_->update(table, key, row);
  }

 private:
  std::unique_ptr<Provider> real_;
};

}  // namespace payslate::ado
