#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/fake_services.h"
#include "support/recorders.h"
#include "support/row_texts.h"
#include "support/temporary_drives.h"
#include "tools/purge/purger.h"

namespace qublet {

// A list over temporary drives, and the purge window without its window.
class PurgeTestBase : public testing::Test {
 protected:
  void SetUp() override { engine_.view.Show(window_); }

  // Files of three bytes: enough for a row that isn't missing.
  void Touch(const Collection& names) const {
    for (const std::string& name : names) drives_.Write(name, "abc");
  }
  void TouchOn(char drive, const Collection& names) const {
    for (const std::string& name : names)
      TemporaryDrives::WriteAt(drives_.Root() / std::string(1, drive) / TemporaryDrives::PathOf(name), "abc");
  }
  // Rows of these full paths, whether or not there are such files.
  void AddPaths(const Collection& paths) {
    for (const std::string& path : paths) engine_.items.AddFile(path, 0, 0);
    engine_.document.PlaylistChanged = false;
  }
  // A row as the cells say, of no file.
  void AddRow(const std::string& folder, const std::string& name) {
    Row row = NamedRow(name);
    row.cells[kPath] = folder;
    Rows().Insert(Rows().Count() + 1, {row});
  }
  std::string Paths() {
    std::string text;
    for (int i = 1; i <= Rows().Count(); ++i) text += (i > 1 ? "|" : "") + Rows().At(i).FullPath();
    return text;
  }

  // Runs the pass and notes what was to be painted.
  void Process() {
    Purger::Watch watch;
    watch.changed = [this] {
      const FilterView& view = purger_.view;
      const std::string bar = std::to_string(view.progress) + "/" + std::to_string(view.maximum);
      if (reports_.empty() || reports_.back() != view.report) reports_.push_back(view.report);
      if (bars_.empty() || bars_.back() != bar) bars_.push_back(bar);
      if (view.searching) could_search_ = could_search_ || view.CanSearch();
      painted_.push_back(view.absent_places + " > " + std::to_string(Rows().Count()));
    };
    watch.alive = [this] { ++alive_; };
    purger_.CmdSearch_Click(watch);
  }
  std::string Report() const { return purger_.view.report; }
  // "folder held" a row, a tick ahead of it as "+", the selected one as ">".
  std::string Suggestions() const {
    std::string text;
    int row = 0;
    for (const FoundFolder& found : purger_.view.FoundPaths) {
      text += row > 0 ? "|" : "";
      text += row++ == purger_.view.selected ? ">" : "";
      text += (found.ticked ? "+" : "") + found.folder + " " + found.held;
    }
    return text;
  }

  RowStore& Rows() { return engine_.document.ListView1; }
  std::string Selection() { return SelectionOf(Rows()); }
  // "x" for a selected row, "-" for another.
  void Select(const std::string& letters) {
    Rows().SelectWhere([&](int index, const Row&) { return letters.at(static_cast<std::size_t>(index - 1)) == 'x'; });
  }

  ClosedDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  RecordingFeedback feedback_;
  RecordingView window_;
  FakeServices fakes_;
  Engine engine_{fakes_.Over(*files_, feedback_), {"QUBLET2021", "c:\\program", ""}, ","};
  Purger purger_{engine_};
  std::vector<std::string> reports_;
  std::vector<std::string> bars_;
  std::vector<std::string> painted_;
  bool could_search_ = false;
  int alive_ = 0;
};

}  // namespace qublet
