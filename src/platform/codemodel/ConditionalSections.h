#pragma once
#include <vector>

namespace platform::codemodel {

/// The open conditional sections (#if ... #endif) of one file while it is read, kept the
/// same way for C# and VB: which branch of each section is active, and so whether the
/// text at this point is. A directive that does not fit the sections (#elif, #else or
/// #endif without an open #if; #elif or #else after the section's #else) changes
/// nothing, so that the text after it stays as active as it was: a malformed directive
/// never costs the declarations of the branch it stands in.
class ConditionalSections {
 public:
  /// Whether text at this point is active: outside every section, or in the active
  /// branch of each open one.
  bool Active() const { return m_stack.empty() || m_stack.back().active; }

  /// #if: opens a section whose first branch is active when the text around it is and
  /// `condition()` is true. `condition` is called only when the text around is active.
  template <class Condition>
  void If(Condition&& condition) {
    const bool outer = Active();
    const bool active = outer && condition();
    m_stack.push_back({outer, active, active, false});
  }

  /// #elif: the next branch of the innermost section, active when the text around the
  /// section is, no branch before it was, and `condition()` is true. `condition` is
  /// called only when that could make the branch active.
  template <class Condition>
  void Elif(Condition&& condition) {
    if (m_stack.empty() || m_stack.back().sawElse) return;
    Section& s = m_stack.back();
    s.active = s.parentActive && !s.taken && condition();
    s.taken = s.taken || s.active;
  }

  /// #else: the last branch of the innermost section, active when the text around the
  /// section is and no branch before it was.
  void Else();

  /// #endif: closes the innermost section.
  void EndIf();

 private:
  struct Section {
    bool parentActive;  // the text around the section is active
    bool taken;         // some branch of the section was active
    bool active;        // the current branch is active
    bool sawElse;       // the section's #else was read
  };
  std::vector<Section> m_stack;
};

}  // namespace platform::codemodel
