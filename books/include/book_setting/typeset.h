// A book on its pages.
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "bank_compiler/fault.h"
#include "book_setting/book.h"
#include "book_setting/front_pages.h"
#include "book_setting/page_breaks.h"

namespace practice::books {

struct SetPage {
  PlacedSlices slices{};
  /// Empty on the pages that open something.
  QString running_head{};
  /// False on the title page and the imprint, which have a number but do not show it.
  bool shows_number = true;
};

struct SetBook {
  /// What the pages place. Lists do not move.
  std::vector<std::unique_ptr<const Slices>> slices{};
  /// The first one is page 1.
  std::vector<SetPage> pages{};
  Places places{};
};

/// Reports what shows only now: text that does not fit, signs that the faces of the book do not
/// have, figures that can not be drawn. Is empty when there are faults, from before or new. Wants a
/// QGuiApplication.
SetBook set_book(const Book& book, compiler::Faults& faults);

/// The same bytes for the same book and the same fonts, in a process that was prepared for it.
QByteArray to_pdf(const SetBook& set, const BookHead& head);

}  // namespace practice::books
