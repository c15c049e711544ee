// The search of the book window.
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "book_pages.h"
#include "book_window.h"
#include "search_bar.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// A hit's letters have areas of their own, of different heights.
constexpr double room_around_hit = 1;

// The areas of a hit, one for each of its lines.
std::vector<QRectF> lines_of(const QPdfLink& hit) {
  std::vector<QRectF> lines;
  for (const QRectF& letter : hit.rectangles()) {
    const QRectF area =
        letter.marginsAdded({room_around_hit, room_around_hit, room_around_hit, room_around_hit});
    const bool is_on_line = !lines.empty() && area.center().y() < lines.back().bottom() &&
                            area.center().y() > lines.back().top();
    if (is_on_line) {
      lines.back() |= area;
    } else {
      lines.push_back(area);
    }
  }
  return lines;
}

}  // namespace

QWidget* BookWindow::make_search_bar() {
  auto* bar = new SearchBar({.search = [this] { search(); },
                             .step = [this](int by) { step(by); },
                             .close = [this] { close_search(); }});
  search_bar_ = bar;
  wanted_ = bar->wanted();
  found_ = bar->found();
  search_.landed = [this] { show_hit(); };
  search_.progressed = [this] {
    tell_hits();
    pages_->viewport()->update();
  };
  return search_bar_;
}

void BookWindow::open_search() {
  if (!has_book_) return;
  if (search_bar_->isHidden()) {
    search_from_ = pages_->place();
    search_has_jumped_ = false;
  }
  search_bar_->show();
  wanted_->setFocus();
  wanted_->selectAll();
  search();
}

void BookWindow::close_search() {
  const bool had_focus = search_bar_->isAncestorOf(focusWidget());
  search_.start({}, {});
  search_bar_->hide();
  if (had_focus) pages_->setFocus();
}

void BookWindow::search() { search_.start(wanted_->text(), search_from_); }

void BookWindow::step(int by) {
  if (search_bar_->isHidden()) {
    open_search();
  } else {
    search_.step(by);
  }
}

void BookWindow::show_hit() {
  const auto hit = search_.hit();
  if (!hit) return;
  const QPdfLink link = search_.hits_on(hit->page).value(hit->index);
  QRectF area;
  for (const QRectF& line : lines_of(link)) area |= line;
  const auto go = [&] { pages_->show_area(hit->page, area); };
  // A search is one step of Back, however many hits were looked at.
  if (search_has_jumped_) {
    go();
  } else {
    const auto steps = places_back_.size();
    jump(go);
    search_has_jumped_ = places_back_.size() > steps;
  }
  pages_->viewport()->update();
}

void BookWindow::tell_hits() {
  QString told;
  if (search_.is_on() && !search_.is_complete()) {
    told = u"Searching\u2026"_s;
  } else if (search_.is_on() && search_.count() == 0) {
    told = u"Not found"_s;
  } else if (search_.is_on() && !search_.is_counted()) {
    told = u"Over %1 hits"_s.arg(BookSearch::most_hits);
  } else if (search_.is_on()) {
    told = u"%1 of %2"_s.arg(search_.number_of_hit()).arg(search_.count());
  }
  if (found_->text() != told) found_->setText(told);
}

std::vector<BookMark> BookWindow::marks_on(int page) const {
  std::vector<BookMark> marks;
  const QList<QPdfLink> hits = search_.hits_on(page);
  const auto hit = search_.hit();
  for (int i = 0; i < static_cast<int>(hits.size()); ++i) {
    const bool is_current = hit && hit->page == page && hit->index == i;
    for (const QRectF& line : lines_of(hits[i])) marks.push_back({line, is_current});
  }
  return marks;
}

}  // namespace practice::desktop
