// One window class per screen: where its widgets stand, and what it shows beyond its controls.
#pragma once

#include "screen_window.h"

namespace practice::desktop {

class WelcomeWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
};

class PickAQuizWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
  QWidget* general_page();
  QWidget* options_page();
  QWidget* categories_page();
  QWidget* saver_page();
};

class QuestWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
};

class TheAnswerWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
};

class FinalScoreWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
  void mirror_more() override;
};

/// A few lines of text: the about box, and the notice at the start.
class NoticeWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
};

/// The exhibit and the diagram beside a test.
class ExhibitWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
};

/// The study saver over the whole desk, or the flash cards.
class SecurityWindow : public ScreenWindow {
  using ScreenWindow::ScreenWindow;
  void arrange() override;
  void put_into_frame();
  void arrange_saver();
  void arrange_cards();
};

}  // namespace practice::desktop
