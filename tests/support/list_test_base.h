#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "playlist/items.h"
#include "support/fake_services.h"
#include "support/mpeg_frames.h"
#include "support/recorders.h"
#include "support/row_texts.h"
#include "support/temporary_drives.h"

namespace qublet {

// An empty list over two temporary drives, without a window.
class ListTestBase : public testing::Test {
 protected:
  // Files below c: that hold three bytes, which no reader takes for audio: enough for a row that isn't missing.
  void Touch(const Collection& names) const {
    for (const std::string& name : names) drives_.Write(name, "abc");
  }

  RowStore& Rows() { return document_.ListView1; }
  std::string Names() const { return NamesOf(document_.ListView1); }
  std::string Selection() const { return SelectionOf(document_.ListView1); }
  std::string Orders() const { return CellsOf(document_.ListView1, kOriginalOrder); }
  Collection Paths() const {
    Collection paths;
    for (int i = 1; i <= document_.ListView1.Count(); ++i) paths.push_back(document_.ListView1.At(i).FullPath());
    return paths;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Document document_;
  RecordingFeedback feedback_;
  RecordingView view_;
  FakeServices fakes_;
  Services services_ = fakes_.Over(*files_, feedback_);
  Items items_{document_, *files_, feedback_, view_, ","};
};

// A playlist of `count` files that aren't there: "c:\gone\00001.mp3" and so on.
inline std::string PlaylistOfMissingFiles(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    text += "c:\\gone\\" + std::string(5 - number.size(), '0') + number + ".mp3\r\n";
  }
  return text;
}

}  // namespace qublet
