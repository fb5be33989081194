// The agreement of pairs of observations, and of all of them, as an independent program has it.

#include "tables/agreement_json.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "agreement/pair_table.h"
#include "support/sample_pairs.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

namespace fs = std::filesystem;

QJsonObject Object(const std::string& bytes) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(bytes)).object();
}

/// Holds what there is against every value that is expected. There may be members that are not
/// expected.
void ExpectEach(const QJsonValue& is, const QJsonValue& expected, const QString& place) {
  if (expected.isObject()) {
    const QJsonObject members = expected.toObject();
    for (auto member = members.begin(); member != members.end(); ++member) {
      ASSERT_TRUE(is.toObject().contains(member.key())) << qPrintable(place + "/" + member.key());
      ExpectEach(is.toObject()[member.key()], member.value(), place + "/" + member.key());
    }
  } else if (expected.isArray()) {
    const QJsonArray items = expected.toArray();
    ASSERT_EQ(is.toArray().size(), items.size()) << qPrintable(place);
    for (qsizetype i = 0; i < items.size(); ++i) {
      ExpectEach(is.toArray()[i], items[i], place + "/" + QString::number(i));
    }
  } else if (expected.isDouble()) {
    ASSERT_TRUE(is.isDouble()) << qPrintable(place);
    constexpr double kRelative = 1e-9;
    EXPECT_NEAR(is.toDouble(), expected.toDouble(), kRelative * std::abs(expected.toDouble()))
        << qPrintable(place);
  } else {
    EXPECT_EQ(is, expected) << qPrintable(place);
  }
}

/// The pair of a sample, with the pairs of questions that are true.
StudyPair Compared(const test::SamplePair& sample) {
  const ObservedClass first = ReadObservedClass(sample.first);
  const ObservedClass second = ReadObservedClass(sample.second);
  const AskedQuestions questions = QuestionsOf(first, second);
  const QuestionPairs pairs =
      ReadPairTable(sample.truePairs, questions.first.size(), questions.second.size());
  return {.first = first.file,
          .second = second.file,
          .agreement = Compare(first, second, questions, {}, pairs),
          .firstFigures = FiguresOf(first.observation),
          .secondFigures = FiguresOf(second.observation)};
}

TEST(AgreementJson, HasTheFiguresOfAnIndependentProgram) {
  const std::vector<test::SamplePair> samples = test::SamplePairs();
  ASSERT_GE(samples.size(), 6U);
  std::vector<StudyPair> pairs;
  for (const test::SamplePair& sample : samples) {
    SCOPED_TRACE(sample.name);
    const StudyPair& pair = pairs.emplace_back(Compared(sample));
    ExpectEach(Object(AgreementJson(pair.agreement)),
               Object(test::FileBytes(sample.expected))["result"], "");
  }
  const fs::path study = test::SamplesFolder() / "pairs" / "expected" / "study.json";
  ExpectEach(Object(AgreementStudyJson(StudyOf(pairs))), Object(test::FileBytes(study)), "");
}

TEST(AgreementJson, IsWellFormedWhateverTheTwoClassesHold) {
  std::vector<ObservedClass> classes;
  for (const auto& entry : fs::directory_iterator(test::SamplesFolder() / "odd")) {
    if (entry.path().extension() == ".eps") classes.push_back(ReadObservedClass(entry.path()));
  }
  ASSERT_GE(classes.size(), 2U);
  for (const ObservedClass& first : classes) {
    const ObservedClass& second = &first == &classes.back() ? classes.front() : *(&first + 1);
    SCOPED_TRACE(first.Name() + " " + second.Name());
    const Agreement agreement = Compare(first, second, QuestionsOf(first, second), {});
    const QJsonObject object = Object(AgreementJson(agreement));
    ASSERT_FALSE(object.isEmpty());
    for (const QJsonValue code : object["codes"].toObject()) {
      EXPECT_EQ(code["kappa"].isNull(), code.toObject().contains("undefined"));
    }
  }
}

}  // namespace
}  // namespace orvex
