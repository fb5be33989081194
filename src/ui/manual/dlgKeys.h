#pragma once

#include <QDialog>
#include <QString>

namespace orvex {

/// The keys of a form in a panel: those of its buttons as they are now, and what the page of keys
/// says about it.
class dlgKeys : public QDialog {
  Q_OBJECT

 public:
  /// `page` is the section of the form on the page of keys, in Markdown; may be empty.
  dlgKeys(const QWidget& form, const QString& page, QWidget* parent = nullptr);

  /// The keys of the buttons of `form` that can be pressed now, as a table in Markdown.
  static QString ButtonKeys(const QWidget& form);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The section under `heading` of a page in Markdown, without the heading; empty if it has none.
QString SectionOf(const QString& page, const QString& heading);

}  // namespace orvex
