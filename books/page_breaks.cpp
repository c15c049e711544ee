#include "book_setting/page_breaks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>

#include "book_setting/design.h"

namespace practice::books {
namespace {

// Free space grows and shrinks by these parts of itself.
constexpr double most_growth = 0.45;
constexpr double most_shrinking = 0.12;
constexpr double line = design::body_leading;

// Costs, on a scale where one line that a page is short costs 10.
constexpr double each_page = 60;
constexpr double all_growth = 10;
constexpr double all_shrinking = 14;
constexpr double inside_paragraph = 6;
constexpr double inside_group = 160;
constexpr double forbidden = 1e6;
constexpr double figure_put_off = 25;
constexpr double page_of_figures = 300;
constexpr double few_lines_at_end = 150;
constexpr double few_lines = 5 * line;

using Indices = std::vector<std::size_t>;

// The next slice of the text, and the figures before it that still look for a page.
struct State {
  std::size_t next = 0;
  Indices waiting{};

  auto operator<=>(const State&) const = default;
};

struct Way {
  double cost = 0;
  /// How the page that begins here ends.
  State end{};
};

// What stands on a page, while it fills.
class Filling {
 public:
  explicit Filling(double height) : height_(height) {}

  bool has_room(const Slice& slice) const {
    const double space = space_of(slice);
    double wanted = space + slice.height;
    for (const Slice& head : heads_of(slice)) wanted += head.height;
    return used_ + wanted <= height_ + most_shrinking * (spaces_ + space);
  }

  void put(const Slice& slice) {
    for (const Slice& head : heads_of(slice)) put_alone(head);
    put_alone(slice);
    has_text_ = has_text_ || !slice.floats;
  }

  bool empty() const { return placed_.empty(); }
  bool has_text() const { return has_text_; }
  double used() const { return used_; }

  // Of the look of the page if it ends here.
  double cost() const {
    const double lacking = height_ - used_;
    const double growth = (lacking < 0 ? most_shrinking : most_growth) * spaces_;
    const double part = spaces_ > 0 ? lacking / growth : 0;
    if (lacking <= growth) return (part < 0 ? all_shrinking : all_growth) * part * part;
    return all_growth + 10 * std::pow((lacking - growth) / line, 1.6);
  }

  // The last page of a chapter ends where its text does.
  PlacedSlices take(bool last) {
    const double lacking = height_ - used_;
    const double change = std::min(lacking, last ? 0 : most_growth * spaces_);
    double shift = 0;
    double end = 0;
    for (Placed& placed : placed_) {
      const double space = placed.top - end;
      end = placed.top + placed.slice->height;
      if (spaces_ > 0) shift += change * space / spaces_;
      placed.top += shift;
    }
    return std::move(placed_);
  }

 private:
  // A table that goes on from the page before begins the text of this one.
  const Slices& heads_of(const Slice& slice) const {
    static const Slices none;
    return has_text_ ? none : slice.repeated;
  }

  void put_alone(const Slice& slice) {
    spaces_ += space_of(slice);
    used_ += space_of(slice) + slice.height;
    placed_.push_back({.slice = &slice, .top = used_ - slice.height});
  }

  // A figure keeps its distance wherever it comes to stand.
  double space_of(const Slice& slice) const {
    if (placed_.empty()) return 0;
    const bool below_figure = placed_.back().slice->floats;
    return below_figure ? std::max(slice.space, design::figure_space) : slice.space;
  }

  double height_;
  double used_ = 0;
  double spaces_ = 0;
  bool has_text_ = false;
  PlacedSlices placed_{};
};

class PageCutter {
 public:
  PageCutter(const Slices& slices, double height) : slices_(slices), height_(height) {}

  std::vector<PlacedSlices> cut() {
    std::vector<PlacedSlices> pages;
    State state;
    while (!is_end(state)) {
      const State end = best_way(state).end;
      pages.push_back(fill(state, end));
      state = end;
    }
    return pages;
  }

 private:
  bool is_end(const State& state) const {
    return state.next == slices_.size() && state.waiting.empty();
  }

  const Way& best_way(const State& state) {
    const auto known = ways_.find(state);
    if (known != ways_.end()) return known->second;
    Way best{.cost = std::numeric_limits<double>::infinity()};
    for (const auto& [end, cost] : ends_of(state)) {
      const double whole = cost + (is_end(end) ? 0 : best_way(end).cost);
      if (whole < best.cost) best = {.cost = whole, .end = end};
    }
    return ways_.emplace(state, std::move(best)).first->second;
  }

  // Puts what waits at the top.
  void begin(Filling& filling, State& state) const {
    auto& waiting = state.waiting;
    while (!waiting.empty() && (filling.empty() || filling.has_room(slices_[waiting.front()]))) {
      filling.put(slices_[waiting.front()]);
      waiting.erase(waiting.begin());
    }
  }

  // Every way in which the page that begins here can end, and what that page costs.
  std::vector<std::pair<State, double>> ends_of(State state) const {
    std::vector<std::pair<State, double>> ends;
    const State first = state;
    Filling filling(height_);
    begin(filling, state);
    for (; state.next < slices_.size(); ++state.next) {
      const Slice& slice = slices_[state.next];
      if (must_wait(slice, filling, state)) {
        state.waiting.push_back(state.next);
        continue;
      }
      const bool may_end = !slice.floats && !filling.empty() && state != first;
      if (may_end) ends.emplace_back(state, page_cost(filling, state, slice.before));
      if (may_end && !filling.has_room(slice)) return ends;
      // What is higher than a page stands on one of its own.
      filling.put(slice);
    }
    const bool few = filling.used() < few_lines && first.next > 0;
    const double last = state.waiting.empty()
                            ? each_page + (filling.has_text() ? 0 : page_of_figures)
                            : page_cost(filling, state, Break::free);
    ends.emplace_back(state, last + (few ? few_lines_at_end : 0));
    return ends;
  }

  // No figure passes one that waits, and a page that is empty has to take what comes.
  static bool must_wait(const Slice& slice, const Filling& filling, const State& state) {
    if (!slice.floats) return false;
    return !state.waiting.empty() || (!filling.empty() && !filling.has_room(slice));
  }

  static double page_cost(const Filling& filling, const State& state, Break before) {
    double cost =
        each_page + filling.cost() + figure_put_off * static_cast<double>(state.waiting.size());
    if (!filling.has_text()) cost += page_of_figures;
    if (before == Break::in_paragraph) cost += inside_paragraph;
    if (before == Break::in_group) cost += inside_group;
    if (before == Break::never) cost += forbidden;
    return cost;
  }

  PlacedSlices fill(State state, const State& end) const {
    Filling filling(height_);
    begin(filling, state);
    for (; state.next < end.next; ++state.next) {
      const Slice& slice = slices_[state.next];
      if (must_wait(slice, filling, state)) {
        state.waiting.push_back(state.next);
      } else {
        filling.put(slice);
      }
    }
    return filling.take(is_end(end));
  }

  const Slices& slices_;
  double height_;
  std::map<State, Way> ways_{};
};

}  // namespace

std::vector<PlacedSlices> cut_into_pages(const Slices& slices, double height) {
  return PageCutter(slices, height).cut();
}

}  // namespace practice::books
