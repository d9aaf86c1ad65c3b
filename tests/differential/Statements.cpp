// Statements from a table of patterns.
#include "tests/differential/Statements.h"

#include <iterator>
#include <map>
#include <string_view>

namespace payslate::test {

namespace {

using Texts = std::vector<std::string>;

Texts parts(std::string_view text) {
  Texts found;
  for (std::size_t bar = text.find('|'); bar != std::string_view::npos; bar = text.find('|')) {
    found.emplace_back(text.substr(0, bar));
    text.remove_prefix(bar + 1);
  }
  found.emplace_back(text);
  return found;
}

// A list of texts, apart by a bar, for everybody who understands that language.
struct Alternatives {
  char kind;
  Language language;
  std::string_view texts;
};

template <std::size_t size>
Texts ofKind(const Alternatives (&table)[size], char kind, Language language) {
  Texts found;
  for (const Alternatives& one : table)
    if (one.kind == kind && (one.language == Language::Shared || language == Language::Own))
      for (std::string& text : parts(one.texts)) found.push_back(std::move(text));
  return found;
}

// Kinds of values, which compare with each other: whole numbers, decimals, doubles, texts, moments. Many of
// the values are equal, and few the same bytes.
constexpr std::string_view kinds = "idftm";
constexpr Alternatives columns[] = {
    {'i', Language::Shared, "n int|k smallint"},
    {'d', Language::Shared, "d2 decimal(9,2)|d4 decimal(12,4)"},
    {'d', Language::Own, "y money"},
    {'f', Language::Shared, "f float"},
    {'t', Language::Shared, "v varchar(8)|w varchar(4)"},
    {'t', Language::Own, "c char(4)"},
    {'m', Language::Shared, "t datetime"},
    {'m', Language::Own, "u smalldatetime"},
};
constexpr Alternatives values[] = {
    {'i', Language::Shared, "null|1|0|5|3|120|-1"},
    {'d', Language::Shared, "null|0|5|5.00|3|-1|120|0.1|2.75"},
    {'f', Language::Shared, "null|1|2|3|0.5|5"},
    {'t', Language::Shared, "null|'s'|'ha'|'h'|''|'a2'|'5'"},
    {'t', Language::Own, "'S '|'s  '|'HA'|' '|'Été'|'éTÉ '"},
    {'m', Language::Shared, "null|'2006/04/01'|'20060402'|'2006-04-30 10:00'"},
};
constexpr Alternatives literals[] = {
    {'i', Language::Shared, "1|5|(-1)"},
    {'d', Language::Shared, "5.0|0.00|2.75|(-1.5)"},
    {'d', Language::Own, "5.000|120."},
    {'f', Language::Shared, "cast(5 as float)|cast(0.5 as float)"},
    {'f', Language::Own, "5e-1"},
    {'t', Language::Shared, "'s'|'ha'|''"},
    {'t', Language::Own, "'S '|' '|'été'"},
    {'m', Language::Shared, "cast('20060402' as datetime)"},
    {'m', Language::Own, "cast('2006-04-30 10:00' as smalldatetime)"},
};

// What comes first is simplest. A server of another language means the shared patterns alike; the others hold
// what it means otherwise or does not know:
//  - texts that differ in capitals or in blanks behind them, and functions that see those;
//  - a division of decimals, avg, and sum of whole numbers, whose types differ;
//  - cast to a whole number, which cuts here and rounds there, and to a text without room;
//  - isnull, iif, top and functions of other names; sets in like, which it takes as they stand.
// A sum goes through a cast, since arithmetic with its 38 digits loses decimals here alone; isnull, which
// takes the type of its first value, through one with room for the second.
//
// A placeholder is a letter, with a kind behind it where it is not the pattern's own:
//  - i, d, f, t, m, ?: a value of that or the pattern's kind; x: of any; a colon: equal ones are the same
//  bytes;
//  - c, C, L: a column, one of the innermost query, a literal; a digit: the same one again;
//  - F, A, B, T, D: what stands behind from, the new alias of a table or a derived table, these themselves;
//  - j, e: equal columns of the two latest sources, of the first and the latest;
//  - all others: another pattern of the tables below.
constexpr Alternatives leaves[] = {
    {'o', Language::Shared, "=|<>|<|<=|>|>="},
    {'N', Language::Shared, "1|2|3"},
    {'T', Language::Shared, "ta|tb|tc"},
    {'J', Language::Shared, "join|left join|right join"},
    {'w', Language::Shared, "| where {b}| where {b}"},
    {'F', Language::Shared, "{T} {A}"},
    {'b', Language::Shared,
     "{c} {o} {L}|{c} {o} {c}|{c} is null|{c} is not null|{c} in ({L}, {L})|{c} = null"},
    {'S', Language::Shared, "select {x} c1 from {F}{w}"},
    {'Q', Language::Shared, "select {C} c1 from {F}{w}"},
    {'D', Language::Shared, "select {i} i, {d} d, {f} f, {t} t, {m} m from {F}{w}"},
    {'U', Language::Shared, "select {i} i, {d} d, {f} f, {t:} t, {m} m from {F}{w}"},
    {'M', Language::Shared, "select max({C}) c1 from {F}{w}"},
    {'a', Language::Shared, "count(*)"},
    {'h', Language::Shared, ""},
};
constexpr Alternatives branches[] = {
    {'b', Language::Shared,
     "{?} {o} {?}|{i} {o} {d}|{f} {o} {i}|({b} and {b})|({b} or {b})|not ({b})|{?} between {?} and {?}|"
     "{?} not between {?} and {L}|{?} in ({L}, {?}, null)|{?} not in ({L}, {?})|{?} in ({Q})|"
     "{?} not in ({Q})|exists (select 1 from {F}{w})|not exists (select * from {F} where {b})|"
     "{?} {o} ({M})|{t} like 'h%'|{t} not like '_a%'|(year({cm1}) = 2006 and month({cm1}) = 4)"},
    {'b', Language::Own,
     "{t} like '[g-i]%'|{t} not like {t}|left({ct}, {N}) = {Lt}|{Lt} = substring({ct}, 1, {N})"},
    {'i', Language::Shared,
     "({i} + {i})|({i} - {i})|(-{i})|({i} * {N})|({i} / {N})|({i} % {N})|abs({i})|"
     "case when {b} then {i} else {i} end|case {i} when {L} then {i} when {i} then {i} end|"
     "coalesce({i}, {i})|nullif({i}, {i})|(select count(*) from {F}{w})|(select min({C}) from {F}{w})|"
     "(select count(distinct {C?}) from {F}{w})|year({m})|month({m})|day({m})|len({t})"},
    {'i', Language::Own,
     "isnull({i}, {i})|iif({b}, {i}, {i})|charindex({t}, {t})|convert(int, {d})|"
     "(select sum({C}) from {F}{w})|datediff(day, {m}, {m})|isnumeric({t})|datalength(rtrim({t}))"},
    {'d', Language::Shared,
     "({d} + {d})|({d} - {d})|(-{d})|({d} * {N})|({c} * {L})|({d} + {i})|cast({d} as decimal(12,1))|"
     "round({d}, 1)|floor({d})|case when {b} then {d} else {i} end|coalesce({d}, {i})|nullif({d}, {i})|"
     "(select max({C}) from {F}{w})|cast((select sum({C}) from {F}{w}) as decimal(14,4))"},
    {'d', Language::Own,
     "isnull(cast({d} as decimal(12,4)), {d})|({d} / {N})|cast({i} as money)|(select avg({C}) from {F}{w})|"
     "convert(decimal(10,3), {f})"},
    {'f', Language::Shared,
     "({f} + {f})|({f} * {N})|coalesce({f}, {i})|cast({i} as float)|case when {b} then {f} else {d} end"},
    {'f', Language::Own, "({f} / {N})|sqrt(abs({f}))"},
    {'t', Language::Shared,
     "({t} + {t})|lower({t})|substring({t}, {N}, {N})|left({t}, {N})|right({t}, {N})|"
     "replace({t}, 'h', {t})|case when {b} then {t} else {t} end|coalesce({t}, {t})|nullif({t}, {t})|"
     "cast({i} as varchar(12))|(select min({C:}) from {F}{w})"},
    {'t', Language::Own,
     "upper({t})|ltrim(rtrim({t}))|isnull({t}, {t})|reverse({t})|stuff({t}, 1, {N}, {t})|"
     "convert(varchar(20), {d})|convert(varchar(10), {m}, 111)|cast({t} as char(5))|concat({t}, {i})"},
    {'m', Language::Shared,
     "case when {b} then {m} else {m} end|coalesce({m}, {m})|nullif({m}, {m})|"
     "(select max({C}) from {F}{w})"},
    {'m', Language::Own, "dateadd(month, {N}, {m})|({m} + {N})"},
    {'F', Language::Shared,
     "{T} {A}, {T} {A}|{T} {A} {J} {T} {A} on {b}|{T} {A} {J} {T} {A} on {c} = {c}|"
     "{T} {A} full join {T} {A} on {j}|{T} {A} cross join {T} {A}|"
     "{T} {A} {J} {T} {A} on {j} {J} {T} {A} on {b}|{T} {A}, {T} {A} {J} {T} {A} on {j}|"
     "{T} {A} {J} ({T} {A} {J} {T} {A} on {j}) on {e}|({D}) {B}|{T} {A} {J} ({D}) {B} on {b}|"
     "{T} {A}, ({D}) {B}"},
    {'D', Language::Shared,
     "select distinct {i} i, {d} d, {f} f, {t:} t, {m} m from {F}{w}|{U} union {U}|"
     "select {Ci1} i, max({Cd}) d, min({Cf}) f, max({Ct:}) t, min({Cm}) m from {F}{w} group by {Ci1}{h}"},
    {'Q', Language::Shared,
     "select {?} c1 from {F}{w}|select {C1} c1 from {F}{w} group by {C1}{h}|{Q} union {Q}|"
     "{Q} union all {Q}|select max({C}) c1 from {F}{w}"},
    {'a', Language::Shared,
     "min({C})|max({C})|count({C})|count(distinct {C})|sum({Cd})|sum({Cd1} * {Cd1})|"
     "sum(case when {C} = {L} then {Cd} else 1.50 end)"},
    {'a', Language::Own, "avg({Cd})|avg({Ci})|sum({Ci} - {N})"},
    {'h', Language::Shared, " having count(*) > {N}| having min({C}) {o} {L}| having max({C}) is not null"},
    {'S', Language::Shared,
     "select {x} c1, {x} c2, {x} c3 from {F}{w}|select distinct {?} c1, {x} c2 from {F}{w}|"
     "select {a} c1, {a} c2 from {F}{w}|select {C1} c1, {a} c2, {a} c3 from {F}{w} group by {C1}{h}|"
     "select {C1} c1, {Cd2} c2, {a} c3 from {F}{w} group by {C1}, {Cd2}{h}|{Q} union {Q}|"
     "{Q} union all {Q}|select {x} c1 from {F} where {b} and {b}|"
     "select count(*) c1 from (select distinct {?} y, {x} z from {F}{w}) q"},
    {'S', Language::Own, "select top {N} {C1} c1 from {F}{w} order by {C1} desc"},
};

class Generator {
 public:
  Generator(Language language, Choices& choices) : language_(language), choices_(choices) {}

