#include "platform/windows/command_words.h"

#include <algorithm>

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/word_cutter.h"

namespace qublet {
namespace {

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

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

std::vector<std::string> CommandWords(std::wstring_view line) {
  WordCutter words(BehindProgram(line), IsFolder);
  std::vector<std::string> arguments;
  for (std::wstring word; words.Next(word);) {
    const std::vector<std::wstring> matches = Matches(word);
    if (matches.empty()) arguments.push_back(NarrowText(word));
    for (const std::wstring& match : matches) arguments.push_back(NarrowText(match));
  }
  return arguments;
}

}  // namespace qublet
