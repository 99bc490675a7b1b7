// Rows of which only some may be shown.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace fetchkit {

// Rows are named by their number among those that are shown, from 0. The others keep their places
// between them, and come back where they were. Naming a row that is not there is std::out_of_range.
template <class Row>
class SiftedRows {
 public:
  using IsFound = std::function<bool(const Row&)>;

  int Count() const { return isFound_ ? Number(shown_) : Number(rows_); }
  int All() const { return Number(rows_); }
  const std::vector<Row>& Rows() const { return rows_; }  // hidden ones included

  Row& At(int row) { return rows_.at(Place(row)); }
  const Row& At(int row) const { return rows_.at(Place(row)); }

  // Where a row stands among all of them.
  int PlaceOf(int row) const { return static_cast<int>(Place(row)); }

  // Shows those alone for which the function says yes, all without one. What is added later is
  // asked about, too.
  void Sift(IsFound isFound) {
    std::vector<std::size_t> shown;
    for (std::size_t at = 0; isFound && at < rows_.size(); ++at)
      if (isFound(rows_[at])) shown.push_back(at);
    shown_ = std::move(shown);
    isFound_ = std::move(isFound);
  }

  // All are shown then.
  void Assign(std::vector<Row> rows) {
    rows_ = std::move(rows);
    Sift(nullptr);
  }

  void Add(Row row) {
    MakeRoom(1);
    if (IsShown(row)) shown_.push_back(rows_.size());
    rows_.push_back(std::move(row));
  }

  void Remove(int row) {
    rows_.erase(rows_.begin() + PlaceOf(row));
    if (!isFound_) return;
    const auto next = shown_.erase(shown_.begin() + row);
    std::for_each(next, shown_.end(), [](std::size_t& place) { --place; });
  }

  // Takes away all rows, hidden ones included, but that many at the beginning.
  void KeepFirst(int count) {
    rows_.resize(std::min(rows_.size(), static_cast<std::size_t>(count)));
    Sift(std::move(isFound_));
  }

  // Moves rows, ascending, to the end of another list, in order; linear. Without memory none is on
  // its way.
  void MoveTo(SiftedRows& to, const std::vector<int>& rows) {
    if (rows.empty()) return;
    std::vector<std::size_t> places(rows.size());
    std::transform(rows.begin(), rows.end(), places.begin(),
                   [this](int row) { return Place(row); });
    to.MakeRoom(places.size());
    // From the first place on: the next row that goes, the next one that is shown.
    auto place = places.begin();
    auto shown = std::lower_bound(shown_.begin(), shown_.end(), places.front());
    auto keptShown = shown;
    std::size_t kept = places.front();
    for (std::size_t at = kept; at < rows_.size(); ++at) {
      const bool isShown = shown != shown_.end() && *shown == at;
      if (isShown) ++shown;
      if (place != places.end() && at == *place) {
        ++place;
        if (to.IsShown(rows_[at])) to.shown_.push_back(to.rows_.size());
        to.rows_.push_back(std::move(rows_[at]));
        continue;
      }
      if (isShown) *keptShown++ = kept;
      if (kept != at) rows_[kept] = std::move(rows_[at]);
      ++kept;
    }
    rows_.resize(kept);
    shown_.erase(keptShown, shown_.end());
  }

 private:
  template <class T>
  static int Number(const std::vector<T>& of) {
    return static_cast<int>(of.size());
  }

  std::size_t Place(int row) const {
    const auto at = static_cast<std::size_t>(row);
    if (isFound_) return shown_.at(at);
    if (at >= rows_.size()) throw std::out_of_range("row");
    return at;
  }

  bool IsShown(const Row& row) const { return isFound_ && isFound_(row); }

  // For what is to come; grows as a vector does by itself.
  void MakeRoom(std::size_t more) {
    const auto grow = [more](auto& of) {
      if (of.capacity() - of.size() < more) of.reserve(std::max(of.size() + more, 2 * of.size()));
    };
    grow(rows_);
    if (isFound_) grow(shown_);
  }

  std::vector<Row> rows_;
  std::vector<std::size_t> shown_;  // places, ascending; empty without a function
  IsFound isFound_;
};

}  // namespace fetchkit
