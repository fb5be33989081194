#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "model/segment_data.h"

class QComboBox;
class QKeyEvent;
class QRadioButton;
namespace Ui {
class frmClassEdit;
}

namespace orvex {

class ChoiceGroup;
class EpisodeEditor;
struct SegmentCodingView;

/// The part of the episode editor's form that codes the current segment: its duration, its
/// activity, and the codes of that activity.
class SegmentCodingPanel : public QObject {
  Q_OBJECT

 public:
  /// Calls `changed` after each change.
  SegmentCodingPanel(Ui::frmClassEdit& ui, EpisodeEditor& editor, std::function<void()> changed,
                     QObject* parent);

  /// Fixes the places of the controls. Call it once the form has its fonts.
  void Arrange();
  void Refresh();
  /// What a key does in one of the controls. True when it is done with.
  bool TakeKey(const QWidget* control, const QKeyEvent& key);

 private:
  void BuildLists();
  void AddList(QComboBox* list, std::span<const std::string_view> rows,
               const std::function<void(int)>& choose);
  void AddPair(SubCode code, QRadioButton* first, QRadioButton* second);
  /// The row that takes a code back.
  static QString NoCoding() { return tr("no coding"); }
  void RefreshSubCategories(const SegmentCodingView& coding);
  void RefreshPage(const SegmentCodingView& coding);

  Ui::frmClassEdit& ui_;
  EpisodeEditor& editor_;
  std::function<void()> changed_;
  std::vector<std::pair<SubCode, ChoiceGroup*>> pairs_;
  std::vector<std::pair<SubCode, QComboBox*>> seatwork_;
};

}  // namespace orvex
