#include "page_view/page_view.h"

#include <QFileInfo>
#include <QPixmap>
#include <QStackedLayout>
#include <cctype>

#include "page_browser.h"
#include "page_view/pictures.h"
#include "page_view/rich_text.h"
#include "picture_area.h"
#include "print_page.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

html::Input* input_of_key(html::View* view, char key) {
  if (view == nullptr) return nullptr;
  const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(key)));
  for (html::Input& input : view->document.inputs()) {
    const bool is_it = input.access_key.size() == 1 && input.access_key.front() == lower;
    if (is_it && input.kind != html::InputKind::other) return &input;
  }
  return nullptr;
}

}  // namespace

PageView::PageView(QWidget* parent)
    : QWidget(parent),
      page_(new PageBrowser(*this)),
      picture_area_(new PictureArea(this)),
      layout_(new QStackedLayout(this)) {
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->addWidget(page_);
  layout_->addWidget(picture_area_);
  setFocusProxy(page_);
}

PageView::~PageView() = default;

void PageView::show_view(html::View& view, double scale) {
  if (scale <= 0) scale = logicalDpiX() / 96.0;
  const bool is_same = view_ == &view && revision_ == view.document.revision() &&
                       picture_ == view.picture() && scale_ == scale &&
                       picture_folder_ == view.picture_folder;
  if (is_same) {
    if (!shows_picture_) page_->mirror();
  } else {
    view_ = &view;
    revision_ = view.document.revision();
    picture_ = view.picture();
    picture_folder_ = view.picture_folder;
    scale_ = scale;
    if (picture_.empty()) {
      shows_picture_ = false;
      page_->show_page(view, scale);
      bring_up_page();
    } else {
      show_picture(view);
    }
  }
  // An address that was asked for is still to come.
  if (!view.is_navigating()) view.busy = false;
}

void PageView::show_picture(html::View& view) {
  const QString path = find_on_disk(qt_text(view.picture()));
  const QPixmap picture = QPixmap::fromImage(read_picture(path));
  shows_picture_ = !picture.isNull();
  if (!shows_picture_) {
    page_->show_failure(view, scale_);
    bring_up_page();
    return;
  }
  picture_area_->setAccessibleName(QFileInfo(path).fileName());
  const bool had_focus = page_->has_focus_within();
  setFocusProxy(picture_area_);
  layout_->setCurrentWidget(picture_area_);
  picture_area_->show_picture(picture, scale_);
  if (had_focus) picture_area_->setFocus();
}

void PageView::bring_up_page() {
  const bool had_focus = picture_area_ == window()->focusWidget();
  setFocusProxy(page_);
  layout_->setCurrentWidget(page_);
  if (had_focus) page_->focus_first_input();
}

void PageView::forget() {
  view_ = nullptr;
  page_->forget();
}

bool PageView::has_access_key(char key) const {
  return !shows_picture_ && input_of_key(view_, key) != nullptr;
}

bool PageView::take_access_key(char key) {
  html::Input* input = shows_picture_ ? nullptr : input_of_key(view_, key);
  if (input == nullptr) return false;
  page_->choose(*input, Qt::ShortcutFocusReason);
  return true;
}

void PageView::focus_first_input() {
  if (shows_picture_) {
    picture_area_->setFocus();
  } else {
    page_->focus_first_input();
  }
}

void PageView::print(QPrinter& printer) {
  if (view_ == nullptr) return;
  if (shows_picture_) {
    print_picture(picture_area_->picture(), printer);
  } else {
    page_->print_on(printer);
  }
}

}  // namespace practice::desktop
