#pragma once
#include <condition_variable>
#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

#include "platform/automation/TextBuffer.h"
#include "platform/codemodel/DeclarationTree.h"
#include "platform/codemodel/PreprocessorSymbols.h"
#include "platform/core/Error.h"
#include "platform/core/Ref.h"

namespace platform::automation {

class ProjectItem;

/// A source file read, decoded and parsed, before any document exists for it: what
/// Document::Adopt makes a document of. Plain data made by a pure function of the file's
/// bytes, the language and the symbols, so any thread can make it.
struct PreparedDocument {
  std::filesystem::path path;
  TextBuffer text{std::string()};
  /// The declarations of `text`; none for a language without a parser.
  std::optional<codemodel::DeclarationTree> declarations;
  /// Why the file could not be read (what Document::Load would have thrown); the rest
  /// is then empty.
  std::optional<Error> error;

  /// Reads `path` as Document::Load does and parses it as `language` with `symbols`.
  /// Never throws for a file that cannot be read: the error is kept instead.
  static std::unique_ptr<PreparedDocument> Prepare(const std::filesystem::path& path,
                                                   std::string_view language,
                                                   const codemodel::PreprocessorSymbols& symbols);
};

/// Reads, decodes and parses the documents a walk is about to open, on a thread of its
/// own, so that the walk finds them ready. The walk plans the items it will visit, in
/// its order; the worker prepares the next few of them; ProjectItem::LoadDocument asks
/// here first (Take) and builds the document from what was prepared.
///
/// The walk never waits longer than it would take to read the document itself: a
/// document the worker has not begun is left to the walk (and skipped by the worker), one
/// it is preparing is waited for. What the walk passes by is dropped, and the worker
/// stays at most `ahead` documents ahead of the walk, so memory stays bounded by what the
/// walk holds. The worker touches nothing of the model: the plan copies what it needs.
///
/// Plan and Take belong to the walk's thread; destroying the object stops the worker
/// (after the document in hand) and drops what it prepared.
class DocumentReadAhead {
 public:
  static constexpr size_t kDefaultAhead = 8;

  explicit DocumentReadAhead(size_t ahead = kDefaultAhead);
  ~DocumentReadAhead();
  DocumentReadAhead(const DocumentReadAhead&) = delete;
  DocumentReadAhead& operator=(const DocumentReadAhead&) = delete;

  /// Appends `item` to the planned order when it is a file with a code model (a C# or
  /// VB source file of a project); anything else is passed over. An item planned twice
  /// keeps its first place.
  void Plan(const Ref<ProjectItem>& item);

  /// What was prepared for `item`: ready, or waited for when the worker is preparing it;
  /// none when the item was not planned, was passed by, or the worker has not begun it
  /// (the worker then skips it). The items planned before it are dropped.
  std::unique_ptr<PreparedDocument> Take(const ProjectItem* item);

  /// How many documents were handed over by Take, for tests and benchmarks.
  size_t Hits() const;
  /// How many prepared documents wait for the walk, for tests.
  size_t ReadyCount() const;
  /// How many prepared documents were thrown away because the walk had passed them, for
  /// tests: a walk that takes its items in the planned order wastes none.
  size_t Discarded() const;

 private:
  struct Job {
    std::filesystem::path path;
    std::string_view language;  // one of the code-model language identifiers
    std::shared_ptr<const codemodel::PreprocessorSymbols> symbols;
  };
  static constexpr size_t kNone = static_cast<size_t>(-1);

  void Work();

  const size_t m_ahead;
  mutable std::mutex m_mutex;
  std::condition_variable m_changed;
  std::vector<Job> m_plan;
  std::unordered_map<const ProjectItem*, size_t> m_index;  // item -> place in m_plan
  size_t m_next = 0;   // the next place the worker prepares
  size_t m_walk = 0;   // places before this one the walk has passed
  size_t m_busy = kNone;  // the place being prepared
  std::map<size_t, std::unique_ptr<PreparedDocument>> m_ready;
  size_t m_hits = 0;
  size_t m_discarded = 0;
  bool m_stop = false;
  // The symbols of the project last planned, shared by its items.
  const void* m_symbolsOwner = nullptr;
  std::shared_ptr<const codemodel::PreprocessorSymbols> m_symbols;
  std::thread m_worker;  // last: started once everything above exists
};

}  // namespace platform::automation
