#include "ui/widgets/ConfusionModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <utility>

#include "model/wording.h"
#include "ui/text.h"

namespace orvex {

void ConfusionModel::Show(View view) {
  beginResetModel();
  view_ = std::move(view);
  endResetModel();
}

int ConfusionModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(view_.codes.size()) + 1;
}

int ConfusionModel::columnCount(const QModelIndex& parent) const {
  return rowCount(parent);
}

std::optional<ConfusionModel::Codes> ConfusionModel::CodesAt(const QModelIndex& index) const {
  if (!index.isValid() || IsSum(index)) return std::nullopt;
  return Codes{CodeAt(index.row()), CodeAt(index.column())};
}

std::int64_t ConfusionModel::CountAt(const QModelIndex& index) const {
  if (const auto codes = CodesAt(index)) return view_.table.At(codes->first, codes->second);
  if (!IsSum(index.row())) return view_.table.OfFirst(CodeAt(index.row()));
  if (!IsSum(index.column())) return view_.table.OfSecond(CodeAt(index.column()));
  return view_.table.Total();
}

QString ConfusionModel::CountText(std::int64_t count) const {
  return view_.areSeconds ? ToQt(FormatMinSec(static_cast<double>(count))) : QString::number(count);
}

QString ConfusionModel::TextAt(const QModelIndex& index, const QString& first,
                               const QString& second) const {
  if (!index.isValid()) return {};
  return tr("%1: %2").arg(NameOf(index, first, second), CountText(CountAt(index)));
}

QString ConfusionModel::NameOf(const QModelIndex& index, const QString& first,
                               const QString& second) const {
  const auto meaning = [this](int section) {
    return view_.meanings[static_cast<qsizetype>(section)];
  };
  if (CodesAt(index)) {
    return tr("%1: %2, %3: %4").arg(first, meaning(index.row()), second, meaning(index.column()));
  }
  if (!IsSum(index.row())) return tr("%1: %2").arg(first, meaning(index.row()));
  if (!IsSum(index.column())) return tr("%1: %2").arg(second, meaning(index.column()));
  return tr("All");
}

/// Agreeing cells are bold and on a ground of their own; the sums are in italics.
QVariant ConfusionModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const bool agrees = index.row() == index.column() && !IsSum(index);
  switch (role) {
    case Qt::DisplayRole: {
      const std::int64_t count = CountAt(index);
      if (count == 0 && !agrees && !IsSum(index)) return QStringLiteral("\u00b7");
      return agrees ? QString(QStringLiteral("= ") + CountText(count)) : CountText(count);
    }
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::FontRole: {
      QFont font;
      font.setBold(agrees);
      font.setItalic(IsSum(index));
      return font;
    }
    case Qt::BackgroundRole:
      if (!agrees) return {};
      return QApplication::palette().color(QPalette::AlternateBase);
    default:
      return {};
  }
}

QVariant ConfusionModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (section < 0 || section > static_cast<int>(view_.codes.size())) return {};
  if (role == Qt::DisplayRole) {
    if (IsSum(section)) return tr("Sum");
    const QStringList& names = orientation == Qt::Horizontal ? view_.names : view_.meanings;
    return names[static_cast<qsizetype>(section)];
  }
  if (role == Qt::ToolTipRole && !IsSum(section)) {
    return view_.meanings[static_cast<qsizetype>(section)];
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

}  // namespace orvex
