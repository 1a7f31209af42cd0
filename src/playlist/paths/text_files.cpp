#include "playlist/paths/text_files.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

#include "platform/code_page.h"
#include "playlist/paths/playlist_bounds.h"

namespace qublet {
namespace {

std::string WholeFile(const FileSystem& files, const std::string& path) {
  const auto file = files.OpenForReading(path);
  if (file->Size() > PlaylistBounds::kMostFileBytes) throw Failure("too long for a text", path);
  std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
  bytes.resize(file->ReadAt(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()}));
  return bytes;
}

}  // namespace

Outcome ReadTextFile(const FileSystem& files, const std::string& path, std::string& bytes) {
  return Attempt([&] { bytes = WholeFile(files, path); });
}

Outcome WriteTextFile(const FileSystem& files, const std::string& path, std::string_view bytes) {
  return Attempt([&] {
    const auto replacement = files.BeginReplacement(path);
    replacement->Write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    replacement->Commit();
  });
}

std::string_view TakeLine(std::string_view& text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; });
  const std::string_view line = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(line.size());
  text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
  return line;
}

Collection SplitLines(std::string_view text) {
  Collection lines;
  while (!text.empty()) lines.emplace_back(TakeLine(text));
  return lines;
}

Outcome ReadLinesFromFile(const FileSystem& files, Collection& lines, const std::string& path) {
  return Attempt([&] {
    for (std::string& line : SplitLines(DecodeText(WholeFile(files, path)))) lines.push_back(std::move(line));
  });
}

std::string EncodeLines(const Collection& lines) {
  std::size_t size = 0;
  for (const std::string& line : lines) size += line.size() + 2;
  std::string text;
  text.reserve(size);
  for (const std::string& line : lines) text.append(line).append("\r\n");
  return EncodeText(std::move(text));
}

Outcome WriteLinesToFile(const FileSystem& files, const std::string& path, const Collection& lines) {
  return WriteTextFile(files, path, EncodeLines(lines));
}

Outcome WriteLinesToFileChecked(const FileSystem& files, const Collection& lines, const std::string& path) {
  return WriteLinesToFile(files, path, lines);
}

}  // namespace qublet
