// Reading an errand: the grammar as a table, and the instructions that need more than it says.
#include "platform/scripted/Errand.h"

#include <array>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>
#include <utility>

#include "platform/basic/Error.h"
#include "platform/basic/Numbers.h"
#include "platform/scripted/Grammar.h"
#include "platform/scripted/Words.h"

namespace payslate::scripted {

namespace {

std::string sentence(const std::string& file, int line, const std::string& problem,
                     const std::string& remedy) {
  const std::string place = line > 0 ? file + ":" + std::to_string(line) : file;
  return place + ": " + problem + "; " + remedy + ".";
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool beginsTable(std::string_view line) {
  return line.front() == '|';
}

// Instructions gather line by line; a table belongs to the instruction above it.
class Reader {
 public:
  explicit Reader(const std::string& file) { errand_.file = file; }

  void take(std::string_view line, int number) {
    const std::string_view content = stripped(line);
    if (content.empty()) {
      finishTable();
    } else if (content.front() == '#') {
      return;
    } else if (beginsTable(content)) {
      addTableLine(content);
    } else {
      finishTable();
      Instruction next = instruction(content);
      next.line = number;
      expectsTable_ = tableOf(next.verb);
      errand_.instructions.push_back(std::move(next));
      openLine_ = number;
    }
  }

  /// A table that lacks its header is noticed when it ends, and told at the line it belongs to.
  [[nodiscard]] int lineToBlame(int number) const { return blameOpen_ ? openLine_ : number; }

  Errand finish() {
    finishTable();
    return std::move(errand_);
  }

 private:
  void addTableLine(std::string_view line) {
    if (expectsTable_ == TableKind::None)
      throw LineError("a table stands where none belongs",
                      "write it directly below an expect list, expect combo, expect text or expect sql");
    Table& table = errand_.instructions.back().table;
    std::vector<Cell> found = cells(line);
    if (width_ == 0) width_ = found.size();
    if (found.size() != width_)
      throw LineError("this table line has " + std::to_string(found.size()) + " cells, the first one has " +
                          std::to_string(width_),
                      "write as many cells in every line");
    if (expectsTable_ == TableKind::Headed && table.columns.empty())
      table.columns = header(found);
    else
      table.rows.push_back(std::move(found));
  }

  std::vector<std::string> header(const std::vector<Cell>& found) const {
    std::vector<std::string> columns;
    for (const Cell& cell : found) {
      const std::string name = basic::Trim(cell.text);
      for (const std::string& other : columns)
        if (basic::sameName(other, name))
          throw LineError("the table names the column " + name + " twice", "write it once");
      columns.push_back(name);
    }
    if (errand_.instructions.back().verb == Verb::ExpectCombo)
      for (const std::string& name : columns)
        if (!basic::sameName(name, "Text") && !basic::sameName(name, "ItemData"))
          throw LineError("a combo has no column " + name, "write Text, ItemData or both");
    return columns;
  }

  void finishTable() {
    blameOpen_ = true;
    if (expectsTable_ == TableKind::Headed && errand_.instructions.back().table.columns.empty())
      throw LineError("a table without header", "write | COLUMN | COLUMN | in the line below it");
    blameOpen_ = false;
    expectsTable_ = TableKind::None;
    width_ = 0;
  }

  Errand errand_;
  TableKind expectsTable_ = TableKind::None;
  std::size_t width_ = 0;
  int openLine_ = 0;
  bool blameOpen_ = false;
};

}  // namespace

ErrandSyntaxError::ErrandSyntaxError(std::string in, int at, std::string wrong, std::string instead)
    : std::runtime_error(sentence(in, at, wrong, instead)),
      file(std::move(in)),
      line(at),
      problem(std::move(wrong)),
      remedy(std::move(instead)) {}

Errand Errand::parse(std::string_view text, const std::string& file) {
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  Reader reader(file);
  int number = 0;
  try {
    while (!text.empty()) {
      ++number;
      const std::size_t end = text.find('\n');
      std::string_view line = text.substr(0, end);
      text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
      if (line.ends_with('\r')) line.remove_suffix(1);
      reader.take(line, number);
    }
    return reader.finish();
  } catch (const LineError& error) {
    throw ErrandSyntaxError(file, reader.lineToBlame(number), error.what(), error.remedy);
  }
}

Errand Errand::read(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  if (in && in.peek() != std::ifstream::traits_type::eof()) text << in.rdbuf();
  if (!in.is_open() || in.bad() || text.fail())
    throw ErrandSyntaxError(file, 0, "the file cannot be read", "name an errand file");
  return parse(text.str(), file);
}

}  // namespace payslate::scripted
