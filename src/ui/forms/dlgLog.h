#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class dlgLog;
}

namespace orvex {

/// Shows the session log of a class, to be read and searched.
class dlgLog : public QDialog {
  Q_OBJECT

 public:
  /// `name` is the file's, `text` what it holds.
  dlgLog(const std::string& name, const std::string& text, QWidget* parent = nullptr);
  ~dlgLog() override;

 private:
  enum class From { here, behind, before };

  void ConnectKeys();
  void Find(From from);

  std::unique_ptr<Ui::dlgLog> ui_;
};

}  // namespace orvex
