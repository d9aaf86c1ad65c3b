// Recordsets: rows read on demand, and the edit of one row.
#include "platform/ado/Recordset.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "platform/ado/OpenDatabase.h"
#include "platform/ado/Provider.h"
#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"

namespace payslate::ado {
namespace {

constexpr const char* invalidCursorState = "24000";
constexpr const char* columnNotFound = "42S22";
constexpr const char* accessRule = "42000";
constexpr const char* notSupported = "0A000";

enum class Edit { None, Changing, Adding };

using Row = std::vector<basic::Value>;

bool holdsNumbers(const Column& column) {
  return column.type == ColumnType::Integer || column.type == ColumnType::Decimal ||
         column.type == ColumnType::Double;
}

// A database may read an empty text as 0; a field does not: what is no number must not become one unseen.
void refuseTextWithoutNumber(const Column& column, const basic::Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr || !holdsNumbers(column) || basic::IsNumeric(*text)) return;
  throw Error("The text \"" + *text + "\" cannot be stored in " + column.name + ", which holds numbers",
              "22018");
}

// Numbers that are none, and dates outside the calendar, have no text and no place in any database.
void refuseImpossible(const Column& column, const basic::Value& value) {
  if (!std::holds_alternative<double>(value) && !std::holds_alternative<basic::Date>(value)) return;
  try {
    basic::textOf(value);
  } catch (const basic::ValueError& error) {
    throw Error("The value cannot be stored in " + column.name + ": " + error.what(), "22003");
  }
}

}  // namespace

struct Recordset::Rows {
  std::string source;
  Connection* connection = nullptr;  // valid while the database is open
  std::weak_ptr<OpenDatabase> database;
  std::shared_ptr<CursorSlot> slot;
  std::vector<Column> columns;
  LockType lock = LockType::ReadOnly;
  bool keepsRows = false;

  std::vector<Row> read;  // from `firstKept` on; a forward-only cursor keeps the current row alone
  std::size_t firstKept = 0;
  std::size_t at = 0;  // the current row, counted from 0
  bool readToEnd = false;

  Edit edit = Edit::None;
  std::vector<std::optional<basic::Value>> assigned;  // by column
  std::optional<std::string> table;                   // once asked for
  std::optional<std::vector<std::string>> key;        // likewise

  bool fetch();
  bool hasRow();
  Row& row(const char* forWhat);
  void refuseWhileEditing() const;
  void refuseReadOnly() const;
  std::shared_ptr<OpenDatabase> openDatabase() const;
  const std::string& baseTable();
  const std::vector<std::string>& baseTableKey();
  void refuseToEditCurrent();
  void beginEdit(Edit kind);
  void insert();
  void rewrite();
  [[nodiscard]] std::vector<Assignment> assignments() const;
  [[nodiscard]] std::size_t columnIndex(std::string_view name) const;
};

/// Reads one more row; false behind the last.
bool Recordset::Rows::fetch() {
  if (readToEnd) return false;
  if (!slot->cursor)
    throw Error("The next row of \"" + source + "\" cannot be read: " + slot->lostBy, invalidCursorState);
  try {
    if (!slot->cursor->next()) {
      readToEnd = true;
      slot->cursor.reset();  // ends the read in the database before the recordset is closed
      return false;
    }
    Row values(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) values[i] = slot->cursor->value(i);
    read.push_back(std::move(values));
  } catch (const Error& error) {
    // Where a cursor stands after an error is not known; going on could skip rows or repeat them.
    slot->cursor.reset();
    slot->lostBy = error.Description;
    throw;
  }
  return true;
}

bool Recordset::Rows::hasRow() {
  while (read.size() <= at - firstKept)
    if (!fetch()) return false;
  return true;
}

Row& Recordset::Rows::row(const char* forWhat) {
  if (!hasRow()) throw Error(std::string("There is no current row to ") + forWhat, invalidCursorState);
  return read[at - firstKept];
}

void Recordset::Rows::refuseWhileEditing() const {
  if (edit != Edit::None)
    throw Error("The row being edited was not sent: call Update or CancelUpdate first", invalidCursorState);
}

void Recordset::Rows::refuseReadOnly() const {
  if (lock == LockType::ReadOnly) throw Error("The recordset is read-only", accessRule);
}

std::shared_ptr<OpenDatabase> Recordset::Rows::openDatabase() const {
  std::shared_ptr<OpenDatabase> open = database.lock();
  if (!open) throw Error("The connection of the recordset is closed", "08003");
  return open;
}

const std::string& Recordset::Rows::baseTable() {
  if (!table) {
    table = openDatabase()->provider->baseTable(source);
    if (!table)
      throw Error("Rows cannot be written: \"" + source + "\" does not stand on one table", notSupported);
  }
  return *table;
}

const std::vector<std::string>& Recordset::Rows::baseTableKey() {
  const std::string& name = baseTable();
  if (!key) key = openDatabase()->provider->key(name);
  return *key;
}

void Recordset::Rows::refuseToEditCurrent() {
  refuseReadOnly();
  row("edit");
  if (baseTableKey().empty())
    throw Error("Rows of " + baseTable() + " cannot be rewritten: the table has no key", notSupported);
}

void Recordset::Rows::beginEdit(Edit kind) {
  edit = kind;
  assigned.assign(columns.size(), std::nullopt);
}

std::vector<Assignment> Recordset::Rows::assignments() const {
  std::vector<Assignment> result;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (assigned[i]) result.push_back({columns[i].name, *assigned[i]});
  return result;
}

