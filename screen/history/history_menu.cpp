#include "screen/history/history_menu.h"

#include <QAbstractItemView>
#include <QMenu>

#include "operationlog/history/history_texts.h"
#include "screen/guarded.h"
#include "screen/shown.h"
#include "session/host_messages.h"

namespace chengheng {

void offerHistory(QAbstractItemView& view, HistoryAsked asked) {
    const auto show = [&view, asked] {
        if (const auto history = asked()) HistoryWindow(*history, view.window()).DoModal();
    };
    const auto popUp = [&view, asked, show](QPoint position) {
        QMenu menu(&view);
        QAction* action = menu.addAction(shown(history_texts::title));
        action->setEnabled(asked().has_value());
        QObject::connect(
            action, &QAction::triggered, &view,
            [&view, show] { runGuarded(hostMessages(), view.window()->windowTitle(), show); },
            Qt::QueuedConnection);
        menu.exec(view.viewport()->mapToGlobal(position));
    };
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&view, &QWidget::customContextMenuRequested, &view, popUp);
}

}  // namespace chengheng
