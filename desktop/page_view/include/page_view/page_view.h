// The drawing of an html::View: its page with native inputs laid into the text, or its picture.
//
// Call show_view() after every event; it draws when the document or the picture changed and else
// only copies the inputs' states into the widgets. The view must live until forget() or another
// show_view(). A student's edit is in html::Input before `edited` is called. Nothing on a page
// executes, and nothing is fetched but pictures of the view's picture folder.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "platform/html/view.h"

class QPrinter;
class QStackedLayout;

namespace practice::desktop {

class PageBrowser;
class PictureArea;

class PageView : public QWidget {
 public:
  explicit PageView(QWidget* parent = nullptr);
  ~PageView() override;

  /// The student changed an input.
  std::function<void()> edited;
  /// The element has a handler, which the owner runs. It is the element clicked or the nearest
  /// one around it that has one.
  std::function<void(html::Node&)> element_clicked;
  /// A link to a web or mail address, or one that asks for a window of its own.
  std::function<void(const QString& address)> open_address;

  /// `scale`: device pixels for one pixel at 96 dots an inch; 0 takes the screen's.
  void show_view(html::View& view, double scale = 0);
  void forget();

  /// A letter or digit in either case. Radio: checked, check box: toggled, both with the focus;
  /// text input: focused. False when the page has no input of that key.
  bool take_access_key(char key);
  bool has_access_key(char key) const;

  /// The first input, or the checked one of its group; the page itself when it has none.
  void focus_first_input();

  /// Real text in black, the inputs as marks: "(•)", "[x]", what was typed.
  void print(QPrinter& printer);

 private:
  void show_picture(html::View& view);
  void bring_up_page();

  html::View* view_ = nullptr;
  unsigned revision_ = 0;
  std::string picture_;
  std::string picture_folder_;
  double scale_ = 0;
  bool shows_picture_ = false;
  PageBrowser* page_;
  PictureArea* picture_area_;
  QStackedLayout* layout_;
};

}  // namespace practice::desktop
