#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace platform::forms {
class ScriptedPresenter;
}

namespace annotra {

/// Choices to make in the options dialog without a person: what a command line's flags
/// ask for. A field left empty keeps what the dialog shows (the stored setting or its
/// default).
struct OptionsChoices {
  /// A scope value of the scope selector (platform/suite/Scopes.h).
  std::optional<int32_t> scope;
  // The boxes of the page "Definition Comments".
  std::optional<bool> enablePublic;
  std::optional<bool> xmlOnPublic;
  std::optional<bool> enableNonPublic;
  std::optional<bool> xmlOnNonPublic;
  std::optional<bool> acceptInheritDoc;
  std::optional<bool> compareParamTypes;
  std::optional<bool> skipGenerated;
  // The page "In-method Comments".
  std::optional<bool> enableBody;
  /// Typed into the line-limit box as given; the box keeps only the digits, and the
  /// dialog stores 15 for a limit outside 5 to 100.
  std::optional<std::string> maxLines;
  /// The required tags, as (kind, tag): in the template options every tag is unchecked
  /// and these are checked. Empty: the template options are not opened, unless
  /// `requireAll`.
  std::vector<std::pair<std::string, std::string>> requiredTags;
  /// In the template options every tag is checked.
  bool requireAll = false;
};

/// Queues on `user` what a person does in the options dialog to make `choices` and then
/// presses "&Begin >>": picks the scope from the selector's dropped-down list, goes to
/// each page that has something to change and clicks the boxes whose value differs
/// (checking a governing box for a moment when its dependent box must change), types
/// the line limit over the old one, and opens "&Options" for the required tags. What
/// cannot be done (a scope the selector does not offer, a tag the templates do not
/// have) lands in `user.errors`, and the rest is still played; with `cancelOnProblems`
/// the dialog is then left with "&Cancel" instead, so nothing runs on choices that were
/// not all made.
void QueueOptionsChoices(platform::forms::ScriptedPresenter& user, const OptionsChoices& choices,
                         bool cancelOnProblems = false);

/// Plays the options dialog with `choices` as the command line does: a scripted user on
/// a new dialog, GetOptions, unload. The dialog stores the choices in the per-user
/// settings store the host handed over. True when the dialog was accepted (always,
/// unless it could not be shown); `problems` receives what could not be played, one
/// line each, so a caller can refuse to run on choices that were not all made.
bool RunOptionsDialog(const OptionsChoices& choices, std::vector<std::string>& problems);

}  // namespace annotra
