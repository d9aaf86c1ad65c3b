// Fuzz target: the server provider on a driver that answers anything. Up to a zero byte stand a program's
// steps, behind it the driver's answers.
#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

#include "fuzz/Bytes.h"
#include "fuzz/HostileDriver.h"
#include "fuzz/Rows.h"
#include "fuzz/Target.h"
#include "platform/ado/Provider.h"
#include "platform/odbc/OdbcProvider.h"

using namespace payslate;

namespace {

const basic::Value values[] = {basic::Null{},
                               true,
                               std::numeric_limits<std::int64_t>::min(),
                               -0.5,
                               basic::Decimal::parse("-99999999999999999999999999999999999.999"),
                               basic::Date(46142.99999999999),
                               basic::Date(-1e300),
                               std::string("12"),
                               std::string("Été 中 \xF0\x9F\x99\x82 \xFF"),
                               std::string(5000, 'x')};

/// A program's work on one connection, with two recordsets.
class Program {
 public:
  void open() { connection_.Open("Driver=hostile;Pwd=secret"); }
  void step(fuzz::Bytes& steps);

 private:
  void send(fuzz::Bytes& steps);
  void work(ado::Recordset& rows, std::uint8_t what, std::uint8_t how);

  ado::Connection connection_;
  ado::Recordset rows_[2];
};

void Program::send(fuzz::Bytes& steps) {
  constexpr const char* statements[] = {"select * from [pay].dbo.[entry rows]",
                                        "insert into t values (1)",
                                        "update t set a = 1",
                                        "delete from t",
                                        "spAnything 1",
                                        "select 1; select 2"};
  const std::uint8_t which = steps.byte();
  const std::string statement =
      which < 0x80 ? statements[which % std::size(statements)] : std::string(steps.text());
  ado::Recordset rows = connection_.Execute(statement);
  if (rows.State() == ado::ObjectState::Open) fuzz::readRows(rows);
}

void Program::work(ado::Recordset& rows, std::uint8_t what, std::uint8_t how) {
  switch (what) {
    case 0:
      rows = ado::Recordset();
      return rows.Open(how % 4 == 3 ? "select a from t" : "select * from t", connection_,
                       how % 2 == 0 ? ado::CursorType::ForwardOnly : ado::CursorType::Keyset,
                       ado::LockType::Optimistic);
    case 1:
      return rows.MoveNext();
    case 2:
      return fuzz::readRows(rows);
    case 3:
      return fuzz::require(rows.RecordCount() >= -1, "rows are counted");
    case 4:
      return rows.AddNew();
    case 5:
      rows.Fields(how % 4) = values[how % std::size(values)];
      return;
    case 6:
      return rows.Update();
    default:
      return rows.Close();
  }
}

void Program::step(fuzz::Bytes& steps) {
  const std::uint8_t what = steps.byte();
  switch (what % 16) {
    case 1:
      return connection_.BeginTrans();
    case 2:
      return connection_.CommitTrans();
    case 3:
      return connection_.RollbackTrans();
    case 4:
    case 5:
      return send(steps);
    case 6:
      return connection_.Close();
    case 7:
      return open();
    default:
      return work(rows_[what / 16 % 2], what % 8, steps.byte());
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int mostSteps = 40;
  [[maybe_unused]] static const bool registered = [] {
    ado::registerProvider(odbc::providerEntry());
    return true;
  }();
  const std::string all = fuzz::textOf(data, size);
  const std::size_t end = std::min(all.find('\0'), all.size());
  fuzz::Bytes steps(std::string_view(all).substr(0, end));
  fuzz::feedDriver(std::string_view(all).substr(std::min(end + 1, all.size())));
  {
    Program program;
    const auto perform = [](const auto& work) {
      try {
        work();
      } catch (const ado::Error& error) {
        fuzz::require(!error.Description.empty(), "an error says what is wrong");
      }
    };
    perform([&] { program.open(); });
    for (int i = 0; i < mostSteps && !steps.atEnd(); ++i) perform([&] { program.step(steps); });
  }
  fuzz::requireDriverAtRest();
  return 0;
}
