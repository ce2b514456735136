#include "platform/dao/SqlParser.h"

#include "platform/core/Error.h"

namespace platform::dao {
namespace {

// Tries of path readings allowed for one statement: far more than any real statement
// needs, few enough that a statement made of quotes ends quickly.
constexpr int kMaxAttempts = 2000;

bool IsReserved(const SqlToken& t) {
  static const char* const kWords[] = {"SELECT", "INTO",  "FROM",  "WHERE", "ORDER", "GROUP",
                                       "HAVING", "IN",    "VALUES", "SET",  "UNION", "JOIN",
                                       "INNER",  "LEFT",  "RIGHT", "ON",    "AS",    "DISTINCT"};
  if (t.kind != SqlToken::Kind::Word) return false;
  for (const char* w : kWords)
    if (t.Is(w)) return true;
  return false;
}

bool IsNameToken(const SqlToken& t) {
  return t.kind == SqlToken::Kind::Name || (t.kind == SqlToken::Kind::Word && !IsReserved(t));
}

}  // namespace

void SqlParser::Fail(const std::string& what) const {
  throw Error(err::kSyntaxInExpression, "Syntax error: " + what + ".");
}

void SqlParser::CountAttempt() {
  if (++m_attempts > kMaxAttempts) throw Error(err::kSyntaxInExpression, "Syntax error: statement too ambiguous.");
}

SqlStatement SqlParser::Parse(std::string_view text) {
  SqlParser parser(text);
  SqlToken first = parser.m_lexer.At(0);
  SqlStatement st;
  int number = err::kSyntaxInExpression;
  try {
    if (first.Is("SELECT")) return parser.ParseSelect(first.end, st);
    if (first.Is("INSERT")) {
      number = err::kSyntaxInInsert;
      return parser.ParseInsert(first.end, st);
    }
    if (first.Is("UPDATE")) {
      number = err::kSyntaxInUpdate;
      return parser.ParseUpdate(first.end, st);
    }
    if (first.Is("DELETE")) return parser.ParseDelete(first.end, st);
  } catch (const Error& e) {
    if (e.number == err::kSyntaxInExpression || e.number == err::kSyntaxInFrom)
      throw Error(number == err::kSyntaxInExpression ? e.number : number, e.description);
    throw;
  }
  throw Error(err::kInvalidSqlStatement);
}

void SqlParser::Expect(size_t& pos, std::string_view word) {
  SqlToken t = m_lexer.At(pos);
  if (!t.Is(word)) Fail("expected " + std::string(word));
  pos = t.end;
}

std::vector<SqlToken> SqlParser::Collect(size_t& pos, std::initializer_list<std::string_view> stops) {
  std::vector<SqlToken> tokens;
  int depth = 0;
  for (;;) {
    SqlToken t = m_lexer.At(pos);
    if (t.kind == SqlToken::Kind::End) break;
    if (depth == 0) {
      if (t.Is(";")) break;
      bool stop = false;
      for (auto s : stops)
        if (t.Is(s)) stop = true;
      if (stop) break;
    }
    if (t.Is("(")) ++depth;
    if (t.Is(")") && --depth < 0) Fail("unbalanced parenthesis");
    pos = t.end;
    tokens.push_back(std::move(t));
  }
  if (depth != 0) Fail("unbalanced parenthesis");
  return tokens;
}

SqlStatement SqlParser::ParseTail(size_t pos, SqlStatement st, bool allowOrder) {
  SqlToken t = m_lexer.At(pos);
  if (t.Is("WHERE")) {
    pos = t.end;
    st.where = Collect(pos, {"ORDER", "GROUP", "HAVING"});
    if (st.where.empty()) Fail("WHERE without a condition");
    t = m_lexer.At(pos);
  }
  if (allowOrder && t.Is("ORDER")) {
    pos = t.end;
    Expect(pos, "BY");
    st.orderBy = Collect(pos, {});
    if (st.orderBy.empty()) Fail("ORDER BY without a field");
    t = m_lexer.At(pos);
  }
  if (t.Is(";")) t = m_lexer.At(t.end);
  if (t.kind != SqlToken::Kind::End) Fail("unexpected '" + t.text + "'");
  return st;
}

SqlStatement SqlParser::ParseTable(size_t pos, SqlStatement st, Slot slot, bool allowAlias,
                                   const Continuation& rest) {
  auto& table = [&]() -> SqlStatement::Table& { return slot == Slot::Target ? st.target : st.source; }();
  std::string_view text = m_lexer.text();
  SqlToken t = m_lexer.At(pos);

  // [connect string].[table]: the connect string may hold a path with "]" in it.
  if (t.kind == SqlToken::Kind::Name && t.text.find(';') != std::string::npos) {
    size_t open = t.begin;
    std::vector<size_t> closes;
    for (size_t i = open + 1; i < text.size(); ++i)
      if (text[i] == ']') closes.push_back(i);
    for (auto it = closes.rbegin(); it != closes.rend(); ++it) {
      CountAttempt();
      size_t dot = m_lexer.SkipBlanks(*it + 1);
      if (dot >= text.size() || text[dot] != '.') continue;
      try {
        SqlToken name = m_lexer.At(dot + 1);
        if (!IsNameToken(name)) continue;
        SqlStatement copy = st;
        auto& slotTable = slot == Slot::Target ? copy.target : copy.source;
        slotTable.connect = std::string(text.substr(open + 1, *it - open - 1));
        slotTable.name = name.text;
        return rest(name.end, copy);
      } catch (const Error&) {
        if (m_attempts > kMaxAttempts) throw;
      }
    }
    // No reading as a connect string works: it is a name that holds ";".
  }

  if (!IsNameToken(t)) Fail("expected a table name");
  table.name = t.text;
  pos = t.end;
  if (allowAlias) {
    SqlToken a = m_lexer.At(pos);
    if (a.Is("AS")) {
      SqlToken name = m_lexer.At(a.end);
      if (!IsNameToken(name)) Fail("expected a name after AS");
      table.alias = name.text;
      pos = name.end;
    } else if (IsNameToken(a)) {
      table.alias = a.text;
      pos = a.end;
    }
  }
  SqlToken in = m_lexer.At(pos);
  if (!in.Is("IN")) return rest(pos, st);

  // IN "path": the path runs to a closing quote after which the statement goes on.
  size_t open = m_lexer.SkipBlanks(in.end);
  if (open >= text.size() || (text[open] != '"' && text[open] != '\''))
    Fail("IN without a quoted file name");
  char quote = text[open];
  std::vector<size_t> closes;
  for (size_t i = open + 1; i < text.size(); ++i)
    if (text[i] == quote) closes.push_back(i);
  for (auto it = closes.rbegin(); it != closes.rend(); ++it) {
    CountAttempt();
    try {
      SqlStatement copy = st;
      auto& slotTable = slot == Slot::Target ? copy.target : copy.source;
      slotTable.database = std::string(text.substr(open + 1, *it - open - 1));
      return rest(*it + 1, copy);
    } catch (const Error&) {
      if (m_attempts > kMaxAttempts) throw;
    }
  }
  Fail("IN without a closing quote");
}

SqlStatement SqlParser::ParseFrom(size_t pos, SqlStatement st) {
  SqlToken from = m_lexer.At(pos);
  if (!from.Is("FROM")) Fail("expected FROM");
  try {
    return ParseTable(from.end, st, Slot::Source, true,
                      [this](size_t p, SqlStatement s) { return ParseTail(p, std::move(s), true); });
  } catch (const Error& e) {
    if (e.number == err::kSyntaxInExpression && m_attempts <= kMaxAttempts)
      throw Error(err::kSyntaxInFrom, e.description);
    throw;
  }
}

SqlStatement SqlParser::ParseSelect(size_t pos, SqlStatement st) {
  SqlToken t = m_lexer.At(pos);
  if (t.Is("DISTINCT")) {
    st.distinct = true;
    pos = t.end;
  }
  st.selectList = Collect(pos, {"INTO", "FROM"});
  if (st.selectList.empty()) Fail("SELECT without fields");
  t = m_lexer.At(pos);
  if (t.Is("INTO")) {
    if (st.kind == SqlStatement::Kind::InsertSelect) Fail("INTO inside INSERT");
    st.kind = SqlStatement::Kind::SelectInto;
    return ParseTable(t.end, st, Slot::Target, false,
                      [this](size_t p, SqlStatement s) { return ParseFrom(p, std::move(s)); });
  }
  return ParseFrom(pos, st);
}

SqlStatement SqlParser::ParseInsertBody(size_t pos, SqlStatement st) {
  SqlToken t = m_lexer.At(pos);
  if (t.Is("(")) {
    pos = t.end;
    for (;;) {
      SqlToken name = m_lexer.At(pos);
      if (!IsNameToken(name)) Fail("expected a field name");
      st.columns.push_back(name.text);
      SqlToken sep = m_lexer.At(name.end);
      pos = sep.end;
      if (sep.Is(")")) break;
      if (!sep.Is(",")) Fail("expected , or )");
    }
    t = m_lexer.At(pos);
  }
  if (t.Is("SELECT")) {
    st.kind = SqlStatement::Kind::InsertSelect;
    return ParseSelect(t.end, st);
  }
  if (t.Is("VALUES")) {
    st.kind = SqlStatement::Kind::InsertValues;
    pos = t.end;
    SqlToken open = m_lexer.At(pos);
    if (!open.Is("(")) Fail("expected ( after VALUES");
    pos = open.end;
    int depth = 1;
    for (;;) {
      SqlToken v = m_lexer.At(pos);
      if (v.kind == SqlToken::Kind::End) Fail("VALUES without a closing parenthesis");
      pos = v.end;
      if (v.Is("(")) ++depth;
      if (v.Is(")") && --depth == 0) break;
      st.values.push_back(std::move(v));
    }
    if (st.values.empty()) Fail("VALUES without values");
    SqlToken end = m_lexer.At(pos);
    if (end.Is(";")) end = m_lexer.At(end.end);
    if (end.kind != SqlToken::Kind::End) Fail("unexpected '" + end.text + "'");
    return st;
  }
  Fail("expected SELECT or VALUES");
}

SqlStatement SqlParser::ParseInsert(size_t pos, SqlStatement st) {
  Expect(pos, "INTO");
  return ParseTable(pos, st, Slot::Target, false,
                    [this](size_t p, SqlStatement s) { return ParseInsertBody(p, std::move(s)); });
}

SqlStatement SqlParser::ParseUpdate(size_t pos, SqlStatement st) {
  st.kind = SqlStatement::Kind::Update;
  return ParseTable(pos, st, Slot::Target, false, [this](size_t p, SqlStatement s) {
    Expect(p, "SET");
    for (;;) {
      SqlToken name = m_lexer.At(p);
      if (!IsNameToken(name)) Fail("expected a field name after SET");
      p = name.end;
      Expect(p, "=");
      auto value = Collect(p, {"WHERE", ","});
      if (value.empty()) Fail("expected a value");
      s.assignments.emplace_back(name.text, std::move(value));
      SqlToken sep = m_lexer.At(p);
      if (!sep.Is(",")) break;
      p = sep.end;
    }
    return ParseTail(p, std::move(s), false);
  });
}

SqlStatement SqlParser::ParseDelete(size_t pos, SqlStatement st) {
  st.kind = SqlStatement::Kind::Delete;
  SqlToken t = m_lexer.At(pos);
  if (t.Is("*")) {
    pos = t.end;
  } else if (IsNameToken(t)) {
    SqlToken dot = m_lexer.At(t.end);
    SqlToken star = m_lexer.At(dot.end);
    if (dot.Is(".") && star.Is("*")) pos = star.end;
  }
  Expect(pos, "FROM");
  return ParseTable(pos, st, Slot::Target, false,
                    [this](size_t p, SqlStatement s) { return ParseTail(p, std::move(s), false); });
}

}  // namespace platform::dao
