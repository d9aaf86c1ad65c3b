// Dates as text: the forms that a statement may write, and the styles of convert.
#include <array>
#include <cctype>
#include <cstdio>
#include <optional>
#include <vector>

#include "platform/tsql/DateTime.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/TokenStream.h"

namespace payslate::tsql {

namespace {

constexpr std::array<const char*, 12> shortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int centuryStyles = 100;  // A style above has a four-digit year.
constexpr int pivotYear = 50;       // Two-digit years below are of this century.
constexpr int noon = 12;

/// A run of digits or letters, or one other character.
struct Piece {
  enum Kind { Number, Word, Sign } kind = Sign;
  std::string text;
  [[nodiscard]] int number() const { return std::atoi(text.c_str()); }
};

bool isAlnumOfKind(char c, Piece::Kind kind) {
  const auto byte = static_cast<unsigned char>(c);
  return kind == Piece::Number ? std::isdigit(byte) != 0 : std::isalpha(byte) != 0;
}

class DateReader {
 public:
  DateReader(std::string_view text, int style) : text_(text), style_(style) { split(); }

  std::int64_t read() {
    if (pieces_.empty()) return 0;  // Blank text is the zero date.
    if (!timeOnly()) date();
    if (!atEnd()) {
      if (isWord("t")) ++next_;
      time();
    }
    if (!atEnd()) fail();
    try {
      return momentOf(civil_);
    } catch (const SqlError& error) {
      if (error.sqlState() == state::badDate) fail();
      throw;
    }
  }

 private:
  [[noreturn]] void fail() const {
    throw SqlError(state::badDate, "The text '" + std::string(text_) + "' is not a date.");
  }

  void split() {
    for (std::size_t i = 0; i < text_.size();) {
      const auto byte = static_cast<unsigned char>(text_[i]);
      if (byte == ' ') {
        ++i;
        continue;
      }
      Piece piece;
      piece.kind = std::isdigit(byte) != 0   ? Piece::Number
                   : std::isalpha(byte) != 0 ? Piece::Word
                                             : Piece::Sign;
      do {
        piece.text += text_[i++];
      } while (piece.kind != Piece::Sign && i < text_.size() && isAlnumOfKind(text_[i], piece.kind));
      constexpr std::size_t longest = 9;
      if (piece.text.size() > longest) fail();
      pieces_.push_back(std::move(piece));
    }
  }

  [[nodiscard]] bool atEnd() const { return next_ >= pieces_.size(); }
  [[nodiscard]] const Piece& peek(std::size_t ahead = 0) const {
    static const Piece none;
    return next_ + ahead < pieces_.size() ? pieces_[next_ + ahead] : none;
  }
  [[nodiscard]] bool isSign(std::string_view sign, std::size_t ahead = 0) const {
    return peek(ahead).kind == Piece::Sign && peek(ahead).text == sign;
  }
  [[nodiscard]] bool isWord(std::string_view word) const {
    return peek().kind == Piece::Word && sameWord(peek().text, word);
  }
  [[nodiscard]] bool timeOnly() const { return peek().kind == Piece::Number && isSign(":", 1); }

  Piece takeNumber() {
    if (peek().kind != Piece::Number) fail();
    return pieces_[next_++];
  }

  std::optional<int> month(const Piece& piece) const {
    constexpr std::size_t shortLength = 3;
    if (piece.kind != Piece::Word || piece.text.size() < shortLength) return std::nullopt;
    for (std::size_t i = 0; i < shortMonths.size(); ++i) {
      if (!sameWord(piece.text.substr(0, shortLength), shortMonths[i])) continue;
      CivilTime time;
      time.month = static_cast<int>(i) + 1;
      const std::string full = partName(DatePart::Month, momentOf(time));
      if (piece.text.size() == shortLength || sameWord(piece.text, full)) return time.month;
    }
    return std::nullopt;
  }

  void setYear(const Piece& piece) {
    constexpr std::size_t fullLength = 4;
    civil_.year = piece.number();
    if (piece.text.size() == fullLength) return;
    if (piece.text.size() > 2) fail();
    civil_.year += civil_.year < pivotYear ? 2000 : 1900;
  }

  void date() {
    if (month(peek()) || (peek().kind == Piece::Number && month(peek(1)))) return namedMonth();
    const Piece first = takeNumber();
    const bool separated = isSign("/") || isSign("-") || isSign(".");
    if (!separated) return compact(first.text);
    const std::string separator = pieces_[next_++].text;
    const Piece second = takeNumber();
    if (!isSign(separator)) fail();
    ++next_;
    const Piece third = takeNumber();
    constexpr std::size_t yearLength = 4;
    constexpr int british = 3;
    constexpr int italian = 5;
    const int order = style_ % centuryStyles;
    if (first.text.size() == yearLength) {
      setYear(first);
      civil_.month = second.number();
      civil_.day = third.number();
      return;
    }
    setYear(third);
    const bool dayFirst = order >= british && order <= italian;
    civil_.month = (dayFirst ? second : first).number();
    civil_.day = (dayFirst ? first : second).number();
  }

