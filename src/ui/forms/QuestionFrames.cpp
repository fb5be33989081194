#include "ui/forms/QuestionFrames.h"

#include <QGroupBox>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>
#include <tuple>
#include <utility>

#include "questions/question_editor.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/ChoiceGroup.h"
#include "ui_frmQA.h"

namespace orvex {
namespace {

/// Makes `box` wide enough for all its captions, so that nothing moves when the caption blinks.
void ReserveCaptions(QGroupBox* box, std::initializer_list<std::string_view> captions) {
  const QString shown = box->title();
  box->ensurePolished();
  for (const std::string_view caption : captions) {
    box->setTitle(ToQt(caption));
    box->setMinimumWidth(std::max(box->minimumWidth(), box->minimumSizeHint().width()));
  }
  box->setTitle(shown);
}

}  // namespace

QuestionFrames::QuestionFrames(Ui::frmQA& ui, QuestionEditor& editor, std::function<void()> chosen,
                               QObject* parent)
    : QObject(parent), editor_(editor), chosen_(std::move(chosen)) {
  // Hidden controls keep their places, so that nothing moves while the user is looking. This
  // includes the contents of frames: a frame not shown yet would otherwise count as empty.
  for (QWidget* child : ui.scrollContents->findChildren<QWidget*>()) KeepPlace(child);
  using Options = std::vector<QRadioButton*>;
  const auto frames = std::to_array<std::pair<QGroupBox*, Options>>({
      {ui.FrSource, {ui.OptSrc_0, ui.OptSrc_1}},
      {ui.FrResponse, {ui.OptResp_0, ui.OptResp_1}},
      {ui.FrAuth, {ui.OptAuth_0, ui.OptAuth_1}},
      {ui.FrUptake, {ui.OptUptake_0, ui.OptUptake_1, ui.OptUptake_2}},
      {ui.FrCogLvl, {ui.OptCogLvl_0, ui.OptCogLvl_1}},
      {ui.FrRespondName, {}},
      {ui.FrOnePartOfMulti, {ui.OptOnePartOf_0, ui.OptOnePartOf_1}},
      {ui.FrTReponse, {ui.OptTResp_0, ui.OptTResp_1, ui.OptTResp_2}},
      {ui.FrElabUnelab, {ui.OptElabUn_0, ui.OptElabUn_1}},
  });
  static_assert(std::tuple_size_v<decltype(frames)> == kDimensionCount,
                "each dimension needs its frame, in the order of the scheme");
  for (const auto& [box, options] : frames) Add(box, options);
}

void QuestionFrames::Focus(Dimension dimension) {
  const Frame& frame = frames_.at(static_cast<std::size_t>(dimension));
  if (frame.options) frame.options->Focus(0);
}

QWidget* QuestionFrames::FrameOf(Dimension dimension) const {
  return frames_.at(static_cast<std::size_t>(dimension)).box;
}

std::optional<Dimension> QuestionFrames::DimensionOf(const QWidget* control) const {
  for (const Frame& frame : frames_) {
    if (frame.box->isAncestorOf(control)) return frame.dimension;
  }
  return std::nullopt;
}

void QuestionFrames::Add(QGroupBox* box, std::vector<QRadioButton*> options) {
  const auto dimension = static_cast<Dimension>(frames_.size());
  const DimensionScheme& scheme = SchemeOf(dimension);
  ReserveCaptions(box, {scheme.label, scheme.Blank()});
  ChoiceGroup* choices = nullptr;
  if (!options.empty()) {
    choices = new ChoiceGroup(std::move(options), this);
    connect(choices, &ChoiceGroup::Chosen, this, [this, dimension](int option) {
      editor_.ChooseOption(dimension, option);
      chosen_();
    });
  }
  frames_.push_back({dimension, box, choices});
}

void QuestionFrames::RefreshOptions() {
  for (const Frame& frame : frames_) {
    if (frame.options) frame.options->ShowSelected(editor_.Frame(frame.dimension).option);
  }
}

void QuestionFrames::RefreshCaptions() {
  for (const Frame& frame : frames_) {
    const QString caption = ToQt(editor_.Frame(frame.dimension).caption);
    if (frame.box->title() != caption) frame.box->setTitle(caption);
  }
}

void QuestionFrames::RefreshStates(bool available) {
  for (const Frame& frame : frames_) {
    if (editor_.CanEdit() == available) frame.box->setEnabled(available);
    if (editor_.Frame(frame.dimension).visible == available) frame.box->setVisible(available);
  }
}

}  // namespace orvex
