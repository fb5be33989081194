#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "store/format_error.h"
#include "study/logged_class.h"
#include "study/study_picture.h"
#include "support/class_picture_check.h"
#include "support/sample_manifest.h"
#include "support/test_folder.h"

namespace orvex {
namespace {

std::string Described(const ClassPicture& picture) {
  std::ostringstream text;
  for (const auto& line : picture.heading) text << line.caption << " " << line.text << "; ";
  text << "\n";
  for (const auto& q : picture.questions) {
    text << q.episode << "." << q.number << " " << q.second << (q.isTimed ? "" : "~")
         << (q.asker == ClassPicture::Asker::teacher ? " T" : " S") << (q.isAuthentic ? "a" : "")
         << (q.isUptake ? "u" : "") << (q.isHigherLevel ? "h" : "") << (q.isUnanswered ? "-" : "")
         << "\n";
  }
  for (const auto& s : picture.spells) {
    text << "spell " << s.episode << " " << s.time.begin << "-" << s.time.end << "\n";
  }
  for (const auto& e : picture.estimates) {
    text << "offtask " << e.second << " ";
    e.share ? text << *e.share : text << "missed";
    text << " in " << e.activity << "\n";
  }
  for (const auto& mark : picture.Axis(picture.Whole()))
    text << mark.text << "@" << mark.second << " ";
  for (const auto& block : picture.figures) {
    text << "\n" << block.heading;
    for (const auto& figure : block.figures) text << "; " << figure.caption << " " << figure.value;
  }
  return text.str();
}

TEST(ClassPictures, ShowClassesAsTheyWere) {
  const struct {
    const char* what;
    const char* file;
    std::vector<const char*> lines;
  } cases[] = {
      {"with its log",
       "recorded/7-13-3.eps",
       {"School 7; Class 13; Observation 3; Date 03-14-2001; Begin 09:01; Observer M. 'Zé'; "
        "Students 24; \n",
        "1.1 570 T\n1.2 570 Tauh\n1.3 570 Su\n1.4 570 T-\n", "2.1 1650 S-\n", "4.11 3090 T-\n",
        "spell 4 3090-3090\n",
        "offtask 330 0.111111 in 4\nofftask 450 missed in 4\nofftask 720 0.25 in 5\n",
        "offtask 2762 0 in 17\nofftask 3182 missed in 5\n09:05@240 09:10@540 ",
        "Direct instruction 40:02 (67 %)", "Whole class 59:30\n",
        "; Asked by students 15 (44 %); Authentic 7 (21 %)",
        "With uptake, of those answered 5 (26 %)", "Questions per minute 0.57\n",
        "Reading aloud 4.2 %; Supervised/Helping 8.3 %; Unsupervised 50.0 %"}},
      {"past midnight",
       "recorded/1-2-3.eps",
       {"1.1 570 T-\n1.2 615 T\nofftask 750 missed in 5\n23:50@0 23:55@300 00:00@600 "}},
      {"changed afterwards, with a clock that was set meanwhile",
       "rehearsal/EPS/7/12/7-12-3.eps",
       {"\n1.1 570~ T\n1.2 630~ Tah\n1.3 660 Sau\n1.4 660 T-\n1.5 660 S-\n1.6 780 T\n",
        "offtask 330 0.12 in 8\nofftask 450 missed in 8\nofftask 1380 0.2 in 4\n"
        "offtask 2415 0 in 15\n"}},
      {"without a log",
       "class/17-17-7.eps",
       {"Date 07-01-2001; Observer LR; ", "\n0 min@0 5 min@300 ",
        "Classroom management 22:55 (39 %); Direct instruction 30:59 (52 %); Seatwork and pairwork "
        "5:10 (9 %); Tests and quizzes 0:00 (0 %); Whole class 59:04\n"}},
  };
  for (const auto& [what, file, lines] : cases) {
    const std::string shown =
        Described(ReadLoggedClass(test::TestDataFolder() / file, {}).Picture());
    for (const char* line : lines) {
      EXPECT_NE(shown.find(line), std::string::npos) << what << ": " << line << "\n" << shown;
    }
  }
}

TEST(ClassPictures, DoWithoutALogThatIsNone) {
  test::TestFolder folder;
  std::filesystem::copy(test::TestDataFolder() / "recorded" / "1-2-3.eps", folder.Path());
  const std::pair<const char*, const char*> cases[] = {
      {"a letter", "the session log could not be read, or is none"},
      {"********* Orvex 4.10 BAK file *********\r\n", "the session log does not say when it began"},
  };
  for (const auto& [log, warning] : cases) {
    std::ofstream(folder.Path() / "1-2-3.bak") << log;
    std::string warned;
    const LoggedClass read = ReadLoggedClass(folder.Path() / "1-2-3.eps",
                                             [&](const std::string& text) { warned += text; });
    EXPECT_EQ(warned, warning);
    EXPECT_FALSE(read.Picture().hasLog);
    EXPECT_EQ(read.Picture().Axis({0, 600}).front().text, "0 min");
  }
}

PictureRow RowOf(const char* name, const char* date, float seconds, std::string_view sources) {
  LoggedClass shown;
  EpsHeader& header = shown.observation.header;
  header.identity = {"AB", "5", "12", name, "25"};
  header.ObservDate = date;
  Episode& episode = shown.observation.Episodes.emplace_back();
  episode.segments.emplace_back().SetData(kQuestionAnswer, seconds);
  for (const char source : sources) {
    questionInfo& asked = episode.questions.emplace_back();
    asked.codes[Dimension::source] = CodeOf(Dimension::source, std::string_view(&source, 1));
    asked.codes[Dimension::authenticity] = source == 'S' ? 1 : 0;
  }
  return MakePictureRow(shown);
}

TEST(StudyPictures, SortTheirRowsByWhatOneLikes) {
  const std::pair<const char*, const char*> cases[] = {
      {"name", "2 3 10 11 "},      {"date", "11 10 2 3 "},     {"length", "10 3 2 11 "},
      {"questions", "2 3 10 11 "}, {"pace", "2 3 10 11 "},     {"students", "10 2 3 11 "},
      {"authentic", "10 2 3 11 "}, {"off-task", "2 3 10 11 "}, {"higher-level", "2 3 10 11 "},
  };
  for (const auto& [id, expected] : cases) {
    const StudyPicture picture =
        MakeStudyPicture({RowOf("10", "03-14-2001", 600, "S"), RowOf("2", "04-01-2001", 120, "TTS"),
                          RowOf("11", "12-31-2000", 60, ""), RowOf("3", "no date", 300, "TTT")},
                         RowOrderNamed(id).value());
    std::string names;
    for (const PictureRow& row : picture.rows) names += row.name.substr(5) + " ";
    EXPECT_EQ(names, expected) << id;
    EXPECT_EQ(picture.seconds, 600);
    EXPECT_EQ(picture.axis.back().text, "10 min");
  }
  EXPECT_FALSE(RowOrderNamed("size"));
}

TEST(StudyPictures, ShowTheFiguresOfTheirRows) {
  const auto cells = [](const PictureRow& row) {
    std::string text;
    for (const RowOrderScheme& column : kRowOrders) text += CellOf(row, column.order) + "|";
    return text;
  };
  EXPECT_EQ(cells(RowOf("1", "03-14-2001", 130, "TTS")),
            "5-12-1|03-14-2001|AB|2:10|3|1.38|33 %|33 %|n/a|0 %|0 %|0.0 %|");
  EXPECT_EQ(cells(RowOf("2", "", 0, "")), "5-12-2||AB|0:00|0|n/a|n/a|n/a|n/a|n/a|n/a|n/a|");
}

TEST(StudyPictures, LeaveRoomBesideAClassThatIsFarLonger) {
  const struct {
    const char* what;
    std::vector<float> seconds;
    double axis;
  } cases[] = {
      {"none", {}, 0},
      {"empty ones", {0, 0, 0, 600}, 600},
      {"double lessons", {2400, 2700, 5400, 2400}, 5400},
      {"one that nobody ended", {2400, 2700, 3000, 86000}, 3000},
  };
  for (const auto& [what, seconds, axis] : cases) {
    std::vector<PictureRow> rows;
    for (const float length : seconds) rows.push_back(RowOf("1", "", length, ""));
    const StudyPicture picture = MakeStudyPicture(std::move(rows), RowOrder::length);
    EXPECT_EQ(picture.seconds, axis) << what;
    EXPECT_EQ(picture.AnyGoesBeyondAxis(), !seconds.empty() && seconds.back() > axis) << what;
  }
}

TEST(ClassPictures, ShowEveryQuestionOnceAndInItsSegment) {
  int shown = 0;
  std::filesystem::recursive_directory_iterator files(test::SamplesFolder());
  for (const auto& entry : files) {
    if (!entry.is_regular_file() || entry.path().extension() != ".eps") continue;
    SCOPED_TRACE(entry.path());
    try {
      const LoggedClass read = ReadLoggedClass(entry.path(), {});
      test::CheckPicture(read.Picture(), read.observation.Episodes);
      ++shown;
    } catch (const FormatError&) {
      // There are broken files among the samples.
    }
  }
  EXPECT_GT(shown, 20);
}

}  // namespace
}  // namespace orvex
