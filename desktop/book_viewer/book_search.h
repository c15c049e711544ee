// Finds words in a book, a few pages at a time, so that the window goes on meanwhile.
//
// start() goes to the first hit from a place on, and over the end of the book to its beginning;
// step() goes on from there. The pages in between are searched first, then all others for their
// number. Upper and lower case are the same.
#pragma once

#include <QList>
#include <QPdfLink>
#include <QPdfSearchModel>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "book_place.h"

class QPdfDocument;

namespace practice::desktop {

class BookSearch {
 public:
  struct Hit {
    /// Both counted from 0.
    int page = 0;
    int index = 0;
  };

  /// A single letter would be found a million times; that many hits are kept at the most, besides
  /// those of the pages gone to.
  static constexpr int most_hits = 5'000;

  explicit BookSearch(QPdfDocument& document);

  /// Once for a program: keeps from standard error what Qt says of each hit in which upper and
  /// lower case are not as in the words looked for.
  static void hush_qt();

  /// No words end the search.
  void start(const QString& words, const BookPlace& from);
  /// To the next hit, or with -1 to the one before. Nothing while the first is looked for.
  void step(int by);

  bool is_on() const { return !model_.searchString().isEmpty(); }
  /// All pages were searched, or there are more hits than anybody looks at.
  bool is_complete() const { return !is_seeking() && (is_counted() || found_ > most_hits); }
  /// All pages were searched.
  bool is_counted() const { return searched_ == counts_.size(); }
  std::optional<Hit> hit() const { return hit_; }
  /// In the whole book, or as far as it was searched.
  int count() const { return found_; }
  /// The place of the hit among all, from 1; only when counted.
  int number_of_hit() const;
  /// The hits of a page in their order; none when it has not been searched yet.
  QList<QPdfLink> hits_on(int page) const;

  /// A hit was gone to.
  std::function<void()> landed = [] {};
  /// The number of hits is another, or the search is complete.
  std::function<void()> progressed = [] {};

 private:
  bool is_seeking() const { return direction_ != 0; }
  void seek(int direction, int page);
  void work();
  void seek_on_page();
  /// Searches a page if it has not been.
  QList<QPdfLink> search(int page);
  int page_count() const { return static_cast<int>(counts_.size()); }

  QPdfSearchModel model_;
  QTimer timer_;
  /// The hits of each page; -1 for those not searched yet.
  std::vector<int> counts_;
  std::size_t searched_ = 0;
  int next_page_ = 0;
  int found_ = 0;
  std::optional<Hit> hit_;

  /// 0 when no hit is being looked for.
  int direction_ = 0;
  int seek_page_ = 0;
  int pages_left_ = 0;
  /// The hits on the first page that are passed over begin or end after this many of it; or at
  /// this height, when the search starts.
  std::optional<int> from_index_;
  std::optional<double> from_down_;
};

}  // namespace practice::desktop
