#include "platform/windows/word_cutter.h"

#include <algorithm>

namespace qublet {
namespace {

bool IsBlank(wchar_t unit) {
  return unit == L' ' || unit == L'\t';
}

bool HasDrive(std::wstring_view path) {
  const bool letter = !path.empty() && ((path[0] >= L'a' && path[0] <= L'z') || (path[0] >= L'A' && path[0] <= L'Z'));
  return letter && path.substr(1).starts_with(L':');
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

bool WordCutter::Next(std::wstring& word) {
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

// Backslashes mean something before a quote alone: two are one, and one is the quote itself.
void WordCutter::TakeBackslashes(std::wstring& word, bool quoted) {
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

bool WordCutter::EndsAFolder(const std::wstring& word) const {
  const bool ends = rest_.size() == 1 || IsBlank(rest_[1]);
  return ends && (HasDrive(word) || is_folder_(word));
}

}  // namespace qublet
