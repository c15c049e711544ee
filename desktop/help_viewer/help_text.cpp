#include "help_text.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPalette>
#include <QStringDecoder>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace practice::desktop {
namespace {
constexpr qint64 most_bytes = 4 << 20;
constexpr auto dialect = QTextDocument::MarkdownFeatures(QTextDocument::MarkdownDialectGitHub) |
                         QTextDocument::MarkdownNoHTML;

TextForm form_of(const QFileInfo& file) {
  const QString ending = file.suffix().toLower();
  if (ending == u"htm" || ending == u"html") return TextForm::page;
  return ending == u"txt" ? TextForm::plain : TextForm::markdown;
}

void dress(QTextDocument& text) {
  const double line = QFontMetricsF(text.defaultFont()).lineSpacing();
  for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
    QTextBlockFormat lines;
    lines.setLineHeight(120, QTextBlockFormat::ProportionalHeight);
    const int level = block.blockFormat().headingLevel();
    if (level > 0 && block != text.begin()) lines.setTopMargin(line * (level > 2 ? 0.8 : 1.3));
    if (QTextCursor(block).currentTable() != nullptr) lines.setBottomMargin(0);
    QTextCursor(block).mergeBlockFormat(lines);
  }
  for (QTextFrame* frame : text.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderBrush(QGuiApplication::palette().mid());
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(line * 0.25);
    format.setTopMargin(line * 0.5);
    format.setBottomMargin(line);
    table->setFormat(format);
  }
}

}  // namespace

HelpText read_help(const QString& path) {
  const QFileInfo place(path);
  const TextForm form = form_of(place);
  const QString hint = form == TextForm::markdown
                           ? u"\n\nInstalling Practice Exam again puts its help back."_s
                           : QString();
  const auto fault = [&](const QString& what) {
    return HelpText{{}, form, what.arg(place.absoluteFilePath()) + hint};
  };
  if (!place.exists()) return fault(u"There is no file %1."_s);
  QFile file(path);
  if (!place.isFile() || !file.open(QIODevice::ReadOnly)) {
    return fault(u"The file %1 can not be read."_s);
  }
  const QByteArray bytes = file.read(most_bytes + 1);
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString text = utf8(bytes);
  if (bytes.size() > most_bytes || bytes.contains('\0') || utf8.hasError()) {
    return fault(u"The file %1 is no text."_s);
  }
  if (text.trimmed().isEmpty()) return fault(u"The file %1 is empty."_s);
  return {text, form, {}};
}

QString heading_name(const QString& heading) {
  QString name;
  for (const QChar c : heading.trimmed().toLower()) {
    if (c.isLetterOrNumber() || c == u'_' || c == u'-') {
      name += c;
    } else if (c.isSpace()) {
      name += u'-';
    }
  }
  return name;
}

double letter_width(const QFont& font) {
  const QString words = u"the quick answer to a question is often in one of its own words"_s;
  return QFontMetricsF(font).horizontalAdvance(words) / static_cast<double>(words.size());
}

void fill_document(QTextDocument& document, const HelpText& help) {
  if (!help.fault.isEmpty()) {
    document.setPlainText(help.fault);
  } else if (help.form == TextForm::page) {
    document.setHtml(help.text);
  } else if (help.form == TextForm::plain) {
    document.setPlainText(help.text);
  } else {
    document.setMarkdown(help.text, dialect);
    dress(document);
  }
}

}  // namespace practice::desktop