  void namedMonth() {
    std::optional<int> named;
    std::vector<Piece> numbers;
    while (numbers.size() < 2 || !named) {
      if (isSign(",") || isSign("-")) {
        ++next_;
      } else if (const std::optional<int> found = month(peek()); found && !named) {
        named = found;
        ++next_;
      } else if (numbers.size() < 2) {
        numbers.push_back(takeNumber());
      } else {
        fail();
      }
    }
    constexpr std::size_t yearLength = 4;
    const bool yearFirst = numbers[0].text.size() == yearLength;
    civil_.month = *named;
    setYear(numbers[yearFirst ? 0 : 1]);
    civil_.day = numbers[yearFirst ? 1 : 0].number();
  }

  void compact(const std::string& digits) {
    constexpr std::size_t full = 8;
    constexpr std::size_t shortForm = 6;
    constexpr std::size_t yearOnly = 4;
    if (digits.size() == yearOnly) return setYear({Piece::Number, digits});
    if (digits.size() != full && digits.size() != shortForm) fail();
    const std::size_t yearLength = digits.size() - 4;
    setYear({Piece::Number, digits.substr(0, yearLength)});
    civil_.month = std::atoi(digits.substr(yearLength, 2).c_str());
    civil_.day = std::atoi(digits.substr(yearLength + 2, 2).c_str());
  }

  void time() {
    civil_.hour = takeNumber().number();
    if (isSign(":")) {
      ++next_;
      civil_.minute = takeNumber().number();
      if (isSign(":")) {
        ++next_;
        civil_.second = takeNumber().number();
        if (isSign(".") || isSign(":")) {
          ++next_;
          std::string fraction = takeNumber().text;
          fraction.resize(3, '0');
          civil_.millisecond = std::atoi(fraction.c_str());
        }
      }
    } else if (!isWord("am") && !isWord("pm")) {
      fail();
    }
    if (isWord("am") || isWord("pm")) {
      if (civil_.hour < 1 || civil_.hour > noon) fail();
      civil_.hour = civil_.hour % noon + (isWord("pm") ? noon : 0);
      ++next_;
    }
  }

  std::string_view text_;
  int style_;
  std::vector<Piece> pieces_;
  std::size_t next_ = 0;
  CivilTime civil_;
};

struct Style {
  int number;
  std::string_view
      pattern;  ///< y year, Y year of two digits, m month, M its name, d day, D day without zero,
                ///< h hour, H hour of twelve, n minute, s second, f millisecond, a AM or PM.
};

constexpr Style styles[] = {
    {0, "M D y H:na"}, {1, "m/d/Y"},          {2, "Y.m.d"},           {3, "d/m/Y"},
    {4, "d.m.Y"},      {5, "d-m-Y"},          {6, "d M Y"},           {7, "M d, Y"},
    {8, "h:n:s"},      {10, "m-d-Y"},         {11, "Y/m/d"},          {12, "Ymd"},
    {14, "h:n:s:f"},   {20, "y-m-d h:n:s"},   {21, "y-m-d h:n:s.f"},  {23, "y-m-d"},
    {24, "h:n:s"},     {25, "y-m-d h:n:s.f"}, {100, "M D y H:na"},    {101, "m/d/y"},
    {102, "y.m.d"},    {103, "d/m/y"},        {104, "d.m.y"},         {105, "d-m-y"},
    {106, "d M y"},    {107, "M d, y"},       {108, "h:n:s"},         {109, "M D y H:n:s:fa"},
    {110, "m-d-y"},    {111, "y/m/d"},        {112, "ymd"},           {113, "d M y h:n:s:f"},
    {114, "h:n:s:f"},  {120, "y-m-d h:n:s"},  {121, "y-m-d h:n:s.f"}, {126, "y-m-dTh:n:s"}};

std::string padded(int number, int width, char fill = '0') {
  std::string text = std::to_string(number);
  const auto wanted = static_cast<std::size_t>(width);
  return text.size() >= wanted ? text : std::string(wanted - text.size(), fill) + text;
}

std::string written(const CivilTime& time, char letter) {
  constexpr int century = 100;
  const int twelve = time.hour % noon == 0 ? noon : time.hour % noon;
  switch (letter) {
    case 'y':
      return padded(time.year, 4);
    case 'Y':
      return padded(time.year % century, 2);
    case 'm':
      return padded(time.month, 2);
    case 'M':
      return shortMonths[static_cast<std::size_t>(time.month - 1)];
    case 'd':
      return padded(time.day, 2);
    case 'D':
      return padded(time.day, 2, ' ');
    case 'h':
      return padded(time.hour, 2);
    case 'H':
      return padded(twelve, 2, ' ');
    case 'n':
      return padded(time.minute, 2);
    case 's':
      return padded(time.second, 2);
    case 'f':
      return padded(time.millisecond, 3);
    case 'a':
      return time.hour < noon ? "AM" : "PM";
    default:
      return std::string(1, letter);
  }
}

}  // namespace

std::int64_t readMoment(std::string_view text, int style) {
  return roundedMoment(DateReader(text, style).read(), Kind::DateTime);
}

std::string writeMoment(std::int64_t moment, int style, Kind kind) {
  constexpr int isoDate = 23;
  const int wanted = kind == Kind::Date && style == 0 ? isoDate : style;
  const CivilTime time = civilTime(moment);
  for (const Style& known : styles) {
    if (known.number != wanted) continue;
    std::string text;
    for (const char letter : known.pattern) text += written(time, letter);
    return text;
  }
  throw SqlError(state::syntax,
                 "The style " + std::to_string(style) + " of convert is not supported for dates.");
}

}  // namespace payslate::tsql
