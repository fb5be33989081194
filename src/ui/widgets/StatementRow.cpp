#include "ui/widgets/StatementRow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <vector>

#include "model/survey_scheme.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/ChoiceGroup.h"

namespace orvex {
namespace {

constexpr int kMarkerWidth = 4;
constexpr float kMarkStrength = 0.12F;
constexpr qreal kLegendSize = 0.92;
/// The opacity of the legend's text; that of the statement is 1.
constexpr float kLegendStrength = 0.75F;

QLabel* WrappedLabel(std::string_view text) {
  auto* label = new QLabel(ToQt(text).trimmed());
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

StatementRow::StatementRow(std::size_t statement, QWidget* parent)
    : QWidget(parent), rating_(kUncoded) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(kMarkerWidth + 8, 0, 0, 0);
  layout->setSpacing(8);
  layout->addLayout(BuildTexts(statement), 1);
  layout->addLayout(BuildButtons(statement));
  TintLegend();
}

QLayout* StatementRow::BuildTexts(std::size_t statement) {
  const SurveyStatement& scheme = SurveyStatements().at(statement);
  legend_ = WrappedLabel(scheme.legend);
  QFont small = legend_->font();
  small.setPointSizeF(small.pointSizeF() * kLegendSize);
  legend_->setFont(small);
  auto* texts = new QVBoxLayout;
  texts->setContentsMargins(0, 7, 0, 7);
  texts->setSpacing(2);
  texts->addWidget(WrappedLabel(scheme.text));
  texts->addWidget(legend_);
  return texts;
}

QLayout* StatementRow::BuildButtons(std::size_t statement) {
  const SurveyStatement& scheme = SurveyStatements().at(statement);
  // All columns are as wide as the widest caption, so that they line up.
  const int width = QRadioButton(ToQt(kNotApplicable)).sizeHint().width();
  auto* layout = new QHBoxLayout;
  layout->setSpacing(6);
  const int spacing = layout->spacing();
  if (!scheme.notApplicable) layout->addSpacing(width + spacing);
  std::vector<QRadioButton*> buttons;
  for (int i = 0; i < scheme.Buttons(); ++i) {
    const QString caption = ToQt(scheme.Caption(i));
    auto* button = new QRadioButton(caption);
    button->setObjectName(QStringLiteral("Option%1_%2").arg(statement + 1).arg(i));
    button->setAccessibleName(caption + QStringLiteral(": ") + ToQt(scheme.text));
    button->setAccessibleDescription(ToQt(scheme.legend));
    button->setMinimumWidth(width);
    layout->addWidget(button);
    buttons.push_back(button);
  }
  choices_ = new ChoiceGroup(buttons, this);
  connect(choices_, &ChoiceGroup::Chosen, this, &StatementRow::Rated);
  for (QRadioButton* button : buttons) button->installEventFilter(this);
  // A shorter scale leaves the places of its missing values empty.
  constexpr int kHighest = 3;
  for (int i = scheme.highest; i < kHighest; ++i) layout->addSpacing(width + spacing);

  takeBack_ = new QToolButton;
  takeBack_->setObjectName(QStringLiteral("cmdTakeBack%1").arg(statement + 1));
  takeBack_->setText(QStringLiteral("\u00d7"));
  takeBack_->setAutoRaise(true);
  takeBack_->setFocusPolicy(Qt::NoFocus);
  takeBack_->setToolTip(tr("Take the rating back (Delete)"));
  takeBack_->setAccessibleName(takeBack_->toolTip());
  KeepPlace(takeBack_);
  connect(takeBack_, &QToolButton::clicked, this, [this] { Q_EMIT Rated(kUncoded); });
  layout->addWidget(takeBack_);
  return layout;
}

void StatementRow::ShowRating(int button) {
  rating_ = button;
  choices_->ShowSelected(button);
  takeBack_->setVisible(button != kUncoded);
}

void StatementRow::Focus() {
  choices_->Focus(rating_ == kUncoded ? 0 : rating_);
}

bool StatementRow::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    current_ = event->type() == QEvent::FocusIn;
    update();
    if (current_) Q_EMIT Entered();
  }
  return false;
}

bool StatementRow::TakeKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  switch (key.key()) {
    case Qt::Key_Up:
      Q_EMIT Step(-1);
      return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT Step(1);
      return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      Q_EMIT Rated(kUncoded);
      return true;
    default:
      break;
  }
  const QString text = key.text();
  if (text.size() != 1 || !text.at(0).isLetterOrNumber()) return false;
  for (int i = 0; i < choices_->Count(); ++i) {
    if (!choices_->Button(i)->text().startsWith(text, Qt::CaseInsensitive)) continue;
    Q_EMIT Rated(i);
    Q_EMIT Step(1);
    break;
  }
  return true;
}

/// Marks the statement that the keys currently rate.
void StatementRow::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!current_) return;
  QPainter painter(this);
  QColor color = palette().color(QPalette::Highlight);
  painter.fillRect(0, 0, kMarkerWidth, height(), color);
  color.setAlphaF(kMarkStrength);
  painter.fillRect(rect(), color);
}

void StatementRow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && legend_ != nullptr) TintLegend();
}

void StatementRow::TintLegend() {
  QColor color = palette().color(QPalette::WindowText);
  color.setAlphaF(kLegendStrength);
  QPalette tinted = palette();
  tinted.setColor(QPalette::WindowText, color);
  legend_->setPalette(tinted);
}

}  // namespace orvex
