#include "host/MGlobals.h"

#include "platform/suite/SettingsStore.h"

namespace annotra::MGlobals {

Ref<DTE> DTEObject;
std::shared_ptr<platform::Dispatch> AddInObject;
std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKCU;
std::shared_ptr<platform::suite::SettingsStore> AppSettingsObject_HKLM;
Ref<platform::dao::Workspace> WorkspaceObject;
Ref<platform::dao::Database> TeamDB;
Ref<platform::dao::Database> PersonalDB;
std::shared_ptr<std::vector<Ref<Document>>> OpenedDocuments;
AnalysisOptions g_AnalysisOptions;
Ref<platform::dao::Database> g_XMLAnalyzerDb;
std::string g_XMLAnalyzerDbFile;

}  // namespace annotra::MGlobals

namespace annotra::MGlobals {

void ResetForTesting() {
  DTEObject.reset();
  AddInObject.reset();
  AppSettingsObject_HKCU.reset();
  AppSettingsObject_HKLM.reset();
  WorkspaceObject.reset();
  TeamDB.reset();
  PersonalDB.reset();
  OpenedDocuments.reset();
  g_AnalysisOptions = AnalysisOptions();
  g_XMLAnalyzerDb.reset();
  g_XMLAnalyzerDbFile.clear();
}

}  // namespace annotra::MGlobals
