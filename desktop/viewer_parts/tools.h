// Tools of a window: an action with its keys, reached by Tab as well.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <functional>

class QAction;
class QToolBar;

namespace practice::desktop {

/// Adds a tool to the bar; its tip names the first of its keys.
QAction* add_tool(QToolBar& bar, const QString& name, const QString& tip,
                  const QList<QKeySequence>& keys, const std::function<void()>& act);

}  // namespace practice::desktop
