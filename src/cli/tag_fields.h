#pragma once

#include <span>
#include <string>
#include <string_view>

#include "media/tag_object.h"

namespace qublet {

// The single values of a tag object under the names by which the command line knows them.
struct TagField {
  std::string_view name;
  bool in_v1;
  std::string (*get)(const TagObject& tag, std::string_view name);
  // Throws Failure when the text can't be a value of this field.
  void (*set)(TagObject& tag, std::string_view name, const std::string& text);
};

std::span<const TagField> TagFields();
// Null when there is no such field.
const TagField* FindTagField(std::string_view name);

}  // namespace qublet
