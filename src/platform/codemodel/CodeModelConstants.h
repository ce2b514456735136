#pragma once

namespace platform::codemodel {

/// Element kinds, with the development environment's numbers.
enum vsCMElement : int {
  vsCMElementOther = 0,
  vsCMElementClass = 1,  // records too
  vsCMElementFunction = 2,
  vsCMElementVariable = 3,
  vsCMElementProperty = 4,
  vsCMElementNamespace = 5,
  vsCMElementParameter = 6,
  vsCMElementAttribute = 7,
  vsCMElementInterface = 8,
  vsCMElementDelegate = 9,
  vsCMElementEnum = 10,
  vsCMElementStruct = 11,  // record structs too
  vsCMElementOptionStmt = 19,
  vsCMElementDeclareDecl = 24,
  vsCMElementImportStmt = 35,
  vsCMElementEvent = 38,
  vsCMElementModule = 39,
};

/// Access flags.
enum vsCMAccess : int {
  vsCMAccessPublic = 1,
  vsCMAccessPrivate = 2,
  vsCMAccessProject = 4,  // internal, Friend
  vsCMAccessProtected = 8,
  vsCMAccessProjectOrProtected = 12,  // protected internal
  vsCMAccessAssemblyOrFamily = 64,    // private protected
  vsCMAccessWithEvents = 128,
};

/// Prototype flag: include the type.
constexpr int vsCMPrototypeType = 128;

/// Code-model language identifiers.
inline constexpr const char* vsCMLanguageCSharp = "{B5E9BD34-6D3E-4B5D-925E-8A43B79820B4}";
inline constexpr const char* vsCMLanguageVB = "{B5E9BD33-6D3E-4B5D-925E-8A43B79820B4}";

}  // namespace platform::codemodel
