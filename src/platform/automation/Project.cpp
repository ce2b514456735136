#include "platform/automation/Project.h"

#include "platform/automation/ProjectItems.h"

namespace platform::automation {

Project::Project(std::string name, std::string kind, std::filesystem::path fullName,
                 std::weak_ptr<DTE> dte)
    : m_name(std::move(name)), m_kind(std::move(kind)), m_fullName(std::move(fullName)),
      m_dte(std::move(dte)), m_object(std::make_shared<LanguageProject>()) {}

Ref<ProjectItems> Project::ProjectItems() const {
  if (!m_items) {
    auto self = std::const_pointer_cast<Project>(shared_from_this());
    m_items = std::make_shared<automation::ProjectItems>(std::weak_ptr<Dispatch>(self), self);
  }
  return m_items;
}

}  // namespace platform::automation