  std::string pattern(char letter, char kind) {
    const bool isLeaf = letter == 'F' ? aliases_ >= mostTables || choices_.below(3) == 0
                                      : ++patterns_ > mostPatterns || choices_.below(mostDepth) <= depth_;
    if (isLeaf && isValue(letter)) return choices_.below(3) < 2 ? column(letter, false) : literal(letter);
    Texts texts;
    if (!isLeaf) texts = ofKind(branches, letter, language_);
    if (texts.empty()) texts = ofKind(leaves, letter, language_);
    ++depth_;
    std::string text = expanded(any(texts), isValue(letter) ? letter : kind);
    --depth_;
    return text;
  }

 private:
  struct Source {
    std::string alias;
    bool derived;  // Its columns are named after the kinds.
  };
  static constexpr std::size_t mostDepth = 4;
  static constexpr int mostPatterns = 60;
  static constexpr int mostTables = 3;  // Behind which queries have one each: products of rows take time.

  static bool isValue(char letter) { return kinds.find(letter) != std::string_view::npos; }
  char anyKind() { return kinds[choices_.below(kinds.size())]; }
  const std::string& any(const Texts& texts) { return texts[choices_.below(texts.size())]; }

  std::string expanded(std::string_view text, char kind) {
    if (kind == 0) kind = anyKind();
    const bool isQuery = text.find("{F}") != std::string_view::npos;
    std::string from;
    if (isQuery) {
      scopes_.emplace_back();
      from = pattern('F', 0);
    }
    std::string result;
    std::map<std::string_view, std::string> repeated;
    while (!text.empty()) {
      const std::size_t open = text.find('{');
      result += text.substr(0, open);
      if (open == std::string_view::npos) break;
      const std::size_t close = text.find('}', open);
      const std::string_view name = text.substr(open + 1, close - open - 1);
      text.remove_prefix(close + 1);
      if (name == "F") {
        result += from;
      } else if (std::isdigit(static_cast<unsigned char>(name.back())) != 0) {
        std::string& same = repeated[name];
        if (same.empty()) same = placeholder(name.substr(0, name.size() - 1), kind);
        result += same;
      } else {
        result += placeholder(name, kind);
      }
    }
    if (isQuery) scopes_.pop_back();
    return result;
  }

