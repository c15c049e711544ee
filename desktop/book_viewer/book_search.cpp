#include "book_search.h"

#include <QElapsedTimer>
#include <QPdfDocument>
#include <algorithm>
#include <numeric>

namespace practice::desktop {
namespace {

QtMessageHandler usual_handler = nullptr;

constexpr qint64 milliseconds_at_a_time = 15;

double top_of(const QPdfLink& hit) {
  const QList<QRectF> areas = hit.rectangles();
  return areas.isEmpty() ? 0 : areas.first().top();
}

}  // namespace

BookSearch::BookSearch(QPdfDocument& document) {
  model_.setDocument(&document);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { work(); });
}

void BookSearch::hush_qt() {
  if (usual_handler != nullptr) return;
  usual_handler = qInstallMessageHandler(
      [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (!message.startsWith(u"search string \"")) usual_handler(type, context, message);
      });
}

void BookSearch::start(const QString& words, const BookPlace& from) {
  timer_.stop();
  direction_ = 0;
  hit_.reset();
  found_ = 0;
  searched_ = 0;
  next_page_ = 0;
  model_.setSearchString(words);
  counts_.assign(static_cast<std::size_t>(std::max(0, model_.document()->pageCount())), -1);
  if (!is_on() || counts_.empty()) {
    progressed();
    return;
  }
  from_index_.reset();
  from_down_ = from.down;
  seek(1, std::clamp(from.page, 0, page_count() - 1));
}

void BookSearch::step(int by) {
  if (!hit_ || is_seeking()) return;
  from_down_.reset();
  from_index_ = hit_->index + by;
  seek(by, hit_->page);
}

void BookSearch::seek(int direction, int page) {
  direction_ = direction;
  seek_page_ = page;
  // The first page comes again at the end, for the hits that were passed over.
  pages_left_ = page_count() + 1;
  timer_.start();
  work();
}

void BookSearch::work() {
  QElapsedTimer time;
  time.start();
  do {
    if (is_seeking()) {
      seek_on_page();
    } else if (next_page_ < page_count() && found_ <= most_hits) {
      search(next_page_++);
    } else {
      timer_.stop();
      break;
    }
  } while (time.elapsed() < milliseconds_at_a_time);
  progressed();
}

void BookSearch::seek_on_page() {
  const QList<QPdfLink> hits = search(seek_page_);
  const int count = static_cast<int>(hits.size());
  int index = direction_ > 0 ? 0 : count - 1;
  if (from_down_) {
    const auto next = std::ranges::find_if(
        hits, [this](const QPdfLink& hit) { return top_of(hit) >= *from_down_; });
    index = static_cast<int>(next - hits.begin());
  } else if (from_index_) {
    index = *from_index_;
  }
  from_down_.reset();
  from_index_.reset();
  if (index >= 0 && index < count) {
    hit_ = Hit{seek_page_, index};
    direction_ = 0;
    landed();
    return;
  }
  seek_page_ = (seek_page_ + direction_ + page_count()) % page_count();
  if (--pages_left_ == 0) direction_ = 0;
}

QList<QPdfLink> BookSearch::search(int page) {
  QList<QPdfLink> hits = model_.resultsOnPage(page);
  int& count = counts_[static_cast<std::size_t>(page)];
  if (count < 0) {
    count = static_cast<int>(hits.size());
    found_ += count;
    ++searched_;
  }
  return hits;
}

int BookSearch::number_of_hit() const {
  if (!hit_) return 0;
  return std::accumulate(counts_.begin(), counts_.begin() + hit_->page, hit_->index + 1);
}

QList<QPdfLink> BookSearch::hits_on(int page) const {
  if (!is_on() || page >= page_count() || counts_[static_cast<std::size_t>(page)] < 0) return {};
  return model_.resultsOnPage(page);
}

}  // namespace practice::desktop
