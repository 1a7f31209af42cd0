#include "settings/tips/tip_of_the_day.h"

#include "playlist/paths/text_files.h"
#include "settings/kept_values.h"

namespace qublet {

TipOfTheDay::TipOfTheDay(Engine& engine) : engine_(engine) {
  const std::string kept = engine.session.Kept(kShowTips);
  view.chkLoadTipsAtStartup = kept.empty() || kept == "1";
  engine.services.random.Reseed();
  if (!LoadTips(engine.CompanionFile("QUBLET20.htd"))) {
    view.lblTipText =
        "Cannot find the Tip-Of-Day Data File. Please reinstall the application if you wish to use this feature.";
  }
}

bool TipOfTheDay::LoadTips(const std::string& sFile) {
  if (sFile.empty() || !ReadLinesFromFile(engine_.services.files, Tips, sFile)) return false;
  CmdNext_Click();
  return true;
}

void TipOfTheDay::cmdNextTip_Click() {
  Show(static_cast<std::int32_t>(engine_.services.random.Draw() * Count()) + 1);
}

void TipOfTheDay::CmdNext_Click() {
  Show(CurrentTip < Count() ? CurrentTip + 1 : 1);
}

void TipOfTheDay::CmdPrev_Click() {
  Show(CurrentTip > 1 ? CurrentTip - 1 : Count());
}

void TipOfTheDay::Show(std::int32_t tip) {
  if (Tips.empty()) return;
  CurrentTip = tip;
  view.CurTip = std::to_string(tip);
  DisplayCurrentTip();
}

void TipOfTheDay::DisplayCurrentTip() {
  view.lblTipText = Tips[static_cast<std::size_t>(CurrentTip - 1)];
}

void TipOfTheDay::chkLoadTipsAtStartup_Click(bool ticked) {
  view.chkLoadTipsAtStartup = ticked;
  engine_.session.Keep(kShowTips, ticked ? "1" : "0");
}

}  // namespace qublet
