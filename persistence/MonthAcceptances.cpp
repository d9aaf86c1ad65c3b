// Writing acceptances down as texts of ASCII, and reading them.
#include "persistence/MonthAcceptances.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>

#include "component/DatabaseValues.h"
#include "persistence/EachRow.h"
#include "persistence/EntryJournal.h"
#include "platform/ado/Literal.h"
#include "platform/ado/Transaction.h"
#include "platform/basic/Numbers.h"

namespace payslate {

namespace {

constexpr const char* monthKind = "month";
constexpr char fieldEnd = ';';
constexpr char endSign = ':';
constexpr int hexadecimal = 16;
constexpr std::size_t escapeSize = 3;

std::string itemOf(const MonthScope& scope) {
  return basic::formatDate(scope.date, "yyyy/mm");
}

std::string acceptanceStatement(const Session& session, const MonthScope& scope) {
  return "select top 1 ejTime, ejUserID, ejAfter from " + session.TableLinks["pEntryJournal"] +
         " where ejCompanyID = " + session.companyText() +
         " and ejEntryID = " + std::to_string(companyChain) +
         " and ejAction = " + ado::literal(JournalAction::Accept) +
         " and ejItem = " + ado::literal(itemOf(scope)) + " order by ejSequence desc";
}

std::string changeStatement(const Session& session, const MonthScope& scope) {
  const std::string& journal = session.TableLinks["pEntryJournal"];
  return "select emhID, emhNo, emhempID, j.ejSequence, j.ejAction, j.ejTime, j.ejUserID from " +
         session.TableLinks["pempmonthlyentryheader"] + ", " + journal + " j where " +
         inMonth(session, scope) +
         " and j.ejEntryID = emhID and j.ejCompanyID = emhCompanyID and j.ejSequence ="
         " (select max(k.ejSequence) from " +
         journal + " k where k.ejEntryID = emhID and k.ejCompanyID = emhCompanyID) order by emhID";
}

std::string userStatement(const Session& session) {
  return "select userid, username from " + session.TableLinks["pusers"] +
         " where companyid = " + session.companyText();
}

// Letters and digits stay, every other byte is written as %20: names and symbols are of any alphabet.
std::string escaped(const std::string& text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x80U && std::isalnum(byte) != 0) {
      result += character;
    } else {
      result += {'%', digits[byte / hexadecimal], digits[byte % hexadecimal]};
    }
  }
  return result;
}

std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%' || i + escapeSize > text.size()) {
      result += text[i];
      continue;
    }
    result += static_cast<char>(std::strtoul(text.substr(i + 1, 2).c_str(), nullptr, hexadecimal));
    i += 2;
  }
  return result;
}

// "10;Rs;24;600000.00;50000.00;30000.00;620000.00"
std::string totalsText(const AcceptedTotals& totals) {
  std::string text;
  for (const auto& [key, total] : totals) {
    text += (text.empty() ? "" : " ") + std::to_string(key.first) + fieldEnd + escaped(key.second) +
            fieldEnd + std::to_string(total.employees);
    for (const std::string* amount : {&total.basicPay, &total.allowances, &total.deductions, &total.net})
      text += fieldEnd + *amount;
  }
  return text;
}

void takeTotal(const std::string& word, AcceptedTotals& totals) {
  constexpr std::size_t fieldCount = 7;
  std::array<std::string, fieldCount> fields;
  std::istringstream rest(word);
  for (std::string& field : fields) std::getline(rest, field, fieldEnd);
  const auto& [department, symbol, employees, basicPay, allowances, deductions, net] = fields;
  totals[{basic::numberOrZero(department), unescaped(symbol)}] = {
      static_cast<std::size_t>(basic::numberOrZero(employees)), basicPay, allowances, deductions, net};
}

/// The hash, the name, a word each for totals and ends.
std::string acceptanceText(const MonthAcceptance& acceptance) {
  std::string text = acceptance.hash + " " + escaped(acceptance.name);
  const std::string totals = totalsText(acceptance.totals);
  if (!totals.empty()) text += " " + totals;
  for (const auto& [entryId, sequence] : acceptance.ends)
    text += " " + std::to_string(entryId) + endSign + std::to_string(sequence);
  return text;
}

MonthAcceptance acceptanceOf(const std::string& text) {
  MonthAcceptance acceptance;
  std::istringstream words(text);
  std::string name;
  words >> acceptance.hash >> name;
  acceptance.name = unescaped(name);
  for (std::string word; words >> word;) {
    if (word.find(fieldEnd) != std::string::npos) {
      takeTotal(word, acceptance.totals);
    } else if (const std::size_t sign = word.find(endSign); sign != std::string::npos) {
      acceptance.ends[basic::numberOrZero(word.substr(0, sign))] = basic::numberOrZero(word.substr(sign + 1));
    }
  }
  return acceptance;
}

std::string slashed(std::string time) {
  std::replace(time.begin(), time.end(), '-', '/');
  return time;
}

std::int16_t userOf(const ado::Field& field) {
  return static_cast<std::int16_t>(numberOf(field.Value()));
}

}  // namespace

std::string hashOf(const AcceptedTotals& totals) {
  return sha256(totalsText(totals));
}

std::optional<MonthAcceptance> lastAcceptance(Session& session, const MonthScope& scope) {
  std::optional<MonthAcceptance> last;
  forEachRow(session, acceptanceStatement(session, scope), [&last](ado::Recordset& row) {
    last = acceptanceOf(row.Fields("ejAfter").Text());
    last->time = slashed(row.Fields("ejTime").Text());
    last->userId = userOf(row.Fields("ejUserID"));
  });
  return last;
}

MonthAcceptance acceptMonth(Session& session, const MonthScope& scope, MonthAcceptance acceptance) {
  acceptance.hash = hashOf(acceptance.totals);
  acceptance.userId = session.intUserID;
  ado::Transaction transaction(*session.adocon());
  EntryJournal journal(session, companyChain);
  journal.append(JournalAction::Accept, {{{monthKind, itemOf(scope)}, {}, acceptanceText(acceptance)}});
  journal.write();
  transaction.commit();
  acceptance.time = slashed(journal.chain().rows.back().time);
  return acceptance;
}

std::vector<LastChange> lastChanges(Session& session, const MonthScope& scope) {
  std::vector<LastChange> changes;
  forEachRow(session, changeStatement(session, scope), [&changes](ado::Recordset& row) {
    changes.push_back({basic::CLng(row.Fields(0).Value()), basic::Trim(row.Fields(1).Text()),
                       basic::CLng(row.Fields(2).Value()), basic::CLng(row.Fields(3).Value()),
                       row.Fields(4).Text(), slashed(row.Fields(5).Text()), userOf(row.Fields(6))});
  });
  return changes;
}

std::map<std::int16_t, std::string> userNames(Session& session) {
  std::map<std::int16_t, std::string> names;
  forEachRow(session, userStatement(session), [&names](ado::Recordset& row) {
    names[userOf(row.Fields(0))] = basic::Trim(row.Fields(1).Text());
  });
  return names;
}

}  // namespace payslate
