#include "agreement/icc.h"

#include <cmath>
#include <cstddef>
#include <numeric>

namespace orvex {
namespace {

double MeanOf(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double SquaresAround(double mean, const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0, [mean](double sum, double value) {
    return sum + std::pow(value - mean, 2);
  });
}

}  // namespace

std::optional<double> IccA1(const std::vector<std::vector<double>>& ratings) {
  if (ratings.size() < 2 || ratings.front().size() < 2) return std::nullopt;
  const std::size_t raters = ratings.front().size();
  // Counted from one of the ratings, so that those equal to it are exactly 0.
  std::vector<std::vector<double>> things = ratings;
  for (std::vector<double>& thing : things) {
    for (double& rating : thing) rating -= ratings.front().front();
  }
  std::vector<double> all;
  std::vector<double> thingMeans;
  for (const std::vector<double>& thing : things) {
    all.insert(all.end(), thing.begin(), thing.end());
    thingMeans.push_back(MeanOf(thing));
  }
  std::vector<double> raterMeans;
  for (std::size_t rater = 0; rater < raters; ++rater) {
    std::vector<double> ofRater;
    ofRater.reserve(things.size());
    for (const std::vector<double>& thing : things) ofRater.push_back(thing[rater]);
    raterMeans.push_back(MeanOf(ofRater));
  }
  // The mean squares of a two-way analysis of variance.
  const auto n = static_cast<double>(ratings.size());
  const auto k = static_cast<double>(raters);
  const double mean = MeanOf(all);
  const double ofThings = k * SquaresAround(mean, thingMeans);
  const double ofRaters = n * SquaresAround(mean, raterMeans);
  const double rest = SquaresAround(mean, all) - ofThings - ofRaters;
  const double betweenThings = ofThings / (n - 1);
  const double betweenRaters = ofRaters / (k - 1);
  const double error = rest / ((n - 1) * (k - 1));
  const double whole = betweenThings + (k - 1) * error + k / n * (betweenRaters - error);
  if (!(whole > 0)) return std::nullopt;
  return (betweenThings - error) / whole;
}

}  // namespace orvex
