#include "tables/sqlite_tables.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/wording.h"
#include "study/file_kind.h"
#include "tables/cells.h"
#include "tables/codebook.h"
#include "tables/csv.h"
#include "tables/tidy_columns.h"

namespace orvex {
namespace {

/// Binds the values of a row to the placeholders of a statement.
class SqliteCells final : public Cells {
 public:
  explicit SqliteCells(SqliteStatement& statement) : statement_(statement) {}

  void Text(std::string_view text) override { Code(WithoutControls(text)); }
  void Code(std::string_view code) override {
    if (code.empty()) return Missing();
    statement_.Bind(code);
  }
  void Number(std::int64_t number) override { statement_.Bind(number); }
  void Number(float number) override { statement_.Bind(std::string_view(DigitsOf(number))); }
  void Seconds(double seconds) override {
    statement_.Bind(std::string_view(WholeSecondsText(seconds)));
  }
  void Missing() override { statement_.BindNull(); }

 private:
  SqliteStatement& statement_;
};

/// The table whose rows the rows of `table` belong to.
std::optional<TidyTable> ParentOf(TidyTable table) {
  switch (table) {
    case TidyTable::observations:
      break;
    case TidyTable::survey:
    case TidyTable::episodes:
      return TidyTable::observations;
    case TidyTable::segments:
    case TidyTable::questions:
      return TidyTable::episodes;
  }
  return std::nullopt;
}

/// The column that names the row of `parent`: "episode_id".
std::string IdName(TidyTable parent) {
  std::string name(NameOf(parent));
  name.pop_back();
  return name + "_id";
}

std::string_view TypeOf(const TidyColumn& column) {
  if (column.type == ColumnType::number) return "REAL";
  return column.IsNumeric() ? "INTEGER" : "TEXT";
}

std::string Quoted(std::string_view name) {
  return "\"" + std::string(name) + "\"";
}

/// Reads what belongs to the episode file at `file`, which need not exist where there is a survey.
/// What can be read is kept even if another file of the observation cannot.
void ReadObservation(const std::filesystem::path& file, const std::string& name, FileRows& rows) {
  ObservationContent& content = rows.observation;
  content.name = name;
  const std::filesystem::path survey = Companion(file, FileKind::survey);
  if (!survey.empty() && Companion(file, FileKind::episodes).empty()) {
    rows.notes.file = survey;  // what is told is about this file
    ReadSurveyFile(survey, rows.notes, content);
    return;
  }
  rows.notes.problem = ProblemOf(file, [&] { ReadEpisodeFile(file, rows.notes, content); });
  ReadSurveyOf(file, rows.notes, content);
}

void CreateTable(TidyTable table, SqliteDatabase& database) {
  const std::string name(NameOf(table));
  const auto parent = ParentOf(table);
  std::string sql = "CREATE TABLE " + name + " (id INTEGER PRIMARY KEY";
  if (parent) {
    sql += ", " + IdName(*parent) + " INTEGER REFERENCES " + std::string(NameOf(*parent)) + " (id)";
  }
  for (const TidyColumn& column : ColumnsOf(table)) {
    sql += ", " + Quoted(column.name) + " " + std::string(TypeOf(column));
  }
  database.Execute(sql + ")");
  // Rows come in the order of what they belong to, so the index costs little while they are added.
  const std::string key = parent ? IdName(*parent) : "school, class, observation";
  database.Execute("CREATE INDEX " + name + "_key ON " + name + " (" + key + ")");
}

std::unique_ptr<SqliteStatement> InsertInto(TidyTable table, SqliteDatabase& database) {
  std::string sql = "INSERT INTO " + std::string(NameOf(table)) + " VALUES (?";
  if (ParentOf(table)) sql += ", ?";
  for (std::size_t i = 0; i < ColumnsOf(table).size(); ++i) sql += ", ?";
  return std::make_unique<SqliteStatement>(database, sql + ")");
}

}  // namespace

SqliteTables::SqliteTables(Storage& storage, std::filesystem::path path)
    : database_(storage, std::move(path)) {
  for (const TidyTable table : kTidyTables) {
    CreateTable(table, database_);
    insert_[static_cast<std::size_t>(table)] = InsertInto(table, database_);
  }
  AddCodebook();
}

void SqliteTables::AddCodebook() {
  database_.Execute(
      "CREATE TABLE codebook (\"table\" TEXT, variable TEXT, label TEXT, type TEXT, value TEXT, "
      "value_label TEXT)");
  SqliteStatement insert(database_, "INSERT INTO codebook VALUES (?, ?, ?, ?, ?, ?)");
  SqliteCells cells(insert);
  for (const TidyTable table : kTidyTables) {
    ForEachCodebookRow(table, [&](const CodebookRow& row) {
      for (const std::string_view text :
           {NameOf(table), row.variable, row.label, row.type, row.value, row.valueLabel}) {
        cells.Code(text);
      }
      insert.Run();
    });
  }
}

template <typename BindParent>
std::size_t SqliteTables::AddRows(TidyTable table, const ObservationContent& content,
                                  BindParent bindParent) {
  SqliteStatement& insert = *insert_[static_cast<std::size_t>(table)];
  SqliteCells cells(insert);
  const std::int64_t before = LastId(table);
  ForEachRow(table, content, [&](const TidyRow& row) {
    insert.Bind(++LastId(table));
    bindParent(row, insert);
    WriteRow(table, row, cells);
    insert.Run();
  });
  return static_cast<std::size_t>(LastId(table) - before);
}

std::size_t SqliteTables::Add(const FileRows& rows) {
  const ObservationContent& content = rows.observation;
  std::size_t added =
      AddRows(TidyTable::observations, content, [](const TidyRow&, SqliteStatement&) {});
  const std::int64_t observation = LastId(TidyTable::observations);
  const auto bindObservation = [&](const TidyRow&, SqliteStatement& insert) {
    content.episodes ? insert.Bind(observation) : insert.BindNull();
  };
  added += AddRows(TidyTable::survey, content, bindObservation);
  const std::int64_t earlierEpisodes = LastId(TidyTable::episodes);
  added += AddRows(TidyTable::episodes, content, bindObservation);
  const auto bindEpisode = [&](const TidyRow& row, SqliteStatement& insert) {
    insert.Bind(earlierEpisodes + row.episodeNumber);
  };
  added += AddRows(TidyTable::segments, content, bindEpisode);
  return added + AddRows(TidyTable::questions, content, bindEpisode);
}

void SqliteTables::Commit() {
  for (auto& insert : insert_) insert.reset();
  database_.Commit();
}

TableKind SqliteTableKind() {
  return {.fileName = "study.sqlite",
          .files = FileKind::episodes,
          .takesLoneSurveys = true,
          .header = "",
          .append = ReadObservation,
          .open = [](Storage& storage, const std::filesystem::path& path) {
            return std::make_unique<SqliteTables>(storage, path);
          }};
}

}  // namespace orvex
