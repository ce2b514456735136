#pragma once
#include <iostream>
#include <string>

namespace platform::suite {

/// The suite's help service. A terminal cannot show a help window, so opening a topic
/// says where its page is, for the user to open in a browser.
class Help {
 public:
  /// `helpFolder` holds the pages (the component's folder + "help/").
  explicit Help(std::string helpFolder, std::ostream& out = std::cout)
      : m_folder(std::move(helpFolder)), m_out(out) {}

  /// Opens `topic`, a page path relative to the help folder such as
  /// "htm/XMLAnalyzer_Using.htm": prints "Help: " and the page's full path when it
  /// exists, else "Help topic not found: " and that path. A topic that leaves the help
  /// folder ("..") is not found. True when the page exists.
  bool ShowHelp(const std::string& topic);

 private:
  std::string m_folder;
  std::ostream& m_out;
};

}  // namespace platform::suite
