// Seals: rows in the company's chain that hold the ends of all other chains at a moment.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "persistence/JournalRow.h"

namespace payslate {

struct Session;

/// Something wrong with the journal, or with what it tells of.
struct JournalFault {
  std::int32_t entryId = 0;  ///< companyChain: nothing of one entry.
  std::string what;          ///< A part of a sentence, without the entry's number.
};

/// Adds a seal, in a transaction of its own, and returns its text: company, number and hash. Whoever keeps it
/// where the journal's keeper cannot reach it can prove the journal up to now. ado::Error.
std::string sealJournal(Session& session);

/// The text of the seal that a row of the company's chain is.
std::string sealText(const JournalRow& row, std::int16_t company);

/// Holds the company's chains against its seals.
class JournalSeals {
 public:
  /// Takes the seals out of the company's chain.
  explicit JournalSeals(const std::vector<JournalRow>& chainOfCompany);

  /// The next chain, by the order of their entries; what is wrong with rows of it that were sealed.
  [[nodiscard]] std::vector<JournalFault> take(const std::vector<JournalRow>& chain);
  /// After the last: sealed chains that are gone, and seals that do not fit what they sealed.
  [[nodiscard]] std::vector<JournalFault> finish();

  [[nodiscard]] std::size_t count() const { return seals_.size(); }

 private:
  struct Seal {
    std::int32_t number = 0;
    std::string time;
    std::string digest;  ///< Of the ends that it sealed.
    std::string found;   ///< Of those ends as they are now.
  };
  /// A chain's last row when it was sealed. The hash is cut: it names the chain, the digest proves it.
  struct End {
    std::int32_t sequence = 0;
    std::string hash;
  };
  std::vector<Seal> seals_;
  std::map<std::int32_t, std::map<std::size_t, End>> ends_;  ///< By entry and the seal they are new in.
};

}  // namespace payslate
