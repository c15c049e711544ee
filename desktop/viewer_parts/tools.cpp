#include "tools.h"

#include <QAction>
#include <QToolBar>
#include <QWidget>

namespace practice::desktop {

using namespace Qt::StringLiterals;

QAction* add_tool(QToolBar& bar, const QString& name, const QString& tip,
                  const QList<QKeySequence>& keys, const std::function<void()>& act) {
  QAction* action = bar.addAction(name);
  action->setShortcuts(keys);
  action->setToolTip(tip + u" ("_s + keys.first().toString(QKeySequence::NativeText) + u')');
  QObject::connect(action, &QAction::triggered, &bar, act);
  bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  return action;
}

}  // namespace practice::desktop
