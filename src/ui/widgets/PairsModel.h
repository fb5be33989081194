#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "ui/widgets/StudyModel.h"

namespace orvex {

class Comparison;

/// The paired list of two observers: for each question where it was asked, what both wrote and
/// coded, and in what they differ.
class PairsModel : public StudyModel {
  Q_OBJECT

 public:
  enum Column : int { mark, place, firstText, firstCodes, secondText, secondCodes, differs };
  /// Which letters of the codes the two do not agree on: the positions, as a list.
  static constexpr int kDifferingRole = Qt::UserRole;

  /// `comparison` outlives the model.
  explicit PairsModel(const Comparison& comparison, QObject* parent = nullptr);

  /// Shows these rows of the comparison, given by their positions; what the two do not agree on in
  /// `dimension`, a position in ComparedDimensions(), or at all, stands out. Refill the table then.
  void Show(std::vector<std::size_t> rows, std::optional<std::size_t> dimension) {
    shown_ = std::move(rows);
    dimension_ = dimension;
  }
  /// The positions in the comparison of what is shown.
  const std::vector<std::size_t>& Shown() const { return shown_; }

  /// The key is the pair: it stays while the codes change.
  std::string KeyOf(std::size_t row) const override;
  std::optional<std::size_t> RowOf(const std::string& key) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 protected:
  std::size_t Count() const override { return shown_.size(); }
  std::string Cell(std::size_t row, std::size_t column) const override;

 private:
  const Comparison& comparison_;
  std::vector<std::size_t> shown_;
  std::optional<std::size_t> dimension_;
};

}  // namespace orvex
