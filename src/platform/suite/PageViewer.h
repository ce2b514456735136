#pragma once
#include <memory>
#include <string>
#include <vector>

namespace platform::suite {

/// Shows a page (an HTML file) to the user: the desktop's browser in the program, a
/// record in tests (which must not start a browser).
class PageViewer {
 public:
  virtual ~PageViewer() = default;
  /// Opens the file at `path`; false when nothing could show it.
  virtual bool Open(const std::string& path) = 0;

  /// The viewer in use (DesktopPageViewer until another is installed).
  static PageViewer& Current();
  /// Installs `viewer` (none: the desktop's) and returns the one it replaces.
  static std::shared_ptr<PageViewer> Install(std::shared_ptr<PageViewer> viewer);

  /// The browsers the user names in $BROWSER (":"-separated, the first to try first),
  /// empty entries left out; none when it is unset.
  static std::vector<std::string> UsersBrowsers();
};

/// The desktop's browser: the programs named in $BROWSER (":"-separated, the first
/// that starts), else xdg-open. The program runs on its own; Open does not wait for it.
class DesktopPageViewer : public PageViewer {
 public:
  bool Open(const std::string& path) override;
};

/// Keeps the paths it is asked to open and answers `opens`.
class RecordingPageViewer : public PageViewer {
 public:
  bool Open(const std::string& path) override {
    opened.push_back(path);
    return opens;
  }
  bool opens = true;
  std::vector<std::string> opened;
};

/// Installs a viewer for the life of the object and puts the previous one back after.
class ScopedPageViewer {
 public:
  explicit ScopedPageViewer(std::shared_ptr<PageViewer> viewer) : m_previous(PageViewer::Install(std::move(viewer))) {}
  ~ScopedPageViewer() { PageViewer::Install(m_previous); }
  ScopedPageViewer(const ScopedPageViewer&) = delete;
  ScopedPageViewer& operator=(const ScopedPageViewer&) = delete;

 private:
  std::shared_ptr<PageViewer> m_previous;
};

}  // namespace platform::suite
