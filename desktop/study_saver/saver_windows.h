// The saver's preview and its configuration window.
#pragma once

#include <QDialog>
#include <QPixmap>
#include <QWidget>
#include <functional>

#include "saver_run.h"

namespace practice::desktop {

/// A picture of the saver in the small window of a host's settings.
class SaverPreview : public QWidget {
 public:
  /// The logo's file; a missing one leaves the words alone.
  explicit SaverPreview(const QString& logo);

  /// Lays itself into the host's window; false when there is no such window.
  bool show_in(unsigned window);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap logo_;
};

/// What the desktop offers to a screen saver program.
struct SaverDesktop {
  bool has_xscreensaver = false;
  bool is_wayland = false;
  /// As the desktop calls itself; empty when it does not.
  QString name{};

  static SaverDesktop here();
};

/// Tells the student which test is the saver, and what the desktop makes of it.
class SaverConfiguration : public QDialog {
 public:
  SaverConfiguration(const ChosenTest& test, const SaverDesktop& desktop);

  /// The student wants to see it now.
  std::function<void()> try_it;
};

}  // namespace practice::desktop
