#pragma once
#include <array>
#include <cstdint>

namespace platform::suite {

/// The scopes an analysis can walk, by the values the scope selector gives them and the
/// "LastScope" setting stores. Value 5 is not a scope.
enum Scope : int32_t {
  kScopeMethod = 0,          // the method at the caret
  kScopeDocument = 1,        // the active document
  kScopeOpenDocuments = 2,   // the documents open in the editor
  kScopeProject = 3,         // the current project
  kScopeSolution = 4,        // the whole solution
  kScopeSolutionFolder = 6,  // the current solution folder
};

/// One scope as people choose it: its value, its name on the command line and its
/// caption in the scope selector.
struct ScopeInfo {
  Scope value;
  const char* name;
  const char* caption;
};

/// The scopes in the order the scope selector offers them.
inline constexpr std::array<ScopeInfo, 6> kScopes = {{
    {kScopeMethod, "method", "Current method"},
    {kScopeDocument, "document", "Current document"},
    {kScopeOpenDocuments, "open", "All open documents"},
    {kScopeProject, "project", "Current project"},
    {kScopeSolution, "solution", "Entire solution"},
    {kScopeSolutionFolder, "folder", "Current solution folder"},
}};

}  // namespace platform::suite
