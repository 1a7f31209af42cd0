#pragma once

#include <span>
#include <string>
#include <string_view>

#include "media/tag_object.h"

namespace qublet {

// The single values of a tag object by name: "V1Title" and its like of the ID3v1 tag, frame ids and the four
// properties of the ID3v2 tag.
struct TagField {
  std::string_view name;
  bool in_v1;  // else it belongs to the ID3v2 tag
  std::string (*get)(const TagObject& tag, std::string_view name);
  // Throws Failure when the text can't be a value of this field.
  void (*set)(TagObject& tag, std::string_view name, const std::string& text);
};

std::span<const TagField> TagFields();
// Null when there is no such field.
const TagField* FindTagField(std::string_view name);

}  // namespace qublet
