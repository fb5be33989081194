#pragma once

#include <QWidget>
#include <cstddef>

class QKeyEvent;
class QLabel;
class QToolButton;

namespace orvex {

class ChoiceGroup;

/// A statement of the survey, its legend and its buttons. On the buttons a digit rates the
/// statement, N says that it does not apply and Delete takes the rating back; the logic decides
/// what is selected.
class StatementRow : public QWidget {
  Q_OBJECT

 public:
  /// `statement` counts from 0.
  explicit StatementRow(std::size_t statement, QWidget* parent = nullptr);

  /// Shows the button that is selected; kUncoded for none.
  void ShowRating(int button);
  /// Gives the selected button the focus, or else the first.
  void Focus();
  /// What a key does on one of the buttons. True when it is done with.
  bool TakeKey(const QKeyEvent& key);

 Q_SIGNALS:
  /// The user selected a button, or took the rating back: kUncoded.
  void Rated(int button);
  /// A key asks for the statement so many further on.
  void Step(int statements);
  /// The focus has come to the row.
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
  bool current_ = false;  ///< it has the focus
};

}  // namespace orvex
