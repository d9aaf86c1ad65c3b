// Text functions.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "platform/basic/Unicode.h"
#include "platform/tsql/Convert.h"
#include "platform/tsql/Runtime.h"
#include "platform/tsql/SqlError.h"
#include "platform/tsql/Text.h"

namespace payslate::tsql {

namespace {

constexpr std::size_t longestText = 1'000'000;  // Characters that a function may produce.

std::string_view text(const CellView& value) {
  return std::get<std::string_view>(value);
}

std::int64_t length(const CellView& value, const char* function) {
  const std::int64_t number = wholeOf(value);
  if (number < 0) {
    throw SqlError(state::badLength, std::string("The length given to ") + function + " is negative.");
  }
  return number;
}

std::u32string lowered(std::u32string value) {
  std::transform(value.begin(), value.end(), value.begin(), basic::lowerCharacter);
  return value;
}

Answer len(Arguments args) {
  return static_cast<std::int64_t>(basic::characterCount(withoutTrailingBlanks(text(args[0]))));
}

Answer dataLength(Arguments args) {
  return static_cast<std::int64_t>(text(args[0]).size());
}

Answer left(Arguments args) {
  const std::string_view all = text(args[0]);
  return all.substr(0, basic::bytesOf(all, static_cast<std::size_t>(length(args[1], "left"))));
}

Answer right(Arguments args) {
  const auto count = static_cast<std::size_t>(length(args[1], "right"));
  const std::string_view all = text(args[0]);
  const std::size_t characters = basic::characterCount(all);
  return all.substr(basic::bytesOf(all, characters - std::min(characters, count)));
}

// Positions before the first character count against the length.
Answer substring(Arguments args) {
  const std::string_view all = text(args[0]);
  const std::int64_t start = wholeOf(args[1]);
  const std::int64_t count = length(args[2], "substring");
  if (start > std::numeric_limits<std::int64_t>::max() - count)
    throw SqlError(state::overflow, "Arithmetic overflow: substring starts too far behind the text.");
  const std::int64_t from = std::max<std::int64_t>(start, 1);
  const std::int64_t to = std::max(start + count, from);
  const std::string_view rest = all.substr(basic::bytesOf(all, static_cast<std::size_t>(from - 1)));
  return rest.substr(0, basic::bytesOf(rest, static_cast<std::size_t>(to - from)));
}

template <char32_t (*function)(char32_t)>
Answer mapped(Arguments args) {
  std::u32string all = basic::characters(text(args[0]));
  std::transform(all.begin(), all.end(), all.begin(), function);
  return basic::encoded(all);
}

Answer trimLeft(Arguments args) {
  const std::string_view value = text(args[0]);
  return value.substr(std::min(value.size(), value.find_first_not_of(' ')));
}

Answer trimRight(Arguments args) {
  return withoutTrailingBlanks(text(args[0]));
}

Answer replace(Arguments args) {
  const std::u32string all = basic::characters(text(args[0]));
  const std::u32string folded = lowered(all);
  const std::u32string wanted = lowered(basic::characters(text(args[1])));
  const std::u32string with = basic::characters(text(args[2]));
  if (wanted.empty()) return args[0];
  std::u32string result;
  std::size_t from = 0;
  for (std::size_t at = folded.find(wanted); at != std::u32string::npos; at = folded.find(wanted, from)) {
    result.append(all, from, at - from).append(with);
    from = at + wanted.size();
    if (result.size() > longestText)
      throw SqlError(state::badLength, "The text made by replace is too long.");
  }
  return basic::encoded(result.append(all, from));
}

Answer charIndex(Arguments args) {
  const std::u32string wanted = lowered(basic::characters(text(args[0])));
  const std::u32string all = lowered(basic::characters(text(args[1])));
  const std::int64_t start = std::max<std::int64_t>(1, args.size() > 2 ? wholeOf(args[2]) : 1);
  if (wanted.empty()) return std::int64_t{0};
  const std::size_t at = all.find(wanted, static_cast<std::size_t>(start - 1));
  return at == std::u32string::npos ? std::int64_t{0} : static_cast<std::int64_t>(at) + 1;
}

Answer replicate(Arguments args) {
  const std::int64_t count = wholeOf(args[1]);
  const std::string_view piece = text(args[0]);
  if (count < 0) return {};
  if (piece.empty()) return std::string();
  // What is beyond the longest text is cut off without an error, as a server does.
  constexpr std::size_t longestMade = 8000;
  std::u32string result;
  const std::u32string characters = basic::characters(piece);
  for (std::int64_t i = 0; i < count && result.size() < longestMade; ++i) result += characters;
  result.resize(std::min(result.size(), longestMade));
  return basic::encoded(result);
}

Answer space(Arguments args) {
  const std::array<CellView, 2> again = {std::string_view(" "), args[0]};
  return replicate(again);
}

Answer reverse(Arguments args) {
  std::u32string all = basic::characters(text(args[0]));
  std::reverse(all.begin(), all.end());
  return basic::encoded(all);
}

Answer stuff(Arguments args) {
  const std::u32string all = basic::characters(text(args[0]));
  const std::int64_t start = wholeOf(args[1]);
  const std::int64_t count = wholeOf(args[2]);
  if (start < 1 || count < 0 || start > static_cast<std::int64_t>(all.size())) return {};
  const auto from = static_cast<std::size_t>(start - 1);
  const std::size_t behind = std::min(all.size(), from + static_cast<std::size_t>(count));
  return basic::encoded(all.substr(0, from)).append(text(args[3])) + basic::encoded(all.substr(behind));
}

Answer ascii(Arguments args) {
  const std::u32string all = basic::characters(text(args[0]));
  if (all.empty()) return {};
  return static_cast<std::int64_t>(all.front());
}

Answer character(Arguments args) {
  constexpr std::int64_t last = 255;
  const std::int64_t code = wholeOf(args[0]);
  if (code < 1 || code > last) return {};
  return basic::encoded(std::u32string(1, static_cast<char32_t>(code)));
}

// A number right-justified in its width; stars when it does not fit.
Answer str(Arguments args) {
  constexpr int mostDecimals = 16;
  const double number = doubleOf(args[0]);
  const auto width = static_cast<std::size_t>(std::min<std::int64_t>(length(args[1], "str"), longestText));
  const int decimals = static_cast<int>(std::clamp<std::int64_t>(wholeOf(args[2]), 0, mostDecimals));
  constexpr double largest = 1e22;
  if (std::abs(number) >= largest) return std::string(width, '*');
  const std::string digits = basic::Decimal::fromDouble(number, decimals).text();
  if (digits.size() > width) return std::string(width, '*');
  return std::string(width - digits.size(), ' ') + digits;
}

Answer like(Arguments args) {
  char32_t escape = 0;
  if (args.size() > 2) {
    const std::u32string sign = basic::characters(text(args[2]));
    if (sign.size() != 1) throw SqlError("22019", "The escape of 'like' is not one character.");
    escape = sign.front();
  }
  return std::int64_t{matchesLike(text(args[0]), text(args[1]), escape)};
}

// The other text that equals a single blank.
Answer emptied(Arguments args) {
  if (text(args[0]) == " ") return std::string_view();
  return args[0];
}

Answer concat(Arguments args) {
  std::string result;
  for (const CellView& piece : args) {
    if (!isNull(piece)) result += text(piece);
    if (result.size() > longestText) throw SqlError(state::badLength, "The text made by concat is too long.");
  }
  return result;
}

constexpr std::array functions = {
    RuntimeFunction{"ts_len", 1, len},
    RuntimeFunction{"ts_datalength", 1, dataLength},
    RuntimeFunction{"ts_left", 2, left},
    RuntimeFunction{"ts_right", 2, right},
    RuntimeFunction{"ts_substring", 3, substring},
    RuntimeFunction{"ts_upper", 1, mapped<basic::upperCharacter>},
    RuntimeFunction{"ts_lower", 1, mapped<basic::lowerCharacter>},
    RuntimeFunction{"ts_ltrim", 1, trimLeft},
    RuntimeFunction{"ts_rtrim", 1, trimRight},
    RuntimeFunction{"ts_replace", 3, replace},
    RuntimeFunction{"ts_charindex", -1, charIndex},
    RuntimeFunction{"ts_replicate", 2, replicate},
    RuntimeFunction{"ts_space", 1, space},
    RuntimeFunction{"ts_reverse", 1, reverse},
    RuntimeFunction{"ts_stuff", 4, stuff},
    RuntimeFunction{"ts_ascii", 1, ascii},
    RuntimeFunction{"ts_char", 1, character},
    RuntimeFunction{"ts_str", 3, str},
    RuntimeFunction{"ts_like", -1, like},
    RuntimeFunction{"ts_emptied", 1, emptied},
    RuntimeFunction{"ts_concat", -1, concat, false},
};

}  // namespace

std::span<const RuntimeFunction> textFunctions() {
  return functions;
}

}  // namespace payslate::tsql
