#include "book_setting/face_rules.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QString>
#include <array>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "bank_compiler/text_form.h"
#include "book_setting/design.h"
#include "book_setting/typography.h"

namespace practice::books {
namespace {

constexpr std::array faces{Face::serif, Face::sans, Face::mono};
constexpr int any_size = 100;

class FaceRules {
 public:
  FaceRules(const Book& book, compiler::Faults& faults) : book_(book), faults_(faults) {}

  void check() {
    if (!check_installed()) return;
    const compiler::Reporter head_report(book_.head_file, faults_);
    for (const Paragraph& paragraph : book_.head.imprint) {
      check_text(paragraph, Face::serif, head_report);
    }
    for (const std::string& text :
         {book_.head.title, book_.head.subtitle, book_.head.publisher, book_.head.edition}) {
      check_text({.spans = {{.text = text}}}, Face::sans, head_report);
    }
    for (const Chapter& chapter : book_.chapters) {
      const compiler::Reporter report(chapter.file, faults_);
      check_heading(chapter.title, chapter.title_line, report);
      for (const Block& block : chapter.blocks) {
        std::visit([&](const auto& one) { check_block(one, report); }, block);
      }
    }
  }

 private:
  bool check_installed() const {
    const compiler::Reporter report(book_.head_file, faults_);
    bool all = true;
    for (const Face face : faces) {
      const QString family = family_of(face);
      if (QFontInfo(font_of(face, any_size, false, false)).family() == family) continue;
      report(0, "the fonts of the books must be installed",
             compiler::in_quotes(family.toStdString()));
      all = false;
    }
    return all;
  }

  void check_block(const SectionHeading& heading, const compiler::Reporter& report) {
    check_heading(heading.text, heading.line, report);
  }
  void check_block(const Paragraph& paragraph, const compiler::Reporter& report) {
    check_text(paragraph, Face::serif, report);
  }
  void check_block(const Figure& figure, const compiler::Reporter& report) {
    check_text(figure.caption, Face::sans, report);
  }
  void check_block(const List& list, const compiler::Reporter& report) {
    for (const ListItem& item : list.items) {
      check_text(item.text, Face::serif, report);
      for (const List& nested : item.nested) check_block(nested, report);
    }
  }
  void check_block(const Listing& listing, const compiler::Reporter& report) {
    int line = listing.line;
    for (const std::string& text : listing.lines) {
      check_text({.spans = {{.text = text, .code = true}}, .line = ++line}, Face::mono, report);
    }
  }
  void check_block(const Table& table, const compiler::Reporter& report) {
    for (const auto& row : table.rows) {
      for (const Paragraph& cell : row) check_text(cell, Face::sans, report);
    }
  }

  // Contents repeat a heading in another face.
  void check_heading(const std::string& text, int line, const compiler::Reporter& report) {
    check_text({.spans = {{.text = text}}, .line = line}, Face::sans, report);
    check_text({.spans = {{.text = text}}, .line = line}, Face::serif, report);
  }

  void check_text(Paragraph paragraph, Face face, const compiler::Reporter& report) {
    polish(paragraph.spans);
    for (const Span& span : paragraph.spans) {
      const Face drawn = span.code ? Face::mono : face;
      for (const char32_t sign : QString::fromStdString(span.text).toUcs4()) {
        if (has(drawn, span.bold, span.italic, sign)) continue;
        report(paragraph.line, "the book's faces have every sign of its text",
               compiler::in_quotes(QString::fromUcs4(&sign, 1).toStdString())
                   .append(" in ")
                   .append(family_of(drawn).toStdString()));
      }
    }
  }

  bool has(Face face, bool bold, bool italic, char32_t sign) {
    const auto [place, fresh] = known_.try_emplace({face, bold, italic, sign}, false);
    if (fresh) {
      place->second = QFontMetricsF(font_of(face, any_size, bold, italic)).inFontUcs4(sign);
    }
    return place->second;
  }

  const Book& book_;
  compiler::Faults& faults_;
  std::map<std::tuple<Face, bool, bool, char32_t>, bool> known_{};
};

}  // namespace

void check_faces(const Book& book, compiler::Faults& faults) { FaceRules(book, faults).check(); }

}  // namespace practice::books
