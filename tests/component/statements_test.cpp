// Every statement of a whole month, character by character: statements.txt says how each of them reads.
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/ComponentStage.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/ErrandRunner.h"
#include "platform/scripted/ScriptedDesktop.h"
#include "platform/scripted/ScriptedHands.h"

namespace payslate {
namespace {

using Values = std::map<std::string, std::vector<std::string>, std::less<>>;

/// The lines of statements.txt.
struct Wordings {
  std::map<int, Values> values;  // by company
  std::vector<std::string> texts;

  explicit Wordings(const std::string& file) {
    std::ifstream in(file);
    EXPECT_TRUE(in) << file;
    for (std::string line; std::getline(in, line);) {
      int company = 0;
      const char* rest = std::from_chars(line.data(), line.data() + line.size(), company).ptr;
      const auto open = static_cast<std::size_t>(rest - line.data()) + 1;
      if (company == 0) {
        if (!line.empty() && line.front() != '#') texts.push_back(line);
      } else {
        const std::size_t close = line.find('}');
        values[company][line.substr(open + 1, close - open - 1)].push_back(line.substr(close + 1));
      }
    }
  }
};

constexpr std::size_t whole = std::string_view::npos;

/// The first character of `sent` that the wording cannot say; `whole` when it says all of it. A place that
/// occurs twice holds the same value twice.
std::size_t differs(std::string_view wording, std::string_view sent, const Values& values) {
  const std::size_t place = std::min(wording.find('{'), wording.size());
  const std::string_view text = wording.substr(0, place);
  const auto same = std::mismatch(text.begin(), text.end(), sent.begin(), sent.end());
  const auto reached = static_cast<std::size_t>(same.second - sent.begin());
  if (reached < place) return reached;
  if (place == wording.size()) return reached == sent.size() ? whole : reached;
  const std::size_t end = wording.find('}', place);
  const std::string name = basic::lower(wording.substr(place + 1, end - place - 1));
  std::size_t farthest = reached;
  const auto choices = values.find(name);
  if (choices == values.end()) return farthest;
  for (const std::string& value : choices->second) {
    const std::size_t here = differs(value, sent.substr(reached, value.size()), {});
    if (here != whole) {
      farthest = std::max(farthest, reached + here);
      continue;
    }
    Values fixed = values;
    fixed[name] = {value};
    const std::size_t after = reached + value.size();
    const std::size_t later = differs(wording.substr(end + 1), sent.substr(after), fixed);
    if (later == whole) return whole;
    farthest = std::max(farthest, after + later);
  }
  return farthest;
}

/// Holds what the component sends against the wordings; what the errand itself sends is not its matter.
class ListeningStage : public host::ComponentStage {
 public:
  ListeningStage(ui::Desktop& desktop, const host::SharedConnection& connection, Wordings& wordings)
      : ComponentStage(desktop, connection, PAYSLATE_ERRAND_FOLDER), wordings_(&wordings) {
    connection->StatementSent = [this](std::string_view statement) {
      if (listens_) hear(statement);
    };
  }

  void setSession(const scripted::Session& session) override {
    company_ = session.company;
    ComponentStage::setSession(session);
  }
  void runStatement(const std::string& statement) override {
    listens_ = false;
    ComponentStage::runStatement(statement);
    listens_ = true;
  }
  std::vector<std::vector<basic::Value>> rows(const std::string& statement) override {
    listens_ = false;
    auto found = ComponentStage::rows(statement);
    listens_ = true;
    return found;
  }
  /// Every logical name of the links stands for its physical name.
  void show() override {
    for (const auto& row : rows("select tablename, linktablename from linkTable"))
      for (auto& [company, values] : wordings_->values)
        values[basic::lower(basic::textOf(row[0]))] = {basic::textOf(row[1])};
    ComponentStage::show();
  }

  std::set<std::string> heard;

 private:
  void hear(std::string_view statement) {
    std::size_t farthest = 0;
    const std::string* nearest = &wordings_->texts.front();
    for (const std::string& wording : wordings_->texts) {
      const std::size_t at = differs(wording, statement, wordings_->values[company_]);
      if (at == whole) heard.insert(wording);
      if (at <= farthest) continue;
      farthest = at;
      nearest = &wording;
    }
    if (farthest == whole) return;
    ADD_FAILURE() << "company " << company_ << " sent:  " << statement << "\nnearest wording: " << *nearest
                  << "\nfirst difference: character " << farthest + 1 << ", \"" << statement.substr(farthest)
                  << '"';
  }

  Wordings* wordings_;
  int company_ = 0;
  bool listens_ = true;
};

TEST(Statements, ReadAsTheyAreAgreedUpon) {
  Wordings wordings(PAYSLATE_STATEMENTS);
  scripted::ScriptedDesktop desktop;
  scripted::ScriptedHands hands;
  ListeningStage stage(desktop, host::openDatabase(host::inMemory), wordings);
  const auto errand = scripted::Errand::read(std::string(PAYSLATE_ERRAND_FOLDER) + "/physical-names.errand");
  std::ostringstream transcript;
  scripted::ErrandRunner clerk(errand, hands, stage, transcript);
  desktop.setClerk(&clerk);
  EXPECT_TRUE(clerk.run()) << transcript.str() << "  found: " << clerk.failure()->found;
  for (const std::string& wording : wordings.texts)
    EXPECT_TRUE(stage.heard.contains(wording)) << "never sent: " << wording;
}

}  // namespace
}  // namespace payslate
