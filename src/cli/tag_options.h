#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "media/editor/attributes.h"
#include "media/tag_change.h"

namespace qublet {

// A picture to be added: its file, as it was written, and its description.
struct PictureOption {
  std::string file;
  std::string description;
};

// What the words behind "tag" ask for.
struct TagOptions {
  bool json = false;
  bool title = false;
  TagChange change;  // without the pictures, which aren't read yet
  std::vector<PictureOption> pictures;
  std::optional<std::string> extract_to;  // a folder
  bool positions = false;
  std::optional<int> go_to;  // a position, from 1
  std::optional<std::string> copy_from;
  std::optional<FileAttributeChanges> attributes;
  bool history = false;
  std::optional<std::string> undo;  // a run
};

// Takes the options out of the arguments, so that files are left. Throws Failure with a text for the user.
TagOptions TakeTagOptions(CommandContext& context);

}  // namespace qublet
