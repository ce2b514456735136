#pragma once

namespace annotra::MGlobals {

/// Forgets the cached grammar paths, so that the next XMLGrammarFile and
/// StrConstsGrammarFile compute them afresh (for the end of a run and for tests).
void ForgetGrammarPaths();

}  // namespace annotra::MGlobals
