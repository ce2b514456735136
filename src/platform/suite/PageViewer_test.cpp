#include "platform/suite/PageViewer.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using platform::suite::PageViewer;

// Sets $BROWSER for the life of the object (unset for nullopt) and puts it back after.
class ScopedBrowser {
 public:
  explicit ScopedBrowser(const std::optional<std::string>& value) {
    if (const char* old = std::getenv("BROWSER")) m_old = old;
    if (value) setenv("BROWSER", value->c_str(), 1);
    else unsetenv("BROWSER");
  }
  ~ScopedBrowser() {
    if (m_old) setenv("BROWSER", m_old->c_str(), 1);
    else unsetenv("BROWSER");
  }

 private:
  std::optional<std::string> m_old;
};

TEST(PageViewer, UsersBrowsersAreTheNonEmptyEntriesOfBrowserInOrder) {
  {
    ScopedBrowser browser(std::nullopt);
    EXPECT_TRUE(PageViewer::UsersBrowsers().empty());
  }
  {
    ScopedBrowser browser("");
    EXPECT_TRUE(PageViewer::UsersBrowsers().empty());
  }
  {
    ScopedBrowser browser("w3m");
    EXPECT_EQ(PageViewer::UsersBrowsers(), std::vector<std::string>{"w3m"});
  }
  {
    // An entry may carry arguments; empty entries (a leading, doubled or trailing
    // colon) name nothing.
    ScopedBrowser browser(":firefox::lynx -dump:");
    EXPECT_EQ(PageViewer::UsersBrowsers(), (std::vector<std::string>{"firefox", "lynx -dump"}));
  }
}

}  // namespace
