#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace platform::grammar {

/// What one expression of a compiled grammar does.
enum class Op : uint8_t {
  Empty,      // matches the empty text
  Literal,    // literals[arg], byte for byte
  LiteralI,   // literals[arg], ASCII letters in either case
  Class,      // one byte of classes[arg]
  Any,        // any one byte
  Seq,        // kids in order
  Choice,     // the first kid that matches
  Star,       // kid, zero or more times
  Plus,       // kid, one or more times
  Optional,   // kid or nothing
  And,        // kid must match here; consumes nothing
  Not,        // kid must not match here; consumes nothing
  Rule,       // the rule rules[arg]
  Capture,    // kid; its text becomes the enclosing node's text
  // Forms the analysis rewrites hot patterns into, so that long runs are consumed by
  // a plain loop instead of one evaluation per byte.
  ClassStar,  // bytes of classes[arg], zero or more
  ClassPlus,  // bytes of classes[arg], one or more
  ScanUntil,  // every byte up to the next literals[arg] or the end: (!"lit" .)*
};

/// One expression of a compiled grammar. Expressions live in Grammar::exprs and refer
/// to their operands by index.
struct Expr {
  Op op = Op::Empty;
  int32_t arg = -1;    // rule, class or literal index, by op
  int32_t first = 0;   // operands: kids[first .. first + count)
  int32_t count = 0;
  bool nullable = false;  // can succeed without consuming anything
  int32_t firstSet = -1;  // classes index: the bytes a non-empty match can start with
  int32_t dispatch = -1;  // Choice: Grammar::dispatch index
  int32_t line = 0;       // where it was written (1-based), for messages
  int32_t column = 0;
};

/// One rule: `Name <- expression` in a grammar.
struct Rule {
  std::string grammar;    // the grammar that declares it
  std::string name;       // its own name
  int32_t body = -1;      // expression index
  int32_t firstExpr = 0;  // its expressions are firstExpr .. body, operands first
  int32_t nameId = 0;     // same id for rules of the same name in different grammars
  bool makesNode = true;  // false for names that begin with "_"
  bool memoize = false;   // its result is kept per position (see PlanMemoisation)
  int32_t memoSlot = -1;  // memoised: its place among the memoised rules
  bool nullable = false;
  int32_t firstSet = -1;
  int32_t line = 0;
  int32_t column = 0;

  std::string QualifiedName() const { return grammar + "." + name; }
};

using ByteClass = std::array<uint8_t, 256>;

/// A set of compiled grammars: the rules of every grammar of one grammar file, with the
/// expressions, literals and byte classes they use. Built by GrammarReader, then made
/// ready for matching by Analyse.
class Grammar {
 public:
  static constexpr size_t kMaxRules = 4096;
  static constexpr size_t kMaxExprs = 65536;

  std::string source;  // the file it came from, for messages
  std::vector<Rule> rules;
  std::vector<Expr> exprs;
  std::vector<int32_t> kids;
  std::vector<std::string> literals;
  std::vector<ByteClass> classes;
  std::vector<std::string> names;  // by nameId
  int32_t memoisedRules = 0;       // how many rules are memoised
  // Per choice, per byte: the first alternative that can match a text starting with it
  // (the number of alternatives when none can).
  std::vector<std::array<uint8_t, 256>> dispatch;

  /// The index of the rule named `name`: "Grammar.Rule", or a bare "Rule" when exactly
  /// one grammar has a rule of that name; -1 when there is none.
  int32_t FindRule(const std::string& name) const;

  /// The name id of a rule name, -1 when no rule carries it.
  int32_t FindNameId(const std::string& name) const;

  /// Works out what matching needs (which expressions can match the empty text, the
  /// bytes each can start with, which rules to memoise) and rewrites hot patterns into
  /// their loop forms. Fails with a message "source:line:column: text" for a
  /// left-recursive rule or a repetition of something that can match the empty text,
  /// either of which would never end.
  bool Analyse(std::string& error);

  int32_t AddExpr(Op op, int32_t line, int32_t column);
  int32_t AddClass(const ByteClass& c);
  int32_t AddLiteral(std::string text);

 private:
  bool ComputeNullable();
  // Runs `visit` over every rule's expressions, operands before what uses them, rules
  // in ascending or descending order, until a pass changes nothing.
  template <class F>
  void UntilStable(F visit);
  bool CheckLeftRecursion(std::string& error);
  bool CheckRepetitions(std::string& error);
  void ComputeFirstSets();
  void Rewrite();
  void PlanMemoisation();
  void BuildDispatch();
  void InlineRules(bool withCalls);
  void FlattenChoices();
  bool RefersToRules(int32_t body) const;
  bool Contains(int32_t root, int32_t target) const;
  bool IsByteClass(int32_t e, ByteClass& out, int depth) const;
  std::string Where(int32_t line, int32_t column) const;
  uint32_t NewStamp() const;

  // Scratch space of the traversals: a visit stamp per expression.
  mutable std::vector<uint32_t> m_stamps;
  mutable uint32_t m_stamp = 0;
  mutable std::vector<int32_t> m_todo;
};

}  // namespace platform::grammar
