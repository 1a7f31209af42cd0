#include "media/editor/time_positions.h"

#include <algorithm>

#include "media/tpsi.h"
#include "player/position_jump.h"
#include "playlist/paths/numbers.h"

namespace qublet {

void TimePositions::LoadTpsi() {
  records_ = TpsiRecords(comments_.Rows());
  selected_ = 0;
}

void TimePositions::SaveTpsi() {
  std::vector<TagComment> comments = comments_.Rows();
  StoreTpsi(records_, comments);
  comments_.Replace(std::move(comments));
}

void TimePositions::TPSIadd_Click() {
  AddTpsi(TpsiRecord(TPSIhour, TPSImin, TPSIsec), records_);
  SaveTpsi();
}

void TimePositions::TPSIremove_Click() {
  if (selected_ == 0) return;
  records_.erase(records_.begin() + selected_ - 1);
  selected_ = 0;
  SaveTpsi();
}

void TimePositions::TPSIclrall_Click() {
  if (records_.empty()) return;
  const MessageAnswer answer = engine_.services.dialogs.ShowMessage(
      "Are you sure you want to remove all TPSI references?", MessageIcon::kQuestion, MessageButtons::kYesNo);
  if (answer == MessageAnswer::kYes) {
    records_.clear();
    selected_ = 0;
  }
  SaveTpsi();
}

void TimePositions::TPSIgoto_Click() {
  if (records_.empty()) return;
  const int row = std::max(1, selected_);
  const std::int32_t milliseconds = TpsiMilliseconds(records_[static_cast<std::size_t>(row) - 1]);
  if (!Play(milliseconds).empty()) return;
  engine_.services.dialogs.ShowMessage(
      "WinAmp must be asociated with M3U files/running!\n\r   If WinAmp has just loaded please try again.",
      MessageIcon::kStop, MessageButtons::kOk);
}

PlayerHandle TimePositions::Play(std::int32_t milliseconds) {
  const WaitCursor wait(engine_.services.feedback);
  return PlaySelectedFrom(engine_.player, engine_.preview, engine_.services.players, milliseconds, background_);
}

void TimePositions::TPSItimer_Timer(const std::function<void()>& answered) {
  struct Answer {
    PlayerHandle player;
    std::int32_t position = 0;
  };
  const auto answer = std::make_shared<Answer>();
  Engine& engine = engine_;
  const auto ask = [answer, &engine, position = TPSIautoupdate] {
    PlayerWindows& players = engine.services.players;
    const PlayerWindows::Action action(players);
    answer->player = players.Find(engine.player.PlayerProgram());
    if (position && !answer->player.empty()) answer->position = players.Position(answer->player);
  };
  background_.Start(ask, [this, alive = std::weak_ptr(alive_), answer, answered, position = TPSIautoupdate] {
    if (alive.expired()) return;
    engine_.player.PlayerWindow = answer->player;
    if (answer->player.empty()) TPSIautoupdate = false;
    if (position && TPSIautoupdate && answer->position != kNoAnswer) TakePosition(answer->position);
    answered();
  });
}

void TimePositions::TakePosition(std::int32_t milliseconds) {
  const std::int32_t seconds = RoundHalfEven(milliseconds / 1000.0);
  TPSIsec = seconds % kTpsiEntries;
  TPSImin = seconds % 3600 / kTpsiEntries;
  // The box has no entry for more.
  if (seconds / 3600 < kTpsiEntries) TPSIhour = seconds / 3600;
}

}  // namespace qublet
