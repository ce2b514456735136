#pragma once
#include <ostream>

#include "AnalyzeFlags.h"
#include "options/OptionsChoices.h"

namespace app {

/// The choices the options dialog is played with for `checked` flags of `request`: the
/// scope (the whole solution when neither the flags nor the repository's settings
/// choose one: a command line has no caret), the boxes of both pages, the line limit,
/// the required tags.
annotra::OptionsChoices ChoicesOf(const AnalyzeRequest& request, const CheckedFlags& checked, bool scopeStored);

/// Runs one analysis as `request` says and writes its findings to `out` (or to the file
/// --output names). Every flag is checked before anything is opened; a usage error
/// changes nothing. Returns the exit status (ExitStatus.h).
int RunAnalyzeCommand(const AnalyzeRequest& request, std::ostream& out);

}  // namespace app
