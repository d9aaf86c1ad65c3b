// An errand as instructions: what its text file says, line by line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/basic/Date.h"
#include "platform/scripted/HostSession.h"
#include "platform/ui/Key.h"
#include "platform/ui/MessageBox.h"

namespace payslate::scripted {

/// A file that is no errand. `what()` is one sentence: file, line, what is wrong, what to write instead.
class ErrandSyntaxError : public std::runtime_error {
 public:
  /// Line 0 stands for the file as a whole.
  ErrandSyntaxError(std::string in, int at, std::string wrong, std::string instead);

  const std::string file;
  const int line;
  const std::string problem;
  const std::string remedy;
};

enum class Verb {
  Database,
  Sql,
  Session,
  Show,
  Click,
  Focus,
  Type,
  Replace,
  Paste,
  Press,
  Choose,
  PickDate,
  TurnPage,
  ClickRow,
  DoubleClickRow,
  RightClickRow,
  PickMenu,
  Tick,
  AnswerMessage,
  Close,
  ExpectProperty,
  ExpectForm,
  ExpectNoForm,
  ExpectFocus,
  ExpectRed,
  ExpectNotRed,
  ExpectList,
  ExpectCombo,
  ExpectText,
  ExpectSql,
  ExpectError,
  ExpectSent,
};

struct Cell {
  std::string text;
  bool quoted = false;
  [[nodiscard]] bool isNull() const { return !quoted && text == "NULL"; }
};

struct Table {
  std::vector<std::string> columns;  ///< Empty for a table without header.
  std::vector<std::vector<Cell>> rows;
};

/// One instruction. Members that its verb does not speak of keep their initial values.
struct Instruction {
  Verb verb = Verb::Show;
  int line = 0;
  std::string written;   ///< The line without blanks around it.
  std::string target;    ///< The control, list, form or file that it names.
  std::string property;  ///< expect CONTROL.PROPERTY
  std::string text;      ///< What is typed, chosen, said or expected; the statement of sql and expect sql.
  int number = 0;        ///< A row (from 1, 0 the empty area) or a count.
  bool none = false;     ///< menu none
  basic::Date date;
  ui::Key key;
  std::optional<ui::MessageStyle> style;
  std::optional<std::string> title;
  ui::Answer answer = ui::Answer::Ok;
  HostSession session;
  Table table;
};

struct Errand {
  std::string file;
  std::vector<Instruction> instructions;

  /// Throws ErrandSyntaxError for a file that cannot be read, and for the first line that is wrong.
  static Errand read(const std::string& file);
  /// `file` is for messages and for the files that the errand names.
  static Errand parse(std::string_view text, const std::string& file);
};

}  // namespace payslate::scripted
