#include "print_page.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

#include "page_look.h"
#include "page_view/rich_text.h"

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {

// What the text document leaves free on each side of the sheet.
constexpr double sheet_margin_inches = 2 / 2.54;
constexpr int printed_indicator = 12;

}  // namespace

void print_page(html::View& view, const std::function<QPixmap(std::string_view source)>& picture,
                const QFont& fallback, double scale, QPrinter& printer) {
  const QFont font = page_font(view.document.style(), fallback);
  Look look = look_of(font, scale, static_cast<int>(printed_indicator * scale), paper_colours());
  const double sheet = printer.pageRect(QPrinter::Inch).width() - 2 * sheet_margin_inches;
  look.column = std::max(100, static_cast<int>(sheet * 96 * scale));
  look.marks_as_text = true;
  look.picture_size = [&](std::string_view source) { return picture(source).size() * scale; };

  QTextDocument paper;
  paper.setDefaultFont(font);
  prepare(paper, look, scale);
  const RichText text = rich_text(view.document, look);
  for (std::size_t i = 0; i < text.pictures.size(); ++i) {
    paper.addResource(QTextDocument::ImageResource, QUrl("picture:"_L1 + QString::number(i)),
                      picture(text.pictures[i].source));
  }
  paper.setHtml(text.html);
  paper.setMetaInformation(QTextDocument::DocumentTitle, qt_text(view.document.title()));
  paper.print(&printer);
}

void print_picture(const QPixmap& picture, QPrinter& printer) {
  QPainter painter(&printer);
  if (picture.isNull() || !painter.isActive()) return;
  const QSize sheet = printer.pageRect(QPrinter::DevicePixel).size().toSize();
  const QSize own = picture.size() * (printer.logicalDpiX() / 96.0);
  const bool fits = own.width() <= sheet.width() && own.height() <= sheet.height();
  const QSize drawn = fits ? own : own.scaled(sheet, Qt::KeepAspectRatio);
  painter.drawPixmap(QRect(QPoint((sheet.width() - drawn.width()) / 2, 0), drawn), picture);
}

}  // namespace practice::desktop
