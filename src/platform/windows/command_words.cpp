#include "platform/windows/command_words.h"

#include <algorithm>

#include "platform/drive_form.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

bool IsBlank(wchar_t unit) {
  return unit == L' ' || unit == L'\t';
}

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Cuts words off a line.
class Words {
 public:
  explicit Words(std::wstring_view line) : rest_(line) {}

  // False when there is no further one.
  bool Next(std::wstring& word) {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
    word.clear();
    if (rest_.empty()) return false;
    bool quoted = false;
    while (!rest_.empty() && (quoted || !IsBlank(rest_.front()))) {
      if (rest_.front() == L'\\') {
        TakeBackslashes(word, quoted);
      } else if (rest_.front() != L'"') {
        word += rest_.front();
        rest_.remove_prefix(1);
      } else if (quoted && rest_.substr(1).starts_with(L'"')) {
        word += L'"';
        rest_.remove_prefix(2);
      } else {
        quoted = !quoted;
        rest_.remove_prefix(1);
      }
    }
    return true;
  }

 private:
  // Backslashes mean something before a quote alone: two are one, and one is the quote itself.
  void TakeBackslashes(std::wstring& word, bool quoted) {
    const std::size_t count = std::min(rest_.find_first_not_of(L'\\'), rest_.size());
    rest_.remove_prefix(count);
    if (!rest_.starts_with(L'"') || (quoted && EndsAFolder(word))) {
      word.append(count, L'\\');
      return;
    }
    word.append(count / 2, L'\\');
    if (count % 2 == 0) return;
    word += L'"';
    rest_.remove_prefix(1);
  }

  bool EndsAFolder(const std::wstring& word) const {
    const bool ends = rest_.size() == 1 || IsBlank(rest_[1]);
    return ends && (HasDrive(NarrowText(word.substr(0, 2))) || IsFolder(word));
  }

  std::wstring_view rest_;
};

// The files that a pattern stands for; none for a word that is no pattern.
std::vector<std::wstring> Matches(const std::wstring& word) {
  std::vector<std::wstring> matches;
  const std::size_t name = word.find_last_of(L"\\/:") + 1;
  if (word.starts_with(L'-') || word.find_first_of(L"*?", name) == word.npos) return matches;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(word.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return matches;
  do {
    const std::wstring_view file = found.cFileName;
    const bool hidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    if (file != L"." && file != L".." && !hidden) matches.push_back(word.substr(0, name).append(file));
  } while (FindNextFileW(search, &found));
  FindClose(search);
  std::ranges::sort(matches, [](const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_LESS_THAN;
  });
  return matches;
}

}  // namespace

// The program's name knows no escapes.
std::wstring_view BehindProgram(std::wstring_view line) {
  const bool quoted = line.starts_with(L'"');
  const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  line.remove_prefix(end == line.npos ? line.size() : end + 1);
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
  return line;
}

std::vector<std::string> CommandWords(std::wstring_view line) {
  Words words(BehindProgram(line));
  std::vector<std::string> arguments;
  for (std::wstring word; words.Next(word);) {
    const std::vector<std::wstring> matches = Matches(word);
    if (matches.empty()) arguments.push_back(NarrowText(word));
    for (const std::wstring& match : matches) arguments.push_back(NarrowText(match));
  }
  return arguments;
}

}  // namespace qublet
