// How statements are changed: by whole words more often than by bytes, since most broken words say the same.
#include <algorithm>
#include <cctype>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Target.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

using Random = std::minstd_rand;
using Tokens = std::vector<std::string>;

/// Apart by bars.
constexpr std::string_view phrases =
    "select |distinct |top 2 |* | from | where | group by | having | order by 1| desc| union |"
    " union all | as | inner join | left outer join | full outer join | cross join | on 1 = 1 |"
    "exists (select 1)| in (| not | between 1 and 2| like '%a[^b-c]_'| escape '!'| is null|"
    " is not null| and | or |case when 1 = 1 then 1 else 2 end|(select 1)|(select 1) x|"
    "convert(varchar(10), |cast(1 as |decimal(38,10)|smallint|float|datetime|bit|count(*)|"
    "count(distinct 1)|sum(|avg(|min(|max(|datediff(d, |dateadd(month, |datepart(dw, |getdate()|"
    "isnull(|coalesce(|nullif(|len(|left(|right(|substring(|replace(|charindex(|stuff(|replicate(|"
    "str(|isnumeric(|round(|power(|sqrt(|floor(|abs(|insert into | values (|update | set |"
    "delete from |create table t (a int not null primary key)|create view v as |"
    "create procedure p @a int as |create unique index i on |alter table | add b int| add primary key (|"
    " drop constraint |drop table |"
    "exec |spformulaparameter 1, 101, 2026, '2026/04/01'|vwPaymonthvsdate|pemployee|eEmpID|eName|"
    "eBasic|eDateofJoin|pempmonthlyentryheader|emhNo|emhbasicpay|emhDate|pEmployeeCurrentDetails|"
    "ecdAmount|INFORMATION_SCHEMA.TABLES|1|0|-1|0.1|1e308|2147483648|9223372036854775807|"
    "'2026/04/30'|'20240229'|''|'1e5'|N'Été'|null|(|)|, | + | - | * | / | % | = | < | <> |\n";

/// A quoted text or a word is one token, likewise any other character.
Tokens tokensOf(const std::uint8_t* data, std::size_t size) {
  const std::string text = payslate::fuzz::textOf(data, size);
  const auto isWord = [&text](std::size_t at) {
    return at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
  };
  Tokens tokens;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t end = at + 1;
    if (text[at] == '\'') end = std::min(text.find('\'', end), text.size() - 1) + 1;
    if (isWord(at))
      while (isWord(end)) ++end;
    tokens.push_back(text.substr(at, end - at));
    at = end;
  }
  return tokens;
}

Tokens split(std::string_view text) {
  Tokens parts;
  for (std::size_t end = 0; end < text.size(); text.remove_prefix(std::min(end + 1, text.size()))) {
    end = std::min(text.find('|'), text.size());
    parts.emplace_back(text.substr(0, end));
  }
  return parts;
}

std::size_t below(Random& random, std::size_t most) {
  return most == 0 ? 0 : random() % most;
}

/// Some tokens in a row.
Tokens rangeOf(const Tokens& tokens, Random& random) {
  constexpr std::size_t longest = 12;
  const std::size_t from = below(random, tokens.size());
  const std::size_t count = std::min(1 + below(random, longest), tokens.size() - from);
  const auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(from);
  return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

/// Puts them somewhere, in the place of `without` others.
void place(Tokens& tokens, const Tokens& what, std::size_t without, Random& random) {
  const std::size_t at = below(random, tokens.size() + 1);
  const auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(at);
  const auto end = begin + static_cast<std::ptrdiff_t>(std::min(without, tokens.size() - at));
  tokens.insert(tokens.erase(begin, end), what.begin(), what.end());
}

void change(Tokens& tokens, Random& random) {
  constexpr int ways = 6;
  static const Tokens known = split(phrases);
  const std::string& phrase = known[below(random, known.size())];
  switch (random() % ways) {
    case 0:
      return place(tokens, {phrase}, 0, random);
    case 1:
    case 2:
      return place(tokens, {phrase}, 1, random);
    case 3:
      return place(tokens, {}, 1 + below(random, 4), random);
    case 4:
      return place(tokens, rangeOf(tokens, random), 0, random);
    default:
      return place(tokens, rangeOf(tokens, random), 1, random);
  }
}

std::size_t written(const Tokens& tokens, std::uint8_t* data, std::size_t most) {
  std::size_t size = 0;
  for (const std::string& token : tokens) {
    if (size + token.size() > most) break;
    std::copy(token.begin(), token.end(), data + size);
    size += token.size();
  }
  return size;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned int seed) {
  constexpr int bytesInstead = 4;
  Random random(seed);
  if (random() % bytesInstead == 0) return LLVMFuzzerMutate(data, size, most);
  Tokens tokens = tokensOf(data, size);
  for (std::size_t changes = 1 + below(random, 3); changes > 0; --changes) change(tokens, random);
  return written(tokens, data, most);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                                 const std::uint8_t* data2, std::size_t size2,
                                                 std::uint8_t* out, std::size_t most, unsigned int seed) {
  Random random(seed);
  Tokens tokens = tokensOf(data1, size1);
  const Tokens other = tokensOf(data2, size2);
  if (!other.empty()) place(tokens, rangeOf(other, random), below(random, 8), random);
  return written(tokens, out, most);
}
