// The bar of a search: what is wanted, what was found, and the steps between the matches.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;

namespace practice::desktop {

class SearchBar : public QWidget {
 public:
  struct Acts {
    /// The text that is wanted has changed.
    std::function<void()> search;
    /// To the next match, 1, or the previous one, -1.
    std::function<void(int)> step;
    std::function<void()> close;
  };

  /// Hidden at first.
  explicit SearchBar(Acts acts);

  QLineEdit* wanted() const { return wanted_; }
  QLabel* found() const { return found_; }

 private:
  QLineEdit* wanted_ = nullptr;
  QLabel* found_ = nullptr;
};

}  // namespace practice::desktop
