#pragma once

#include "observe/session_clocks.h"
#include "ui/show.h"
#include "ui/widgets/Announce.h"

namespace orvex {

/// Shows the clocks of a class in a form's labels, and any trouble with its log.
template <typename Ui>
void ShowClocks(const SessionClocks& clocks, Ui& ui) {
  ShowText(ui.lblEpisode, clocks.EpisodeCaption());
  ShowText(ui.lblSegment, clocks.SegmentCaption());
  ShowText(ui.lblEpiTime, clocks.EpisodeTime());
  ShowText(ui.lblSegTime, clocks.SegmentTime());
  ShowText(ui.lblCurrTime, clocks.TimeOfDay());
  const std::string trouble = clocks.LogTrouble();
  const bool isNew = !trouble.empty() && ui.lblLogTrouble->isHidden();
  ShowText(ui.lblLogTrouble, trouble);
  ui.lblLogTrouble->setVisible(!trouble.empty());
  if (isNew) Announce(*ui.lblLogTrouble, ui.lblLogTrouble->text());
}

}  // namespace orvex
