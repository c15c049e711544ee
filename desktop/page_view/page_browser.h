// The page as text, with a native radio button, check box or line edit laid over each input's
// placeholder. The widgets are kept from page to page; they follow the text when it scrolls or is
// laid out anew.
//
// The page is one stop of the window's Tab order. Within it Tab goes from input to link in page
// order, which this class sees to, as links are no widgets; so the inputs' own focus policy is to
// take no Tab.
#pragma once

#include <QTextBrowser>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "page_view/page_view.h"
#include "page_view/pictures.h"
#include "page_view/rich_text.h"

class QAbstractButton;
class QButtonGroup;
class QLineEdit;

namespace practice::desktop {

class PageBrowser : public QTextBrowser {
 public:
  explicit PageBrowser(PageView& owner);

  void show_page(html::View& view, double scale);
  /// A plain page in place of a picture that can not be drawn.
  void show_failure(html::View& view, double scale);
  void forget();
  /// Brings the inputs' states to the widgets where they differ.
  void mirror();

  /// A radio is checked, a check box toggled, a text input only given the focus.
  void choose(html::Input& input, Qt::FocusReason reason);
  void focus_first_input();
  bool has_focus_within() const;

  void print_on(QPrinter& printer);

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  bool viewportEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  struct Field {
    html::Input* input = nullptr;
    QWidget* widget = nullptr;
    /// Of the placeholder in the text.
    int position = -1;
    /// Of the placeholder, before the column limits it.
    QSize size;
    /// The whole line of a choice, document coordinates; empty for a text input.
    QRectF row;
  };
  struct Link {
    html::Node* node = nullptr;
    /// Runs of text, from and up to.
    std::vector<std::pair<int, int>> ranges;
  };
  struct Spot {
    double left = 0;
    double baseline = 0;
  };
  struct Stop {
    int position = 0;
    Field* field = nullptr;
    /// -1 when it is a field.
    int link = -1;
  };
  struct Action {
    html::Node* handler = nullptr;
    QString address;
    bool exists = false;
  };
  /// What lies under the mouse; -1 for none.
  struct Target {
    int link = -1;
    int field = -1;
    friend bool operator==(const Target&, const Target&) = default;
  };

  // Drawing.
  void draw();
  Look screen_look() const;
  int side_margin() const;
  int column() const;
  void set_side_margins();
  QPixmap page_picture(std::string_view source);
  QPixmap failed_picture(std::string_view source) const;
  void find_objects();
  void fit_objects();
  void set_object_size(int position, QSize size);
  void place();
  void place(Field& field);
  Spot spot_of(int position) const;
  QRectF row_of(int position) const;
  QPoint scrolled() const;
  void reveal(const QRectF& rect);
  std::vector<QRectF> rects_of(const Link& link) const;

  // Widgets.
  QWidget* take_widget(html::InputKind kind, std::size_t& used);
  void assign_widgets();
  void tint_marks();
  QAbstractButton* new_mark(html::InputKind kind);
  QLineEdit* new_line_edit();
  void adopt(QWidget& widget);
  Field* field_of(const QObject* widget);
  Field* focused_field();

  // Operation.
  bool is_current() const;
  void take_edit(const QObject* widget);
  void notify_edited();
  void focus_field(Field& field, Qt::FocusReason reason);
  void focus_link(int link, Qt::FocusReason reason);
  void focus_stop(const Stop& stop, bool next);
  std::vector<Stop> stops();
  bool is_stop(const Field& field) const;
  Field* first_field();
  bool move_in_group(Field& field, bool next);
  Action action_of(html::Node* node) const;
  void activate(int link);
  Target target_at(QPoint point);
  void set_hovered(Target target);

  PageView& owner_;
  html::View* view_ = nullptr;
  unsigned revision_ = 0;
  double scale_ = 1;
  bool is_failure_ = false;
  RichText text_;
  Pictures pictures_;
  /// The pictures of this page by source, and the pixels that are still allowed to it.
  std::unordered_map<std::string, QPixmap> page_pictures_;
  qint64 pixels_left_ = 0;
  std::vector<int> picture_positions_;
  QFont own_font_;

  std::vector<Field> fields_;
  std::vector<Link> links_;
  /// Index in links_ by index in RichText::links.
  std::vector<int> link_of_node_;
  QButtonGroup* radio_group_;
  std::vector<QWidget*> radios_;
  std::vector<QWidget*> check_boxes_;
  std::vector<QWidget*> line_edits_;

  Target hovered_;
  Target pressed_;
  /// The link with the focus; -1 for none.
  int current_link_ = -1;
  bool keeps_focus_ = false;
  bool is_drawing_ = false;
};

}  // namespace practice::desktop
