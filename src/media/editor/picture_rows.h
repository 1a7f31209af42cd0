#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"
#include "media/tag_object.h"
#include "platform/background.h"
#include "platform/picture_codec.h"

namespace qublet {

// The list of pictures of the tag editor, and what its buttons do. The list is the store: a tag is filled from it
// when it is written. Rows go from 1; row 0 is none.
class PictureRows {
 public:
  struct Row {
    std::string description;
    std::int64_t size;      // bytes, as the list tells
    std::string mime_type;  // the same
    // Row and picture are one, so that they can't fall out of step. Null where a file couldn't be loaded.
    std::shared_ptr<const TagPicture> picture;

    bool operator==(const Row&) const = default;
  };

  PictureRows(Engine& engine, const PictureCodec& codec, Background& background)
      : engine_(engine), codec_(codec), background_(background) {}

  const std::vector<Row>& Rows() const { return rows_; }
  int Selected() const { return selected_; }
  void Select(int row) { selected_ = row; }
  // The bytes to be shown, null for none.
  std::shared_ptr<const TagPicture> Shown() const;

  // Takes the pictures of a tag; the first is selected.
  void Show(std::vector<TagPicture> images);
  // What goes into a tag: every picture as a bitmap, whatever it was. One that can't be read, or whose bitmap would
  // be too long for a tag, goes as it is. Rows without a picture are left out. Takes the scratch file away when there
  // is a picture.
  std::vector<TagPicture> Collect();

  // All of them end quietly when something fails.
  void ID3v2ImageAdd_Click();
  void ID3v2ImageRemove_Click();
  void ID3v2ImageSave_Click();
  void ID3v2ImageOpen_Click();

 private:
  TagPicture Written(const Row& row);
  void AddRow(const std::string& path, const std::string& description);
  // Writes the shown picture as a bitmap. Throws Failure.
  void SaveShown(const FileSystem& files, const std::string& path);
  std::string ScratchFile() const { return engine_.program_folder + "\\tmp.bmp"; }

  Engine& engine_;
  const PictureCodec& codec_;
  Background& background_;
  std::vector<Row> rows_;
  int selected_ = 0;
};

}  // namespace qublet
