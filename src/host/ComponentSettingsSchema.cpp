#include "host/ComponentSettingsSchema.h"

#include "host/SettingsKeys.h"
#include "platform/suite/Scopes.h"

namespace annotra {

const platform::suite::SettingsSchema& ComponentSettingsSchema() {
  using Spec = platform::suite::SettingSpec;
  using T = Spec::Type;
  static const platform::suite::SettingsSchema schema = [] {
    std::vector<std::pair<std::string, int32_t>> scopes;
    for (const auto& scope : platform::suite::kScopes) scopes.emplace_back(scope.name, scope.value);
    auto flag = [](const char* k, const char* meaning) {
      return Spec{section::CommentsAnalyzer, k, T::Boolean, 0, 1, {}, meaning};
    };
    return platform::suite::SettingsSchema{{
        {section::CommentsAnalyzer, key::LastScope, T::Integer, 0, 0, scopes, "what to analyse"},
        {section::CommentsAnalyzer, key::Tab, T::Integer, 1, 2, {}, "the page the options dialog opens on"},
        flag(key::EnablePublic, "report public definitions"),
        flag(key::XMLOnPublic, "public definitions need an XML comment"),
        flag(key::EnableNonPublic, "report non-public definitions"),
        flag(key::XMLOnNonPublic, "non-public definitions need an XML comment"),
        {section::CommentsAnalyzer, key::XMLCheck, T::Text, 0, 0, {}, "the required tags, {Kind}|tag|tag..."},
        flag(key::EnableBody, "check runs of uncommented lines inside methods"),
        {section::CommentsAnalyzer, key::LineCount, T::Integer, 5, 100, {}, "the longest acceptable run"},
        flag(key::AcceptInheritDoc, "an <inheritdoc/> comment has every tag"),
        flag(key::CompareParamTypes, "param tags must give the parameters' types"),
        flag(key::SkipGenerated, "generated documents are not analysed"),
        {section::Settings, key::OpenDocAllowed, T::Integer, 1, 30, {}, "documents the walk keeps open"},
        {section::LastPaths, key::SaveRestoreXMLAnalyzer, T::Path, 0, 0, {}, "the folder of result files"},
        {section::Fonts, key::Results, T::Boolean, 0, 1, {}, "lists show in the editor's font"},
        {section::Annotra, key::TeamDatabase, T::Path, 0, 0, {}, "the team database of templates"},
    }};
  }();
  return schema;
}

}  // namespace annotra
