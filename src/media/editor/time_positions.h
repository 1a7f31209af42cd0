#pragma once

#include <functional>
#include <memory>

#include "engine/engine.h"
#include "media/editor/comment_rows.h"
#include "platform/background.h"
#include "playlist/paths/collections.h"

namespace qublet {

// The list of places in time of the tag editor, and the player that goes to them. After every change of the list they
// are put among the comments. Rows go from 1; row 0 is none.
class TimePositions {
 public:
  TimePositions(Engine& engine, CommentRows& comments, Background& background)
      : engine_(engine), comments_(comments), background_(background) {}

  // The boxes.
  int TPSIhour = 0, TPSImin = 0, TPSIsec = 0;
  bool TPSIautoupdate = false;

  const Collection& Records() const { return records_; }
  int Selected() const { return selected_; }
  void Select(int row) { selected_ = row; }

  void LoadTpsi();
  void SaveTpsi();

  void TPSIadd_Click();
  void TPSIremove_Click();
  void TPSIclrall_Click();
  // Starts the selected file and goes to the selected position, the first one if none is. Takes seconds.
  void TPSIgoto_Click();
  // Asks the player where it is. `answered` follows when the boxes hold what it says; while it owes an answer the
  // next question isn't put.
  void TPSItimer_Timer(const std::function<void()>& answered);

 private:
  PlayerHandle Play(std::int32_t milliseconds);
  void TakePosition(std::int32_t milliseconds);

  Engine& engine_;
  CommentRows& comments_;
  Background& background_;
  Collection records_;
  int selected_ = 0;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // for an answer that comes too late
};

}  // namespace qublet
