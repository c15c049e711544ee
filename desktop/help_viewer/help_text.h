// What the viewer shows: read from its file, and made fit to be read.
#pragma once

#include <QString>

class QFont;
class QTextDocument;

namespace practice::desktop {

/// What a file is written in, by its ending: "htm" and "html", "txt", and all others.
enum class TextForm { page, plain, markdown };

struct HelpText {
  QString text;
  TextForm form = TextForm::markdown;
  /// Why there is no text, for the student; empty when there is one.
  QString fault;
};

/// Reads a file of UTF-8 text, of 4 MiB at most.
HelpText read_help(const QString& path);

/// The name that links know a heading by: "The Score Panel" is "the-score-panel".
QString heading_name(const QString& heading);

/// The mean letter of English words, in pixels; wider in one font than in another.
double letter_width(const QFont& font);

/// Fills the empty document with the text in its form, or with the fault. To Markdown it adds what
/// that leaves to its reader: the lines of tables, and room between lines.
void fill_document(QTextDocument& document, const HelpText& help);

}  // namespace practice::desktop
