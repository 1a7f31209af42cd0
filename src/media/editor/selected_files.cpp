#include "media/editor/selected_files.h"

#include "playlist/paths/file_details.h"

namespace qublet {

bool BuildSelection(const RowStore& rows, const FileSystem& files, SelectedFiles& selection) {
  selection.SelectedPaths.clear();
  selection.SelectedIndexes.clear();
  selection.SelectedExtension.clear();
  std::size_t valid = 0;
  int kinds = 0;
  bool all_have_one = true;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (!rows.At(i).selected) continue;
    if (selection.SelectedPaths.empty()) selection.FirstSelected = i;
    selection.LastSelected = i;
    std::string path = rows.At(i).RealPath();
    selection.SelectedPaths.push_back(path);
    selection.SelectedIndexes.push_back(i);

    FileDetails details;
    GetFileDetails(files, path, details);
    if (!details.Exists || !details.IsFile) continue;
    ++valid;
    all_have_one = all_have_one && !details.Extension.empty();
    if (details.Extension == selection.SelectedExtension) continue;
    selection.SelectedExtension = details.Extension;
    ++kinds;
  }
  if (valid != selection.SelectedPaths.size() || kinds != 1 || !all_have_one) {
    selection.SelectedPaths.clear();
    selection.SelectedIndexes.clear();
    selection.SelectedExtension.clear();
    return false;
  }
  return selection.SelectedExtension == ".mp3";
}

}  // namespace qublet
