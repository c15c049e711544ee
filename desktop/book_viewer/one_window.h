// One window for each book of a user: a viewer that is started again hands its page to the window
// that is open.
//
// Call hand_over() first, and listen() when it returned false. A local socket in the user's own
// folder carries the page; where there is none, each start has a window of its own.
#pragma once

#include <QLocalServer>
#include <QString>
#include <functional>

namespace practice::desktop {

class OneWindow {
 public:
  /// The folder must be the user's alone; no folder means that each start has its own window.
  OneWindow(const QString& folder, const QString& book);

  /// The folder of this user's sockets; empty when the system has none.
  static QString folder_of_user();

  /// True when an open window turned to the page, counted from 1.
  bool hand_over(int page) const;
  /// From now on, pages handed over go to `turn_to`. False when nobody can be listened to.
  bool listen(std::function<void(int page)> turn_to);

 private:
  void receive();

  QString address_;
  QLocalServer server_;
  std::function<void(int page)> turn_to_;
};

}  // namespace practice::desktop
