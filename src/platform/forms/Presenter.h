#pragma once
#include <memory>

namespace platform::forms {

class Form;

/// Presents forms to the user on behalf of the host. A modal Show hands the form to
/// RunModal, which returns once the form is hidden or unloaded.
class Presenter {
 public:
  virtual ~Presenter() = default;
  /// Runs the user's side of a modal form until it is hidden or unloaded.
  virtual void RunModal(Form& form) = 0;
  /// A form was made visible (modal or not).
  virtual void Shown(Form& form) { (void)form; }

  /// The presenter in use: a ScriptedPresenter without a script (every modal form is
  /// closed through its close box at once) until another is installed.
  static Presenter& Current();
  /// Installs `presenter` (nullptr: the default) and returns the one it replaces.
  static std::shared_ptr<Presenter> Install(std::shared_ptr<Presenter> presenter);
};

/// Installs a presenter for the life of the object and puts the previous one back.
class ScopedPresenter {
 public:
  explicit ScopedPresenter(std::shared_ptr<Presenter> p) : m_previous(Presenter::Install(std::move(p))) {}
  ~ScopedPresenter() { Presenter::Install(m_previous); }
  ScopedPresenter(const ScopedPresenter&) = delete;
  ScopedPresenter& operator=(const ScopedPresenter&) = delete;

 private:
  std::shared_ptr<Presenter> m_previous;
};

}  // namespace platform::forms
