// The instructions of the errand language as a table; session, message and properties have their own order.
#include "platform/scripted/Grammar.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <span>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/Words.h"

namespace payslate::scripted {

namespace {

using basic::sameName;
using Arguments = std::span<const Word>;

enum class Slot {
  Nothing,
  Name,
  Text,
  Rest,
  MenuText,
  RowFrom1,
  RowFrom0,
  Count,
  Date,
  Key,
  Session,
  Message
};

struct Rule {
  std::string_view words;
  Verb verb;
  std::array<Slot, 2> slots;
  std::string_view usage;
};

constexpr std::array rules{
    Rule{"database", Verb::Database, {Slot::Name}, "database FILE"},
    Rule{"sql", Verb::Sql, {Slot::Rest}, "sql STATEMENT"},
    Rule{"session",
         Verb::Session,
         {Slot::Session},
         "session company N user N interface N year N date yyyy/mm/dd title TEXT"},
    Rule{"show", Verb::Show, {}, "show"},
    Rule{"click", Verb::Click, {Slot::Name}, "click CONTROL"},
    Rule{"focus", Verb::Focus, {Slot::Name}, "focus CONTROL"},
    Rule{"type", Verb::Type, {Slot::Name, Slot::Text}, "type CONTROL TEXT"},
    Rule{"replace", Verb::Replace, {Slot::Name, Slot::Text}, "replace CONTROL TEXT"},
    Rule{"paste", Verb::Paste, {Slot::Name, Slot::Text}, "paste CONTROL TEXT"},
    Rule{"key", Verb::Press, {Slot::Key}, "key KEY"},
    Rule{"choose", Verb::Choose, {Slot::Name, Slot::Text}, "choose COMBO TEXT"},
    Rule{"date", Verb::PickDate, {Slot::Name, Slot::Date}, "date PICKER yyyy/mm/dd"},
    Rule{"page", Verb::TurnPage, {Slot::Name, Slot::Text}, "page TAB TEXT"},
    Rule{"row", Verb::ClickRow, {Slot::Name, Slot::RowFrom1}, "row LIST N"},
    Rule{"doubleclick", Verb::DoubleClickRow, {Slot::Name, Slot::RowFrom0}, "doubleclick LIST N"},
    Rule{"rightclick", Verb::RightClickRow, {Slot::Name, Slot::RowFrom0}, "rightclick LIST N"},
    Rule{"menu", Verb::PickMenu, {Slot::MenuText}, "menu TEXT or menu none"},
    Rule{"tick", Verb::Tick, {Slot::Name, Slot::RowFrom1}, "tick LIST N"},
    Rule{"message",
         Verb::AnswerMessage,
         {Slot::Message},
         "message TEXT [style N] [title TEXT] answer ok|yes|no|escape"},
    Rule{"close", Verb::Close, {}, "close"},
    Rule{"expect form", Verb::ExpectForm, {Slot::Name}, "expect form NAME"},
    Rule{"expect no form", Verb::ExpectNoForm, {}, "expect no form"},
    Rule{"expect focus", Verb::ExpectFocus, {Slot::Name}, "expect focus CONTROL"},
    Rule{"expect red", Verb::ExpectRed, {Slot::Name, Slot::RowFrom1}, "expect red GRID N"},
    Rule{"expect not red", Verb::ExpectNotRed, {Slot::Name, Slot::RowFrom1}, "expect not red GRID N"},
    Rule{"expect list", Verb::ExpectList, {Slot::Name}, "expect list LIST and a table below it"},
    Rule{"expect combo", Verb::ExpectCombo, {Slot::Name}, "expect combo COMBO and a table below it"},
    Rule{"expect text", Verb::ExpectText, {Slot::Name}, "expect text FORM and its lines below it"},
    Rule{"expect sql", Verb::ExpectSql, {Slot::Rest}, "expect sql STATEMENT and its rows below it"},
    Rule{"expect error", Verb::ExpectError, {Slot::Text}, "expect error TEXT"},
    Rule{"expect sent", Verb::ExpectSent, {Slot::Count}, "expect sent N"},
};

constexpr std::string_view propertyUsage = "expect CONTROL.PROPERTY = VALUE";

constexpr std::array<std::pair<std::string_view, ui::Answer>, 4> answers{{{"ok", ui::Answer::Ok},
                                                                          {"yes", ui::Answer::Yes},
                                                                          {"no", ui::Answer::No},
                                                                          {"escape", ui::Answer::Escape}}};

[[noreturn]] void refuse(const std::string& problem, std::string_view usage) {
  throw LineError(problem, "write " + std::string(usage));
}

std::vector<std::string_view> split(std::string_view text) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    parts.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

// Is this line one of this rule? Names in quotes are never instruction words.
std::size_t leadingWords(const Rule& rule, Arguments found) {
  const auto parts = split(rule.words);
  if (found.size() < parts.size()) return 0;
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (found[i].quoted || !sameName(found[i].text, parts[i])) return 0;
  return parts.size();
}

long wholeNumber(const Word& word, long least, long most, std::string_view usage) {
  const bool digits =
      !word.text.empty() && word.text.size() <= std::numeric_limits<std::int32_t>::digits10 + 1U &&
      std::all_of(word.text.begin(), word.text.end(), [](char one) { return one >= '0' && one <= '9'; });
  const long number = digits ? std::stol(word.text) : least - 1;
  if (number < least || number > most)
    refuse("\"" + word.text + "\" is no whole number from " + std::to_string(least) + " to " +
               std::to_string(most),
           usage);
  return number;
}

template <class Number>
Number wholeNumber(const Word& word, long least, std::string_view usage) {
  return static_cast<Number>(wholeNumber(word, least, std::numeric_limits<Number>::max(), usage));
}

basic::Date dateOf(const Word& word, std::string_view usage) {
  try {
    return basic::parseDate(word.text, "yyyy/mm/dd");
  } catch (const basic::ValueError&) {
    refuse("\"" + word.text + "\" is no date", usage);
  }
}

void readSession(Instruction& made, Arguments found, std::string_view usage) {
  using Read = std::function<void(const Word&)>;
  HostSession& session = made.session;
  const std::array<std::pair<std::string_view, Read>, 6> settings{{
      {"company", [&](const Word& word) { session.company = wholeNumber<std::int16_t>(word, 0, usage); }},
      {"user", [&](const Word& word) { session.user = wholeNumber<std::int16_t>(word, 0, usage); }},
      {"interface",
       [&](const Word& word) { session.interfaceId = wholeNumber<std::int32_t>(word, 0, usage); }},
      {"year", [&](const Word& word) { session.year = wholeNumber<std::int16_t>(word, 0, usage); }},
      {"date", [&](const Word& word) { session.date = dateOf(word, usage); }},
      {"title", [&](const Word& word) { session.title = word.text; }},
  }};
  std::array<bool, 6> given{};
  for (std::size_t at = 0; at < found.size(); at += 2) {
    const auto named = [&](const auto& setting) { return sameName(setting.first, found[at].text); };
    const auto setting = std::find_if(settings.begin(), settings.end(), named);
    if (setting == settings.end() || found[at].quoted) refuse("a session has no " + found[at].text, usage);
    bool& seen = given[static_cast<std::size_t>(setting - settings.begin())];
    if (std::exchange(seen, true)) refuse("the session names its " + found[at].text + " twice", usage);
    if (at + 1 == found.size()) refuse("nothing stands behind " + found[at].text, usage);
    setting->second(found[at + 1]);
  }
  for (std::size_t i = 0; i < given.size(); ++i)
    if (!given[i]) refuse("the session lacks its " + std::string(settings[i].first), usage);
}

ui::Answer answerOf(const Word& word, std::string_view usage) {
  for (const auto& [name, answer] : answers)
    if (sameName(name, word.text)) return answer;
  refuse("\"" + word.text + "\" is no answer", usage);
}

void readMessage(Instruction& made, Arguments found, std::string_view usage) {
  if (found.empty()) refuse("the message has no text", usage);
  made.text = found[0].text;
  bool answered = false;
  for (std::size_t at = 1; at < found.size(); at += 2) {
    const Word& option = found[at];
    if (answered) refuse("something stands behind the answer", usage);
    if (option.quoted || at + 1 == found.size())
      refuse("\"" + option.text + "\" has no meaning there", usage);
    const Word& value = found[at + 1];
    if (sameName(option.text, "style") && !made.style && !made.title) {
      made.style = static_cast<ui::MessageStyle>(wholeNumber<int>(value, 0, usage));
    } else if (sameName(option.text, "title") && !made.title) {
      made.title = value.text;
    } else if (sameName(option.text, "answer")) {
      made.answer = answerOf(value, usage);
      answered = true;
    } else {
      refuse("\"" + option.text + "\" has no meaning there", usage);
    }
  }
  if (!answered) refuse("the message has no answer", usage);
}

void readSlot(Instruction& made, Slot slot, const Word& word, std::string_view usage) {
  switch (slot) {
    case Slot::Name:
      if (word.text.empty()) refuse("a name is empty", usage);
      made.target = word.text;
      break;
    case Slot::Text:
      made.text = word.text;
      break;
    case Slot::MenuText:
      made.text = word.text;
      made.none = !word.quoted && sameName(word.text, "none");
      break;
    case Slot::RowFrom1:
      made.number = wholeNumber<int>(word, 1, usage);
      break;
    case Slot::RowFrom0:
    case Slot::Count:
      made.number = wholeNumber<int>(word, 0, usage);
      break;
    case Slot::Date:
      made.date = dateOf(word, usage);
      break;
    case Slot::Key: {
      const auto key = ui::Key::named(word.text);
      if (!key)
        throw LineError("there is no key \"" + word.text + "\"",
                        "write Enter, Tab, Escape, Delete, Backspace, Home, End, PageUp, PageDown, F1 to F12 "
                        "or one character, with Ctrl+ or Shift+ before it");
      made.key = *key;
      break;
    }
    default:
      break;
  }
}

void readArguments(Instruction& made, const Rule& rule, Arguments found) {
  if (rule.slots[0] == Slot::Session) return readSession(made, found, rule.usage);
  if (rule.slots[0] == Slot::Message) return readMessage(made, found, rule.usage);
  const auto wanted = static_cast<std::size_t>(
      std::count_if(rule.slots.begin(), rule.slots.end(), [](Slot slot) { return slot != Slot::Nothing; }));
  if (found.size() < wanted)
    refuse("an argument is missing", std::string(rule.usage) + ", with \"\" for an empty text");
  if (found.size() > wanted)
    refuse("\"" + found[wanted].text + "\" is one argument too many",
           std::string(rule.usage) + ", with a text of several words in double quotes");
  for (std::size_t i = 0; i < wanted; ++i) readSlot(made, rule.slots[i], found[i], rule.usage);
}

Instruction propertyExpectation(Arguments found) {
  if (found.empty()) refuse("nothing is expected", propertyUsage);
  const std::string& path = found[0].text;
  const std::size_t dot = path.rfind('.');
  if (found[0].quoted || dot == std::string::npos || dot == 0 || dot + 1 == path.size())
    refuse("\"" + path + "\" is nothing that can be expected", propertyUsage);
  if (found.size() < 2 || found[1].quoted || found[1].text != "=")
    refuse("the = behind " + path + " is missing, or no blanks are around it", propertyUsage);
  if (found.size() < 3)
    refuse("no value stands behind the =", std::string(propertyUsage) + ", with \"\" for an empty text");
  if (found.size() > 3)
    refuse("more than one value stands behind the =",
           std::string(propertyUsage) + ", with a text of several words in double quotes");
  Instruction made;
  made.verb = Verb::ExpectProperty;
  made.target = path.substr(0, dot);
  made.property = path.substr(dot + 1);
  made.text = found[2].text;
  return made;
}

// A rule whose argument is the rest of the line takes it as it stands: quotes are the statement's own.
std::string_view restBehind(std::string_view line, std::size_t wordsToSkip) {
  for (; wordsToSkip > 0; --wordsToSkip) {
    line = stripped(line);
    line.remove_prefix(std::min(line.find_first_of(" \t"), line.size()));
  }
  return stripped(line);
}

bool takesRest(const Rule& rule) {
  return rule.slots[0] == Slot::Rest;
}

// The leading words of a line, however badly its quotes are set.
std::vector<Word> plainWords(std::string_view line) {
  std::vector<Word> found;
  while (!stripped(line).empty()) {
    line = stripped(line);
    const std::size_t end = std::min(line.find_first_of(" \t"), line.size());
    found.push_back({std::string(line.substr(0, end)), false});
    line.remove_prefix(end);
  }
  return found;
}

}  // namespace

Instruction instruction(std::string_view line) {
  Instruction made;
  for (const Rule& rule : rules) {
    if (!takesRest(rule)) continue;
    const std::size_t leading = leadingWords(rule, plainWords(line));
    if (leading == 0) continue;
    made.verb = rule.verb;
    made.written = line;
    made.text = restBehind(line, leading);
    if (made.text.empty()) refuse("the statement is missing", rule.usage);
    return made;
  }
  const std::vector<Word> found = words(line);
  const Arguments all(found);
  for (const Rule& rule : rules) {
    const std::size_t leading = leadingWords(rule, all);
    if (leading == 0 || takesRest(rule)) continue;
    made.verb = rule.verb;
    made.written = line;
    readArguments(made, rule, all.subspan(leading));
    return made;
  }
  if (found[0].quoted || !sameName(found[0].text, "expect"))
    throw LineError("there is no instruction \"" + found[0].text + "\"",
                    "begin the line with an instruction word such as click, type, message or expect");
  made = propertyExpectation(all.subspan(1));
  made.written = line;
  return made;
}

TableKind tableOf(Verb verb) {
  switch (verb) {
    case Verb::ExpectList:
    case Verb::ExpectCombo:
      return TableKind::Headed;
    case Verb::ExpectSql:
    case Verb::ExpectText:
      return TableKind::Bare;
    default:
      return TableKind::None;
  }
}

}  // namespace payslate::scripted
