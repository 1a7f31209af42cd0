#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/tag_options.h"
#include "media/tag_object.h"

namespace qublet {

// The pictures that are to be added, by the bytes of their files. Throws Failure: a file that can't be read, or that
// is no BMP, JPEG, GIF or PNG.
std::vector<TagPicture> PicturesFrom(const CommandContext& context, const std::vector<PictureOption>& options);

// Writes the pictures of the files into a folder, as they are stored, and prints the name of each.
int ExtractPictures(CommandContext& context, const std::string& folder);

}  // namespace qublet
