#pragma once

#include "observe/session_clocks.h"
#include "ui/show.h"

namespace orvex {

/// Shows the clocks of a class in the labels of a form, and the trouble with its log if there is
/// any.
template <typename Ui>
void ShowClocks(const SessionClocks& clocks, Ui& ui) {
  ShowText(ui.lblEpisode, clocks.EpisodeCaption());
  ShowText(ui.lblSegment, clocks.SegmentCaption());
  ShowText(ui.lblEpiTime, clocks.EpisodeTime());
  ShowText(ui.lblSegTime, clocks.SegmentTime());
  ShowText(ui.lblCurrTime, clocks.TimeOfDay());
  const std::string trouble = clocks.LogTrouble();
  ShowText(ui.lblLogTrouble, trouble);
  ui.lblLogTrouble->setVisible(!trouble.empty());
}

}  // namespace orvex
