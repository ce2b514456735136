#pragma once
#include <string_view>

#include "platform/automation/MSBuildExpander.h"

namespace platform::automation {

/// Evaluates a build condition ("'$(Configuration)|$(Platform)' == 'Debug|AnyCPU'",
/// "Exists('$(X)') and !HasTrailingSlash($(Y))") against `scope`: quoted and unquoted
/// operands expanded as ExpandMSBuild does, ==, !=, <, >, <=, >= (numbers compared as
/// numbers, other text without regard to ASCII case), !, and, or, parentheses, and the
/// functions Exists and HasTrailingSlash (relative paths from `scope.directory`). An
/// empty condition is true. A condition that is malformed, uses something unknown or
/// compares text that is not a number with < or > is false; this never throws.
bool EvaluateMSBuildCondition(std::string_view condition, const MSBuildScope& scope);

}  // namespace platform::automation
