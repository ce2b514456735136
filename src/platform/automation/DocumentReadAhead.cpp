#include "platform/automation/DocumentReadAhead.h"

#include <iterator>

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/DefinitionText.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/codemodel/CodeModelConstants.h"
#include "platform/codemodel/LanguageParser.h"

namespace platform::automation {

std::unique_ptr<PreparedDocument> PreparedDocument::Prepare(const std::filesystem::path& path,
                                                            std::string_view language,
                                                            const codemodel::PreprocessorSymbols& symbols) {
  auto prepared = std::make_unique<PreparedDocument>();
  prepared->path = path;
  try {
    prepared->text = TextBuffer(ReadDefinitionText(path));
  } catch (const Error& e) {
    prepared->error = e;
    return prepared;
  }
  if (const auto* parser = codemodel::ParserForLanguage(std::string(language))) {
    prepared->declarations.emplace(prepared->text.Text());
    parser->Parse(*prepared->declarations, symbols);
  }
  return prepared;
}

DocumentReadAhead::DocumentReadAhead(size_t ahead)
    : m_ahead(ahead == 0 ? 1 : ahead), m_worker([this] { Work(); }) {}

DocumentReadAhead::~DocumentReadAhead() {
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_stop = true;
  }
  m_changed.notify_all();
  m_worker.join();
}

void DocumentReadAhead::Plan(const Ref<ProjectItem>& item) {
  if (!item || item->Kind() != vsProjectItemKindPhysicalFile) return;
  // The language as one of the code model's own constants, which outlive the plan.
  std::string_view language;
  std::string ofFile = codemodel::LanguageOfFile(item->Name());
  if (ofFile == codemodel::vsCMLanguageCSharp) language = codemodel::vsCMLanguageCSharp;
  else if (ofFile == codemodel::vsCMLanguageVB) language = codemodel::vsCMLanguageVB;
  if (language.empty() || !item->Compiled()) return;
  auto project = item->ContainingProject();
  if (project.get() != m_symbolsOwner || !m_symbols) {
    m_symbolsOwner = project.get();
    m_symbols = std::make_shared<const codemodel::PreprocessorSymbols>(
        project ? project->symbols() : codemodel::PreprocessorSymbols{});
  }
  Job job{item->path(), language, m_symbols};
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_index.emplace(item.get(), m_plan.size()).second) return;
    m_plan.push_back(std::move(job));
  }
  m_changed.notify_all();
}

std::unique_ptr<PreparedDocument> DocumentReadAhead::Take(const ProjectItem* item) {
  std::unique_lock<std::mutex> lock(m_mutex);
  auto at = m_index.find(item);
  if (at == m_index.end()) return nullptr;
  const size_t place = at->second;
  // Waited for before the walk moves past it: the worker keeps only what is not passed.
  if (m_busy == place) m_changed.wait(lock, [&] { return m_busy != place; });
  if (place + 1 > m_walk) {
    // Everything before this item is behind the walk now.
    m_walk = place + 1;
    auto passed = m_ready.lower_bound(place);
    m_discarded += static_cast<size_t>(std::distance(m_ready.begin(), passed));
    m_ready.erase(m_ready.begin(), passed);
  }
  std::unique_ptr<PreparedDocument> prepared;
  auto ready = m_ready.find(place);
  if (ready != m_ready.end()) {
    prepared = std::move(ready->second);
    m_ready.erase(ready);
    ++m_hits;
  }
  // Not begun: the walk reads it itself, and the worker goes on after it.
  if (m_next <= place) m_next = place + 1;
  lock.unlock();
  m_changed.notify_all();
  return prepared;
}

size_t DocumentReadAhead::Hits() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_hits;
}

size_t DocumentReadAhead::Discarded() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_discarded;
}

size_t DocumentReadAhead::ReadyCount() const {
  std::lock_guard<std::mutex> lock(m_mutex);
  return m_ready.size();
}

void DocumentReadAhead::Work() {
  std::unique_lock<std::mutex> lock(m_mutex);
  for (;;) {
    m_changed.wait(lock, [&] {
      if (m_stop) return true;
      if (m_next < m_walk) m_next = m_walk;
      return m_next < m_plan.size() && m_next < m_walk + m_ahead;
    });
    if (m_stop) return;
    const size_t place = m_next++;
    m_busy = place;
    // A copy: the plan may grow (and move its jobs) while the file is read.
    Job job = m_plan[place];
    lock.unlock();
    auto prepared = PreparedDocument::Prepare(job.path, job.language, *job.symbols);
    lock.lock();
    m_busy = kNone;
    if (place >= m_walk && !m_stop) m_ready.emplace(place, std::move(prepared));
    else if (!m_stop) ++m_discarded;
    m_changed.notify_all();
  }
}

}  // namespace platform::automation
