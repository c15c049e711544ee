// Runs of text of one style, gathered line by line for a block. A run writes itself as rich text
// of its own, so nothing nests however deep the page's tags do.
#pragma once

#include <QString>
#include <string_view>
#include <vector>

#include "page_view/rich_text.h"

namespace practice::desktop {

struct RunStyle {
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  bool struck = false;
  bool typewriter = false;
  bool link = false;
  /// -1 below the line, 1 above it.
  signed char script = 0;
  /// Steps above or below the body size, each about a fifth.
  signed char size = 0;
  /// Index in RichText::links; -1 for none.
  int node = -1;
  friend bool operator==(const RunStyle&, const RunStyle&) = default;
};

struct Run {
  enum class Kind { text, object, line_break };
  Kind kind = Kind::text;
  /// An object's is rich text.
  QString text;
  RunStyle style;
};

/// The runs of one block, blanks folded as they come.
class Runs {
 public:
  /// Takes at most `room` characters and returns how many it took.
  int add_text(QStringView text, const RunStyle& style, bool keeps_blanks, int room);
  void add_object(QString rich_text, const RunStyle& style);
  void add_break();

  bool empty() const { return runs_.empty(); }
  /// Drops the breaks and blanks at the end.
  void trim_end();
  /// Drops the breaks at the start and returns how many there were.
  int trim_start();
  const std::vector<Run>& runs() const { return runs_; }
  std::vector<Run>& runs() { return runs_; }
  void clear();

 private:
  std::vector<Run> runs_;
  bool blank_pending_ = false;
  bool line_empty_ = true;
};

/// Appends the runs from `first` up to `last`, breaks within as line separators.
void append_rich_text(QString& html, const std::vector<Run>& runs, std::size_t first,
                      std::size_t last, const Look& look);
void append_escaped(QString& html, QStringView text);

/// Length of the letter that a line opens with when a blank follows it: 2 for "A. x", 3 for
/// "A.) x"; else 0.
qsizetype letter_length(QStringView line);

}  // namespace practice::desktop
