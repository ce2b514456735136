#pragma once

/// The sections and keys of the settings stores that the component reads and writes.
namespace annotra {

namespace section {
/// The comment rules, the required-tag list, the last scope and the dialog's page.
inline constexpr const char* CommentsAnalyzer = "CommentsAnalyzer";
/// Settings the whole suite shares.
inline constexpr const char* Settings = "Settings";
/// The folders last used by the file dialogs.
inline constexpr const char* LastPaths = "LastPaths";
/// Whether lists show in the editor's font.
inline constexpr const char* Fonts = "Settings\\Fonts";
/// The command line's own keys, read from a repository's settings file only.
inline constexpr const char* Annotra = "Annotra";
}  // namespace section

namespace key {
// Section CommentsAnalyzer.
inline constexpr const char* LastScope = "LastScope";
inline constexpr const char* Tab = "Tab";
inline constexpr const char* EnablePublic = "EnablePublic";
inline constexpr const char* XMLOnPublic = "XMLOnPublic";
inline constexpr const char* EnableNonPublic = "EnableNonPublic";
inline constexpr const char* XMLOnNonPublic = "XMLOnNonPublic";
inline constexpr const char* XMLCheck = "XMLCheck";
inline constexpr const char* EnableBody = "EnableBody";
inline constexpr const char* LineCount = "LineCount";
// Section CommentsAnalyzer, rules beyond the comment rules above (check boxes, stored 0
// or 1): an <inheritdoc/> comment has every tag (default 0); param tags are compared by
// type as well as name and count (default 1); generated documents are skipped (default 0).
inline constexpr const char* AcceptInheritDoc = "AcceptInheritDoc";
inline constexpr const char* CompareParamTypes = "CompareParamTypes";
inline constexpr const char* SkipGenerated = "SkipGenerated";
// Section Settings.
inline constexpr const char* OpenDocAllowed = "OpenDocAllowed";
// Section LastPaths.
inline constexpr const char* SaveRestoreXMLAnalyzer = "SaveRestoreXMLAnalyzer";
// Section Settings\Fonts.
inline constexpr const char* Results = "Results";
// Section Annotra: the team database to use instead of the per-user one.
inline constexpr const char* TeamDatabase = "TeamDatabase";
}  // namespace key

/// Keys and values of the environment's part of the registry (kept in the per-user
/// store, see platform/suite/Registry.h).
namespace registry {
/// Below the environment's version key ("VisualStudio\8.0"): the text editor's font and
/// colour category.
inline constexpr const char* TextEditorFonts = "FontAndColors\\{5C48B2CB-0366-4FBF-9786-0BB37E945687}";
inline constexpr const char* FontName = "FontName";
inline constexpr const char* FontPointSize = "FontPointSize";
inline constexpr const char* FontCharSet = "FontCharSet";
inline constexpr const char* PlainTextFontFlags = "Plain Text FontFlags";
}  // namespace registry

}  // namespace annotra
