#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "model/dimensions.h"

class QGroupBox;
class QRadioButton;
namespace Ui {
class frmQA;
}

namespace orvex {

class ChoiceGroup;
class QuestionEditor;

/// The frames of the question editor's form: one for each dimension, with its options.
class QuestionFrames : public QObject {
  Q_OBJECT

 public:
  /// Calls `chosen` after each choice of an option.
  QuestionFrames(Ui::frmQA& ui, QuestionEditor& editor, std::function<void()> chosen,
                 QObject* parent);

  void RefreshOptions();
  void RefreshCaptions();
  /// Shows and enables the available frames if `available`, and otherwise hides and disables the
  /// rest.
  void RefreshStates(bool available);
  /// Focuses the options of `dimension`.
  void Focus(Dimension dimension);
  QWidget* FrameOf(Dimension dimension) const;
  /// The dimension whose frame holds `control`, if it is in one.
  std::optional<Dimension> DimensionOf(const QWidget* control) const;

 private:
  struct Frame {
    Dimension dimension;
    QGroupBox* box;
    ChoiceGroup* options;  ///< null for the name
  };

  void Add(QGroupBox* box, std::vector<QRadioButton*> options);

  QuestionEditor& editor_;
  std::function<void()> chosen_;
  std::vector<Frame> frames_;  ///< in the order of the coding scheme
};

}  // namespace orvex
