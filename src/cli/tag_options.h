#pragma once

#include <optional>
#include <string>

#include "cli/arguments.h"
#include "media/editor/attributes.h"
#include "media/tag_change.h"

namespace qublet {

// What the words behind "tag" ask for.
struct TagOptions {
  bool json = false;
  bool title = false;
  TagChange change;
  std::optional<std::string> copy_from;
  std::optional<FileAttributeChanges> attributes;
  bool history = false;
  std::optional<std::string> undo;  // a run
};

// Takes the options out of the arguments, so that files are left. Throws Failure with a text for the user.
TagOptions TakeTagOptions(CommandContext& context);

}  // namespace qublet
