// Beginning and ending, by request and by text.
#include "tools/tsqlserver/Transactions.h"

#include <algorithm>
#include <array>

namespace payslate::tsqlserver {

namespace {

constexpr std::int32_t nothingToCommit = 3902;
constexpr std::int32_t nothingToRollBack = 3903;

using Words = std::vector<std::string>;

bool startsWith(const Words& words, std::size_t at, const Words& start) {
  return words.size() - at >= start.size() &&
         std::equal(start.begin(), start.end(), words.begin() + static_cast<std::ptrdiff_t>(at));
}

struct Step {
  bool onlyInside = false;  ///< If there is a transaction at all.
  std::string verb;
};

// [IF @@TRANCOUNT > 0] BEGIN TRAN | COMMIT [TRAN] | ROLLBACK [TRAN], one or several; empty for anything else.
std::vector<Step> stepsOf(const Words& words) {
  static const Words condition = {"IF", "@@TRANCOUNT", ">", "0"};
  static const std::array<std::string, 3> verbs = {"BEGIN", "COMMIT", "ROLLBACK"};
  static const std::array<std::string, 3> objects = {"TRAN", "TRANSACTION", "WORK"};
  std::vector<Step> steps;
  for (std::size_t at = 0; at < words.size();) {
    Step step;
    step.onlyInside = startsWith(words, at, condition);
    if (step.onlyInside) at += condition.size();
    if (at == words.size() || std::find(verbs.begin(), verbs.end(), words[at]) == verbs.end()) return {};
    step.verb = words[at++];
    const bool object =
        at < words.size() && std::find(objects.begin(), objects.end(), words[at]) != objects.end();
    if (object) {
      ++at;
    } else if (step.verb == "BEGIN") {
      return {};
    }
    steps.push_back(step);
  }
  return steps;
}

}  // namespace

void Transactions::begin(Reply& reply) {
  if (++count_ == 1) reply.transactionBegun(++descriptor_);
}

void Transactions::commit(Reply& reply) {
  if (count_ == 0) throw Fault{nothingToCommit, "There is no transaction to commit."};
  if (count_ == 1) {
    if (inside_) provider_.commit();
    inside_ = false;
    reply.transactionEnded(descriptor_, true);
  }
  --count_;
}

void Transactions::rollback(Reply& reply) {
  if (count_ == 0) throw Fault{nothingToRollBack, "There is no transaction to roll back."};
  if (inside_) provider_.rollback();
  inside_ = false;
  count_ = 0;
  reply.transactionEnded(descriptor_, false);
}

void Transactions::abandon(Reply& reply) {
  if (count_ > 0) rollback(reply);
}

void Transactions::enterStatement(Reply& reply) {
  if (implicit_ && count_ == 0) begin(reply);
  if (count_ == 0 || inside_) return;
  provider_.begin();
  inside_ = true;
}

bool Transactions::performed(const std::vector<std::string>& words, Reply& reply) {
  static const Words implicit = {"SET", "IMPLICIT_TRANSACTIONS"};
  if (words.size() == implicit.size() + 1 && startsWith(words, 0, implicit)) {
    implicit_ = words.back() == "ON";
    return true;
  }
  const std::vector<Step> steps = stepsOf(words);
  for (const Step& step : steps)
    if (!step.onlyInside || count_ > 0) perform(step.verb, reply);
  return !steps.empty();
}

void Transactions::perform(const std::string& verb, Reply& reply) {
  if (verb == "BEGIN") return begin(reply);
  if (verb == "COMMIT") return commit(reply);
  rollback(reply);
}

}  // namespace payslate::tsqlserver