  std::string placeholder(std::string_view name, char kind) {
    if (name.back() == ':') {
      const std::string text = placeholder(name.substr(0, name.size() - 1), kind);
      return language_ == Language::Own ? "upper(rtrim(" + text + "))" : text;
    }
    if (name.size() > 1) kind = name[1] == '?' ? anyKind() : name[1];
    switch (name.front()) {
      case '?':
        return pattern(kind, kind);
      case 'x': {
        const char any = anyKind();
        return pattern(any, any);
      }
      case 'c':
      case 'C':
        return column(kind, name.front() == 'C');
      case 'L':
        return literal(kind);
      case 'A':
      case 'B':
        scopes_.back().push_back(
            {std::string(1, static_cast<char>('a' + aliases_ % 26)) + std::to_string(aliases_), name == "B"});
        ++aliases_;
        return scopes_.back().back().alias;
      case 'j':
      case 'e': {
        const std::vector<Source>& scope = scopes_.back();
        const char same = anyKind();
        return columnOf(name == "e" ? scope.front() : scope[scope.size() - 2], same) + " = " +
               columnOf(scope.back(), same);
      }
      case 'D': {  // It sees nothing around it.
        std::vector<std::vector<Source>> hidden;
        hidden.swap(scopes_);
        std::string text = pattern('D', 0);
        hidden.swap(scopes_);
        return text;
      }
      default:
        return pattern(name.front(), name == "Q" || name == "M" ? kind : '\0');
    }
  }

