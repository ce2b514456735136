#include "platform/automation/Project.h"

#include "platform/automation/ProjectItems.h"

#include <system_error>

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

bool Project::FullNameIsFolder() const {
  if (m_fullNameIsFolder < 0) {
    std::error_code ec;
    m_fullNameIsFolder = !m_fullName.empty() && std::filesystem::is_directory(m_fullName, ec) ? 1 : 0;
  }
  return m_fullNameIsFolder == 1;
}

}  // namespace platform::automation
