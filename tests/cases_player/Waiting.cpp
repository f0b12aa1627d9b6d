#include "tests/cases_player/Waiting.h"

#include <QCoreApplication>
#include <QTimer>

namespace glimmet {

using namespace std::chrono_literals;

bool waitUntil(const std::function<bool()> &isOver)
{
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(30s);
    while (!isOver()) {
        if (!deadline.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace glimmet
