#include "ui/forms/frmEnterQA.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QTimer>
#include <initializer_list>
#include <string>
#include <tuple>

#include "ui/keys/FormKeys.h"
#include "ui/keys/UndoKeys.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/ShowClocks.h"
#include "ui/widgets/ShowOfftask.h"
#include "ui_frmEnterQA.h"

namespace orvex {
namespace {

using Command = QuestionEntry::Command;

/// True when the user moved the focus, rather than a window change or the logic.
bool IsByHand(Qt::FocusReason reason) {
  return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
         reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

/// True for the events that complete the way into a box: it has received the focus or a click.
bool Leads(const QEvent& event) {
  return event.type() == QEvent::FocusIn || event.type() == QEvent::MouseButtonRelease;
}

}  // namespace

frmEnterQA::frmEnterQA(const Services& services, LiveObservation& live, const SessionClocks& clocks,
                       QWidget* parent)
    : QWidget(parent), entry_(services, live, clocks), ui_(std::make_unique<Ui::frmEnterQA>()) {
  ui_->setupUi(this);
  // Hidden controls keep their places, so that nothing moves while the observer is looking.
  for (QWidget* child : ui_->codesPage->findChildren<QWidget*>()) KeepPlace(child);
  KeepPlace(ui_->cmdOfftaskActive);
  ShowAsWarning(ui_->lblLogTrouble);
  ConnectBoxes();
  ConnectButtons();
  StartTimer();
  ui_->txtQuestion->installEventFilter(this);
  for (const Field& field : Fields()) field.box->installEventFilter(this);
  ui_->lblMeanings->Follow(services, [this](const QWidget* control) {
    return BoxOf(control).value_or(QuestionEntry::kText);
  });
  Refresh();
}

frmEnterQA::~frmEnterQA() = default;

std::array<frmEnterQA::Field, kDimensionCount> frmEnterQA::Fields() const {
  const auto fields = std::to_array<Field>({{Dimension::source, ui_->Text1, ui_->Label1},
                                            {Dimension::response, ui_->Text2, ui_->Label2},
                                            {Dimension::authenticity, ui_->Text3, ui_->Label3},
                                            {Dimension::uptake, ui_->Text4, ui_->Label4},
                                            {Dimension::cognitive, ui_->Text5, ui_->Label5},
                                            {Dimension::respondName, ui_->Text6, ui_->Label6},
                                            {Dimension::onePartOfMulti, ui_->Text7, ui_->Label7},
                                            {Dimension::tResponse, ui_->Text8, ui_->Label8},
                                            {Dimension::elaborated, ui_->Text9, ui_->Label9}});
  static_assert(std::tuple_size_v<decltype(fields)> == kDimensionCount,
                "each dimension needs its box and label");
  return fields;
}

std::array<frmEnterQA::Button, QuestionEntry::kCommands> frmEnterQA::Buttons() const {
  return {{{Command::review, ui_->Command1},
           {Command::proof, ui_->Command2},
           {Command::fillNormalOrSurvey, ui_->Command3},
           {Command::ditto, ui_->Command4},
           {Command::nextOrLeave, ui_->Command5},
           {Command::startSegment, ui_->Command6},
           {Command::scrapOrStartEpisode, ui_->Command7},
           {Command::dropLast, ui_->Command8},
           {Command::correctTime, ui_->Command9},
           {Command::endClass, ui_->Command10}}};
}

QLineEdit* frmEnterQA::EditOf(Box box) const {
  for (const Field& field : Fields()) {
    if (field.dimension == box) return field.box;
  }
  return ui_->txtQuestion;
}

std::optional<QuestionEntry::Box> frmEnterQA::BoxOf(const QObject* watched) const {
  if (watched == ui_->txtQuestion) return QuestionEntry::kText;
  for (const Field& field : Fields()) {
    if (watched == field.box) return field.dimension;
  }
  return std::nullopt;
}

void frmEnterQA::ConnectBoxes() {
  connect(ui_->txtQuestion, &QLineEdit::textEdited, this, [this](const QString& text) {
    entry_.TypeQuestion(FromQt(text));
    Refresh();
  });
  for (const Field& field : Fields()) {
    connect(field.box, &QLineEdit::textEdited, this,
            [this, dimension = field.dimension](const QString& text) {
              entry_.TypeField(dimension, FromQt(text));
              Refresh();
            });
  }
}

void frmEnterQA::ConnectButtons() {
  for (const Button& button : Buttons()) {
    connect(button.button, &QPushButton::clicked, this, [this, command = button.command] {
      const std::size_t steps = entry_.StepsTaken();
      entry_.Click(command);
      // The next undo must undo what the button did, not older typing.
      if (entry_.StepsTaken() != steps) ForgetTyping(ui_->txtQuestion);
      Refresh();
    });
  }
  const auto answer = [this](QPushButton* button, bool wasReview) {
    connect(button, &QPushButton::clicked, this, [this, wasReview] {
      entry_.AnswerReview(wasReview);
      Refresh();
    });
  };
  connect(ui_->cmdOfftaskActive, &QPushButton::clicked, this, [this] {
    entry_.Offtask().TakeEstimate();
    Refresh();
  });
  answer(ui_->Command11_0, true);
  answer(ui_->Command11_1, false);
  new FormKeys(this, {.asking = {ui_->Command1, ui_->Command2, ui_->Command3, ui_->Command4,
                                 ui_->Command9, ui_->cmdOfftaskActive},
                      .own = [this](const QWidget* control, const QKeyEvent& key) {
                        return TakeKey(control, key);
                      }});
}

void frmEnterQA::StartTimer() {
  auto* timer = new QTimer(this);
  timer->setObjectName(QStringLiteral("Timer4"));
  connect(timer, &QTimer::timeout, this, [this] {
    entry_.Tick();
    RefreshClocks();
  });
  timer->start(1000);
}

void frmEnterQA::Refresh() {
  RefreshTexts();
  RefreshClocks();
  ui_->pages->setCurrentWidget(entry_.AsksReview() ? ui_->reviewPage : ui_->codesPage);
  // The focus must move in between: Qt would pass the focus of a control that is hidden first to an
  // arbitrary box, and a control that is not shown yet cannot take it.
  RefreshStates(true);
  TakeFocusWish();
  RefreshStates(false);
}

void frmEnterQA::RefreshTexts() {
  const QString title = ToQt(entry_.FrameCaption());
  if (ui_->Frame1->title() != title) ui_->Frame1->setTitle(title);
  // A screen reader says it when the focus comes back after a question has been stored.
  if (ui_->txtQuestion->accessibleName() != title) ui_->txtQuestion->setAccessibleName(title);
  ShowText(ui_->txtQuestion, entry_.Question());
  const QString steps = StepsText(entry_);
  if (ui_->txtQuestion->placeholderText() != steps) ui_->txtQuestion->setPlaceholderText(steps);
  ui_->txtQuestion->setToolTip(steps);
  for (const Field& field : Fields()) {
    ShowText(field.box, entry_.Fields().Text(field.dimension));
    ShowText(field.label, std::string(entry_.Fields().Caption(field.dimension)));
  }
  ShowText(ui_->Label10, std::string(entry_.Fields().Heading()));
  const bool coding = entry_.IsCoding();
  ShowText(ui_->Command3, coding ? tr("Nor&mal") : tr("&Matrices"));
  ShowText(ui_->Command5, coding ? tr("&Next Q") : LeaveCaption());
  ShowText(ui_->Command7, coding ? tr("Scr&ap") : tr("E&PISODE"));
}

/// The caption of the button that goes back to the activity before, or gives the segment up.
QString frmEnterQA::LeaveCaption() const {
  const int activity = entry_.OfferedActivity();
  return activity == kNoActivity ? tr("&Abort") : ToQt(ActivityOf(activity).shortName);
}

void frmEnterQA::RefreshClocks() {
  ShowClocks(entry_.Clocks(), *ui_);
  ShowOfftask(entry_.Offtask(), ui_->lblOfftask, ui_->cmdOfftaskActive);
}

/// Shows and enables the available controls if `available`, and otherwise hides and disables the
/// rest.
void frmEnterQA::RefreshStates(bool available) {
  if (entry_.AsksReview() != available) ui_->txtQuestion->setEnabled(available);
  for (const Field& field : Fields()) {
    if (entry_.Fields().Visible(field.dimension) != available) continue;
    field.box->setVisible(available);
    field.label->setVisible(available);
  }
  if (entry_.Fields().HeadingVisible() == available) ui_->Label10->setVisible(available);
  for (const Button& button : Buttons()) {
    if (entry_.Enabled(button.command) == available) button.button->setEnabled(available);
  }
}

void frmEnterQA::TakeFocusWish() {
  const auto wish = entry_.TakeFocus();
  if (!wish) return;
  if (wish->control.review) return FocusVisibly(ui_->Command11_0);
  QLineEdit* box = EditOf(wish->control.box);
  FocusBox(box, wish->caret);
  ui_->scrollArea->ensureWidgetVisible(box);
}

bool frmEnterQA::eventFilter(QObject* watched, QEvent* event) {
  const auto box = BoxOf(watched);
  if (box && QuestionEntry::CaretOf(*box) == Caret::selectAll) {
    // Whatever road leads into a code, the next letter replaces it.
    if (Leads(*event)) EditOf(*box)->selectAll();
  } else if (box && event->type() == QEvent::FocusIn) {
    EnterText(*box, static_cast<QFocusEvent*>(event)->reason());
  }
  return false;
}

/// A text is added to, unless a click in the question has said where.
void frmEnterQA::EnterText(Box text, Qt::FocusReason reason) {
  const bool placed = reason == Qt::MouseFocusReason && text == QuestionEntry::kText;
  if (!IsByHand(reason) || placed) return;
  // The click or Tab that brought the focus places its own caret first.
  QLineEdit* box = EditOf(text);
  QTimer::singleShot(0, box, [box] {
    if (box->hasFocus()) FocusBox(box, Caret::atEnd);
  });
}

bool frmEnterQA::TakeKey(const QWidget* control, const QKeyEvent& key) {
  if (const auto way = WayOf(key)) return TakeStep(qobject_cast<const QLineEdit*>(control), *way);
  const bool save = key.key() == Qt::Key_N && key.modifiers() == Qt::ControlModifier;
  const bool enter = IsEnter(key);
  const bool down = key.key() == Qt::Key_Down;
  const auto box = BoxOf(control);
  if (save || enter || (down && box)) {
    if (save) entry_.SaveQuestion();
    if (box && !save) entry_.EnterOrDown(*box);
  } else if (key.key() == Qt::Key_Up && box) {
    entry_.Up(*box);
  } else {
    return (control == ui_->Command11_0 || control == ui_->Command11_1) &&
           key.modifiers() == Qt::NoModifier && AnswerReview(key.key());
  }
  Refresh();
  return true;
}

/// Undoes or redoes a step. False when the focused box can undo or redo some typing itself.
bool frmEnterQA::TakeStep(const QLineEdit* box, Way way) {
  if (box && HasOwnStep(*box, way)) return false;
  entry_.TakeStep(way);
  Refresh();
  return true;
}

/// Answers the review question by its plain letter, Y or N. False for other keys.
bool frmEnterQA::AnswerReview(int key) {
  if (key == Qt::Key_Y) ui_->Command11_0->click();
  if (key == Qt::Key_N) ui_->Command11_1->click();
  return key == Qt::Key_Y || key == Qt::Key_N;
}

void frmEnterQA::showEvent(QShowEvent* event) {
  entry_.Activate();
  Refresh();
  QWidget::showEvent(event);
}

void frmEnterQA::closeEvent(QCloseEvent* event) {
  event->setAccepted(entry_.RequestClose());
  Refresh();
}

}  // namespace orvex