  std::string column(char kind, bool innermost) {
    std::vector<Source> visible = scopes_.back();
    if (!innermost && scopes_.size() > 1 && choices_.below(3) == 2)
      visible = scopes_[choices_.below(scopes_.size())];
    return columnOf(visible[choices_.below(visible.size())], kind);
  }

  std::string columnOf(const Source& source, char kind) {
    if (source.derived) return source.alias + "." + kind;
    const std::string column = any(ofKind(columns, kind, language_));
    return source.alias + "." + column.substr(0, column.find(' '));
  }

  std::string literal(char kind) { return any(ofKind(literals, kind, language_)); }

  Language language_;
  Choices& choices_;
  std::vector<std::vector<Source>> scopes_;
  std::size_t depth_ = 0;
  int patterns_ = 0;
  int aliases_ = 0;
};

}  // namespace

std::size_t Choices::below(std::size_t end) {
  const std::size_t number = !replays_                       ? random_()
                             : taken_.size() < given_.size() ? given_[taken_.size()]
                                                             : 0;
  taken_.push_back(static_cast<std::uint32_t>(number % end));
  return taken_.back();
}

std::vector<std::string> declarations(Language language) {
  Texts found{"id int not null"};
  for (const char kind : kinds)
    for (const std::string& column : ofKind(columns, kind, language)) found.push_back(column + " null");
  return found;
}

std::vector<std::string> fillings(Language language, Choices& choices) {
  Texts statements;
  for (const Table& table : tables) {
    for (int row = 1; row <= table.rows; ++row) {
      std::string text = std::string("insert into ") + table.name + " values (" + std::to_string(row);
      for (const char kind : kinds) {
        const Texts some = ofKind(values, kind, language);
        for (std::size_t column = ofKind(columns, kind, language).size(); column > 0; --column)
          text += ", " + some[choices.below(some.size())];
      }
      statements.push_back(text + ")");
    }
  }
  return statements;
}

std::string query(Language language, Choices& choices) {
  return Generator(language, choices).pattern('S', 0);
}

}  // namespace payslate::test
