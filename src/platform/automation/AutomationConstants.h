#pragma once

namespace platform::automation {

/// View kind of the code view.
inline constexpr const char* vsViewKindCode = "{7651A701-06E5-11D1-8EBD-00A0C90F26EA}";
/// Save choices for Document.Close and Window.Close: ask; do not save.
constexpr int vsSaveChangesPrompt = 3;
constexpr int vsSaveChangesNo = 2;

/// Project kinds.
inline constexpr const char* kProjectKindCSharp = "{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}";
inline constexpr const char* kProjectKindCSharpSdk = "{9A19103F-16F7-4668-BE54-9A1E7A4F7556}";
inline constexpr const char* kProjectKindVB = "{F184B08F-C81C-45F6-A57F-5ABD9991F28F}";
inline constexpr const char* kProjectKindVBSdk = "{778DAE3C-4631-46EA-AA77-85C1314464D9}";
inline constexpr const char* kProjectKindSolutionFolder = "{2150E333-8FDC-42A3-9474-1A3956D46DE8}";
inline constexpr const char* kProjectKindWebSite = "{E24C65DC-7377-472b-9ABA-BC803B73C61A}";

/// Project item kinds.
inline constexpr const char* vsProjectItemKindPhysicalFile = "{6BB5F8EE-4483-11D3-8BCF-00C04F8EC28C}";
inline constexpr const char* vsProjectItemKindPhysicalFolder = "{6BB5F8EF-4483-11D3-8BCF-00C04F8EC28C}";
inline constexpr const char* vsProjectItemKindSolutionItems = "{66A26722-8FB5-11D2-AA7E-00C04F688DDE}";

/// The interface a web-site project's items offer.
inline constexpr const char* kWebProjectItemInterface = "{C77EB2D2-F01E-4C87-8C91-262213C40B31}";

}  // namespace platform::automation
