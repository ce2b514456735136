#include "terminal/FFileDialog.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/forms/Screen.h"

namespace app::terminal {

namespace forms = platform::forms;
namespace fs = std::filesystem;
namespace Screen = forms::Screen;

namespace {
constexpr int X = Screen::TwipsPerCellX, Y = Screen::TwipsPerCellY;
constexpr const char* kUp = "U";

std::string WithSlash(std::string s) {
  if (s.empty() || s.back() != '/') s += '/';
  return s;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool Glob(const char* p, const char* s) {
  for (; *p; ++p, ++s) {
    if (*p == '*') {
      for (const char* t = s;; ++t) {
        if (Glob(p + 1, t)) return true;
        if (!*t) return false;
      }
    }
    if (!*s || (*p != '?' && Lower(*p) != Lower(*s))) return false;
  }
  return !*s;
}
}  // namespace

bool FFileDialog::Matches(const std::string& pattern, const std::string& name) {
  size_t start = 0;
  while (start <= pattern.size()) {
    size_t end = pattern.find(';', start);
    std::string one = pattern.substr(start, end == std::string::npos ? std::string::npos : end - start);
    one.erase(0, one.find_first_not_of(' '));
    if (!one.empty() && Glob(one.c_str(), name.c_str())) return true;
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return false;
}

FFileDialog::FFileDialog(const std::string& title, const std::string& folder, std::vector<Filter> filters,
                         const std::string& acceptCaption)
    : Form("FFileDialog", title), m_filters(std::move(filters)) {
  if (m_filters.empty()) m_filters.push_back({"All Files (*.*)", "*"});
  Width = 64 * X;
  Height = 21 * Y;
  KeyPreview = true;
  lblFolder.Move(1 * X, 1 * Y, 62 * X, 1 * Y);
  lstFiles.Move(1 * X, 2 * Y, 62 * X, 13 * Y);
  lblName.Move(1 * X, 16 * Y, 15 * X, 1 * Y);
  txtName.Move(16 * X, 16 * Y, 47 * X, 1 * Y);
  lblType.Move(1 * X, 17 * Y, 15 * X, 1 * Y);
  cmdType.Move(16 * X, 17 * Y, 47 * X, 1 * Y);
  cmdOK.Move(40 * X, 19 * Y, 10 * X, 1 * Y);
  cmdCancel.Move(52 * X, 19 * Y, 10 * X, 1 * Y);
  // The name line first: a person types or completes a name, or goes up to the list.
  txtName.TabIndex = 0;
  lblName.TabIndex = 0;  // its access key leads to the name line
  lstFiles.TabIndex = 1;
  lblType.TabIndex = 2;
  cmdType.TabIndex = 2;
  cmdOK.TabIndex = 3;
  cmdCancel.TabIndex = 4;
  cmdOK.Caption = acceptCaption;
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  cmdType.Caption = m_filters.front().description;

  lstFiles.NodeClick.Connect([this](platform::Ref<forms::TreeNode> node) {
    m_selectedKey = node->Key;
    if (node->Key != kUp && node->Key.size() > 2) txtName.SetText(node->Key.substr(2) + (node->Key[0] == 'D' ? "/" : ""));
  });
  lstFiles.DblClick.Connect([this] { Accept(); });
  cmdType.Click.Connect([this] {
    m_filter = (m_filter + 1) % m_filters.size();
    cmdType.Caption = m_filters[m_filter].description;
    Fill();
  });
  cmdOK.Click.Connect([this] { Accept(); });
  cmdCancel.Click.Connect([this] {
    m_result.reset();
    Hide();
  });

  std::error_code ec;
  std::string start = folder.empty() ? fs::current_path(ec).string() : Expand(folder);
  if (!OpenFolder(start)) OpenFolder(fs::current_path(ec).string());
}

std::string FFileDialog::Expand(const std::string& path) const {
  if (path == "~" || path.rfind("~/", 0) == 0) {
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + path.substr(1);
  }
  if (!path.empty() && path[0] == '/') return path;
  return m_folder + path;
}

bool FFileDialog::OpenFolder(const std::string& folder) {
  std::error_code ec;
  fs::path p = fs::path(Expand(folder)).lexically_normal();
  if (!fs::is_directory(p, ec)) return false;
  std::string s = p.string();
  m_folder = WithSlash(s.size() > 1 && s.back() == '/' ? s.substr(0, s.size() - 1) : s);
  lblFolder.Caption = m_folder;
  Fill();
  return true;
}

void FFileDialog::Fill(const std::string& prefix) {
  lstFiles.Clear();
  m_selectedKey.clear();
  std::vector<std::string> folders, files;
  std::error_code ec;
  for (fs::directory_iterator it(m_folder, fs::directory_options::skip_permission_denied, ec), end; !ec && it != end;
       it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.rfind(prefix, 0) != 0) continue;
    if (name[0] == '.' && prefix.empty()) continue;  // hidden, unless asked for by name
    std::error_code e2;
    if (it->is_directory(e2)) folders.push_back(name);
    else if (Matches(m_filters[m_filter].pattern, name)) files.push_back(name);
  }
  std::sort(folders.begin(), folders.end());
  std::sort(files.begin(), files.end());
  if (m_folder != "/" && prefix.empty()) lstFiles.Add("", forms::tvwLast, kUp, "../");
  for (const auto& f : folders) lstFiles.Add("", forms::tvwLast, "D:" + f, f + "/");
  for (const auto& f : files) lstFiles.Add("", forms::tvwLast, "F:" + f, f);
}

std::pair<std::string, std::string> FFileDialog::Split(const std::string& text) const {
  std::string full = Expand(text);
  size_t slash = full.rfind('/');
  return {full.substr(0, slash + 1), full.substr(slash + 1)};
}

bool FFileDialog::Complete() {
  if (txtName.Text().empty()) return false;
  auto [folder, start] = Split(txtName.Text());
  std::error_code ec;
  std::vector<std::string> names;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    std::string name = it->path().filename().string();
    if (name.rfind(start, 0) != 0 || (name[0] == '.' && start.empty())) continue;
    std::error_code e2;
    names.push_back(name + (it->is_directory(e2) ? "/" : ""));
  }
  if (names.empty()) return false;
  std::string common = names.front();
  for (const auto& n : names) {
    size_t i = 0;
    while (i < common.size() && i < n.size() && common[i] == n[i]) ++i;
    common.resize(i);
  }
  std::string typed = txtName.Text();
  std::string before = typed.substr(0, typed.size() - start.size());
  txtName.SetText(before + common);
  if (names.size() == 1 && common.back() == '/') {
    // A folder reached: it opens, and the name line goes on inside it.
    if (OpenFolder(folder + common)) txtName.SetText("");
    return true;
  }
  // Several: the list shows the candidates, in the folder they are in.
  if (folder != m_folder) OpenFolder(folder);
  Fill(common);
  return true;
}

void FFileDialog::Accept() {
  // An entry of the list that has the focus, or the name line.
  std::string name = txtName.Text();
  if (ActiveControl() == &lstFiles && !m_selectedKey.empty()) {
    if (m_selectedKey == kUp) name = "../";
    else name = m_selectedKey.substr(2) + (m_selectedKey[0] == 'D' ? "/" : "");
  }
  size_t b = name.find_first_not_of(' '), e = name.find_last_not_of(' ');
  name = b == std::string::npos ? "" : name.substr(b, e - b + 1);
  if (name.empty()) return;
  std::error_code ec;
  std::string full = Expand(name);
  if (fs::is_directory(full, ec)) {
    if (OpenFolder(full)) {
      txtName.SetText("");
      SetFocus(txtName);
    }
    return;
  }
  m_result = full;
  Hide();
}

void FFileDialog::Form_KeyDown(int& keyCode, int shift) {
  if (keyCode == 9 && shift == 0 && ActiveControl() == &txtName) {
    // Tab completes a name begun; with nothing to complete it moves on.
    if (Complete()) keyCode = 0;
  } else if (keyCode == 13 && (ActiveControl() == &txtName || ActiveControl() == &lstFiles)) {
    Accept();
    keyCode = 0;
  }
}

void FFileDialog::Form_QueryUnload(int& cancel, int unloadMode) {
  if (unloadMode == forms::vbFormControlMenu) {
    // The close box cancels, and leaves the form loaded for the caller.
    m_result.reset();
    cancel = 1;
    Hide();
  }
}

std::optional<std::string> FFileDialog::Run() {
  m_result.reset();
  SetFocus(txtName);
  Show(forms::vbModal);
  return m_result;
}

}  // namespace app::terminal
