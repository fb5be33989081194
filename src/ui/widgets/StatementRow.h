#pragma once

#include <QWidget>
#include <cstddef>

class QKeyEvent;
class QLabel;
class QToolButton;

namespace orvex {

class ChoiceGroup;

/// A statement of the survey with its legend and buttons. On the buttons, a digit rates the
/// statement, N means it does not apply and Delete takes the rating back. The logic decides what is
/// selected.
class StatementRow : public QWidget {
  Q_OBJECT

 public:
  /// `statement` counts from 0.
  explicit StatementRow(std::size_t statement, QWidget* parent = nullptr);

  /// Shows `button` as selected; kUncoded for none.
  void ShowRating(int button);
  /// Focuses the selected button, or else the first.
  void Focus();
  /// What a key does on one of the buttons. True when it is done with.
  bool TakeKey(const QKeyEvent& key);

 Q_SIGNALS:
  /// The user selected a button or took the rating back (kUncoded).
  void Rated(int button);
  /// The user pressed a key to move on by `statements` statements.
  void Step(int statements);
  /// The row has received the focus.
  void Entered();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QLayout* BuildTexts(std::size_t statement);
  QLayout* BuildButtons(std::size_t statement);
  void TintLegend();

  QLabel* legend_ = nullptr;
  QToolButton* takeBack_ = nullptr;
  ChoiceGroup* choices_ = nullptr;
  int rating_;
  bool current_ = false;  ///< the row has the focus
};

}  // namespace orvex
