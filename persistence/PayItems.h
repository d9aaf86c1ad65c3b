// Descriptions and currencies of everything that a row of an entry can be of, read at once.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

namespace payslate {

struct Session;

struct PayItem {
  std::string description;
  std::string symbol;  ///< Empty where the item has no currency.
};

class PayItems {
 public:
  /// By one statement. ado::Error.
  explicit PayItems(Session& session);

  /// Null when the company has none with this number.
  [[nodiscard]] const PayItem* allowance(std::int32_t id) const { return find('A', id); }
  [[nodiscard]] const PayItem* deduction(std::int32_t id) const { return find('D', id); }
  [[nodiscard]] const PayItem* loan(std::int32_t id) const { return find('L', id); }
  [[nodiscard]] const PayItem* savings(std::int32_t id) const { return find('S', id); }
  /// The symbol is the description.
  [[nodiscard]] const PayItem* currency(std::int32_t id) const { return find('C', id); }

  /// Of the facilities' currencies; empty when there is none.
  [[nodiscard]] std::string symbolOf(std::int32_t currencyId) const;

 private:
  [[nodiscard]] const PayItem* find(char kind, std::int32_t id) const;

  std::unordered_map<char, std::unordered_map<std::int32_t, PayItem>> items_;
};

}  // namespace payslate
