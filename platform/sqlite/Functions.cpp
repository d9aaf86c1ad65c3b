// Adapters between the database's calls and the run-time library.
#include "platform/sqlite/Functions.h"

#include <sqlite3.h>

#include <array>
#include <exception>
#include <utility>
#include <vector>

#include "platform/sqlite/DatabaseFile.h"
#include "platform/sqlite/Values.h"
#include "platform/tsql/Generator.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/Text.h"

namespace payslate::sqlite {

namespace {

using tsql::CellView;

/// What a registered function is given: the library's entry, and where its errors go.
template <typename Entry>
struct Binding {
  const Entry* entry;
  DatabaseFile* file;
};

template <typename Entry>
void destroyBinding(void* binding) {
  delete static_cast<Binding<Entry>*>(binding);
}

std::string_view view(int size, const void* bytes) {
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

CellView viewOf(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_INTEGER) return static_cast<std::int64_t>(sqlite3_value_int64(value));
  if (type == SQLITE_FLOAT) return sqlite3_value_double(value);
  if (type != SQLITE_TEXT) return {};
  // Asked for as text the bytes would be copied, to put a zero behind them.
  const void* bytes = sqlite3_value_blob(value);
  return view(sqlite3_value_bytes(value), bytes);
}

void giveText(sqlite3_context* context, std::string_view text) {
  // Without an address it would be taken for Null.
  const char* bytes = text.empty() ? "" : text.data();
  sqlite3_result_text64(context, bytes, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void giveResult(sqlite3_context* context, const CellView& result) {
  if (const auto* whole = std::get_if<std::int64_t>(&result)) {
    sqlite3_result_int64(context, *whole);
  } else if (const auto* number = std::get_if<double>(&result)) {
    sqlite3_result_double(context, *number);
  } else if (const auto* text = std::get_if<std::string_view>(&result)) {
    giveText(context, *text);
  } else {
    sqlite3_result_null(context);
  }
}

// No exception may cross the database; it is kept, and thrown again by the statement that failed.
template <typename Body>
void guarded(sqlite3_context* context, DatabaseFile& file, Body body) {
  try {
    body();
  } catch (const tsql::SqlError& error) {
    file.functionError = error;
    sqlite3_result_error(context, error.what(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception&) {
    const ado::Error damage = file.damage("a stored value");
    file.functionError = tsql::SqlError(tsql::state::general, damage.Description);
    sqlite3_result_error(context, damage.what(), -1);
  }
}

using FunctionBinding = Binding<tsql::RuntimeFunction>;

template <typename Views>
void call(sqlite3_context* context, Views views) {
  const FunctionBinding& binding = *static_cast<FunctionBinding*>(sqlite3_user_data(context));
  guarded(context, *binding.file, [&] {
    const auto arguments = views();
    const tsql::Answer answer = tsql::callRuntime(*binding.entry, tsql::Arguments(arguments));
    giveResult(context, answer.view());
  });
}

void callWithMany(sqlite3_context* context, int count, sqlite3_value** values) {
  call(context, [&] {
    std::vector<CellView> views;
    views.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) views.push_back(viewOf(values[i]));
    return views;
  });
}

using Caller = void (*)(sqlite3_context*, int, sqlite3_value**);

template <std::size_t... at>
constexpr Caller callerFor(std::index_sequence<at...>) {
  return [](sqlite3_context* context, int, sqlite3_value** values) {
    call(context, [&] { return std::array<CellView, sizeof...(at)>{viewOf(values[at])...}; });
  };
}

// A row may make a dozen calls: where the number of arguments is known, its code makes no more and no loop.
Caller callerOf(const tsql::RuntimeFunction& function) {
  switch (function.arguments) {
    case 1:
      return callerFor(std::make_index_sequence<1>());
    case 2:
      return callerFor(std::make_index_sequence<2>());
    case 3:
      return callerFor(std::make_index_sequence<3>());
    case 4:
      return callerFor(std::make_index_sequence<4>());
    default:
      return callWithMany;
  }
}

using AggregateBinding = Binding<tsql::RuntimeAggregate>;

// The database keeps one pointer for a group; the fold behind it is made on the first row.
tsql::Accumulator* accumulator(sqlite3_context* context, const AggregateBinding& binding) {
  auto** slot =
      static_cast<tsql::Accumulator**>(sqlite3_aggregate_context(context, sizeof(tsql::Accumulator*)));
  if (slot == nullptr) throw std::bad_alloc();
  if (*slot == nullptr) *slot = binding.entry->create().release();
  return *slot;
}

void stepAggregate(sqlite3_context* context, int, sqlite3_value** values) {
  const AggregateBinding& binding = *static_cast<AggregateBinding*>(sqlite3_user_data(context));
  guarded(context, *binding.file, [&] {
    tsql::Accumulator* fold = accumulator(context, binding);
    const CellView value = viewOf(values[0]);
    if (binding.entry->takesNull || !tsql::isNull(value)) fold->add(value);
  });
}

void finishAggregate(sqlite3_context* context) {
  const AggregateBinding& binding = *static_cast<AggregateBinding*>(sqlite3_user_data(context));
  auto** slot = static_cast<tsql::Accumulator**>(sqlite3_aggregate_context(context, 0));
  std::unique_ptr<tsql::Accumulator> fold(slot == nullptr ? nullptr : *slot);
  if (slot != nullptr) *slot = nullptr;
  guarded(context, *binding.file, [&] {
    if (!fold) fold = binding.entry->create();
    const tsql::Cell result = fold->result();
    giveResult(context, result);
  });
}

int compareTexts(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return tsql::compareText(view(leftSize, left), view(rightSize, right));
}

/// A stored decimal: no blanks, no plus, no superfluous zeros in front.
struct DecimalText {
  bool negative;
  std::string_view whole;
  std::string_view fraction;

  explicit DecimalText(std::string_view text) : negative(!text.empty() && text.front() == '-') {
    if (negative) text.remove_prefix(1);
    const std::size_t period = text.find('.');
    whole = text.substr(0, period);
    fraction = period == std::string_view::npos ? "" : text.substr(period + 1);
    while (!fraction.empty() && fraction.back() == '0') fraction.remove_suffix(1);
  }
};

int compareDecimals(void*, int leftSize, const void* left, int rightSize, const void* right) {
  const DecimalText a(view(leftSize, left));
  const DecimalText b(view(rightSize, right));
  if (a.negative != b.negative) return a.negative ? -1 : 1;
  int order = 0;
  if (a.whole.size() != b.whole.size()) {
    order = a.whole.size() < b.whole.size() ? -1 : 1;
  } else if (order = a.whole.compare(b.whole); order == 0) {
    order = a.fraction.compare(b.fraction);
  }
  return a.negative ? -order : order;
}

}  // namespace

void registerFunctions(sqlite3* handle, DatabaseFile& file) {
  const auto check = [&](int code) {
    if (code != SQLITE_OK) throw file.error(code);
  };
  for (const tsql::RuntimeFunction& function : tsql::runtimeFunctions()) {
    const std::string name(function.name);
    const int flags = SQLITE_UTF8 | (function.constant ? SQLITE_DETERMINISTIC : 0);
    check(sqlite3_create_function_v2(handle, name.c_str(), function.arguments, flags,
                                     new FunctionBinding{&function, &file}, callerOf(function), nullptr,
                                     nullptr, destroyBinding<tsql::RuntimeFunction>));
  }
  for (const tsql::RuntimeAggregate& aggregate : tsql::runtimeAggregates()) {
    const std::string name(aggregate.name);
    check(sqlite3_create_function_v2(handle, name.c_str(), 1, SQLITE_UTF8,
                                     new AggregateBinding{&aggregate, &file}, nullptr, stepAggregate,
                                     finishAggregate, destroyBinding<tsql::RuntimeAggregate>));
  }
  check(
      sqlite3_create_collation_v2(handle, tsql::textCollation, SQLITE_UTF8, nullptr, compareTexts, nullptr));
  check(sqlite3_create_collation_v2(handle, tsql::decimalCollation, SQLITE_UTF8, nullptr, compareDecimals,
                                    nullptr));
}

}  // namespace payslate::sqlite
