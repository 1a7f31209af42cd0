#include "platform/linux/settings_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace qublet {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::pair<char, char> kEscapes[] = {{'"', '"'}, {'\\', '\\'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::string Quoted(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                      [c](const auto& candidate) { return candidate.second == c; });
    if (escape != std::end(kEscapes)) {
      quoted += '\\';
      quoted += escape->first;
    } else if (IsControl(c)) {
      quoted += "\\x";
      quoted += kDigits[static_cast<unsigned char>(c) / 16];
      quoted += kDigits[static_cast<unsigned char>(c) % 16];
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

// The text as it can stand in a line where the characters of `special` have a meaning.
std::string Written(std::string_view text, std::string_view special) {
  const bool bare = Trimmed(text).size() == text.size() && !text.starts_with('"') &&
                    std::none_of(text.begin(), text.end(), IsControl) && text.find_first_of(special) == text.npos;
  return bare ? std::string(text) : Quoted(text);
}

std::string WrittenKey(std::string_view key) {
  return key.empty() ? Quoted(key) : Written(key, "=[#;");
}

// Takes a text in double quotes off the front of `line`; nothing when none stands there or it isn't well-formed.
std::optional<std::string> TakeQuoted(std::string_view& line) {
  if (!line.starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '"') {
      line.remove_prefix(i + 1);
      return text;
    }
    if (line[i] != '\\') {
      text += line[i];
      continue;
    }
    if (++i == line.size()) return std::nullopt;
    const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                      [c = line[i]](const auto& candidate) { return candidate.first == c; });
    if (escape != std::end(kEscapes)) {
      text += escape->second;
      continue;
    }
    unsigned char code = 0;
    const std::string_view digits = line.substr(i).substr(1, 2);
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (line[i] != 'x' || digits.size() != 2 || parsed.ptr != digits.data() + 2) return std::nullopt;
    text += static_cast<char>(code);
    i += 2;
  }
  return std::nullopt;
}

// A part that fills `text`, in quotes or bare.
std::string WholePart(std::string_view text) {
  std::string_view rest = text;
  const std::optional<std::string> quoted = TakeQuoted(rest);
  return quoted && rest.empty() ? *quoted : std::string(text);
}

// The section that a trimmed line opens; nothing when the brackets aren't whole.
std::optional<std::string> SectionOf(std::string_view line) {
  if (!line.ends_with(']')) return std::nullopt;
  return WholePart(Trimmed(line.substr(1, line.size() - 2)));
}

// Key and value of a trimmed line; nothing when it holds none.
std::optional<std::pair<std::string, std::string>> EntryOf(std::string_view line) {
  if (line.starts_with('#') || line.starts_with(';')) return std::nullopt;
  std::string_view rest = line;
  std::optional<std::string> key = TakeQuoted(rest);
  if (!key) {
    rest = line.substr(std::min(line.find('='), line.size()));
    key = std::string(Trimmed(line.substr(0, line.size() - rest.size())));
    if (key->empty()) return std::nullopt;
  }
  rest = Trimmed(rest);
  if (!rest.starts_with('=')) return std::nullopt;
  return std::pair(std::move(*key), WholePart(Trimmed(rest.substr(1))));
}

}  // namespace

SettingsText::SettingsText(std::string text) : text_(std::move(text)) {
  Scan();
}

std::string SettingsText::Get(const std::string& section, const std::string& key) const {
  const auto found = places_.find({section, key});
  return found == places_.end() ? std::string() : found->second.value;
}

std::vector<Setting> SettingsText::All() const {
  std::vector<std::pair<std::size_t, Setting>> found;
  for (const auto& [address, place] : places_)
    found.push_back({place.begin, {address.first, address.second, place.value}});
  std::ranges::sort(found, {}, &std::pair<std::size_t, Setting>::first);

  std::vector<Setting> settings;
  settings.reserve(found.size());
  for (auto& [begin, setting] : found) settings.push_back(std::move(setting));
  return settings;
}

void SettingsText::Set(const Setting& setting) {
  const std::string line = WrittenKey(setting.key) + '=' + Written(setting.value, {}) + '\n';
  const auto place = places_.find({setting.section, setting.key});
  if (place != places_.end()) {
    if (place->second.value != setting.value) Replace(place->second.begin, place->second.end, line);
    return;
  }
  const auto section = section_ends_.find(setting.section);
  if (section != section_ends_.end()) {
    Replace(section->second, section->second, line);
  } else {
    const std::string gap = text_.empty() ? "" : "\n";
    const std::string head = '[' + Written(setting.section, "[]") + "]\n";
    Replace(text_.size(), text_.size(), gap + head + line);
  }
}

void SettingsText::Replace(std::size_t begin, std::size_t end, std::string_view lines) {
  const bool broken_before = begin == 0 || text_[begin - 1] == '\n';
  text_.replace(begin, end - begin, broken_before ? std::string(lines) : '\n' + std::string(lines));
  Scan();
}

void SettingsText::Scan() {
  places_.clear();
  section_ends_.clear();
  std::optional<std::string> section;  // none ahead of the first one and behind a damaged one
  std::size_t begin = text_.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  while (begin < text_.size()) {
    const std::size_t end = std::min(text_.find('\n', begin), text_.size() - 1) + 1;
    const std::string_view line =
        Trimmed(std::string_view(text_).substr(begin, end - begin - (text_[end - 1] == '\n')));
    auto entry = EntryOf(line);
    if (line.starts_with('[')) {
      section = SectionOf(line);
      if (section) section_ends_[*section] = end;
    } else if (section && entry) {
      places_[{*section, std::move(entry->first)}] = {begin, end, std::move(entry->second)};
      section_ends_[*section] = end;
    }
    begin = end;
  }
}

}  // namespace qublet
