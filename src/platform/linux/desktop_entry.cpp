#include "platform/linux/desktop_entry.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "platform/failure.h"
#include "platform/linux/open_files.h"
#include "platform/linux/small_files.h"

namespace qublet {
namespace {

constexpr std::int64_t kMostBytes = 4 << 20;
constexpr std::string_view kMain = "Desktop Entry";

std::string_view Stripped(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// What stands for what in a value of the kind "string".
std::string Unescaped(std::string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
      continue;
    }
    switch (value[++i]) {
      case 's':
        text += ' ';
        break;
      case 'n':
        text += '\n';
        break;
      case 't':
        text += '\t';
        break;
      case 'r':
        text += '\r';
        break;
      case '\\':
        text += '\\';
        break;
      default:
        text.append({'\\', value[i]});
    }
  }
  return text;
}

bool CanBeRun(const std::string& native) {
  std::error_code error;
  return std::filesystem::is_regular_file(native, error) && access(native.c_str(), X_OK) == 0;
}

// One word of an Exec line with its field codes replaced; `names_file` is set when the file was among them.
std::string Filled(const std::string& word, const DesktopEntry& entry, const std::string& file, bool& names_file) {
  std::string filled;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (word[i] != '%' || i + 1 == word.size()) {
      filled += word[i];
      continue;
    }
    const char code = word[++i];
    if (code == '%') filled += '%';
    if (code == 'c') filled += entry.name;
    if (code == 'k') filled += entry.native;
    if (code == 'f' || code == 'F' || code == 'u' || code == 'U') {
      filled += file;
      names_file = true;
    }
  }
  return filled;
}

bool IsFieldCode(const std::string& word) {
  return word.size() == 2 && word[0] == '%' && word[1] != '%';
}

}  // namespace

std::string ValueOf(std::string_view text, std::string_view group, std::string_view key) {
  bool inside = false;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = Stripped(text.substr(0, end));
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (line.starts_with('[') && line.ends_with(']')) {
      inside = line.substr(1, line.size() - 2) == group;
    } else if (inside && line.starts_with(key)) {
      const std::string_view rest = Stripped(line.substr(key.size()));
      if (rest.starts_with('=')) return std::string(Stripped(rest.substr(1)));
    }
  }
  return "";
}

std::vector<std::string> ListOf(std::string_view text, std::string_view group, std::string_view key) {
  std::vector<std::string> items;
  std::istringstream pieces(ValueOf(text, group, key));
  for (std::string piece; std::getline(pieces, piece, ';');) {
    if (const std::string_view item = Stripped(piece); !item.empty()) items.emplace_back(item);
  }
  return items;
}

std::string ReadGroups(const std::string& native) {
  std::string text;
  ResumeNext([&] { text = ContentOf(*OpenInput(native), kMostBytes); });
  return text;
}

std::optional<std::vector<std::string>> CommandWords(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false;
  char quote = '\0';
  const auto add = [&](char c) {
    if (!in_word) words.emplace_back();
    in_word = true;
    if (c != '\0') words.back() += c;
  };
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    const bool escapes = c == '\\' && quote != '\'' && i + 1 < line.size() &&
                         (quote == '\0' || std::string_view("\"`$\\").find(line[i + 1]) != std::string_view::npos);
    if (escapes) {
      add(line[++i]);
    } else if (c == quote) {
      quote = '\0';
    } else if (quote == '\0' && (c == '"' || c == '\'')) {
      quote = c;
      add('\0');
    } else if (quote == '\0' && (c == ' ' || c == '\t' || c == '\n')) {
      in_word = false;
    } else {
      add(c);
    }
  }
  if (quote != '\0') return std::nullopt;
  return words;
}

std::string FindProgram(const std::string& name) {
  if (name.find('/') != name.npos) return name.starts_with('/') && CanBeRun(name) ? name : "";
  if (name.empty()) return "";
  const char* path = std::getenv("PATH");
  std::istringstream folders(path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string candidate = folder + '/' + name;
    if (folder.starts_with('/') && CanBeRun(candidate)) return candidate;
  }
  return "";
}

std::optional<DesktopEntry> ReadDesktopEntry(const std::string& id, const std::string& native) {
  const std::string text = ReadGroups(native);
  if (ValueOf(text, kMain, "Type") != "Application" || ValueOf(text, kMain, "Hidden") == "true") return std::nullopt;
  const auto words = CommandWords(Unescaped(ValueOf(text, kMain, "Exec")));
  const std::string program = words && !words->empty() ? FindProgram(words->front()) : "";
  if (program.empty()) return std::nullopt;
  const std::string wanted = Unescaped(ValueOf(text, kMain, "TryExec"));
  if (!wanted.empty() && FindProgram(wanted).empty()) return std::nullopt;
  return DesktopEntry{id,
                      native,
                      Unescaped(ValueOf(text, kMain, "Name")),
                      Unescaped(ValueOf(text, kMain, "Icon")),
                      *words,
                      program,
                      Unescaped(ValueOf(text, kMain, "Path")),
                      ListOf(text, kMain, "Categories"),
                      ListOf(text, kMain, "MimeType"),
                      ValueOf(text, kMain, "Terminal") == "true"};
}

bool DesktopEntry::RunsByItself() const {
  return std::all_of(command.begin() + 1, command.end(),
                     [](const std::string& word) { return word.starts_with('-') || IsFieldCode(word); });
}

std::vector<std::string> DesktopEntry::CommandLine(const std::string& native_file) const {
  std::vector<std::string> line;
  bool names_file = false;
  for (const std::string& word : command) {
    if (word == "%i") {
      if (!icon.empty()) line.insert(line.end(), {"--icon", icon});
      continue;
    }
    std::string filled = Filled(word, *this, native_file, names_file);
    // A code that stands for nothing is no argument.
    if (!filled.empty() || !IsFieldCode(word)) line.push_back(std::move(filled));
  }
  if (!names_file) line.push_back(native_file);
  return line;
}

}  // namespace qublet
