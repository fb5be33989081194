#include "ui/forms/QuestionsPage.h"

#include <QMenu>
#include <QStringList>

#include "model/activities.h"
#include "model/dimensions.h"
#include "model/texts.h"
#include "study/study_actions.h"
#include "ui/show.h"
#include "ui/text.h"
#include "ui/widgets/CodesText.h"
#include "ui_frmStudy.h"

namespace orvex {

QuestionsPage::QuestionsPage(Ui::frmStudy& ui, StudyActions& actions, QObject* parent)
    : QObject(parent), ui_(ui), do_(actions) {
  ui_.tblQuestions->Show(rows_);
  ui_.tblQuestions->setSelectionMode(QAbstractItemView::SingleSelection);
  ShowAsWarning(ui_.lblSearchTrouble);
  ui_.lblSearchTrouble->hide();
  AddCodes();
  connect(ui_.txtSearch, &QLineEdit::textChanged, this, [this](const QString& text) {
    Change([&] {
      if (questions_) questions_->SetFilter(FromQt(text));
    });
  });
  connect(ui_.tblQuestions, &StudyTable::Opened, this, &QuestionsPage::Open);
  connect(ui_.tblQuestions, &StudyTable::CurrentMoved, this, &QuestionsPage::ShowCurrent);
}

/// Fills the menu that inserts a code into the filter.
void QuestionsPage::AddCodes() {
  auto* menu = new QMenu(ui_.cmdCode);
  for (const Dimension dimension : kLetteredDimensions) {
    const DimensionScheme& scheme = SchemeOf(dimension);
    QMenu* letters = menu->addMenu(ToQt(scheme.label));
    for (std::size_t i = 0; i < scheme.letters.size(); ++i) {
      const QString letter = ToQt(scheme.letters.substr(i, 1));
      letters->addAction(
          tr("&%1: %2").arg(letter, ToQt(scheme.meanings[i])), this,
          [this, &scheme, letter] { Insert(ToQt(scheme.variable) + QLatin1Char(' ') + letter); });
    }
    letters->addAction(tr("&Not coded"), this,
                       [this, &scheme] { Insert(ToQt(scheme.variable) + QLatin1String(" -")); });
  }
  QMenu* activities = menu->addMenu(tr("Activity"));
  for (const Activity& activity : kActivities) {
    activities->addAction(
        QStringLiteral("%1  %2")
            .arg(activity.number)
            .arg(ToQt(activity.name).replace(QLatin1Char('&'), QLatin1String("&&"))),
        this, [this, &activity] { Insert(QStringLiteral("activity %1").arg(activity.number)); });
  }
  ui_.cmdCode->setMenu(menu);
}

void QuestionsPage::Insert(const QString& code) {
  const QString text = ui_.txtSearch->text().trimmed();
  ui_.txtSearch->setText(text.isEmpty() ? code : text + QLatin1Char(' ') + code);
  FocusBox(ui_.txtSearch, Caret::atEnd);
}

void QuestionsPage::Show(Study& study) {
  const bool wasLoaded = questions_ != nullptr;
  study_ = &study;
  questions_ = nullptr;
  rows_.Show(nullptr);
  ui_.tblQuestions->Refill({});
  if (wasLoaded) Load();
}

void QuestionsPage::Load() {
  if (questions_ || !study_) return;
  const bool isFirst = rows_.rowCount() == 0;
  questions_ = &study_->Questions();
  questions_->SetFilter(FromQt(ui_.txtSearch->text()));
  rows_.Show(questions_);
  if (isFirst) ui_.tblQuestions->FitColumns();
  Change([] {});
}

void QuestionsPage::Change(const std::function<void()>& change) {
  const StudyTable::Place place = ui_.tblQuestions->PlaceNow();
  change();
  if (!questions_) return;
  ui_.tblQuestions->Refill(place);
  Refresh();
  const std::string trouble = questions_->FilterTrouble();
  ShowText(ui_.lblSearchTrouble, trouble);
  ui_.lblSearchTrouble->setVisible(!trouble.empty());
}

void QuestionsPage::Refresh() {
  if (!questions_) return;
  const bool areUnread = study_->IsStopped() && questions_->All() == 0;
  ShowText(ui_.lblQuestions, areUnread ? Say(Text::questionsNotRead) : questions_->CountText());
}

std::optional<QuestionRow> QuestionsPage::Current() const {
  const auto row = ui_.tblQuestions->CurrentRow();
  if (!questions_ || !row || *row >= questions_->Count()) return std::nullopt;
  return questions_->Row(*row);
}

void QuestionsPage::Open() {
  if (const auto question = Current()) {
    do_.EditQuestion(*question);
  }
}

/// Says the whole question and what its letters stand for.
void QuestionsPage::ShowCurrent() {
  Q_EMIT CurrentMoved();
  const auto question = Current();
  if (!question) return ui_.txtQuestion->Show({});
  ui_.txtQuestion->Show(ToQt(question->text) + QLatin1Char('\n') + CodesText(question->codes));
}

}  // namespace orvex
