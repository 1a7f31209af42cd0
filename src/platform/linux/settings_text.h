#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace qublet {

// The text of a settings file, made to be edited by hand as well:
//
//   # a comment, or ; a comment
//   [section]
//   key=value
//
// Blanks around section, key and value don't count. Each of the three may stand in double quotes, and does where it
// couldn't stand bare (blanks at an end, control characters, "=" in a key): inside, \" \\ \n \r \t and \x with two
// digits stand for what they name. A bare backslash is only a backslash, so paths need no quotes.
// Of equal keys the last one counts. A line of any other form means nothing and is kept as it stands.
class SettingsText {
 public:
  explicit SettingsText(std::string text = {});

  const std::string& Text() const { return text_; }

  // "" for an absent value.
  std::string Get(const std::string& section, const std::string& key) const;
  // In the order of the text.
  std::vector<Setting> All() const;
  // Changes the key's line; a new key goes to the end of its section, a new section to the end of the text.
  void Set(const Setting& setting);

 private:
  struct Place {
    std::size_t begin = 0;  // of the line
    std::size_t end = 0;    // behind its line break
    std::string value;
  };

  void Scan();
  void Replace(std::size_t begin, std::size_t end, std::string_view lines);

  std::string text_;
  std::map<std::pair<std::string, std::string>, Place> places_;
  std::map<std::string, std::size_t> section_ends_;  // behind the last key, or the head
};

}  // namespace qublet
