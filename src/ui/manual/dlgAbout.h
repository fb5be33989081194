#pragma once

#include <QDialog>

namespace orvex {

struct ProgramFacts;

/// Says which program this is, and where its things are.
class dlgAbout : public QDialog {
  Q_OBJECT

 public:
  explicit dlgAbout(const ProgramFacts& facts, QWidget* parent = nullptr);
};

}  // namespace orvex