std::size_t Recordset::Rows::columnIndex(std::string_view name) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const Column& column) { return basic::sameName(column.name, name); });
  if (found != columns.end()) return static_cast<std::size_t>(found - columns.begin());
  std::string known;
  for (const Column& column : columns) known += (known.empty() ? "" : ", ") + column.name;
  throw Error("There is no field \"" + std::string(name) + "\" among: " + known, columnNotFound);
}

void Recordset::Rows::insert() {
  const std::vector<Assignment> row = assignments();
  if (row.empty()) throw Error("No field of the new row was assigned", accessRule);
  const std::shared_ptr<OpenDatabase> open = openDatabase();
  const std::string& target = baseTable();
  if (connection->StatementSent) connection->StatementSent("insert " + target);
  open->provider->insert(target, row);
}

void Recordset::Rows::rewrite() {
  const std::shared_ptr<OpenDatabase> open = openDatabase();
  const std::string& target = baseTable();
  Row& current = row("rewrite");
  std::vector<Assignment> place;
  for (const std::string& column : baseTableKey()) place.push_back({column, current[columnIndex(column)]});
  if (connection->StatementSent) connection->StatementSent("update " + target);
  open->provider->update(target, place, assignments());
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (assigned[i]) current[i] = std::move(*assigned[i]);
}

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset::Rows& Recordset::rows(std::string_view forWhat) const {
  if (!rows_) throw Error("The recordset is closed: cannot " + std::string(forWhat), invalidCursorState);
  return *rows_;
}

void Recordset::send(const std::string& source, Connection& connection, CursorType cursor, LockType lock) {
  connection.database("open a recordset");
  const std::shared_ptr<OpenDatabase> database =
      connection.database_;  // the listener below may close the connection
  if (connection.StatementSent) connection.StatementSent(source);
  std::unique_ptr<Cursor> opened = database->provider->execute(source);
  if (!opened) return;
  auto rows = std::make_unique<Rows>();
  rows->source = source;
  rows->connection = &connection;
  rows->database = database;
  rows->columns = opened->columns();
  rows->slot = database->keep(std::move(opened));
  rows->lock = lock;
  rows->keepsRows = cursor != CursorType::ForwardOnly;
  rows_ = std::move(rows);
}

void Recordset::Open(const std::string& source, Connection& connection, CursorType cursor, LockType lock) {
  if (rows_) throw Error("The recordset is open already", invalidCursorState);
  send(source, connection, cursor, lock);
  if (!rows_) throw Error("The statement returns no rows: \"" + source + "\"", invalidCursorState);
}

void Recordset::Close() {
  rows_.reset();
}

ObjectState Recordset::State() const {
  return rows_ ? ObjectState::Open : ObjectState::Closed;
}

bool Recordset::Bof() {
  Rows& open = rows("test for its beginning");
  return open.at == 0 && !open.hasRow();
}

bool Recordset::Eof() {
  return !rows("test for its end").hasRow();
}

void Recordset::MoveFirst() {
  Rows& open = rows("move");
  open.refuseWhileEditing();
  if (open.firstKept > 0) throw Error("A forward-only recordset cannot move back", invalidCursorState);
  open.at = 0;
  open.row("move to");
}

void Recordset::MoveNext() {
  Rows& open = rows("move");
  open.refuseWhileEditing();
  open.row("move from");
  ++open.at;
  if (open.keepsRows) return;
  open.read.clear();
  open.firstKept = open.at;
}

long Recordset::RecordCount() {
  Rows& open = rows("count its rows");
  if (!open.keepsRows) return -1;
  while (open.fetch()) {
  }
  return static_cast<long>(open.read.size());
}

std::size_t Recordset::FieldCount() const {
  return rows("count its fields").columns.size();
}

Field Recordset::Fields(std::string_view name) {
  return {*this, rows("give a field").columnIndex(name)};
}

Field Recordset::Fields(std::size_t index) {
  const std::size_t count = rows("give a field").columns.size();
  if (index >= count)
    throw Error("There is no field " + std::to_string(index) + ": the recordset has " + std::to_string(count),
                columnNotFound);
  return {*this, index};
}

void Recordset::AddNew() {
  Rows& open = rows("add a row");
  open.refuseWhileEditing();
  open.refuseReadOnly();
  open.baseTable();
  open.beginEdit(Edit::Adding);
}

void Recordset::Update() {
  Rows& open = rows("send an edit");
  if (open.edit == Edit::None) return;
  if (open.edit == Edit::Adding)
    open.insert();
  else
    open.rewrite();
  open.edit = Edit::None;
}

void Recordset::CancelUpdate() {
  rows("cancel an edit").edit = Edit::None;
}

const std::string& Field::Name() const {
  return recordset_->rows("name a field").columns[index_].name;
}

basic::Value Field::Value() const {
  Recordset::Rows& open = recordset_->rows("read a field");
  if (open.edit != Edit::None && open.assigned[index_]) return *open.assigned[index_];
  if (open.edit == Edit::Adding) return basic::Null{};
  return open.row("read")[index_];
}

std::string Field::Text() const {
  return basic::textOf(Value(), "yyyy/MM/dd");
}

Field& Field::operator=(basic::Value value) {
  Recordset::Rows& open = recordset_->rows("assign a field");
  const bool begins = open.edit == Edit::None;
  if (begins) open.refuseToEditCurrent();
  refuseTextWithoutNumber(open.columns[index_], value);
  refuseImpossible(open.columns[index_], value);
  if (begins) open.beginEdit(Edit::Changing);
  open.assigned[index_] = std::move(value);
  return *this;
}

}  // namespace payslate::ado
