#include <gtest/gtest.h>

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <algorithm>
#include <numeric>

#include "ui/picture/PictureFile.h"
#include "ui/picture/StudyPage.h"

namespace orvex {
namespace {

// What files of pictures paint on.
constexpr QRectF kSheet(28, 28, 786, 539);

QFont PageFont(int size = 9) {
  QFont font;
  font.setPixelSize(size);
  return font;
}

/// A study whose classes are called by their numbers, from 0.
StudyPicture StudyOf(int classes, double seconds = 3000) {
  std::vector<PictureRow> rows;
  for (int i = 0; i < classes; ++i) {
    ClassPicture shown;
    shown.seconds = seconds;
    for (double begin = 0; begin < seconds; begin += 300) {
      shown.segments.push_back({.time = {begin, begin + 300},
                                .group = ActivityGroup::directInstruction,
                                .shortName = "Lecture"});
      shown.questions.push_back({.second = begin + 60, .isAuthentic = begin > 900, .text = "Why?"});
    }
    rows.push_back({.name = "5-12-" + std::to_string(i),
                    .date = "03-14-2001",
                    .observer = i == 0 ? "the observer with the longest initials of all" : "AB",
                    .picture = std::move(shown),
                    .summary = {}});
  }
  return MakeStudyPicture(std::move(rows), RowOrder::name);
}

/// A page as SVG, in which texts are texts.
QByteArray Painted(const StudyPage& study, int page) {
  const auto paint = [&](QPainter& painter, const PictureSheet& sheet) {
    study.Paint(painter, sheet.area, sheet.font, sheet.palette, page);
  };
  return PictureFile(QString(), paint, PictureFormat::svg);
}

TEST(StudyPages, HoldEveryClassOnceAndFillEvenly) {
  const struct {
    int classes;
    int pages;
  } cases[] = {{1, 1}, {44, 1}, {60, 2}, {130, 3}};
  for (const auto& [classes, pages] : cases) {
    SCOPED_TRACE(classes);
    const StudyPage study(StudyOf(classes), QStringLiteral("Spring"));
    ASSERT_EQ(study.Pages(kSheet, PageFont()), pages);
    std::vector<int> held(static_cast<std::size_t>(pages));
    for (int page = 0; page < pages; ++page) {
      const QByteArray painted = Painted(study, page);
      EXPECT_TRUE(painted.contains("Spring"));
      EXPECT_EQ(painted.contains("Page "), pages > 1);
      for (int i = 0; i < classes; ++i) {
        held[static_cast<std::size_t>(page)] +=
            static_cast<int>(painted.count(">5-12-" + QByteArray::number(i) + "<"));
      }
    }
    const auto [least, most] = std::ranges::minmax(held);
    EXPECT_LE(most - least, 1);
    EXPECT_EQ(std::reduce(held.begin(), held.end()), classes);
  }
}

TEST(StudyPages, SayWhatTheyShow) {
  StudyPicture byResponse = StudyOf(2);
  byResponse.order = RowOrder::unanswered;
  StudyPicture withALongOne = StudyOf(3);
  withALongOne.rows.back().picture.seconds *= 10;
  const struct {
    const char* what;
    StudyPicture picture;
    std::vector<const char*> texts;
    std::vector<const char*> others;
  } cases[] = {
      {"none", StudyOf(0), {"No classes"}, {"sorted by", "Off task"}},
      {"by number", StudyOf(2), {"sorted by school", "40 min", "n/a"}, {"No response", "Length"}},
      {"by response", byResponse, {"2 classes, sorted by share of", "No response"}, {"Length"}},
      {"a long one", withALongOne, {"beyond the axis", ">500:00<"}, {"No response"}},
  };
  for (const auto& [what, picture, texts, others] : cases) {
    const StudyPage study(picture);
    EXPECT_EQ(study.Pages(kSheet, PageFont()), 1) << what;
    const QByteArray painted = Painted(study, 0);
    for (const char* text : texts) EXPECT_TRUE(painted.contains(text)) << what << ": " << text;
    for (const char* text : others) EXPECT_FALSE(painted.contains(text)) << what << ": " << text;
  }
}

TEST(StudyPages, StayInTheirArea) {
  const QRectF areas[] = {{100, 100, 786, 539}, {100, 100, 200, 600}, {100, 100, 700, 60}};
  const QColor outside(1, 2, 3);
  StudyPicture picture = StudyOf(50);
  picture.rows[7].picture.seconds *= 10;
  const StudyPage study(picture, QString(200, u'W'));
  for (const QRectF& area : areas) {
    for (const int size : {9, 20}) {
      QImage image(1000, 800, QImage::Format_RGB32);
      image.fill(outside);
      QPainter painter(&image);
      study.Paint(painter, area, PageFont(size), QPalette(), 0);
      painter.fillRect(area, outside);
      painter.end();
      QImage empty(image.size(), image.format());
      empty.fill(outside);
      EXPECT_EQ(image, empty) << area.width() << " x " << area.height() << ", " << size;
    }
  }
}

}  // namespace
}  // namespace orvex
