#pragma once

#include <QDialog>
#include <QString>
#include <filesystem>
#include <functional>
#include <memory>

class QTextCursor;

namespace Ui {
class dlgManual;
}

namespace orvex {

struct Printing;

/// The manual: its chapters with their links, to be searched and printed.
class dlgManual : public QDialog {
  Q_OBJECT

 public:
  /// `folder` holds the chapters; where it is empty or they are not, the window says so.
  dlgManual(const std::filesystem::path& folder, const Printing& printing,
            QWidget* parent = nullptr);
  ~dlgManual() override;

  /// Shows a chapter, from a heading where `place` names one: "editing.md#the-question-editor".
  void Open(const QString& place);

 Q_SIGNALS:
  /// The user wants to know about the program.
  void AboutWanted();

 private:
  enum class From { here, behind, before };

  void ConnectButtons();
  void ConnectKeys();
  void Refresh();
  void Find(From from);
  bool FindInChapter(From from, bool around);
  bool FindInOthers(From from);
  bool TakeEnter(const QWidget* control, bool shift);
  void PrintChapter();
  QString ChapterName() const;
  QString TextOf(const QString& chapter) const;
  /// The files of the chapters, in the order of the first page.
  QStringList Chapters() const;

  QString folder_;
  const Printing& printing_;
  std::unique_ptr<Ui::dlgManual> ui_;
};

}  // namespace orvex
